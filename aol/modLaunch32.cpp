// The installation and session facts the program reads itself: the version
// of AOL's program file, the sign-on state and names from AOL's windows, and
// finding or starting AOL.
#include "modLaunch32.h"

#include <tlhelp32.h>

#include <vector>

#include "AOLHandles.h"
#include "AOLState.h"
#include "AOLText.h"
#include "ErrorTrap.h"
#include "SubClass.h"
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

// The account's names as last read from the sign-on list, in its order.
std::vector<std::string>& SignOnNamesRead()
{
    static std::vector<std::string> names;
    return names;
}

// The name now signed on, from the Welcome window. A member may have closed
// it; AOL opens it again on the keyword "welcome".
std::string CurrentNameFromWelcome()
{
    HWND welcome = FindChildByTitle(AOLMDIClient, "Welcome, ");
    if (!welcome) {
        RunAOLKeyword("welcome");
        welcome = WaitForChildByTitle(AOLMDIClient, "Welcome, ");
    }
    return welcome ? ScreenNameFromWelcome(GetAPIText(welcome, false)) : "";
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

// AOL shows no window for the whole of a session that the member cannot
// close: the "Welcome, NAME!" window, the Sign On screen and the goodbye
// screen all have close boxes, and a member who closes the Welcome window is
// still signed on. AOL's menus stay, and the "Sign Off" command of its "Sign
// Off" menu can be chosen exactly while a session runs: AOL greys it until
// the connection is made and again once it is dropped. So that command's
// state is the session's. Only when AOL's menus cannot be read at all do the
// windows decide: a Welcome window and no sign-on or goodbye screen.
long AOLIsOnline()
{
    std::string dump;
    if (SbcMenuDump(AOLWindow, dump)) {
        const MenuEntry* item = FindMenuItem(ParseMenuDump(dump), "&Sign Off", "&Sign Off");
        unsigned state = 0;
        if (item && SbcMenuItemState(AOLWindow, static_cast<unsigned>(item->id), state))
            return (state & (MF_GRAYED | MF_DISABLED)) ? 1 : 2;
    }
    if (FindChildByTitle(AOLMDIClient, "Welcome, ") && !SignOnScreenShown()) return 2;
    return 1;
}

void RememberSignOnNames(const std::vector<std::string>& names)
{
    SignOnNamesRead() = names;
}

bool AOLGetScreenName(const std::string&, std::string names[6])
{
    bool fromList = false;
    ErrorTrap trap("modLaunch32", "AOLGetScreenName");
    trap.Run([&] {
        const std::vector<std::string>& read = SignOnNamesRead();
        fromList = !read.empty();
        const std::vector<std::string> slots = AccountSlots(read, fromList ? "" : CurrentNameFromWelcome());
        for (size_t i = 0; i < 6; ++i) names[i] = slots[i];
    });
    return fromList;
}

void GetAOLVersion()
{
    ErrorTrap trap("modLaunch32", "GetAOLVersion");
    trap.Run([] {
        const std::string version = MapAOLVersion(AOLGetVersion(AOLPath));
        if (!version.empty()) AOLVersion = version;
    });
}

std::string WindowProgramPath(HWND window)
{
    DWORD pid = 0;
    GetWindowThreadProcessId(window, &pid);
    if (!pid) return "";
    // The program file is looked for among all the process's modules: the
    // first one need not be it (a 16-bit AOL runs inside a host process of
    // another name), and the process list gives only bare names on some
    // systems.
    KernelHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, pid));
    if (!snapshot.Valid()) return "";
    MODULEENTRY32 module = {};
    module.dwSize = sizeof module;
    for (BOOL more = Module32First(snapshot.Get(), &module); more;
         more = Module32Next(snapshot.Get(), &module))
        if (IsWAOLPath(module.szExePath)) return module.szExePath;
    return "";
}

bool AOLIsRunning(const LoadingProgress& progress)
{
    ErrorTrap trap("modLaunch32", "AOLIsRunning");
    std::string path;
    if (!trap.Run([&] {
            AOLWindow = FindWindowA("AOL FRAME25", nullptr);
            AOLMDIClient = FindWindowExA(AOLWindow, nullptr, "MDIClient", nullptr);
            path = WindowProgramPath(AOLWindow);
        }))
        return false;
    if (!IsWAOLPath(path)) {
        AOLMessage("~CRA 16 bit version of AOL is currently running!~CN~N ~NThis version of Prismo "
                   "does not work with the 16 bit version of AOL.",
                   64);
        return false;
    }
    trap.Run([&] {
        AOLPath = AOLFolderOf(path);
        WriteSetting(Setting::AOLPath, AOLPath);
    });
    Pause(1000);
    Step(progress, "", 5, 100);
    Step(progress, "", 10, 100);
    Step(progress, "", 15, 100);
    Step(progress, "Starting America Online", 20, 100);
    Step(progress, "America Online Loaded", 25, 100);
    trap.Run([] { ShowWindow(AOLWindow, SW_SHOWMAXIMIZED); });
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
    ErrorTrap trap("modLaunch32", "StartAOL");
    Pause(100);
    Step(progress, "", 5, 100);
    Step(progress, "", 10, 100);
    Step(progress, "", 15, 100);
    Step(progress, "Starting America Online", 20, 100);
    trap.Run([&] {
        if (ReadSetting(Setting::AOLPath).empty() && chooseFolder) chooseFolder(1);
    });
    trap.Run([] { AOLPath = TrimAOLText(ReadSetting(Setting::AOLPath)); });
    trap.Run([&] {
        if (!FileThere(AOLPath + "\\aol.exe") && chooseFolder) {
            chooseFolder(1);
            AOLPath = TrimAOLText(ReadSetting(Setting::AOLPath));
        }
    });
    if (AOLPath.empty()) return false;
    // AOL's usual folder ("America Online 4.0") has blanks in it.
    bool started = false;
    trap.Run([&] {
        const std::string command = QuotedProgram(AOLPath + "\\waol.exe");
        started = WinExec(command.c_str(), SW_SHOWMAXIMIZED) > 31;
    });
    if (!started) return false;
    while (!(AOLWindow = FindWindowA("AOL FRAME25", nullptr))) Pause(100);
    trap.Run([] { AOLMDIClient = WaitForChildByClass(AOLWindow, "MDIClient"); });
    return true;
}
