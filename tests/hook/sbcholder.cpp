// Plays Prismo for the robustness tests: hooks AOL's chat input, send icon
// and main window the way the program does, says so through a named event,
// and then serves the hooks, or hangs (stops reading its messages) so that
// the test can see AOL go on without it. The test may also kill it.
// usage: sbcholder serve|hang INPUT SEND FRAME  (window handles in hex)
#include <windows.h>

#include <cstdlib>
#include <string>

#include "SubClass.h"

int main(int argc, char** argv)
{
    if (argc < 5) return 2;
    const std::string mode = argv[1];
    auto handle = [](const char* text) {
        return reinterpret_cast<HWND>(static_cast<ULONG_PTR>(std::strtoull(text, nullptr, 16)));
    };
    SubClass chatEdit, sendIcon, menu;
    // '~' is swallowed, so a test can see the hooks at work.
    chatEdit.WndMessageX = [](HWND, UINT, WPARAM wParam, LPARAM, LRESULT&, bool& noDefault) {
        if (wParam == '~') noDefault = true;
    };
    sendIcon.WndMessageX = [](HWND, UINT, WPARAM, LPARAM, LRESULT&, bool&) {};
    menu.WndMessageX = [](HWND, UINT, WPARAM, LPARAM, LRESULT&, bool&) {};
    if (!chatEdit.Attach(handle(argv[2]), {WM_CHAR}) ||
        !sendIcon.Attach(handle(argv[3]), {WM_LBUTTONDOWN, WM_LBUTTONUP}) ||
        !menu.Attach(handle(argv[4]), {WM_CLOSE, WM_COMMAND}))
        return 3;
    HANDLE ready = CreateEventA(nullptr, TRUE, FALSE, "PrismoSbcHolderReady");
    SetEvent(ready);
    if (mode == "hang") {
        Sleep(INFINITE);
        return 0;
    }
    MSG msg;
    while (GetMessageA(&msg, nullptr, 0, 0) > 0) DispatchMessageA(&msg);
    return 0;
}
