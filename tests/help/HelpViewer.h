// Wine's WinHelp (winhlp32) showing one of our help files, for the tests
// and the screenshots: its main window, the topic text it shows, and its
// Index dialog.
#pragma once

#include <windows.h>

#include <string>

#include "TestProcess.h"

const DWORD kPatience = 20000;  // only a hung winhlp32 takes this long
// winhlp32's button bar, its Index button, and the keyword list of its Index.
const int kButtonBox = 1792, kIndexButton = 501, kIndexList = 337;

inline std::string WindowsPath(std::string path)
{
    for (char& c : path)
        if (c == '/') c = '\\';
    return path;
}

inline HWND FindDescendant(HWND parent, const char* className, int id)
{
    for (HWND w = FindWindowExA(parent, nullptr, nullptr, nullptr); w; w = FindWindowExA(parent, w, nullptr, nullptr)) {
        char name[64] = "";
        GetClassNameA(w, name, sizeof name);
        if (lstrcmpiA(name, className) == 0 && GetDlgCtrlID(w) == id) return w;
        if (HWND inner = FindDescendant(w, className, id)) return inner;
    }
    return nullptr;
}

// An item of another program's list box. Asked in ANSI, Wine hands over
// the item's wide characters; so ask in Unicode and convert.
inline std::string ListItem(HWND list, LRESULT index)
{
    std::wstring wide(static_cast<size_t>(SendMessageW(list, LB_GETTEXTLEN, index, 0)) + 1, L'\0');
    wide.resize(static_cast<size_t>(SendMessageW(list, LB_GETTEXT, index, reinterpret_cast<LPARAM>(&wide[0]))));
    std::string ansi(wide.size() * 2 + 1, '\0');
    ansi.resize(static_cast<size_t>(WideCharToMultiByte(1252, 0, wide.c_str(), static_cast<int>(wide.size()),
                                                        &ansi[0], static_cast<int>(ansi.size()), nullptr, nullptr)));
    return ansi;
}

// One winhlp32 showing one help file; it ends with the object.
class HelpViewer {
public:
    HelpViewer(const char* file, const std::string& context)
        : process_("winhlp32.exe -i " + context + " " + WindowsPath(file))
    {
        main_ = WaitForProcessWindow("MS_WINHELP", process_.Id(), kPatience);
        PumpUntil([&] { return main_ && (text_ = FindWindowExA(main_, nullptr, "RichEdit20A", nullptr)); },
                  kPatience);
    }
    HWND Main() const { return main_; }
    // Presses Index and waits for the keyword list to fill; returns the
    // list, or null. `sheet` receives the Index dialog.
    HWND OpenIndex(HWND& sheet) const
    {
        HWND index = GetDlgItem(GetDlgItem(main_, kButtonBox), kIndexButton);
        if (!index) return nullptr;
        PostMessageA(index, BM_CLICK, 0, 0);
        HWND list = nullptr;
        PumpUntil(
            [&] {
                sheet = WaitForProcessWindow("#32770", process_.Id(), 0);
                list = sheet ? FindDescendant(sheet, "ListBox", kIndexList) : nullptr;
                return list && SendMessageA(list, LB_GETCOUNT, 0, 0) > 0;
            },
            kPatience);
        return list;
    }
    DWORD Id() const { return process_.Id(); }

    // The topic text, one line per paragraph.
    std::string Shown() const
    {
        std::string shown;
        if (!text_) return shown;
        for (char c : WindowText(text_)) {
            if (c == '\r') c = '\n';
            if (c == '\n' && !shown.empty() && shown.back() == '\n') continue;
            shown += c;
        }
        while (!shown.empty() && shown.back() == '\n') shown.pop_back();
        return shown;
    }
    // Waits until the topic shown is `expected`; returns what is shown then.
    std::string WaitShown(const std::string& expected) const
    {
        PumpUntil([&] { return Shown() == expected; }, kPatience);
        return Shown();
    }

private:
    TestProcess process_;
    HWND main_ = nullptr;
    HWND text_ = nullptr;
};
