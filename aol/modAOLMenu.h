// The program's menu "Prism&o" in AOL's menu bar, and finding (and running)
// an item of AOL's menus by its caption. AOL's menus can only be read and
// changed from inside AOL's process, so prismosbc.dll does the work there.
#pragma once

#include <windows.h>

#include <string>

// Builds the program's menu and inserts it into AOL's menu bar after AOL's
// fifth, sixth or seventh menu, waiting (servicing events) until AOL has at
// least five menus.
void AddMenuToAOL();
// Deletes the program's menu again; nothing happens when it is not there.
void RemoveMenuFromAOL();
// True when an item of `window`'s menus has `caption` (case does not count,
// "&" marks do); with `run`, the item's command is sent to the window.
bool RunMenuByString(HWND window, const std::string& caption, bool run);
