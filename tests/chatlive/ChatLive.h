// prismo.exe running beside the AOL simulator, for the chat fader's Wine
// tests and its benchmark: a fresh program key with the shipped schemes, the
// simulator signed on in a chat room, and the program started next to it.
#pragma once

#include <windows.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "ChatText.h"
#include "SimHarness.h"
#include "WineRegistry.h"

namespace ChatLive {

inline std::string Prismo() { return TestFolder() + "..\\..\\app\\prismo.exe"; }
inline std::string PrismoFade() { return TestFolder() + "..\\..\\cli\\prismo-fade.exe"; }

inline void SetOption(const std::string& section, const std::string& name, const std::string& value)
{
    TestEnv::RawSet(section, name, REG_SZ, value + std::string(1, '\0'));
}

inline std::string Option(const std::string& section, const std::string& name)
{
    DWORD type = 0;
    std::string bytes;
    if (!TestEnv::RawGet(section, name, type, bytes)) return "";
    return bytes.c_str();
}

// The fresh registry the installer leaves, and where AOL is.
inline void FreshSettings(const std::string& aolFolder)
{
    TestEnv::ResetProgramKey();
    TestEnv::InstallShippedSchemes();
    SetOption("", "AOL Path", aolFolder);
}

// What prismo-fade makes of `line` with the scheme file `scheme`.
inline std::string FadedByCli(const std::string& scheme, const std::string& line)
{
    std::string out;
    RunCaptured("\"" + PrismoFade() + "\" --scheme \"" + TestEnv::ShippedSchemesFolder() + scheme +
                    ".fde\" \"" + line + "\"",
                out);
    while (!out.empty() && (out.back() == '\n' || out.back() == '\r')) out.pop_back();
    return out;
}

// `line` as the shipped default scheme fades it, as the room shows it.
inline std::string Faded(const std::string& line) { return FadedByCli("Cool Fade", line) + "\n"; }

// What the chat session window of the program `pid` answers to `message`
// (one of the session's registered messages) with `wParam`; -1 before the
// session exists.
// The session answers only from the program's message loop, so an answer also
// says that start-up has run to its end.
inline long AskSession(DWORD pid, const char* message, WPARAM wParam = 0)
{
    HWND session = nullptr;
    while ((session = FindWindowExA(nullptr, session, kChatSessionClass, nullptr)) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(session, &owner);
        if (owner == pid) return static_cast<long>(SendMessageA(session, RegisterWindowMessageA(message), wParam, 0));
    }
    return -1;
}

// How many times the watcher of the program `pid` has ticked; -1 before its session exists.
inline long WatcherTicks(DWORD pid) { return AskSession(pid, kWatcherTicksMessage); }

// The Prismo running in this desktop (its chat session's process), 0 when none.
inline DWORD RunningPrismo()
{
    DWORD pid = 0;
    if (HWND session = FindWindowA(kChatSessionClass, nullptr)) GetWindowThreadProcessId(session, &pid);
    return pid;
}

// A button of one of the program's windows pressed, as a click posts it.
inline void Press(HWND window, int id)
{
    PostMessageA(window, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(GetDlgItem(window, id)));
}

// Whether the program `pid` is still carrying out a chat or menu command.
inline bool CommandRunning(DWORD pid) { return AskSession(pid, kCommandRunningMessage) > 0; }

// A file of the temporary folder holding just `bytes`; its path.
inline std::string TempFile(const std::string& name, const std::string& bytes = "")
{
    char folder[MAX_PATH] = "";
    GetTempPathA(sizeof folder, folder);
    const std::string path = std::string(folder) + name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

inline std::string ReadTextFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Drags `window` by its part `handle` with the real mouse, `dx` and `dy`
// pixels, in steps the window follows one by one.
inline void DragBy(HWND window, HWND handle, int dx, int dy)
{
    const RECT screen = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    RECT start, now, grip;
    GetWindowRect(window, &start);
    GetWindowRect(handle, &grip);
    const auto mouse = [&](DWORD flags, int x, int y) {
        INPUT in = {};
        in.type = INPUT_MOUSE;
        in.mi.dx = x * 65535 / (screen.right - 1);
        in.mi.dy = y * 65535 / (screen.bottom - 1);
        in.mi.dwFlags = flags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
        SendInput(1, &in, sizeof in);
    };
    const int x = (grip.left + grip.right) / 2, y = (grip.top + grip.bottom) / 2;
    mouse(0, x, y);
    mouse(MOUSEEVENTF_LEFTDOWN, x, y);
    // Step by step, each once the window has followed the last (the first
    // may come before the system has taken the drag up).
    for (int step = 1; step <= 10; ++step) {
        mouse(0, x + step * dx / 10, y + step * dy / 10);
        PumpUntil([&] { GetWindowRect(window, &now); return now.left == start.left + step * dx / 10; }, 2000);
    }
    mouse(MOUSEEVENTF_LEFTUP, x + dx, y + dy);
}

// A text as the simulator's log writes it, line ends, tabs and backslashes escaped.
inline std::string Escaped(const std::string& text)
{
    std::string out;
    for (char c : text) {
        if (c == '\r') out += "\\r";
        else if (c == '\n') out += "\\n";
        else if (c == '\t') out += "\\t";
        else if (c == '\\') out += "\\\\";
        else out += c;
    }
    return out;
}

// The lines of `text`, each ended by "\n" (a last unended piece is left out).
inline std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
        lines.push_back(text.substr(start, end - start));
    return lines;
}

// What the simulator logged to `log` as `event`: the rest of each such line.
inline std::vector<std::string> Logged(const std::string& log, const std::string& event)
{
    std::vector<std::string> found;
    for (const std::string& line : Lines(ReadTextFile(log)))
        if (line.rfind(event + "\t", 0) == 0) found.push_back(line.substr(event.size() + 1));
    return found;
}

}  // namespace ChatLive
