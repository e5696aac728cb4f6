// The program's own input box: a prompt, a text field with a default, OK and
// Cancel, in the program's interface colours.
#pragma once

#include <windows.h>

#include <string>

// Asks for one line of text. Returns what the user typed, or "" on Cancel
// (and for an empty answer).
std::string InputBox(const std::string& prompt, const std::string& title, const std::string& defaultText,
                     HWND owner = nullptr);
