// The installation and session facts the program reads itself: the version
// of AOL's program file, the sign-on state and names from AOL's windows, and
// finding or starting AOL.
#include "modLaunch32.h"

#include <tlhelp32.h>

#include <vector>

#include "AOLHandles.h"
#include "AOLState.h"
#include "AOLText.h"
#include "modAOLFunctions.h"
#include "modFindChild.h"
#include "modRegKeys.h"
#include "modWin32API.h"

namespace {
HWND FindMDIChild(const char* caption)
{
    return AOLMDIClient ? FindWindowExA(AOLMDIClient, nullptr, "AOL Child", caption) : nullptr;
}

bool SignOnScreenShown()
{
    static const char* const screens[] = {"Sign On", "Welcome", "Goodbye From AOL!",
                                          "Goodbye From AOL Canada!",
                                          "Goodbye From America Online!"};
    for (const char* caption : screens)
        if (FindMDIChild(caption)) return true;
    return false;
}

void Step(const LoadingProgress& progress, const std::string& status, int percent, double pause)
{
    if (progress) progress(status, percent);
    Pause(pause);
}
}  // namespace

std::string AOLGetVersion(const std::string& folder)
{
    std::string file = folder + "\\waol.exe";
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeA(&file[0], &ignored);
    if (size == 0) return "";
    std::vector<char> data(size);
    if (!GetFileVersionInfoA(&file[0], 0, size, data.data())) return "";
    VS_FIXEDFILEINFO* info = nullptr;
    UINT length = 0;
    char root[] = "\\";
    if (!VerQueryValueA(data.data(), root, reinterpret_cast<void**>(&info), &length) || !info)
        return "";
    return std::to_string(HIWORD(info->dwFileVersionMS)) + "." +
           std::to_string(LOWORD(info->dwFileVersionMS));
}

long AOLIsOnline()
{
    if (FindChildByTitle(AOLMDIClient, "Welcome, ") && !SignOnScreenShown()) return 2;
    return 1;
}

void AOLGetScreenName(const std::string&, std::string names[6])
{
    for (int i = 0; i < 6; ++i) names[i].clear();
    if (SignOnScreenShown() && GetSignOnScreenNames()) {
        for (int i = 0; i < 5; ++i) names[i] = ScreenNames[static_cast<size_t>(i)];
        return;
    }
    if (HWND welcome = FindChildByTitle(AOLMDIClient, "Welcome, "))
        names[0] = ScreenNameFromWelcome(GetAPIText(welcome, false));
}

void GetAOLVersion()
{
    const std::string version = MapAOLVersion(AOLGetVersion(AOLPath));
    if (!version.empty()) AOLVersion = version;
}

std::string WindowProgramPath(HWND window)
{
    DWORD pid = 0;
    GetWindowThreadProcessId(window, &pid);
    if (!pid) return "";
    // The first module of a process is its program file, with its full path
    // (the process list gives only the bare name on some systems).
    KernelHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, pid));
    if (!snapshot.Valid()) return "";
    MODULEENTRY32 module = {};
    module.dwSize = sizeof module;
    if (!Module32First(snapshot.Get(), &module)) return "";
    return module.szExePath;
}

bool AOLIsRunning(const LoadingProgress& progress)
{
    AOLWindow = FindWindowA("AOL FRAME25", nullptr);
    AOLMDIClient = FindWindowExA(AOLWindow, nullptr, "MDIClient", nullptr);
    const std::string path = WindowProgramPath(AOLWindow);
    if (!IsWAOLPath(path)) {
        AOLMessage("~CRA 16 bit version of AOL is currently running!~CN~N ~NThis version of Prismo "
                   "does not work with the 16 bit version of AOL.",
                   64);
        return false;
    }
    AOLPath = AOLFolderOf(path);
    WriteSetting(Setting::AOLPath, AOLPath);
    Pause(1000);
    Step(progress, "", 5, 100);
    Step(progress, "", 10, 100);
    Step(progress, "", 15, 100);
    Step(progress, "Starting America Online", 20, 100);
    Step(progress, "America Online Loaded", 25, 100);
    ShowWindow(AOLWindow, SW_SHOWMAXIMIZED);
    return true;
}

namespace {
bool FileThere(const std::string& path)
{
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}
}  // namespace

bool StartAOL(const LoadingProgress& progress, const AOLFolderChooser& chooseFolder)
{
    Pause(100);
    Step(progress, "", 5, 100);
    Step(progress, "", 10, 100);
    Step(progress, "", 15, 100);
    Step(progress, "Starting America Online", 20, 100);
    if (ReadSetting(Setting::AOLPath).empty() && chooseFolder) chooseFolder(1);
    AOLPath = TrimAOLText(ReadSetting(Setting::AOLPath));
    if (!FileThere(AOLPath + "\\aol.exe") && chooseFolder) {
        chooseFolder(1);
        AOLPath = TrimAOLText(ReadSetting(Setting::AOLPath));
    }
    if (AOLPath.empty()) return false;
    const std::string command = AOLPath + "\\waol.exe";
    if (WinExec(command.c_str(), SW_SHOWMAXIMIZED) <= 31) return false;
    while (!(AOLWindow = FindWindowA("AOL FRAME25", nullptr))) Pause(100);
    AOLMDIClient = WaitForChildByClass(AOLWindow, "MDIClient");
    return true;
}
