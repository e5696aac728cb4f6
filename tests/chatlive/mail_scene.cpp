// Presses Prismo's e-mail buttons for scripts/shots, as a person would, and
// returns once the program has done what they ask:
//   mail_scene apply-fade             Apply Fade on the toolbar
//   mail_scene mail-schemes NAME...   the panel's E-Mail, those schemes selected, E-Mail pressed
#include <windows.h>

#include <cstdio>
#include <string>

#include "ChatLive.h"
#include "resource.h"

using namespace ChatLive;

namespace {

// Presses `id` of `window` and waits until the command it starts has run.
bool PressAndWait(DWORD pid, HWND window, int id)
{
    Press(window, id);
    return PumpUntil([&] { return CommandRunning(pid); }, 10000) &&
           PumpUntil([&] { return !CommandRunning(pid); }, 120000);
}

}  // namespace

int main(int argc, char** argv)
{
    const DWORD pid = RunningPrismo();
    if (!pid || argc < 2) return std::puts("mail_scene: no Prismo running, or nothing asked"), 1;
    const std::string what = argv[1];
    if (what == "apply-fade") {
        HWND bar = nullptr;
        if (!PumpUntil([&] { return (bar = WindowWithChild(pid, IDC_EF_FADE)) != nullptr; }, 30000)) return 1;
        return PressAndWait(pid, bar, IDC_EF_FADE) ? 0 : 1;
    }
    if (what == "mail-schemes") {
        HWND panel = WindowWithChild(pid, IDC_CT_EMAIL, false), dialog = nullptr;
        if (!panel) return 1;
        Press(panel, IDC_CT_EMAIL);
        if (!PumpUntil([&] { return (dialog = WindowWithChild(pid, IDC_EM_SCHEMES)) != nullptr; }, 30000)) return 1;
        HWND list = GetDlgItem(dialog, IDC_EM_SCHEMES);
        for (int i = 2; i < argc; ++i) {
            const LRESULT at = SendMessageA(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(argv[i]));
            SendMessageA(list, LB_SETSEL, TRUE, at);
        }
        return PressAndWait(pid, dialog, IDC_EM_EMAIL) ? 0 : 1;
    }
    return 1;
}
