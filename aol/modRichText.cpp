// Reading and writing AOL's "AOLMAIL" clipboard format.
#include "modRichText.h"

#include <cstring>

#include "AOLHandles.h"
#include "ErrorTrap.h"
#include "GlobalMemory.h"

namespace {
const size_t kReadLimit = 30000;  // longer mail texts are not taken

UINT AOLMailFormat()
{
    return RegisterClipboardFormatA("AOLMAIL");
}
}  // namespace

std::string GetRichText(HWND owner)
{
    ErrorTrap trap("modRichText", "GetRichText");
    std::string text;
    trap.Run([&] {
        OpenClipboardScope clipboard(owner);
        HANDLE block = GetClipboardData(AOLMailFormat());
        GlobalLockScope lock(static_cast<HGLOBAL>(block));
        const char* data = static_cast<const char*>(lock.Data());
        if (!data) return;
        // The block may hold no NUL of its own; never read past its end.
        const size_t size = GlobalSize(static_cast<HGLOBAL>(block));
        const void* nul = std::memchr(data, 0, size);
        const size_t length = nul ? static_cast<size_t>(static_cast<const char*>(nul) - data) : size;
        if (length < kReadLimit) text.assign(data, length);
    });
    return text;
}

void PutRichText(HWND owner, const std::string& text)
{
    ErrorTrap trap("modRichText", "PutRichText");
    trap.Run([&] {
        GlobalBlock block(text.size() + 1);
        if (!block.get()) return;
        {
            GlobalLockScope lock(block.get());
            if (lock.Data()) std::memcpy(lock.Data(), text.data(), text.size());
        }
        OpenClipboardScope clipboard(owner);
        EmptyClipboard();
        // Once the clipboard takes the block, it is the clipboard's to free.
        if (SetClipboardData(AOLMailFormat(), block.get())) block.Release();
    });
}
