// Harness of the simulator tests: process start and end, aolsimctl runs and
// Prismo-style window searches.
#include "SimHarness.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace {

std::string WindowsPath(std::string unixPath) {
    for (char& c : unixPath) {
        if (c == '/') c = '\\';
    }
    return "Z:" + unixPath;
}

std::string Quote(const std::string& arg) { return "\"" + arg + "\""; }

bool Responds(HWND frame) {
    DWORD_PTR ready = 0;  // the simulator answers 1 once its start-up windows are open
    return SendMessageTimeoutA(frame, WM_APP + 52, 0, 0, SMTO_ABORTIFHUNG, 1000, &ready) && ready == 1;
}

}  // namespace

std::string SimFolder(int version) { return WindowsPath(AOLSIM_DIR) + "\\aol" + std::to_string(version) + "0"; }
std::string AolSimPath(const std::string& name) { return WindowsPath(AOLSIM_DIR) + "\\" + name; }

std::string TempPath(const std::string& name) {
    char folder[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, folder);
    const std::string path = std::string(folder) + "simtest_" + name;
    DeleteFileA(path.c_str());
    return path;
}

std::string ReadFileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

void WriteFileText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

RunningSim::RunningSim(int version, const std::vector<std::string>& args) {
    // One simulator at a time: a previous one would answer FindWindow.
    for (int i = 0; i < 100 && FindWindowA("AOL FRAME25", nullptr); ++i) Pump(50);
    std::string commandLine = Quote(SimFolder(version) + "\\waol.exe");
    for (const auto& arg : args) commandLine += " " + Quote(arg);
    STARTUPINFOA si{};
    si.cb = sizeof si;
    PROCESS_INFORMATION pi{};
    if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si, &pi)) {
        ADD_FAILURE() << "cannot start " << commandLine;
        return;
    }
    CloseHandle(pi.hThread);
    process_ = pi.hProcess;
    for (int i = 0; i < 400 && !frame_; ++i) {
        HWND found = FindWindowA("AOL FRAME25", nullptr);
        if (found && Responds(found)) frame_ = found;
        else Pump(50);
    }
    if (!frame_) ADD_FAILURE() << "the simulator's main window did not appear";
}

RunningSim::~RunningSim() {
    if (!process_) return;
    TerminateProcess(process_, 0);
    WaitForSingleObject(process_, 10000);
    CloseHandle(process_);
    for (int i = 0; i < 100 && frame_ && IsWindow(frame_); ++i) Pump(20);
}

HWND RunningSim::mdi() const { return FindWindowExA(frame_, nullptr, "MDIClient", nullptr); }

bool RunningSim::WaitExit(DWORD ms) const {
    for (DWORD waited = 0; waited < ms; waited += 50) {
        if (WaitForSingleObject(process_, 0) == WAIT_OBJECT_0) return true;
        Pump(50);
    }
    return false;
}

CtlResult Ctl(const std::vector<std::string>& args) {
    CtlResult result;
    SECURITY_ATTRIBUTES sa{sizeof sa, nullptr, TRUE};
    HANDLE readEnd = nullptr, writeEnd = nullptr;
    CreatePipe(&readEnd, &writeEnd, &sa, 0);
    SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);
    std::string commandLine = Quote(AolSimPath("aolsimctl.exe"));
    for (const auto& arg : args) commandLine += " " + Quote(arg);
    STARTUPINFOA si{};
    si.cb = sizeof si;
    si.dwFlags = STARTF_USESTDHANDLES;
    si.hStdOutput = writeEnd;
    si.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    si.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    PROCESS_INFORMATION pi{};
    const BOOL started =
        CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &si, &pi);
    CloseHandle(writeEnd);
    if (started) {
        char buffer[4096];
        DWORD got = 0;
        while (ReadFile(readEnd, buffer, sizeof buffer, &got, nullptr) && got > 0) result.out.append(buffer, got);
        WaitForSingleObject(pi.hProcess, 30000);
        DWORD code = 0;
        GetExitCodeProcess(pi.hProcess, &code);
        result.status = (int)code;
        CloseHandle(pi.hThread);
        CloseHandle(pi.hProcess);
    }
    CloseHandle(readEnd);
    return result;
}

std::vector<std::string> CtlLines(const std::vector<std::string>& args) {
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

std::string ClassName(HWND hwnd) {
    char name[100] = "";
    GetClassNameA(hwnd, name, sizeof name);
    return name;
}

std::string MessageText(HWND hwnd) {
    const LRESULT length = SendMessageA(hwnd, WM_GETTEXTLENGTH, 0, 0);
    std::string text(length + 1, '\0');
    const LRESULT got = SendMessageA(hwnd, WM_GETTEXT, length + 1, (LPARAM)text.data());
    text.resize(got > 0 ? got : 0);
    return text;
}

HWND NthChildOfClass(HWND parent, const char* className, int index) {
    int count = 0;
    for (HWND w = GetWindow(parent, GW_CHILD); w; w = GetWindow(w, GW_HWNDNEXT)) {
        if (lstrcmpiA(ClassName(w).c_str(), className) == 0 && ++count == index) return w;
    }
    return nullptr;
}

HWND ChildByCaption(HWND parent, const std::string& caption) {
    for (HWND w = GetWindow(parent, GW_CHILD); w; w = GetWindow(w, GW_HWNDNEXT)) {
        char text[100] = "";
        GetWindowTextA(w, text, sizeof text);
        if (caption == text) return w;
    }
    return nullptr;
}

HWND NextChildOfClass(HWND parent, HWND after, const char* className) {
    // Windows' FindWindowExA(parent, after, class) starts after `after` whatever
    // its class; Wine's finds nothing unless `after` is of the class itself.
    HWND w = after ? GetWindow(after, GW_HWNDNEXT) : GetWindow(parent, GW_CHILD);
    for (; w; w = GetWindow(w, GW_HWNDNEXT)) {
        if (lstrcmpiA(ClassName(w).c_str(), className) == 0) return w;
    }
    return nullptr;
}

HWND FindChatRoom(HWND mdi) {
    for (HWND w = GetWindow(mdi, GW_CHILD); w; w = GetWindow(w, GW_HWNDNEXT)) {
        if (ClassName(w) != "AOL Child") continue;
        HWND list = FindWindowExA(w, nullptr, "_AOL_LISTBOX", nullptr);
        HWND rich = FindWindowExA(w, nullptr, "RICHCNTL", nullptr);
        HWND combo = FindWindowExA(w, nullptr, "_AOL_COMBOBOX", nullptr);
        HWND icon = combo ? NextChildOfClass(w, combo, "_AOL_ICON") : nullptr;
        if (list && rich && combo && icon && MessageText(icon).empty()) return w;
    }
    return nullptr;
}

void Pump(DWORD ms) {
    const DWORD start = GetTickCount();
    do {
        MSG msg;
        while (PeekMessageA(&msg, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&msg);
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    } while (GetTickCount() - start < ms);
}

HWND WaitTopLevel(const char* className, const char* caption) {
    for (int i = 0; i < 200; ++i) {
        HWND found = FindWindowA(className, caption);
        if (found && IsWindowVisible(found)) return found;
        Pump(50);
    }
    return nullptr;
}

HWND WaitChildByCaption(HWND parent, const std::string& caption) {
    for (int i = 0; i < 200; ++i) {
        if (HWND found = ChildByCaption(parent, caption)) return found;
        Pump(50);
    }
    return nullptr;
}

void Click(HWND hwnd) {
    SendMessageA(hwnd, WM_LBUTTONDOWN, 0, 0);
    SendMessageA(hwnd, WM_LBUTTONUP, 0, 0);
}
