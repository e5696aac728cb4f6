// The one way a Wine test starts and drives the AOL simulator: waol.exe in
// one of its install folders, aolsimctl run while our own messages keep
// flowing (a hooked AOL waits for us), and the simulator ended with the test.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "TestProcess.h"

// The simulator's folder under the build tree, with a trailing backslash.
std::string SimFolder();
// One version's install folder ("...\aolsim\aol40"), without one.
std::string SimFolder(int version);
// AOL 4.0 where AOL usually lives, with blanks in the folder's name
// ("...\aolsim\America Online 4.0"), without a trailing backslash.
std::string SimFolderWithBlanks();

// Runs a program to its end, pumping our messages; returns its exit code
// (255 when it could not start or did not end in `ms`) and sets `output` to
// what it wrote.
int RunCaptured(const std::string& commandLine, std::string& output, DWORD ms = 30000);

struct CtlResult {
    int status = -1;
    std::string out;
};
// aolsimctl with each argument quoted; its exit status and standard output.
CtlResult Ctl(const std::vector<std::string>& args);
// Its output split at line ends; a failure is a test failure.
std::vector<std::string> CtlLines(const std::vector<std::string>& args);

// A running waol.exe, killed when the object goes.
class SimAOL {
public:
    SimAOL() = default;
    // Starts at once; a failure to come up is a test failure. Each argument
    // is quoted except "-sKEYWORD", handed over as Prismo does, unquoted (AOL
    // takes the rest of its command line as it stands): it goes last.
    SimAOL(int version, const std::vector<std::string>& args);
    ~SimAOL() { Stop(); }
    SimAOL(const SimAOL&) = delete;
    SimAOL& operator=(const SimAOL&) = delete;

    // version "30", "40" or "50"; `options` as on waol.exe's command line.
    // True once its main window answers that its start-up windows are open.
    bool Start(const std::string& version, const std::string& options);
    // The same from an install folder of any name.
    bool StartIn(const std::string& folder, const std::string& options);
    // Kills it and waits until its windows are gone.
    void Stop();
    // Waits up to `ms` for it to end by itself; true when it did.
    bool WaitExit(DWORD ms);

    // aolsimctl with `arguments` as typed on a command line: exit status,
    // or the output alone.
    int Ctl(const std::string& arguments, std::string& output);
    std::string Ctl(const std::string& arguments);
    // A window the simulator names (aolsimctl hwnd WHICH).
    HWND Handle(const std::string& which);
    // True once aolsimctl WHAT prints a line `line`, asking until `ms` pass.
    bool WaitForLine(const std::string& what, const std::string& line, DWORD ms = 15000);

    HWND Frame() const { return frame_; }
    HWND Mdi() const { return FindWindowExA(frame_, nullptr, "MDIClient", nullptr); }
    const std::string& Folder() const { return folder_; }
    DWORD Id() const { return process_.Id(); }

private:
    TestProcess process_;
    HWND frame_ = nullptr;
    std::string folder_;
};
