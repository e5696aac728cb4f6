// Puts Prismo's help on screen for scripts/shots: winhlp32 at the contents
// topic ("contents") or with its Index open ("index"). Marks the scene ready
// once winhlp32 shows it, then stays until it is ended; "end" ends the
// winhlp32 the last scene left.
#include <windows.h>

#include <cstdlib>
#include <cstring>

#include "HelpViewer.h"

namespace {

// A scene before this one may have left its winhlp32 behind.
void EndOtherViewers()
{
    while (HWND old = FindWindowA("MS_WINHELP", nullptr)) KillWindowProcess(old);
}

// True while the window or one of its children still waits to be painted.
bool WaitsForPaint(HWND window)
{
    if (GetUpdateRect(window, nullptr, FALSE)) return true;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (WaitsForPaint(child)) return true;
    return false;
}

void MarkReady()
{
    HANDLE file = CreateFileA(std::getenv("PRISMO_SCENE_READY"), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::strcmp(argv[1], "end") == 0) return EndOtherViewers(), 0;
    if (argc != 2 || !std::getenv("PRISMO_SCENE_READY")) return 2;
    const bool index = std::strcmp(argv[1], "index") == 0;
    EndOtherViewers();
    HelpViewer viewer(PRISMO_HELP_FILE, "contents");
    if (!viewer.Main() || !PumpUntil([&] { return !viewer.Shown().empty(); }, kPatience)) return 1;
    HWND sheet = nullptr;
    if (index && !viewer.OpenIndex(sheet)) return 1;
    // Let winhlp32 finish painting what it has just filled in.
    PumpUntil([&] { return !WaitsForPaint(viewer.Main()) && !(sheet && WaitsForPaint(sheet)); }, kPatience);
    MarkReady();
    PumpUntil([] { return false; }, INFINITE);
    return 0;
}
