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

// The text of the open clipboard's `format`, up to its NUL or the block's end.
std::optional<std::string> ReadFormat(UINT format)
{
    HANDLE block = GetClipboardData(format);
    if (!block) return std::nullopt;
    GlobalLockScope lock(static_cast<HGLOBAL>(block));
    const char* data = static_cast<const char*>(lock.Data());
    if (!data) return std::nullopt;
    // The block may hold no NUL of its own; never read past its end.
    const size_t size = GlobalSize(static_cast<HGLOBAL>(block));
    const void* nul = std::memchr(data, 0, size);
    return std::string(data, nul ? static_cast<size_t>(static_cast<const char*>(nul) - data) : size);
}

// Hands `text` to the open clipboard as `format`.
void WriteFormat(UINT format, const std::string& text)
{
    GlobalBlock block(text.size() + 1);
    if (!block.get()) return;
    {
        GlobalLockScope lock(block.get());
        if (lock.Data()) std::memcpy(lock.Data(), text.data(), text.size());
    }
    // Once the clipboard takes the block, it is the clipboard's to free.
    if (SetClipboardData(format, block.get())) block.Release();
}
}  // namespace

std::string GetRichText(HWND owner)
{
    ErrorTrap trap("modRichText", "GetRichText");
    std::string text;
    trap.Run([&] {
        OpenClipboardScope clipboard(owner);
        const std::optional<std::string> held = ReadFormat(AOLMailFormat());
        if (held && held->size() < kReadLimit) text = *held;
    });
    return text;
}

void PutRichText(HWND owner, const std::string& text)
{
    ErrorTrap trap("modRichText", "PutRichText");
    trap.Run([&] {
        OpenClipboardScope clipboard(owner);
        EmptyClipboard();
        WriteFormat(AOLMailFormat(), text);
    });
}

std::string GetClipboardText(HWND owner)
{
    OpenClipboardScope clipboard(owner);
    return ReadFormat(CF_TEXT).value_or("");
}

void ClearClipboard(HWND owner)
{
    OpenClipboardScope clipboard(owner);
    if (clipboard.IsOpen()) EmptyClipboard();
}

ClipboardTexts SaveClipboardTexts(HWND owner)
{
    OpenClipboardScope clipboard(owner);
    return {ReadFormat(AOLMailFormat()), ReadFormat(CF_TEXT)};
}

void RestoreClipboardTexts(HWND owner, const ClipboardTexts& saved)
{
    OpenClipboardScope clipboard(owner);
    if (!clipboard.IsOpen()) return;
    EmptyClipboard();
    if (saved.aolMail) WriteFormat(AOLMailFormat(), *saved.aolMail);
    if (saved.plain) WriteFormat(CF_TEXT, *saved.plain);
}
