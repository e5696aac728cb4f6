// Puts Prismo's help on screen for scripts/shots: winhlp32 at the contents
// topic ("contents") or with its Index open ("index"). Marks the scene ready
// once winhlp32 shows it, then stays until it is ended; "end" ends the
// winhlp32 the last scene left.
#include <windows.h>

#include <cstdlib>
#include <cstring>

#include "HelpViewer.h"
#include "SceneReady.h"

namespace {

// A scene before this one may have left its winhlp32 behind.
void EndOtherViewers()
{
    while (HWND old = FindWindowA("MS_WINHELP", nullptr)) KillWindowProcess(old);
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
    PumpUntil([&] { return !SceneReady::WaitsForPaint(viewer.Main()) && !(sheet && SceneReady::WaitsForPaint(sheet)); },
              kPatience);
    SceneReady::Mark();
    PumpUntil([] { return false; }, INFINITE);
    return 0;
}
