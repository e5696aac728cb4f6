// A small stand-in for a hooked program, run as its own process by the hook
// tests: a main window with a menu bar of N menus and an edit box (usage:
// sbctarget [menus [window class]]; an "AOL FRAME25" that is not WAOL.EXE
// plays a 16-bit AOL). Its main
// window answers WM_APP with the edit box's current window procedure, so a
// test can see from outside whether the box is subclassed.
#include <windows.h>

#include <cstdlib>

namespace {
HWND g_edit;

LRESULT CALLBACK MainProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_APP:
        return GetWindowLongPtrA(g_edit, GWLP_WNDPROC);
    case WM_APP + 1:  // hang for wParam milliseconds, as a busy program would
        Sleep(static_cast<DWORD>(wParam));
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

HMENU MakeMenuBar(int menus)
{
    static const char* const captions[] = {"&File", "&Edit", "&Window", "&Sign Off",
                                           "&Help", "&Members", "&People", "&Services"};
    HMENU bar = CreateMenu();
    for (int i = 0; i < menus && i < 8; ++i) {
        HMENU popup = CreatePopupMenu();
        AppendMenuA(popup, MF_STRING, 100 * (i + 1) + 1, "&First");
        AppendMenuA(popup, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(popup, MF_STRING, 100 * (i + 1) + 2, i == 3 ? "Switch Scree&n Name" : "&Second");
        AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), captions[i]);
    }
    return bar;
}
}  // namespace

int main(int argc, char** argv)
{
    const int menus = argc > 1 ? std::atoi(argv[1]) : 5;
    const char* className = argc > 2 ? argv[2] : "SbcTarget";
    HINSTANCE instance = GetModuleHandleA(nullptr);
    WNDCLASSA wc = {};
    wc.lpfnWndProc = MainProc;
    wc.hInstance = instance;
    wc.lpszClassName = className;
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    RegisterClassA(&wc);
    HWND main = CreateWindowA(className, "Sbc Target", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10,
                              400, 200, nullptr, MakeMenuBar(menus), instance, nullptr);
    g_edit = CreateWindowA("EDIT", "", WS_CHILD | WS_VISIBLE | WS_BORDER | ES_AUTOHSCROLL, 10, 10,
                           300, 24, main, nullptr, instance, nullptr);
    MSG msg;
    while (GetMessageA(&msg, nullptr, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    return 0;
}
