// CNetGet: the upgrade check's HTTP reader over WinInet.
#include "CNetGet.h"

#include <vector>

#include "UpgradeText.h"

std::string PostedVersion;
bool UpgradeAvailable = false;

namespace {

// A server that takes the connection and never answers would hold the whole
// program: the request gives up after this long.
constexpr DWORD kTimeoutMs = 20000;
constexpr DWORD kChunk = 2048;

// The program file's name without folder and extension.
std::string ProgramName()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    std::string name = path;
    const auto slash = name.find_last_of("\\/");
    if (slash != std::string::npos) name.erase(0, slash + 1);
    const auto dot = name.rfind('.');
    if (dot != std::string::npos) name.erase(dot);
    return name;
}

}  // namespace

InternetHandle& InternetHandle::operator=(InternetHandle&& other) noexcept
{
    if (this != &other) {
        Close();
        handle_ = other.handle_;
        other.handle_ = nullptr;
    }
    return *this;
}

bool InternetHandle::Close()
{
    if (!handle_) return true;
    const bool closed = InternetCloseHandle(handle_) != FALSE;
    handle_ = nullptr;
    return closed;
}

void CNetGet::CheckError()
{
    const DWORD error = ::GetLastError();
    if (error > 0) lastError_ = TranslateErrorCode(static_cast<long>(error));
}

void CNetGet::Init(const std::string& userAgent)
{
    Term();
    rawHTML_.clear();
    lastError_.clear();
    userAgent_ = userAgent.empty() ? ProgramName() : userAgent;
    internet_ = InternetHandle(InternetOpenA(userAgent_.c_str(), INTERNET_OPEN_TYPE_DIRECT, nullptr, nullptr, 0));
    initialised_ = static_cast<bool>(internet_);
}

// The request is opened by hand, not with InternetOpenUrlA, so that it can
// carry its own timeouts and always ask the server (a cached answer could
// hide a new version).
bool CNetGet::OpenRequest(const std::string& url, InternetHandle& connection, InternetHandle& request)
{
    std::vector<char> host(INTERNET_MAX_HOST_NAME_LENGTH + 1), path(url.size() + 1);
    URL_COMPONENTSA parts{};
    parts.dwStructSize = sizeof parts;
    parts.lpszHostName = host.data();
    parts.dwHostNameLength = static_cast<DWORD>(host.size());
    parts.lpszUrlPath = path.data();
    parts.dwUrlPathLength = static_cast<DWORD>(path.size());
    if (!InternetCrackUrlA(url.c_str(), 0, 0, &parts)) return false;
    connection = InternetHandle(InternetConnectA(internet_.get(), host.data(), parts.nPort, nullptr, nullptr,
                                                 INTERNET_SERVICE_HTTP, 0, 0));
    if (!connection) return false;
    request = InternetHandle(HttpOpenRequestA(connection.get(), "GET", path.data(), nullptr, nullptr, nullptr,
                                              INTERNET_FLAG_EXISTING_CONNECT | INTERNET_FLAG_RELOAD, 0));
    if (!request) return false;
    DWORD timeout = kTimeoutMs;
    InternetSetOptionA(request.get(), INTERNET_OPTION_CONNECT_TIMEOUT, &timeout, sizeof timeout);
    InternetSetOptionA(request.get(), INTERNET_OPTION_RECEIVE_TIMEOUT, &timeout, sizeof timeout);
    return HttpSendRequestA(request.get(), nullptr, 0, nullptr, 0) != FALSE;
}

void CNetGet::ReadUrl(const std::string& url, bool& ok)
{
    InternetHandle connection;
    if (!OpenRequest(url, connection, url_)) {
        CheckError();
        url_.Close();
        ok = false;
        return;
    }
    rawHTML_.clear();
    char chunk[kChunk];
    for (;;) {
        DWORD read = 0;
        if (!InternetReadFile(url_.get(), chunk, kChunk, &read)) {
            CheckError();
            break;
        }
        if (read == 0) break;
        rawHTML_.append(chunk, read);
    }
    url_.Close();
    PostedVersion = rawHTML_;
    ok = true;
}

void CNetGet::Term()
{
    if (!internet_.Close()) {
        CheckError();
        return;
    }
    initialised_ = false;
}

std::string CNetGet::TranslateErrorCode(long number) const { return ::TranslateErrorCode(number); }

std::string CNetGet::GetRawHTML() const
{
    const auto first = rawHTML_.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return rawHTML_.substr(first, rawHTML_.find_last_not_of(' ') - first + 1);
}

void CNetGet::SetUserAgent(const std::string& agent)
{
    if (!agent.empty()) userAgent_ = agent;
}
