// AOL's mail editor takes formatted text from the clipboard in its private
// format "AOLMAIL": reading and writing that format.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

// The "AOLMAIL" text on the clipboard, exactly as it stands; "" when there is
// none or it is 30,000 characters or longer. `owner` opens the clipboard.
std::string GetRichText(HWND owner);
// Empties the clipboard and puts `text` on it as "AOLMAIL", the only format.
void PutRichText(HWND owner, const std::string& text);

// The clipboard's plain text (CF_TEXT), whole; "" when there is none.
std::string GetClipboardText(HWND owner);
// Empties the clipboard.
void ClearClipboard(HWND owner);

// The clipboard's two text formats as they stood, to be put back after the
// program has used the clipboard for its own ends.
struct ClipboardTexts {
    std::optional<std::string> aolMail, plain;
};
ClipboardTexts SaveClipboardTexts(HWND owner);
// Empties the clipboard and puts back what `saved` holds.
void RestoreClipboardTexts(HWND owner, const ClipboardTexts& saved);
