// Owning wrappers for the handles the AOL modules open: kernel handles, and an
// open clipboard.
#pragma once

#include <windows.h>

#include "KernelHandle.h"

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
