// AOL's mail editor takes formatted text from the clipboard in its private
// format "AOLMAIL": reading and writing that format.
#pragma once

#include <windows.h>

#include <string>

// The "AOLMAIL" text on the clipboard, exactly as it stands; "" when there is
// none or it is 30,000 characters or longer. `owner` opens the clipboard.
std::string GetRichText(HWND owner);
// Empties the clipboard and puts `text` on it as "AOLMAIL", the only format.
void PutRichText(HWND owner, const std::string& text);
