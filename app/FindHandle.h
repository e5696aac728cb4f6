// An owning search over a folder (FindFirstFileA), closed when it goes.
#pragma once

#include <windows.h>

#include <string>

class FindHandle {
public:
    // Starts the search; `found` holds the first match when there is one.
    FindHandle(const std::string& pattern, WIN32_FIND_DATAA& found)
        : handle_(FindFirstFileA(pattern.c_str(), &found)) {}
    ~FindHandle() { Close(); }
    FindHandle(FindHandle&& other) noexcept : handle_(other.handle_) { other.handle_ = INVALID_HANDLE_VALUE; }
    FindHandle& operator=(FindHandle&& other) noexcept
    {
        if (this != &other) {
            Close();
            handle_ = other.handle_;
            other.handle_ = INVALID_HANDLE_VALUE;
        }
        return *this;
    }
    FindHandle(const FindHandle&) = delete;
    FindHandle& operator=(const FindHandle&) = delete;

    // False when nothing matched (or the folder could not be searched).
    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    // The next match into `found`; false when there are no more.
    bool Next(WIN32_FIND_DATAA& found) { return FindNextFileA(handle_, &found) != FALSE; }

private:
    void Close()
    {
        if (handle_ != INVALID_HANDLE_VALUE) FindClose(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }
    HANDLE handle_;
};
