// Starts the AOL simulator for a test, drives it with aolsimctl and looks at
// its windows from outside, the way Prismo does.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

// A running waol.exe, ended (killed) when the object goes.
class RunningSim {
public:
    // version 3, 4 or 5; args as on waol.exe's command line.
    RunningSim(int version, const std::vector<std::string>& args);
    ~RunningSim();
    RunningSim(const RunningSim&) = delete;
    RunningSim& operator=(const RunningSim&) = delete;

    HWND frame() const { return frame_; }
    HWND mdi() const;
    HANDLE process() const { return process_; }
    // Waits up to `ms` for the process to end; true when it did.
    bool WaitExit(DWORD ms) const;

private:
    HANDLE process_ = nullptr;
    HWND frame_ = nullptr;
};

struct CtlResult {
    int status = -1;
    std::string out;
};

// Runs aolsimctl with arguments; its standard output and exit status.
CtlResult Ctl(const std::vector<std::string>& args);
std::vector<std::string> CtlLines(const std::vector<std::string>& args);

std::string SimFolder(int version);             // Windows path of aolNN
std::string AolSimPath(const std::string& name);  // Windows path under aolsim
std::string TempPath(const std::string& name);    // a fresh file name in the temp folder
std::string ReadFileText(const std::string& path);
void WriteFileText(const std::string& path, const std::string& text);

// Child searches as Prismo makes them.
std::string ClassName(HWND hwnd);
std::string MessageText(HWND hwnd);  // WM_GETTEXTLENGTH + WM_GETTEXT
HWND NthChildOfClass(HWND parent, const char* className, int index);
HWND NextChildOfClass(HWND parent, HWND after, const char* className);  // FindWindowExA as Windows does it
HWND ChildByCaption(HWND parent, const std::string& caption);
HWND FindChatRoom(HWND mdi);
// Polls (servicing messages) up to 10 s for a top-level window.
HWND WaitTopLevel(const char* className, const char* caption);
HWND WaitChildByCaption(HWND parent, const std::string& caption);
void Click(HWND hwnd);  // WM_LBUTTONDOWN then WM_LBUTTONUP, sent
void Pump(DWORD ms);
