// The AOL simulator for the Wine tests: started in one of its install
// folders, driven with aolsimctl (while our own messages keep flowing, since
// a hooked AOL waits for us), and ended with the test.
#pragma once

#include <windows.h>

#include <string>

#include "TestProcess.h"

// The simulator's folder under the build tree, with a trailing backslash.
inline std::string SimFolder()
{
    return ProgramFolder() + "..\\..\\aolsim\\";
}

// Runs a program to its end, pumping our messages; returns its exit code and
// sets `output` to what it wrote.
inline int RunCaptured(const std::string& commandLine, std::string& output, DWORD ms = 30000)
{
    char folder[MAX_PATH], file[MAX_PATH];
    GetTempPathA(sizeof folder, folder);
    GetTempFileNameA(folder, "sim", 0, file);
    SECURITY_ATTRIBUTES sa = {sizeof sa, nullptr, TRUE};
    HANDLE out = CreateFileA(file, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &sa,
                             CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY, nullptr);
    STARTUPINFOA si = {};
    si.cb = sizeof si;
    si.dwFlags = STARTF_USESTDHANDLES;
    si.hStdOutput = out;
    si.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION pi = {};
    std::string line = commandLine;
    DWORD code = 255;
    if (CreateProcessA(nullptr, &line[0], nullptr, nullptr, TRUE, 0, nullptr, nullptr, &si, &pi)) {
        PumpUntil([&] { return WaitForSingleObject(pi.hProcess, 0) == WAIT_OBJECT_0; }, ms);
        GetExitCodeProcess(pi.hProcess, &code);
        CloseHandle(pi.hProcess);
        CloseHandle(pi.hThread);
    }
    CloseHandle(out);
    output.clear();
    HANDLE in = CreateFileA(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_EXISTING, 0, nullptr);
    char buffer[4096];
    DWORD read = 0;
    while (in != INVALID_HANDLE_VALUE && ReadFile(in, buffer, sizeof buffer, &read, nullptr) && read)
        output.append(buffer, read);
    if (in != INVALID_HANDLE_VALUE) CloseHandle(in);
    DeleteFileA(file);
    return static_cast<int>(code);
}

class SimAOL {
public:
    // version "30", "40" or "50"; `options` as waol.exe takes them.
    bool Start(const std::string& version, const std::string& options)
    {
        folder_ = SimFolder() + "aol" + version;
        if (!process_.Start("\"" + folder_ + "\\waol.exe\" " + options)) return false;
        frame_ = WaitForProcessWindow("AOL FRAME25", process_.Id());
        std::string ignored;
        return frame_ && Ctl("wait 20", ignored) == 0;
    }
    void Stop() { process_.Kill(); }

    // Runs aolsimctl with `arguments`; returns its exit status.
    int Ctl(const std::string& arguments, std::string& output)
    {
        return RunCaptured("\"" + SimFolder() + "aolsimctl.exe\" " + arguments, output);
    }
    std::string Ctl(const std::string& arguments)
    {
        std::string output;
        Ctl(arguments, output);
        return output;
    }
    HWND Handle(const std::string& which)
    {
        return reinterpret_cast<HWND>(
            static_cast<ULONG_PTR>(strtoull(Ctl("hwnd " + which).c_str(), nullptr, 16)));
    }

    HWND Frame() const { return frame_; }
    const std::string& Folder() const { return folder_; }
    DWORD Id() const { return process_.Id(); }
    TestProcess& Process() { return process_; }

private:
    TestProcess process_;
    HWND frame_ = nullptr;
    std::string folder_;
};
