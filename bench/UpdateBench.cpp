// What the upgrade check's reader costs against WinInet itself: an 8 MB
// version file read with CNetGet::ReadUrl, and the same file read by a bare
// InternetReadFile loop into a buffer allocated beforehand, both from a local
// web server. Prints the best of a few rounds of each and their ratio
// (target: ReadUrl at most 2 times the bare loop).
#include <windows.h>
#include <wininet.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "CNetGet.h"
#include "WebServer.h"

namespace {

constexpr size_t kBodySize = 8u << 20;
constexpr int kRounds = 5;

double Seconds(LARGE_INTEGER from, LARGE_INTEGER to)
{
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(to.QuadPart - from.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// The same request ReadUrl makes, read in the same 2,048-byte chunks, with
// nothing kept but the bytes; returns how many came.
size_t BareRead(HINTERNET internet, const WebServer& server, std::vector<char>& buffer)
{
    HINTERNET connection = InternetConnectA(internet, "127.0.0.1", static_cast<INTERNET_PORT>(server.Port()), nullptr,
                                            nullptr, INTERNET_SERVICE_HTTP, 0, 0);
    HINTERNET request = HttpOpenRequestA(connection, "GET", "/prismover32", nullptr, nullptr, nullptr,
                                         INTERNET_FLAG_EXISTING_CONNECT | INTERNET_FLAG_RELOAD, 0);
    size_t total = 0;
    if (HttpSendRequestA(request, nullptr, 0, nullptr, 0)) {
        DWORD read = 0;
        while (total + 2048 <= buffer.size() && InternetReadFile(request, buffer.data() + total, 2048, &read) && read)
            total += read;
    }
    InternetCloseHandle(request);
    InternetCloseHandle(connection);
    return total;
}

}  // namespace

int main()
{
    std::string body;
    while (body.size() < kBodySize) body += "1.2.3.";
    WebServer server;
    server.Answer(WebServer::Page(body));
    const std::string url = "http://" + server.Host() + "/prismover32";
    std::vector<char> buffer(kBodySize + 4096);

    double bestBare = 1e9, bestReadUrl = 1e9;
    size_t bareBytes = 0, readUrlBytes = 0;
    HINTERNET internet = InternetOpenA("prismo", INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0);
    for (int round = 0; round < kRounds; ++round) {
        LARGE_INTEGER a, b, c;
        QueryPerformanceCounter(&a);
        bareBytes = BareRead(internet, server, buffer);
        QueryPerformanceCounter(&b);
        CNetGet net;
        net.Init();
        bool ok = false;
        net.ReadUrl(url, ok);
        QueryPerformanceCounter(&c);
        readUrlBytes = ok ? PostedVersion.size() : 0;
        bestBare = std::min(bestBare, Seconds(a, b));
        bestReadUrl = std::min(bestReadUrl, Seconds(b, c));
    }
    InternetCloseHandle(internet);
    std::printf("8 MB version file, best of %d rounds\n", kRounds);
    std::printf("  bare InternetReadFile loop: %8.1f ms (%zu bytes)\n", bestBare * 1000, bareBytes);
    std::printf("  CNetGet Init + ReadUrl:     %8.1f ms (%zu bytes)\n", bestReadUrl * 1000, readUrlBytes);
    std::printf("  ratio: %.2f (target at most 2)\n", bestReadUrl / bestBare);
    return bareBytes == body.size() && readUrlBytes == body.size() ? 0 : 1;
}
