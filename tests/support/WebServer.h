// A small web server on 127.0.0.1 for the upgrade check's tests and
// benchmark: it answers each request with whatever the test set up (a page,
// a page held back until the test lets it go, half an answer, silence) and
// remembers what it was asked. It
// serves at most a fixed number of requests and holds no connection for
// longer than a minute, so a broken run cannot hang on it.
#pragma once

#include <winsock2.h>
#include <ws2tcpip.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

class WebServer {
public:
    // How the next requests are answered.
    struct Reply {
        std::string bytes;       // sent as they are, headers and all
        bool held = false;       // sent only once the test calls Release
        bool silent = false;     // never answers; holds the connection until the client lets go
    };

    // A whole HTTP answer with `status` and `body`.
    static std::string Page(const std::string& body, const std::string& status = "200 OK")
    {
        return "HTTP/1.1 " + status + "\r\nContent-Type: text/plain\r\nContent-Length: " +
               std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" + body;
    }

    WebServer()
    {
        WSADATA data;
        WSAStartup(MAKEWORD(2, 2), &data);
        listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
        sockaddr_in at{};
        at.sin_family = AF_INET;
        at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        at.sin_port = 0;
        int length = sizeof at;
        if (bind(listener_, reinterpret_cast<sockaddr*>(&at), sizeof at) != 0 ||
            getsockname(listener_, reinterpret_cast<sockaddr*>(&at), &length) != 0 || listen(listener_, 8) != 0)
            return;
        port_ = ntohs(at.sin_port);
        thread_ = std::thread([this] { Run(); });
    }
    ~WebServer()
    {
        StopListening();
        WSACleanup();
    }
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    int Port() const { return port_; }
    std::string Host() const { return "127.0.0.1:" + std::to_string(port_); }

    void Answer(const Reply& reply)
    {
        std::lock_guard<std::mutex> lock(mutex_);
        reply_ = reply;
    }
    void Answer(const std::string& bytes) { Answer(Reply{bytes}); }

    // Requests received so far, each up to the blank line ending its headers.
    std::vector<std::string> Requests()
    {
        std::lock_guard<std::mutex> lock(mutex_);
        return requests_;
    }
    size_t RequestCount()
    {
        std::lock_guard<std::mutex> lock(mutex_);
        return requests_.size();
    }
    // Lets a held answer go.
    void Release()
    {
        std::lock_guard<std::mutex> lock(mutex_);
        released_ = true;
        releasedChanged_.notify_all();
    }
    // True while a request is being answered (or held, when silent).
    bool Busy() const { return busy_; }

    // Closes the port: later connections are refused.
    void StopListening()
    {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            stop_ = true;
        }
        releasedChanged_.notify_all();  // a held answer lets go too
        if (thread_.joinable()) thread_.join();
        if (listener_ != INVALID_SOCKET) closesocket(listener_);
        listener_ = INVALID_SOCKET;
    }

private:
    static constexpr int kMostRequests = 40;
    static constexpr DWORD kLongestHoldMs = 60000;

    // Waits up to `ms` for `s` to be readable; false on timeout or when stopping.
    bool Readable(SOCKET s, DWORD ms)
    {
        const DWORD start = GetTickCount();
        while (!stop_) {
            fd_set set;
            FD_ZERO(&set);
            FD_SET(s, &set);
            timeval step{0, 50000};
            if (select(0, &set, nullptr, nullptr, &step) > 0) return true;
            if (GetTickCount() - start >= ms) return false;
        }
        return false;
    }

    void Run()
    {
        for (int served = 0; served < kMostRequests && !stop_;) {
            if (!Readable(listener_, INFINITE)) continue;
            SOCKET client = accept(listener_, nullptr, nullptr);
            if (client == INVALID_SOCKET) continue;
            busy_ = true;
            if (Serve(client)) ++served;
            busy_ = false;
            closesocket(client);
        }
    }

    // One connection; false when it closed before a whole request came.
    bool Serve(SOCKET client)
    {
        std::string request;
        char buffer[4096];
        while (request.find("\r\n\r\n") == std::string::npos) {
            if (!Readable(client, 10000)) return false;
            const int got = recv(client, buffer, sizeof buffer, 0);
            if (got <= 0) return false;
            request.append(buffer, static_cast<size_t>(got));
        }
        Reply reply;
        {
            std::lock_guard<std::mutex> lock(mutex_);
            requests_.push_back(request.substr(0, request.find("\r\n\r\n") + 2));
            reply = reply_;
        }
        if (reply.silent) {
            // Until the client gives up (its read ends) or the test ends.
            while (Readable(client, kLongestHoldMs) && recv(client, buffer, sizeof buffer, 0) > 0) {
            }
            return true;
        }
        if (reply.held) {
            std::unique_lock<std::mutex> lock(mutex_);
            releasedChanged_.wait_for(lock, std::chrono::milliseconds(kLongestHoldMs),
                                      [&] { return released_ || stop_; });
            released_ = false;
        }
        for (size_t sent = 0; sent < reply.bytes.size() && !stop_;) {
            const int n = send(client, reply.bytes.data() + sent, static_cast<int>(reply.bytes.size() - sent), 0);
            if (n <= 0) break;
            sent += static_cast<size_t>(n);
        }
        shutdown(client, SD_SEND);
        // Lets the client read everything before the socket goes.
        while (Readable(client, 5000) && recv(client, buffer, sizeof buffer, 0) > 0) {
        }
        return true;
    }

    SOCKET listener_ = INVALID_SOCKET;
    int port_ = 0;
    std::thread thread_;
    std::atomic<bool> stop_{false}, busy_{false};
    std::mutex mutex_;
    std::condition_variable releasedChanged_;
    bool released_ = false;
    Reply reply_{Page("1.0.0")};
    std::vector<std::string> requests_;
};
