// The program's menu in AOL's menu bar and the search of AOL's menus by
// caption, carried out inside AOL's process through prismosbc.dll.
#include "modAOLMenu.h"

#include "AOLText.h"
#include "SubClass.h"
#include "modFindChild.h"
#include "modWin32API.h"

namespace {
std::vector<MenuEntry> ReadMenus(HWND window)
{
    std::string dump;
    if (!SbcMenuDump(window, dump)) return {};
    return ParseMenuDump(dump);
}
}  // namespace

void AddMenuToAOL()
{
    int position = -1;
    while ((position = ProgramMenuPosition(ReadMenus(AOLWindow))) < 0) {
        if (!IsWindow(AOLWindow)) return;
        Pause(100);
    }
    SbcMenuInsert(AOLWindow, static_cast<unsigned>(position), ProgramMenuDescription());
}

void RemoveMenuFromAOL()
{
    const int position = ProgramMenuIndex(ReadMenus(AOLWindow));
    if (position >= 0) SbcMenuDelete(AOLWindow, static_cast<unsigned>(position));
}

bool RunMenuByString(HWND window, const std::string& caption, bool run)
{
    const std::vector<MenuEntry> entries = ReadMenus(window);
    const MenuEntry* found = FindMenuCaption(entries, caption);
    if (!found) return false;
    if (run) SendMessageA(window, WM_COMMAND, static_cast<WPARAM>(found->id & 0xFFFF), 0);
    return true;
}
