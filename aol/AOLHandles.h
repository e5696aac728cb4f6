// Owning wrappers for the handles the AOL modules open: kernel handles, an
// open clipboard, and a locked global memory block.
#pragma once

#include <windows.h>

// A kernel handle closed when the owner goes (process, snapshot).
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

// The clipboard, open for `owner` while the object lives.
class OpenClipboardScope {
public:
    explicit OpenClipboardScope(HWND owner) : open_(OpenClipboard(owner) != 0) {}
    ~OpenClipboardScope()
    {
        if (open_) CloseClipboard();
    }
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;
    bool IsOpen() const { return open_; }

private:
    bool open_;
};

// The address of a global block, locked while the object lives.
class GlobalLockScope {
public:
    explicit GlobalLockScope(HGLOBAL block)
        : block_(block), data_(block ? GlobalLock(block) : nullptr)
    {
    }
    ~GlobalLockScope()
    {
        if (data_) GlobalUnlock(block_);
    }
    GlobalLockScope(const GlobalLockScope&) = delete;
    GlobalLockScope& operator=(const GlobalLockScope&) = delete;
    void* Data() const { return data_; }

private:
    HGLOBAL block_;
    void* data_;
};
