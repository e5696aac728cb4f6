// CNetGet: reads a web page over HTTP through WinInet, for the upgrade
// check. One object per check; it keeps what it read and WinInet's text for
// the last error.
#pragma once

#include <windows.h>
#include <wininet.h>

#include <string>

// An owning WinInet handle, closed when it goes. Movable, never copied.
class InternetHandle {
public:
    explicit InternetHandle(HINTERNET handle = nullptr) : handle_(handle) {}
    ~InternetHandle() { Close(); }
    InternetHandle(InternetHandle&& other) noexcept : handle_(other.handle_) { other.handle_ = nullptr; }
    InternetHandle& operator=(InternetHandle&& other) noexcept;
    InternetHandle(const InternetHandle&) = delete;
    InternetHandle& operator=(const InternetHandle&) = delete;

    HINTERNET get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }
    // Closes it now; false (with the system's last error set) when WinInet refused.
    bool Close();

private:
    HINTERNET handle_;
};

// The posted version, as the last ReadUrl read it, and whether the last
// comparison found a newer one; the result window shows both.
extern std::string PostedVersion;
extern bool UpgradeAvailable;

class CNetGet {
public:
    CNetGet() = default;
    ~CNetGet() { Term(); }
    CNetGet(const CNetGet&) = delete;
    CNetGet& operator=(const CNetGet&) = delete;

    // The last WinInet call's error, when there is one, becomes the last error's text.
    void CheckError();
    // Opens WinInet for direct access as `userAgent` ("" : the program file's name).
    void Init(const std::string& userAgent = "");
    // Reads the whole page at `url`; `ok` tells whether it could be asked for.
    void ReadUrl(const std::string& url, bool& ok);
    // Lets go of WinInet.
    void Term();
    std::string TranslateErrorCode(long number) const;
    std::string GetRawHTML() const;  // what was read, without blanks around it
    std::string GetLastError() const { return lastError_; }
    void SetUserAgent(const std::string& agent);  // an empty text changes nothing
    bool Initialised() const { return initialised_; }

private:
    bool OpenRequest(const std::string& url, InternetHandle& connection, InternetHandle& request);

    InternetHandle internet_;
    bool initialised_ = false;
    InternetHandle url_;
    std::string rawHTML_;
    std::string lastError_;
    std::string userAgent_;
};
