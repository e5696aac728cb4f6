// The AOL simulator for the Wine tests: starting it, asking aolsimctl, ending it.
#include "SimHarness.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

constexpr UINT WM_SIM_READY = WM_APP + 52;  // the simulator answers 1 once its start-up windows are open

bool Ready(HWND frame)
{
    DWORD_PTR ready = 0;
    return SendMessageTimeoutA(frame, WM_SIM_READY, 0, 0, SMTO_ABORTIFHUNG, 1000, &ready) && ready == 1;
}

bool KeywordSwitch(const std::string& arg)
{
    return arg.size() >= 2 && (arg[0] == '-' || arg[0] == '/') && (arg[1] == 's' || arg[1] == 'S');
}

std::string Quoted(const std::vector<std::string>& args)
{
    std::string line;
    for (const auto& arg : args) line += (line.empty() ? "\"" : " \"") + arg + "\"";
    return line;
}

// waol.exe's options: each quoted, except the keyword switch, which goes as
// Prismo hands it over (AOL takes the rest of its command line as it stands).
std::string WaolOptions(const std::vector<std::string>& args)
{
    std::string line;
    for (const auto& arg : args) {
        if (!line.empty()) line += ' ';
        line += KeywordSwitch(arg) ? arg : "\"" + arg + "\"";
    }
    return line;
}

// A kernel handle closed when it goes.
struct OwnedHandle {
    explicit OwnedHandle(HANDLE handle) : h(handle) {}
    ~OwnedHandle()
    {
        if (h != INVALID_HANDLE_VALUE && h) CloseHandle(h);
    }
    OwnedHandle(const OwnedHandle&) = delete;
    OwnedHandle& operator=(const OwnedHandle&) = delete;
    HANDLE h;
};

}  // namespace

std::string SimFolder() { return TestFolder() + "..\\..\\aolsim\\"; }
std::string SimFolder(int version) { return SimFolder() + "aol" + std::to_string(version) + "0"; }
std::string SimFolderWithBlanks() { return SimFolder() + "America Online 4.0"; }

int RunCaptured(const std::string& commandLine, std::string& output, DWORD ms)
{
    char folder[MAX_PATH], file[MAX_PATH];
    GetTempPathA(sizeof folder, folder);
    GetTempFileNameA(folder, "sim", 0, file);
    SECURITY_ATTRIBUTES sa = {sizeof sa, nullptr, TRUE};
    DWORD code = 255;
    {
        OwnedHandle out{CreateFileA(file, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &sa, CREATE_ALWAYS,
                               FILE_ATTRIBUTE_TEMPORARY, nullptr)};
        STARTUPINFOA si = {};
        si.cb = sizeof si;
        si.dwFlags = STARTF_USESTDHANDLES;
        si.hStdOutput = out.h;
        si.hStdError = GetStdHandle(STD_ERROR_HANDLE);
        si.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
        PROCESS_INFORMATION pi = {};
        std::string line = commandLine;
        if (CreateProcessA(nullptr, &line[0], nullptr, nullptr, TRUE, 0, nullptr, nullptr, &si, &pi)) {
            OwnedHandle process{pi.hProcess}, thread{pi.hThread};
            if (PumpUntil([&] { return WaitForSingleObject(pi.hProcess, 0) == WAIT_OBJECT_0; }, ms))
                GetExitCodeProcess(pi.hProcess, &code);
        }
    }
    output.clear();
    {
        OwnedHandle in{CreateFileA(file, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                              nullptr)};
        char buffer[4096];
        DWORD read = 0;
        while (in.h != INVALID_HANDLE_VALUE && ReadFile(in.h, buffer, sizeof buffer, &read, nullptr) && read)
            output.append(buffer, read);
    }
    DeleteFileA(file);
    return static_cast<int>(code);
}

CtlResult Ctl(const std::vector<std::string>& args)
{
    CtlResult result;
    result.status = RunCaptured("\"" + SimFolder() + "aolsimctl.exe\" " + Quoted(args), result.out);
    return result;
}

std::vector<std::string> CtlLines(const std::vector<std::string>& args)
{
    const CtlResult result = Ctl(args);
    EXPECT_EQ(result.status, 0) << "aolsimctl " << args[0];
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (start < result.out.size()) {
        auto end = result.out.find('\n', start);
        if (end == std::string::npos) end = result.out.size();
        lines.push_back(result.out.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

SimAOL::SimAOL(int version, const std::vector<std::string>& args)
{
    if (!Start(std::to_string(version) + "0", WaolOptions(args)))
        ADD_FAILURE() << "the simulator (AOL " << version << ".0) did not come up";
}

bool SimAOL::Start(const std::string& version, const std::string& options)
{
    return StartIn(SimFolder() + "aol" + version, options);
}

bool SimAOL::StartIn(const std::string& folder, const std::string& options)
{
    // One simulator at a time: another would answer FindWindow.
    PumpUntil([] { return !FindWindowA("AOL FRAME25", nullptr); }, 5000);
    folder_ = folder;
    // A start that fails says why, so that a rare failure can be told apart.
    if (!process_.Start("\"" + folder_ + "\\waol.exe\" " + options)) {
        std::fprintf(stderr, "waol.exe in %s did not start: error %lu\n", folder_.c_str(), GetLastError());
        return false;
    }
    frame_ = WaitForProcessWindow("AOL FRAME25", process_.Id(), 20000);
    if (!frame_) std::fprintf(stderr, "waol.exe never showed its main window (exit %d)\n", process_.Wait(0));
    return frame_ && PumpUntil([&] { return Ready(frame_); }, 20000);
}

void SimAOL::Stop()
{
    process_.Kill();
    PumpUntil([&] { return !frame_ || !IsWindow(frame_); }, 5000);
}

bool SimAOL::WaitExit(DWORD ms)
{
    return PumpUntil([&] { return process_.Wait(0) != -1; }, ms);
}

int SimAOL::Ctl(const std::string& arguments, std::string& output)
{
    return RunCaptured("\"" + SimFolder() + "aolsimctl.exe\" " + arguments, output);
}

std::string SimAOL::Ctl(const std::string& arguments)
{
    std::string output;
    Ctl(arguments, output);
    return output;
}

HWND SimAOL::Handle(const std::string& which)
{
    return reinterpret_cast<HWND>(static_cast<ULONG_PTR>(strtoull(Ctl("hwnd " + which).c_str(), nullptr, 16)));
}

bool SimAOL::WaitForLine(const std::string& what, const std::string& line, DWORD ms)
{
    return PumpUntil([&] { return ("\n" + Ctl(what)).find("\n" + line + "\n") != std::string::npos; }, ms);
}
