// prismo.exe running beside the AOL simulator, for the chat fader's Wine
// tests and its benchmark: a fresh program key with the shipped schemes, the
// simulator signed on in a chat room, and the program started next to it.
#pragma once

#include <windows.h>

#include <string>

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

// Whether the program `pid` is still carrying out a chat or menu command, as
// its chat session window answers it.
inline bool CommandRunning(DWORD pid)
{
    HWND session = nullptr;
    while ((session = FindWindowExA(nullptr, session, kChatSessionClass, nullptr)) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(session, &owner);
        if (owner == pid) return SendMessageA(session, RegisterWindowMessageA(kCommandRunningMessage), 0, 0) != 0;
    }
    return false;
}

}  // namespace ChatLive
