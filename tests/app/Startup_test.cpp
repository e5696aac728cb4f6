// prismo.exe itself under Wine, with the AOL simulator as AOL: the first
// start that asks for AOL's folder and starts AOL, the second start, and the
// refusals of Windows NT, AOL 3.0 and a missing hook library.
#include <windows.h>
#include <psapi.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <set>

#include "ChatLive.h"
#include "ChatText.h"
#include "SimHarness.h"
#include "WineRegistry.h"
#include "modFileOp.h"
#include "resource.h"

namespace {

using ChatLive::Prismo;
using ChatLive::WatcherTicks;

// Waits for the program's message box and returns its marked-up text.
std::string WaitForMessage(DWORD pid, HWND* box, DWORD ms = 20000)
{
    *box = nullptr;
    PumpUntil([&] { return (*box = WindowWithChild(pid, IDC_MSG_AREA)) != nullptr; }, ms);
    return *box ? WindowText(GetDlgItem(*box, IDC_MSG_AREA)) : "";
}

// Presses the box's first button and waits until the box has gone.
void Answer(HWND box)
{
    PostMessageA(GetDlgItem(box, IDC_MSG_CMD0), BM_CLICK, 0, 0);
    EXPECT_TRUE(PumpUntil([&] { return !IsWindow(box) || !IsWindowVisible(box); }, 10000)) << "the box stayed";
}

// Waits for the program's message, answers it and expects the program to end
// cleanly; returns the message's text.
std::string MessageThenEnd(TestProcess& process, DWORD ms = 20000)
{
    HWND box;
    const std::string text = WaitForMessage(process.Id(), &box, ms);
    EXPECT_TRUE(box) << "no message";
    if (box) Answer(box);
    EXPECT_EQ(process.Wait(10000), 0);
    return text;
}

HWND WaitForPicker(DWORD pid)
{
    HWND picker = nullptr;
    PumpUntil([&] { return (picker = WindowWithChild(pid, IDC_CM_TXTPATH)) != nullptr; }, 15000);
    return picker;
}

std::string StoredAOLPath()
{
    DWORD type;
    std::string stored;
    EXPECT_TRUE(TestEnv::RawGet("", "AOL Path", type, stored));
    return stored.c_str();
}

void SetAppVersion(const std::string& version)
{
    HKEY key;
    RegCreateKeyExA(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\prismo.exe", 0, nullptr, 0, KEY_ALL_ACCESS,
                    nullptr, &key, nullptr);
    RegSetValueExA(key, "Version", 0, REG_SZ, reinterpret_cast<const BYTE*>(version.c_str()),
                   static_cast<DWORD>(version.size() + 1));
    RegCloseKey(key);
}

std::string FullPath(const std::string& folder)
{
    char full[MAX_PATH];
    GetFullPathNameA(folder.c_str(), sizeof full, full, nullptr);
    return full;
}

// Walks the folder picker to `folder` the way a user does: the drive from
// the drive list, then one double-click per folder in the folder tree.
void Navigate(HWND picker, const std::string& folder)
{
    const std::string path = FullPath(folder);
    HWND drives = GetDlgItem(picker, IDC_CM_DRIVE1), dirs = GetDlgItem(picker, IDC_CM_DIR1);
    std::string drive = path.substr(0, 2);
    drive[0] = static_cast<char>(tolower(drive[0]));
    const LRESULT at = SendMessageA(drives, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                    reinterpret_cast<LPARAM>(drive.c_str()));
    SendMessageA(drives, CB_SETCURSEL, static_cast<WPARAM>(at), 0);
    SendMessageA(picker, WM_COMMAND, MAKEWPARAM(IDC_CM_DRIVE1, CBN_SELCHANGE), reinterpret_cast<LPARAM>(drives));
    int depth = 1;
    for (size_t start = 3; start < path.size();) {
        const size_t end = std::min(path.find('\\', start), path.size());
        const std::string name = path.substr(start, end - start);
        start = end + 1;
        // The tree indents each folder two blanks per level below the root.
        const std::string entry = std::string(2 * depth++, ' ') + name;
        const LRESULT line = SendMessageA(dirs, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                          reinterpret_cast<LPARAM>(entry.c_str()));
        ASSERT_NE(line, LB_ERR) << "no folder " << name << " in the tree";
        SendMessageA(dirs, LB_SETCURSEL, static_cast<WPARAM>(line), 0);
        SendMessageA(picker, WM_COMMAND, MAKEWPARAM(IDC_CM_DIR1, LBN_DBLCLK), reinterpret_cast<LPARAM>(dirs));
    }
}

// The program's control panel once start-up has finished: loaded, shown or not.
HWND PanelAfterStart(DWORD pid, DWORD ms = 60000)
{
    HWND panel = nullptr;
    PumpUntil([&] { return (panel = WindowWithChild(pid, IDC_CT_PREVIEW, false)) != nullptr && WatcherTicks(pid) >= 0; },
              ms);
    return panel;
}

// The most memory the process has held so far (its peak private bytes).
SIZE_T PeakMemory(DWORD pid)
{
    HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, pid);
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    const bool got = process && GetProcessMemoryInfo(process, &counters, sizeof counters);
    if (process) CloseHandle(process);
    return got ? counters.PeakPagefileUsage : 0;
}

// Writes a scheme file of about `megabytes` MB: a scheme's values, then lines
// of a few kilobytes and blocks of binary noise, a piece at a time.
void PutHugeSchemeFile(const std::string& path, int megabytes)
{
    HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE) << path;
    std::string piece = "[Options]\r\nFadeNumber=2\r\n[Colors]\r\nOne=255\r\nTwo=65280\r\n";
    std::uint32_t seed = 7;
    DWORD written = 0;
    for (long total = 0; total < megabytes * 1048576L;) {
        piece += "Three=" + std::string(3000 + total % 2000, '3') + "\r\n";
        for (int i = 0; i < 60000; ++i) {
            seed = seed * 1664525u + 1013904223u;
            piece.push_back(static_cast<char>(seed >> 24));
        }
        if (!WriteFile(file, piece.data(), static_cast<DWORD>(piece.size()), &written, nullptr) || written == 0) break;
        total += static_cast<long>(written);
        piece.clear();
    }
    CloseHandle(file);
}

class StartupTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        EndEveryAOL();
        TestEnv::ResetProgramKey();
        TestEnv::InstallShippedSchemes();
        SetAppVersion("win98");
    }
    void TearDown() override
    {
        prismo.Kill();
        EndEveryAOL();
        SetAppVersion("win98");
    }
    TestProcess prismo;
};

TEST_F(StartupTest, FirstStartAsksForTheFolderStartsAOLAndShowsThePanel)
{
    ASSERT_TRUE(prismo.Start("\"" + Prismo() + "\""));
    const DWORD pid = prismo.Id();
    HWND box;
    EXPECT_NE(WaitForMessage(pid, &box).find("Welcome to Prismo!"), std::string::npos);
    ASSERT_TRUE(box);
    // The loading window is up behind the welcome, at the step that starts AOL.
    std::set<std::string> steps;
    if (HWND loading = WindowWithChild(pid, IDC_LD_BAR)) steps.insert(WindowText(GetDlgItem(loading, IDC_LD_BAR)));
    Answer(box);

    // The picker refuses a folder without aol.exe, then takes the simulator's.
    HWND picker = WaitForPicker(pid);
    ASSERT_TRUE(picker);
    EXPECT_EQ(WindowText(picker), "Select AOL Directory");
    EXPECT_EQ(WindowText(GetDlgItem(picker, IDC_CM_TXTPATH)), "C:\\");
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(picker, IDC_CM_COMMAND1))) << "no aol.exe on C:\\";
    const std::string aol40 = FullPath(SimFolder() + "aol40");
    Navigate(picker, aol40);
    EXPECT_EQ(WindowText(GetDlgItem(picker, IDC_CM_TXTPATH)), aol40);
    EXPECT_EQ(SendMessageA(GetDlgItem(picker, IDC_CM_FILE1), LB_GETCOUNT, 0, 0), 1);
    ASSERT_TRUE(IsWindowEnabled(GetDlgItem(picker, IDC_CM_COMMAND1)));
    // A path typed over the chosen one is checked when OK is pressed.
    const std::string typed = aol40 + "\\download";
    SetWindowTextA(GetDlgItem(picker, IDC_CM_TXTPATH), typed.c_str());
    PostMessageA(GetDlgItem(picker, IDC_CM_COMMAND1), BM_CLICK, 0, 0);
    EXPECT_NE(WaitForMessage(pid, &box).find("AOL.EXE not found!"), std::string::npos);
    ASSERT_TRUE(box);
    Answer(box);
    ASSERT_TRUE(IsWindowVisible(picker)) << "the picker stays after a refusal";
    SetWindowTextA(GetDlgItem(picker, IDC_CM_TXTPATH), aol40.c_str());
    PostMessageA(GetDlgItem(picker, IDC_CM_COMMAND1), BM_CLICK, 0, 0);

    // The loading window's steps, as they pass.
    HWND panel = nullptr;
    PumpUntil(
        [&] {
            if (HWND loading = WindowWithChild(pid, IDC_LD_BAR)) steps.insert(WindowText(GetDlgItem(loading, IDC_LD_BAR)));
            return (panel = WindowWithChild(pid, IDC_CT_PREVIEW, false)) != nullptr;
        },
        60000);
    ASSERT_TRUE(panel) << "the control panel never loaded";
    ASSERT_EQ(PanelAfterStart(pid), panel);
    EXPECT_FALSE(IsWindowVisible(panel)) << "without a chat room the panel waits hidden";
    for (const char* step : {"Starting America Online", "AOL Version 4.0 US Determined", "Master Screen Name: Zun Tester",
                             "Loading User Settings", "Loading Prismo"})
        EXPECT_EQ(steps.count(step), 1u) << step;

    HWND frame = FindWindowA("AOL FRAME25", nullptr);
    ASSERT_TRUE(frame);
    EXPECT_EQ(WindowText(frame), "America  Online");
    EXPECT_EQ(reinterpret_cast<HWND>(GetWindowLongPtrA(panel, GWLP_HWNDPARENT)), frame);
    const std::string menus = Ctl({"menu"}).out;
    EXPECT_NE(menus.find("Prism&o"), std::string::npos) << menus;
    EXPECT_EQ(StoredAOLPath(), aol40);

    // A second start is refused before anything else happens.
    TestProcess second("\"" + Prismo() + "\"");
    EXPECT_EQ(MessageThenEnd(second), "Prismo is already running!");
    EXPECT_TRUE(IsWindow(panel));
}

// Any close request on the panel only hides it: the program goes on, and its
// menu in AOL still answers.
TEST_F(StartupTest, ThePanelStartsHiddenAndClosingItOnlyHidesIt)
{
    TestEnv::RawSet("", "AOL Path", REG_SZ, FullPath(SimFolder() + "aol40") + std::string(1, '\0'));
    SimAOL aol;
    ASSERT_TRUE(aol.Start("40", "--signed-on \"Zun Tester\""));
    ASSERT_TRUE(prismo.Start("\"" + Prismo() + "\""));
    HWND panel = PanelAfterStart(prismo.Id());
    ASSERT_TRUE(panel) << "the control panel never loaded";
    EXPECT_FALSE(IsWindowVisible(panel));

    auto showFromMenu = [&] {
        PostMessageA(aol.Frame(), WM_COMMAND, 60000, 0);  // Prism&o, Control Panel
        return PumpUntil([&] { return IsWindowVisible(panel) != 0; }, 10000);
    };
    struct Close {
        const char* name;
        UINT msg;
        WPARAM wp;
        LPARAM lp;
    };
    const Close closes[] = {{"Alt+F4", WM_SYSKEYDOWN, VK_F4, 1 << 29},
                            {"system menu Close", WM_SYSCOMMAND, SC_CLOSE, 0},
                            {"WM_CLOSE", WM_CLOSE, 0, 0}};
    for (const Close& close : closes) {
        ASSERT_TRUE(showFromMenu()) << close.name << ": the menu did not show the panel";
        PostMessageA(panel, close.msg, close.wp, close.lp);
        EXPECT_TRUE(PumpUntil([&] { return !IsWindowVisible(panel); }, 10000)) << close.name;
        // The session still answers, so the program has had the request in hand.
        EXPECT_GE(WatcherTicks(prismo.Id()), 0) << close.name;
        EXPECT_TRUE(IsWindow(panel)) << close.name << ": the panel stays loaded";
        EXPECT_EQ(prismo.Wait(0), -1) << close.name << ": the program goes on";
        EXPECT_NE(aol.Ctl("menu").find("Prism&o"), std::string::npos) << close.name;
    }
    ASSERT_TRUE(showFromMenu()) << "the menu works after the last close";
}

// A huge and a binary scheme file arriving through AOL's download folder:
// start-up goes through, holds little more memory, and consumes both files.
TEST_F(StartupTest, HugeAndBinarySchemeFilesInTheDownloadFolderAreTakenInAndRemoved)
{
    const std::string aolFolder = FullPath(SimFolder() + "aol40");
    const std::string download = aolFolder + "\\download\\";
    const std::string incoming = FullPath(TestFolder() + "..\\..\\app\\incoming") + "\\";
    TestEnv::RawSet("", "AOL Path", REG_SZ, aolFolder + std::string(1, '\0'));
    CreateDirectoryA(download.c_str(), nullptr);
    // One start, until start-up has finished; its peak memory, and the
    // scheme files left in the two folders.
    auto start = [&](SIZE_T& peak) {
        SimAOL aol;
        ASSERT_TRUE(aol.Start("40", "--signed-on \"Zun Tester\""));
        ASSERT_TRUE(prismo.Start("\"" + Prismo() + "\""));
        ASSERT_TRUE(PanelAfterStart(prismo.Id())) << "start-up did not finish";
        EXPECT_FALSE(WindowWithChild(prismo.Id(), IDC_MSG_AREA)) << "no message at start-up";
        peak = PeakMemory(prismo.Id());
        prismo.Kill();
        aol.Stop();
    };
    SIZE_T plain = 0, withFiles = 0, again = 0;
    start(plain);
    PutHugeSchemeFile(download + "Huge.fde", 50);
    std::string noise(1048576, '\0');
    std::uint32_t seed = 11;
    for (char& b : noise) b = static_cast<char>((seed = seed * 1664525u + 1013904223u) >> 24);
    TestEnv::PutFile(download + "Binary.fde", noise);
    start(withFiles);
    std::printf("peak memory of a start: %lu KB plain, %lu KB with the two files\n",
                static_cast<unsigned long>(plain / 1024), static_cast<unsigned long>(withFiles / 1024));
    ASSERT_GT(plain, 0u);
    EXPECT_LT(withFiles, plain + 16 * 1048576) << "the files were held in memory";
    EXPECT_FALSE(FileExists(download + "Huge.fde"));
    EXPECT_FALSE(FileExists(download + "Binary.fde"));
    EXPECT_FALSE(FileExists(incoming + "Huge.fde"));
    EXPECT_FALSE(FileExists(incoming + "Binary.fde"));
    DWORD type;
    std::string one;
    ASSERT_TRUE(TestEnv::RawGet("Schemes\\Huge", "One", type, one));
    EXPECT_EQ(std::string(one.c_str()), "255");
    start(again);  // the second start finds nothing left over
}

TEST_F(StartupTest, ABadUserColourIsReportedAndIgnoreGoesOnToRefuseWindowsNT)
{
    // "blue" is no number: the report names start-up, and after Ignore the
    // start goes on to its next check, the refusal of Windows NT.
    TestEnv::RawSet("User Colors", "WindowColor", REG_SZ, std::string("blue", 5));
    SetAppVersion("nt40");
    ASSERT_TRUE(prismo.Start("\"" + Prismo() + "\""));
    HWND report = nullptr;
    PumpUntil([&] { return (report = WindowWithChild(prismo.Id(), IDC_ERR_DETAILS)) != nullptr; }, 20000);
    ASSERT_TRUE(report) << "the bad colour was swallowed";
    const std::string details = WindowText(GetDlgItem(report, IDC_ERR_DETAILS));
    EXPECT_NE(details.find("Module: modPrismo"), std::string::npos) << details;
    EXPECT_NE(details.find("Procedure: Main"), std::string::npos) << details;
    EXPECT_NE(details.find("Error number: 13"), std::string::npos) << details;
    PostMessageA(GetDlgItem(report, IDC_ERR_IGNORE), BM_CLICK, 0, 0);
    EXPECT_NE(MessageThenEnd(prismo).find("Prismo is not compatible with Windows NT."), std::string::npos);
    EXPECT_FALSE(FindWindowA("AOL FRAME25", nullptr)) << "nothing after the system check may happen";
    TestEnv::ResetProgramKey();  // the programs run after this one read the colours too
}

TEST_F(StartupTest, AOL30IsRefusedWithItsVersion)
{
    SimAOL aol;
    ASSERT_TRUE(aol.Start("30", ""));
    ASSERT_TRUE(prismo.Start("\"" + Prismo() + "\""));
    const std::string message = MessageThenEnd(prismo, 30000);
    EXPECT_EQ(message.rfind("~B~CRAOL Version 3.0 detected!~B~CN", 0), 0u) << message;
    aol.Stop();
}

TEST_F(StartupTest, MissingHookLibraryIsNamed)
{
    // The program alone in a folder of its own.
    char temp[MAX_PATH];
    GetTempPathA(sizeof temp, temp);
    const std::string folder = std::string(temp) + "prismo-alone";
    CreateDirectoryA(folder.c_str(), nullptr);
    ASSERT_TRUE(CopyFileA(Prismo().c_str(), (folder + "\\prismo.exe").c_str(), FALSE));
    ASSERT_TRUE(prismo.Start("\"" + folder + "\\prismo.exe\""));
    const std::string message = MessageThenEnd(prismo);
    EXPECT_NE(message.find("Missing runtime file!"), std::string::npos) << message;
    EXPECT_NE(message.find("~Bprismosbc.dll~B is missing"), std::string::npos) << message;
    DeleteFileA((folder + "\\prismo.exe").c_str());
    RemoveDirectoryA(folder.c_str());
    EXPECT_FALSE(FindWindowA("AOL FRAME25", nullptr));
}

TEST_F(StartupTest, ChangeAOLOnlyChoosesTheFolderEvenBesideARunningCopy)
{
    // Another copy holds the single-instance claim: it waits at its welcome.
    ASSERT_TRUE(prismo.Start("\"" + Prismo() + "\""));
    HWND welcome;
    ASSERT_NE(WaitForMessage(prismo.Id(), &welcome).find("Welcome to Prismo!"), std::string::npos);

    TestProcess change("\"" + Prismo() + "\" CHANGEAOL");
    HWND picker = WaitForPicker(change.Id());
    ASSERT_TRUE(picker) << "no folder picker";
    EXPECT_FALSE(WindowWithChild(change.Id(), IDC_LD_BAR)) << "no loading window for CHANGEAOL";
    const std::string aol50 = FullPath(SimFolder() + "aol50");
    Navigate(picker, aol50);
    PostMessageA(GetDlgItem(picker, IDC_CM_COMMAND1), BM_CLICK, 0, 0);
    const std::string told = MessageThenEnd(change);
    EXPECT_NE(told.find("it will start the AOL program located in the ~B~CB"), std::string::npos) << told;
    EXPECT_NE(told.find("AOLSIM\\AOL50~B~CN directory."), std::string::npos) << told;
    EXPECT_EQ(StoredAOLPath(), aol50);
    EXPECT_FALSE(FindWindowA("AOL FRAME25", nullptr));
}

}  // namespace
