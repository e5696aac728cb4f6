// Waits on and answers Prismo's upgrade check windows for scripts/shots:
//   update_scene wait-verCheck   returns once the wait window is up (it draws itself before it asks)
//   update_scene wait-update     returns once the answer window is up and drawn
//   update_scene ok              presses OK (or No) and returns once the check is over
#include <windows.h>

#include <cstdio>
#include <string>

#include "ChatLive.h"
#include "resource.h"

using namespace ChatLive;

namespace {

// `window` and its controls have painted whatever they had to paint.
void Drawn(HWND window)
{
    UpdateWindow(window);
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) UpdateWindow(child);
    DWORD_PTR unused = 0;
    SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, 5000, &unused);
}

// With `drawn`, also waits until the window has painted; the wait window
// cannot be asked (the program waits for the web site without answering),
// but it has drawn itself before it asks.
bool WaitFor(DWORD pid, int id, bool drawn)
{
    HWND window = nullptr;
    if (!PumpUntil([&] { return (window = WindowWithChild(pid, id)) != nullptr; }, 60000)) return false;
    if (drawn) Drawn(window);
    return true;
}

}  // namespace

int main(int argc, char** argv)
{
    const DWORD pid = RunningPrismo();
    if (!pid || argc < 2) return std::puts("update_scene: no Prismo running, or nothing asked"), 1;
    const std::string what = argv[1];
    if (what == "wait-verCheck") return WaitFor(pid, IDC_VC_CANCEL, false) ? 0 : 1;
    if (what == "wait-update") return WaitFor(pid, IDC_UP_REPORT, true) ? 0 : 1;
    if (what == "ok") {
        HWND window = WindowWithChild(pid, IDC_UP_OK);
        if (!window) return 1;
        PostMessageA(window, WM_COMMAND, MAKEWPARAM(IDC_UP_OK, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(window, IDC_UP_OK)));
        return PumpUntil([&] { return !CommandRunning(pid); }, 30000) ? 0 : 1;
    }
    return 1;
}
