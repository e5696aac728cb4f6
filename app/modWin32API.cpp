// Platform helpers: the live pause, the system folder, z-order and help.
#include "modWin32API.h"

#include <cstring>

namespace {

// The top-level window a message is for, so that a modeless dialog can
// take its Tab, Enter and Escape keys.
HWND TopLevelOf(HWND hwnd)
{
    while (hwnd && (GetWindowLongA(hwnd, GWL_STYLE) & WS_CHILD)) hwnd = GetParent(hwnd);
    return hwnd;
}

bool IsDialogWindow(HWND hwnd)
{
    char cls[16] = "";
    GetClassNameA(hwnd, cls, sizeof cls);
    return std::strcmp(cls, "#32770") == 0;
}

std::string& HelpFilePath()
{
    static std::string path;
    return path;
}

}  // namespace

bool DoEvents()
{
    // One round: what was waiting when it began. A handler that keeps
    // posting to itself ends the round instead of holding it for ever.
    const DWORD began = GetTickCount();
    MSG msg;
    while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
        if (msg.message == WM_QUIT) {
            // Leave the quit for the loop that owns the program's life.
            PostQuitMessage(static_cast<int>(msg.wParam));
            return false;
        }
        HWND top = TopLevelOf(msg.hwnd);
        if (!(top && IsDialogWindow(top) && IsDialogMessageA(top, &msg))) {
            TranslateMessage(&msg);
            DispatchMessageA(&msg);
        }
        if (static_cast<LONG>(msg.time - began) > 0) break;
    }
    return true;
}

void Pause(double ms)
{
    const DWORD start = GetTickCount();
    const DWORD span = ms > 0 ? static_cast<DWORD>(ms + 0.5) : 0;
    for (;;) {
        if (!DoEvents()) return;
        // Unsigned subtraction keeps the wait right across the counter's wrap.
        const DWORD elapsed = GetTickCount() - start;
        if (elapsed >= span) return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, span - elapsed, QS_ALLINPUT);
    }
}

std::string GetSysDir()
{
    char buffer[145] = "";
    const UINT n = GetSystemDirectoryA(buffer, sizeof buffer);
    return std::string(buffer, n < sizeof buffer ? n : 0);
}

void SetWindowZOrder(HWND window, int onTop)
{
    HWND after = onTop == -1 ? HWND_TOPMOST : onTop == 0 ? HWND_NOTOPMOST : HWND_TOP;
    SetWindowPos(window, after, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
}

std::string AppPath()
{
    char path[MAX_PATH] = "";
    const DWORD n = GetModuleFileNameA(nullptr, path, sizeof path);
    std::string p(path, n < sizeof path ? n : 0);
    const auto slash = p.find_last_of('\\');
    return slash == std::string::npos ? std::string() : p.substr(0, slash);
}

void SetHelpFile(const std::string& path) { HelpFilePath() = path; }

const std::string& HelpFile()
{
    if (HelpFilePath().empty()) HelpFilePath() = AppPath() + "\\prismo.hlp";
    return HelpFilePath();
}

double SecondsSinceMidnight()
{
    SYSTEMTIME t;
    GetLocalTime(&t);
    return t.wHour * 3600.0 + t.wMinute * 60.0 + t.wSecond + t.wMilliseconds / 1000.0;
}

bool WaitForHelpWindow()
{
    const double start = SecondsSinceMidnight();
    for (;;) {
        if (HWND help = FindWindowA("MS_WINHELP", "Prismo!")) {
            SetWindowZOrder(help, -1);
            return true;
        }
        double waited = SecondsSinceMidnight() - start;
        if (waited < 0) waited += 86400;  // past midnight
        if (waited >= 10) return false;
        Pause(50);
    }
}

void RunWinHelp(HWND owner, const std::string& keyword, int noWait)
{
    WinHelpA(owner, HelpFile().c_str(), HELP_PARTIALKEY, reinterpret_cast<ULONG_PTR>(keyword.c_str()));
    if (noWait != -1) WaitForHelpWindow();
}
