// prismo.exe running beside the AOL simulator, for the chat fader's Wine
// tests and its benchmark: a fresh program key with the shipped schemes, the
// simulator signed on in a chat room, and the program started next to it.
#pragma once

#include <windows.h>

#include <string>

#include "AOLSim.h"
#include "WineRegistry.h"

namespace ChatLive {

inline std::string Prismo() { return ProgramFolder() + "..\\..\\app\\prismo.exe"; }
inline std::string PrismoFade() { return ProgramFolder() + "..\\..\\cli\\prismo-fade.exe"; }

inline void EndEveryAOL()
{
    for (int i = 0; i < 5; ++i) {
        HWND frame = FindWindowA("AOL FRAME25", nullptr);
        if (!frame) return;
        DWORD pid = 0;
        GetWindowThreadProcessId(frame, &pid);
        if (HANDLE p = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, pid)) {
            TerminateProcess(p, 1);
            WaitForSingleObject(p, 5000);
            CloseHandle(p);
        }
    }
}

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

// The program's visible top-level window that holds a child `childId`.
inline HWND ProgramWindowWithChild(DWORD pid, int childId)
{
    struct Search {
        DWORD pid;
        int child;
        HWND found;
    } search{pid, childId, nullptr};
    EnumWindows(
        [](HWND w, LPARAM lp) -> BOOL {
            auto* s = reinterpret_cast<Search*>(lp);
            DWORD owner = 0;
            GetWindowThreadProcessId(w, &owner);
            if (owner != s->pid || !GetDlgItem(w, s->child)) return TRUE;
            s->found = w;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
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

}  // namespace ChatLive
