// modPrismo: the program's entry and its start-up sequence.
#include "modPrismo.h"

#include <windows.h>
#include <tlhelp32.h>

#include "AOLState.h"
#include "Catalog.h"
#include "ErrorTrap.h"
#include "OptionsLoad.h"
#include "ProgramInfo.h"
#include "SchemeFiles.h"
#include "StartupText.h"
#include "SubClass.h"
#include "KernelHandle.h"
#include "frmChatTools.h"
#include "frmMain.h"
#include "frmMsg.h"
#include "modAOLFunctions.h"
#include "modAOLMenu.h"
#include "modFileOp.h"
#include "modFindChild.h"
#include "modLaunch32.h"
#include "modMsgBox.h"
#include "modRegKeys.h"
#include "modWin32API.h"
#include "modZunBtns.h"

namespace {

// The runtime files the program cannot work without, beside the program.
const char* const kRuntimeFiles[] = {"prismosbc.dll"};

// Held for the program's whole life; a second copy finds it taken.
HANDLE g_instanceMutex = nullptr;

[[noreturn]] void Refuse(const std::string& message, long style)
{
    ShowMsg(message, style);
    EndProgram();
}

// The loading window's step: status ("" keeps the last), then percentage.
void Step(const std::string& status, int percent)
{
    frmMain& loading = LoadingWindow();
    loading.Status(status);
    if (percent >= 0) loading.Percent(percent);
}

void ShowLoadingWindow()
{
    frmMain& loading = LoadingWindow();
    if (!loading.Loaded()) loading.Load();
    loading.Show();
}

void FindAOLWindows()
{
    AOLWindow = FindWindowA("AOL FRAME25", nullptr);
    AOLMDIClient = AOLWindow ? FindWindowExA(AOLWindow, nullptr, "MDIClient", nullptr) : nullptr;
}

void CaptionAOL() { SetWindowTextA(AOLWindow, "America  Online"); }

// Steps 9 and 10: a running AOL is adopted, otherwise started; then our hook
// library goes into AOL's process, where AOL's menus are read and changed.
void AttachToAOL()
{
    const LoadingProgress progress = [](const std::string& status, int percent) { Step(status, percent); };
    ShowLoadingWindow();
    if (!FindWindowA("AOL FRAME25", nullptr)) {
        if (!StartAOL(progress, GetAOLPath)) EndProgram();
    } else if (!AOLIsRunning(progress)) {
        EndProgram();
    }
    FindAOLWindows();
    std::string menus;
    SbcMenuDump(AOLWindow, menus);
}

void ReadAOLVersion()
{
    GetAOLVersion();
    if (AOLVersion == "4" || AOLVersion == "5") DetectAOLEdition();
    CaptionAOL();
}

void ShowVersionSteps()
{
    SetFormColor(LoadingWindow());
    SetProgressColor(LoadingWindow().ProgressBar1);
    Step("Determining AOL Version", 30);
    Pause(100);
    Step("", 40);
    GetAOLVersion();
    Step(VersionDeterminedText(AOLVersion, AOLEdition.UK, AOLEdition.Canada, AOLEdition.Australia), -1);
    Pause(100);
    if (AOLVersion != "4" && AOLVersion != "5") {
        ShowMsg(WrongAOLVersionText(AOLVersion), 16);
        EndProgram();
    }
    FindAOLWindows();
    CaptionAOL();
}

void ReadScreenNames()
{
    Step("Retrieving Screen Names", -1);
    Pause(100);
    Step("", 50);
    // Names read from the sign-on list start with the master name; signed on
    // before Prismo ever saw that list, only the name now signed on is known.
    bool master = true;
    if (IsAOLOnline(false)) {
        master = GetScreenNames();
    } else if (!GetSignOnScreenNames()) {
        EndProgram();
    }
    Step(ScreenNameStatusText(ScreenNames[0], master), -1);
    Pause(100);
}

void LoadSettingsAndSchemes()
{
    Step("Loading User Settings", 80);
    Pause(100);
    LoadOptions();
    MakeSchemeFolders();
    UpdateFadeSchemes(IncomingFolder(), [](const std::string& status) { Step(status, -1); });
    Step("Loading Prismo", 90);
    Pause(100);
    Step("", 100);
    Pause(100);
    frmMain& loading = LoadingWindow();
    loading.Hide();
    WaitUntil([&loading] { return !loading.Visible(); });
    loading.Unload();
}

}  // namespace

// Every end takes the program out of AOL first: its menu, then its hooks.
void EndProgram()
{
    ErrorTrap::Ignoring([] { RemoveMenuFromAOL(); });
    TheChatSession().Stop();
    UnloadAllForms();
    ExitProcess(0);
}

bool AnotherInstanceRunning()
{
    g_instanceMutex = CreateMutexA(nullptr, FALSE, "Zun Software Prismo");
    return g_instanceMutex && GetLastError() == ERROR_ALREADY_EXISTS;
}

void OS_Check()
{
    OSVERSIONINFOA info{};
    info.dwOSVersionInfoSize = sizeof info;  // 148 bytes
    GetVersionExA(&info);
    switch (ClassifyPlatform(info.dwPlatformId)) {
    case OSVerdict::Windows9x: return;
    case OSVerdict::WindowsNT: Refuse(StartupText::WindowsNT, 64);
    case OSVerdict::Other: Refuse(StartupText::NotWindows9x, 64);
    }
}

void CheckForTunebox()
{
    KernelHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    if (!snapshot.Valid()) return;
    PROCESSENTRY32 entry{};
    entry.dwSize = sizeof entry;
    bool found = false;
    for (BOOL more = Process32First(snapshot.Get(), &entry); more && !found;
         more = Process32Next(snapshot.Get(), &entry))
        found = IsTuneboxPath(entry.szExeFile);
    if (found) Refuse(StartupText::Tunebox, 64);
}

void RegSvr(const std::string& fileName, bool registerIt)
{
    const std::string path = AppPath() + "\\" + fileName;
    if (!FileExists(path)) Refuse(MissingRuntimeFileText(fileName), 16);
    if (registerIt) {
        const std::string command = "regsvr32 /s \"" + path + "\"";
        WinExec(command.c_str(), SW_SHOWMINIMIZED);
    }
}

void Main(const std::string& commandLine)
{
    // Abort in an error report takes the program out of AOL before it ends.
    InstallErrorReport(EndProgram);
    SetHelpFile(AppPath() + "\\prismo.hlp");
    Options.UIMode = static_cast<std::int16_t>(StartUIMode());
    // A broken stored colour is shown to the user, who may end here, read it
    // again or start with the colours read so far.
    ErrorTrap trap("modPrismo", "Main");
    if (!trap.Run([] { LoadUserColors(); })) return;
    if (IsChangeAOLCommand(commandLine)) {
        GetAOLPath(0);
        EndProgram();
    }
    if (AnotherInstanceRunning()) Refuse(StartupText::AlreadyRunning, 16);
    OS_Check();
    CheckForTunebox();
    GetSysDir();
    for (const char* file : kRuntimeFiles) RegSvr(file, false);
    AttachToAOL();
    ReadAOLVersion();
    ShowVersionSteps();
    ReadScreenNames();
    LoadSettingsAndSchemes();
    AddMenuToAOL();
    TheChatSession().Start();
    // The panel is ready but stays hidden: the watcher shows it beside a
    // chat room, and the user shows it from the menu.
    ChatTools().Load();
}

// The program lives in its forms; it ends when the last one is unloaded.
// An error no step caught (say, memory running out while a file is read) is
// shown in the common error report instead of ending the program unseen; its
// Abort takes the program out of AOL.
int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR commandLine, int)
{
    try {
        Main(commandLine ? commandLine : "");
    } catch (...) {
        ReportCaughtError("modPrismo", "Main");
    }
    try {
        WaitUntil([] { return LoadedForms().empty(); });
        TheChatSession().Stop();
    } catch (...) {
        ReportCaughtError("modPrismo", "WinMain");
    }
    return 0;
}
