// Drives the running Prismo for scripts/shots as a person would, and returns
// once what was asked has happened (exit status 1 when it never did):
//   live_scene wait-prismo [room]       Prismo's menu is in AOL (and its hooks on the room's input)
//   live_scene apply-fade               Apply Fade pressed on the e-mail toolbar, the fade done
//   live_scene mail-schemes NAME...     the panel's E-Mail, those schemes selected, E-Mail pressed, the mail done
//   live_scene wait-verCheck            the upgrade check's wait window is up
//   live_scene wait-update              the upgrade check's answer is up and drawn
//   live_scene ok                       OK (or No) pressed on the answer, the check over
//   live_scene help-request             Help Contents from AOL's menu reached a help window of
//                                       ours; prints the help file and the keyword asked for
#include <windows.h>

#include <cstdio>
#include <string>

#include "ChatLive.h"
#include "HelpStandIn.h"
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

// `window` and its controls have painted whatever they had to paint.
void Drawn(HWND window)
{
    UpdateWindow(window);
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) UpdateWindow(child);
    DWORD_PTR unused = 0;
    SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, 5000, &unused);
}

// The window of `pid` holding control `id`, once it shows; 0 when it never did.
HWND Showing(DWORD pid, int id, DWORD ms = 60000)
{
    HWND window = nullptr;
    PumpUntil([&] { return (window = WindowWithChild(pid, id)) != nullptr; }, ms);
    return window;
}

bool PrismoReady(bool room)
{
    const auto has = [](const char* what, const char* text) {
        return Ctl({what}).out.find(text) != std::string::npos;
    };
    return PumpUntil([&] { return RunningPrismo() && has("menu", "Prism&o"); }, 120000) &&
           (!room || PumpUntil([&] { return has("subclassed", "input\tsubclassed\n"); }, 60000));
}

bool MailSchemes(DWORD pid, int count, char** names)
{
    HWND panel = WindowWithChild(pid, IDC_CT_EMAIL, false);
    if (!panel) return false;
    Press(panel, IDC_CT_EMAIL);
    HWND dialog = Showing(pid, IDC_EM_SCHEMES, 30000);
    if (!dialog) return false;
    HWND list = GetDlgItem(dialog, IDC_EM_SCHEMES);
    for (int i = 0; i < count; ++i) {
        const LRESULT at = SendMessageA(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(names[i]));
        SendMessageA(list, LB_SETSEL, TRUE, at);
    }
    return PressAndWait(pid, dialog, IDC_EM_EMAIL);
}

// Prismo's Help Contents, asked for from AOL's menu, as a help window of ours receives it.
bool HelpRequest()
{
    StandInHelp help;
    PostMessageA(FindWindowA("AOL Frame25", nullptr), WM_COMMAND, 62000, 0);
    if (!PumpUntil([&] { return !help.Requests().empty(); }, 30000)) return false;
    const ChatLive::HelpRequest& request = help.Requests().front();
    std::printf("%s\t%s\t%d\n", request.File().c_str(), request.Keyword().c_str(), request.Header().command);
    return true;
}

bool Run(const std::string& what, int argc, char** argv)
{
    if (what == "wait-prismo") return PrismoReady(argc > 2 && std::string(argv[2]) == "room");
    const DWORD pid = RunningPrismo();
    if (!pid) return false;
    if (what == "apply-fade") {
        HWND bar = Showing(pid, IDC_EF_FADE, 30000);
        return bar && PressAndWait(pid, bar, IDC_EF_FADE);
    }
    if (what == "mail-schemes") return MailSchemes(pid, argc - 2, argv + 2);
    // The wait window cannot be asked to paint (the program waits for the
    // web site without answering), but it has drawn itself before it asks.
    if (what == "wait-verCheck") return Showing(pid, IDC_VC_CANCEL) != nullptr;
    if (what == "wait-update") {
        HWND window = Showing(pid, IDC_UP_REPORT);
        if (window) Drawn(window);
        return window != nullptr;
    }
    if (what == "help-request") return HelpRequest();
    if (what == "ok") {
        HWND window = WindowWithChild(pid, IDC_UP_OK);
        if (!window) return false;
        Press(window, IDC_UP_OK);
        return PumpUntil([&] { return !CommandRunning(pid); }, 30000);
    }
    return false;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2) return std::puts("live_scene: nothing asked"), 1;
    if (Run(argv[1], argc, argv)) return 0;
    std::printf("live_scene %s: it never happened\n", argv[1]);
    return 1;
}
