// An owning kernel handle (file, process, snapshot), closed when it goes.
#pragma once

#include <windows.h>

// A kernel handle closed when its owner goes.
class KernelHandle {
public:
    explicit KernelHandle(HANDLE handle = nullptr) : handle_(handle) {}
    ~KernelHandle() { Close(); }
    KernelHandle(KernelHandle&& other) noexcept : handle_(other.handle_) { other.handle_ = nullptr; }
    KernelHandle& operator=(KernelHandle&& other) noexcept
    {
        if (this != &other) {
            Close();
            handle_ = other.handle_;
            other.handle_ = nullptr;
        }
        return *this;
    }
    KernelHandle(const KernelHandle&) = delete;
    KernelHandle& operator=(const KernelHandle&) = delete;

    HANDLE Get() const { return handle_; }
    bool Valid() const { return handle_ && handle_ != INVALID_HANDLE_VALUE; }

private:
    void Close()
    {
        if (Valid()) CloseHandle(handle_);
        handle_ = nullptr;
    }
    HANDLE handle_;
};
