// Drives an interactive run of the setup program or the uninstaller for
// scripts/shots, by the window's caption and a text it shows:
//   setup_scene show CAPTION TEXT        once a visible window whose caption holds CAPTION shows TEXT
//                                        and has painted, marks the scene ready; stays until ended
//   setup_scene press CAPTION TEXT ID    presses button ID of that window (1 Next/Install/Close,
//                                        2 Cancel, 4 Retry, 6 Yes, 7 No) and returns once
//                                        the window has taken the press in
// Exit status 1 when the window never showed TEXT or never took the press in.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "TestProcess.h"
#include "SceneReady.h"

namespace {

const DWORD kPatience = 60000;

struct Search {
    const char* caption;
    const char* text;
    HWND found;
};

BOOL CALLBACK ChildShows(HWND child, LPARAM param)
{
    auto* search = reinterpret_cast<Search*>(param);
    if (!IsWindowVisible(child) || WindowText(child).find(search->text) == std::string::npos) return TRUE;
    search->found = child;
    return FALSE;
}

BOOL CALLBACK TopShows(HWND top, LPARAM param)
{
    auto* search = reinterpret_cast<Search*>(param);
    if (!IsWindowVisible(top) || WindowText(top).find(search->caption) == std::string::npos) return TRUE;
    Search inner = {search->caption, search->text, nullptr};
    EnumChildWindows(top, ChildShows, reinterpret_cast<LPARAM>(&inner));
    if (!inner.found) return TRUE;
    search->found = top;
    return FALSE;
}

// The visible top-level window whose caption holds `caption` and
// which shows `text` in one of its (visible) controls; 0 when none does.
HWND Showing(const char* caption, const char* text)
{
    Search search = {caption, text, nullptr};
    EnumWindows(TopShows, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool Show(const char* caption, const char* text)
{
    HWND window = nullptr;
    if (!PumpUntil([&] { return (window = Showing(caption, text)) != nullptr; }, kPatience)) return false;
    // The window answers once it has handled everything before, paints included.
    DWORD_PTR unused = 0;
    SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, 5000, &unused);
    PumpUntil([&] { return !SceneReady::WaitsForPaint(window); }, kPatience);
    SceneReady::Mark();
    PumpUntil([] { return false; }, INFINITE);
    return true;
}

bool Press(const char* caption, const char* text, int id)
{
    HWND window = nullptr;
    if (!PumpUntil([&] { return (window = Showing(caption, text)) != nullptr; }, kPatience)) return false;
    HWND button = GetDlgItem(window, id);
    if (!button) return false;
    PostMessageA(window, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
    // Answered once the press is handled, or a message box it opened runs.
    DWORD_PTR unused = 0;
    return SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatience, &unused) != 0 || !IsWindow(window);
}

}  // namespace

int main(int argc, char** argv)
{
    bool done = false;
    if (argc == 4 && std::strcmp(argv[1], "show") == 0 && std::getenv("PRISMO_SCENE_READY"))
        done = Show(argv[2], argv[3]);
    else if (argc == 5 && std::strcmp(argv[1], "press") == 0)
        done = Press(argv[2], argv[3], std::atoi(argv[4]));
    else
        return std::puts("usage: setup_scene show CAPTION TEXT | press CAPTION TEXT ID"), 2;
    if (!done) std::printf("setup_scene %s \"%s\" \"%s\": it never happened\n", argv[1], argv[2], argv[3]);
    return done ? 0 : 1;
}
