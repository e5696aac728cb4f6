// Helpers every Wine-run test shares: a child process that ends with the
// test, waits that keep this thread's messages flowing (hooked windows call
// back into us while we wait), and finding and ending other programs' windows.
#pragma once

#include <windows.h>

#include <cstdio>
#include <functional>
#include <string>

// A program started for one test; killed when the object goes.
class TestProcess {
public:
    TestProcess() = default;
    explicit TestProcess(const std::string& commandLine) { Start(commandLine); }
    ~TestProcess() { Kill(); }
    TestProcess(const TestProcess&) = delete;
    TestProcess& operator=(const TestProcess&) = delete;

    bool Start(const std::string& commandLine)
    {
        STARTUPINFOA si = {};
        si.cb = sizeof si;
        std::string line = commandLine;
        if (CreateProcessA(nullptr, &line[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si, &info_)) return true;
        // Say why, so that a failed start can be told apart from a program that ended.
        std::fprintf(stderr, "could not start %s: error %lu\n", commandLine.c_str(), GetLastError());
        return false;
    }
    void Kill()
    {
        if (!info_.hProcess) return;
        TerminateProcess(info_.hProcess, 1);
        WaitForSingleObject(info_.hProcess, 5000);
        CloseHandle(info_.hProcess);
        CloseHandle(info_.hThread);
        info_ = {};
    }
    // Waits for a normal end; returns the exit code, or -1 on timeout.
    int Wait(DWORD ms)
    {
        if (WaitForSingleObject(info_.hProcess, ms) != WAIT_OBJECT_0) return -1;
        DWORD code = 0;
        GetExitCodeProcess(info_.hProcess, &code);
        return static_cast<int>(code);
    }
    DWORD Id() const { return info_.dwProcessId; }

private:
    PROCESS_INFORMATION info_ = {};
};

// Runs this thread's messages until `done` holds or `ms` have passed.
inline bool PumpUntil(const std::function<bool()>& done, DWORD ms)
{
    const DWORD start = GetTickCount();
    for (;;) {
        MSG msg;
        while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&msg);
            DispatchMessageA(&msg);
        }
        if (done()) return true;
        const DWORD elapsed = GetTickCount() - start;
        if (elapsed >= ms) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, ms - elapsed < 20 ? ms - elapsed : 20,
                                  QS_ALLINPUT);
    }
}

inline void PumpFor(DWORD ms)
{
    PumpUntil([] { return false; }, ms);
}

// The top-level window of `className` owned by process `pid`, waiting for it.
inline HWND WaitForProcessWindow(const char* className, DWORD pid, DWORD ms = 15000)
{
    HWND found = nullptr;
    PumpUntil(
        [&] {
            for (HWND w = FindWindowA(className, nullptr); w;
                 w = FindWindowExA(nullptr, w, className, nullptr)) {
                DWORD owner = 0;
                GetWindowThreadProcessId(w, &owner);
                if (owner == pid) found = w;
            }
            return found != nullptr;
        },
        ms);
    return found;
}

// The text of a window of any process, read with messages.
inline std::string WindowText(HWND window)
{
    const LRESULT length = SendMessageA(window, WM_GETTEXTLENGTH, 0, 0);
    std::string text(static_cast<size_t>(length) + 1, '\0');
    const LRESULT got = SendMessageA(window, WM_GETTEXT, static_cast<WPARAM>(length + 1),
                                     reinterpret_cast<LPARAM>(&text[0]));
    text.resize(static_cast<size_t>(got));
    return text;
}

// This test program's own folder, with a trailing backslash.
inline std::string TestFolder()
{
    char path[MAX_PATH];
    const DWORD n = GetModuleFileNameA(nullptr, path, sizeof path);
    std::string folder(path, n);
    return folder.substr(0, folder.find_last_of('\\') + 1);
}

// A top-level window of process `pid` (any process when 0) that has a child
// with control id `childId`; only a visible one when `visibleOnly`.
inline HWND WindowWithChild(DWORD pid, int childId, bool visibleOnly = true)
{
    struct Search {
        DWORD pid;
        int child;
        bool visibleOnly;
        HWND found;
    } search{pid, childId, visibleOnly, nullptr};
    EnumWindows(
        [](HWND w, LPARAM lp) -> BOOL {
            auto* s = reinterpret_cast<Search*>(lp);
            DWORD owner = 0;
            GetWindowThreadProcessId(w, &owner);
            if ((s->pid && owner != s->pid) || (s->visibleOnly && !IsWindowVisible(w)) || !GetDlgItem(w, s->child))
                return TRUE;
            s->found = w;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// Ends the process that owns `window` and waits until it is gone.
inline void KillWindowProcess(HWND window)
{
    DWORD pid = 0;
    GetWindowThreadProcessId(window, &pid);
    if (HANDLE p = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, pid)) {
        TerminateProcess(p, 1);
        WaitForSingleObject(p, 5000);
        CloseHandle(p);
    }
}

// Ends any AOL (simulator) an earlier test left behind: FindWindow must find
// only the one a test starts.
inline void EndEveryAOL()
{
    for (int i = 0; i < 5; ++i)
        if (HWND frame = FindWindowA("AOL FRAME25", nullptr)) KillWindowProcess(frame);
}
