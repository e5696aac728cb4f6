// The Import/Export wizard live: opened from Prismo's menu in AOL, driven
// from outside through its real controls, its input box and the open-file
// dialog, while prismo.exe runs beside the AOL simulator. AOL closing or the
// program's Exit in the middle of a copy, and imported schemes reaching the
// control panel.
#include <algorithm>
#include <functional>

#include "ChatLiveFixture.h"
#include "WizardPages.h"

namespace ChatLive {
namespace {

const std::string kExportFolder = "c:\\prismo-live-wizard";
const std::string kImportFolder = "c:\\prismo-live-import";
const char kHardDisk[] = "( C:\\ ) Hard Disk (not recommended)";
constexpr int kDriveChoices = 7;  // optOne to optSeven

class WizardLiveTest : public ChatLiveTest {
protected:
    void SetUp() override
    {
        ChatLiveTest::SetUp();
        for (const std::string& folder : {kExportFolder, kImportFolder}) TestEnv::RemoveFolder(folder);
    }
    void TearDown() override
    {
        ChatLiveTest::TearDown();
        for (const std::string& folder : {kExportFolder, kImportFolder}) TestEnv::RemoveFolder(folder);
    }

    // Prism&o, &Import/Export Wizard; the wizard once it is there.
    HWND OpenWizard()
    {
        Menu(60003);
        return wizard_ = WindowHolding(IDC_WZ_NEXT);
    }
    // A control of the wizard, on whichever page it sits.
    HWND Control(int id) { return WizardControl(wizard_, id); }
    std::string Text(int id) { return WindowText(Control(id)); }
    bool Shown(int id) { return IsWindowVisible(Control(id)) != 0; }
    // A click as the mouse gives it; true once `done` holds.
    bool Click(int id, const std::function<bool()>& done)
    {
        PostMessageA(Control(id), BM_CLICK, 0, 0);
        return PumpUntil(done, 20000);
    }

    // From the first page to the confirmation of an export to the hard
    // disk's folder `kExportFolder`, added through the input box.
    void ExportUpToConfirmation()
    {
        ASSERT_TRUE(OpenWizard());
        PostMessageA(Control(IDC_WZ_OPTEXPORT), BM_CLICK, 0, 0);
        int hardDisk = -1;
        ASSERT_TRUE(Click(IDC_WZ_NEXT, [&] {
            for (int i = 0; i < kDriveChoices; ++i)
                if (Shown(IDC_WZ_OPTONE + i) && Text(IDC_WZ_OPTONE + i) == kHardDisk) hardDisk = i;
            return hardDisk >= 0;
        })) << "no hard disk offered";
        ASSERT_TRUE(Click(IDC_WZ_OPTONE + hardDisk, [&] { return Text(IDC_WZ_LBLPATH) == "c:\\"; }));
        PostMessageA(Control(IDC_WZ_SUBFOLDER), BM_CLICK, 0, 0);
        HWND input = WindowHolding(IDC_IB_TEXT);
        ASSERT_TRUE(input) << "no input box";
        SendMessageA(GetDlgItem(input, IDC_IB_TEXT), WM_SETTEXT, 0,
                     reinterpret_cast<LPARAM>(kExportFolder.substr(3).c_str()));
        PostMessageA(GetDlgItem(input, IDC_IB_OK), BM_CLICK, 0, 0);
        ASSERT_TRUE(PumpUntil([&] { return Text(IDC_WZ_LBLPATH) == kExportFolder + "\\"; }, 20000));
        ASSERT_TRUE(Click(IDC_WZ_NEXT, [&] { return Shown(IDC_WZ_LSTSCHEMES); }));
        ASSERT_TRUE(Click(IDC_WZ_NEXT, [&] { return Shown(IDC_WZ_LBLSAVETO); }));
    }
    // The same for an import from `kImportFolder`, its marker found through the open dialog.
    void ImportUpToConfirmation()
    {
        PostMessageA(Control(IDC_WZ_OPTIMPORT), BM_CLICK, 0, 0);
        ASSERT_TRUE(Click(IDC_WZ_NEXT, [&] { return Shown(IDC_WZ_LOCATEKEY); }));
        PostMessageA(Control(IDC_WZ_LOCATEKEY), BM_CLICK, 0, 0);
        HWND open = nullptr;
        ASSERT_TRUE(PumpUntil([&] { return (open = FindWindowA("#32770", "Open")) && IsWindowVisible(open); }, 20000));
        const std::string key = kImportFolder + "\\importfde.key";
        for (int id : {0x47c, 0x480}) SendMessageA(GetDlgItem(open, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(key.c_str()));
        PostMessageA(GetDlgItem(open, IDOK), BM_CLICK, 0, 0);
        ASSERT_TRUE(PumpUntil([&] { return !Text(IDC_WZ_LBLIMPORT).empty(); }, 20000));
        ASSERT_TRUE(Click(IDC_WZ_NEXT, [&] { return Shown(IDC_WZ_LSTSCHEMES); }));
        ASSERT_TRUE(Click(IDC_WZ_NEXT, [&] { return Shown(IDC_WZ_LBLSAVETO); }));
    }
    // The last Next: true once the copy has reached the finished page.
    bool CopyFinished()
    {
        return Click(IDC_WZ_NEXT, [&] { return Shown(IDC_WZ_LABEL9); });
    }

    // Where the control panel's scheme list holds `name`; CB_ERR when it does
    // not. (Wine hands a list entry's text to another process cut short, so
    // the list is searched, not read.)
    LRESULT PanelIndex(const std::string& name)
    {
        return SendMessageA(GetDlgItem(panel_, IDC_CT_SCHEMES), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                            reinterpret_cast<LPARAM>(name.c_str()));
    }
    bool PanelLists(const std::string& name) { return PanelIndex(name) != CB_ERR; }
    // `name` chosen in the panel's list as the user picks it; true once the
    // panel has taken it as the default scheme.
    bool ChooseInPanel(const std::string& name)
    {
        const LRESULT at = PanelIndex(name);
        if (at == CB_ERR) return false;
        HWND combo = GetDlgItem(panel_, IDC_CT_SCHEMES);
        SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(at), 0);
        PostMessageA(panel_, WM_COMMAND, MAKEWPARAM(IDC_CT_SCHEMES, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
        return PumpUntil([&] { return Option("Schemes", "Default") == name; }, 10000);
    }
    // The working fade as stored: its fade number and six colours.
    static std::string WorkingFade()
    {
        std::string fade = Option("Colors", "Fade Number");
        for (const char* colour : {"One", "Two", "Three", "Four", "Five", "Six"}) fade += "," + Option("Colors", colour);
        return fade;
    }

    HWND wizard_ = nullptr;
};

TEST_F(WizardLiveTest, TheMenuShowsOneWizardWhoseImportThePanelListsOnRefresh)
{
    TestEnv::CleanFolder(kImportFolder);
    TestEnv::PutFile(kImportFolder + "\\importfde.key", "marker\r\n");
    TestEnv::PutFile(kImportFolder + "\\Lagoon.fde", "FadeNumber=2\r\nOne=255\r\nTwo=65280\r\n");
    TestEnv::PutFile(kImportFolder + "\\Letters.fde", "One=abc\r\n");
    Start();

    // Asked for again, the wizard open is brought forward; no second one comes.
    HWND first = OpenWizard();
    ASSERT_TRUE(first) << "the wizard never came from the menu";
    SetForegroundWindow(sim_.Frame());
    ASSERT_TRUE(PumpUntil([&] { return GetForegroundWindow() == sim_.Frame(); }, 10000));
    ASSERT_EQ(OpenWizard(), first);
    EXPECT_TRUE(PumpUntil([&] { return GetForegroundWindow() == first; }, 10000));
    int wizards = 0;
    for (HWND w = GetTopWindow(nullptr); w; w = GetWindow(w, GW_HWNDNEXT)) {
        DWORD owner = 0;
        GetWindowThreadProcessId(w, &owner);
        wizards += owner == prismo_.Id() && GetDlgItem(w, IDC_WZ_NEXT) != nullptr;
    }
    EXPECT_EQ(wizards, 1);

    ImportUpToConfirmation();
    ASSERT_TRUE(CopyFinished());
    EXPECT_EQ(Text(IDC_WZ_LABEL9), "Import Complete!");
    EXPECT_TRUE(TestEnv::SectionExists("Schemes\\Letters"));
    EXPECT_FALSE(PanelLists("Lagoon")) << "the panel's list changes only on Refresh";
    Press(panel_, IDC_CT_REFRESH);
    EXPECT_TRUE(PumpUntil([&] { return PanelLists("Lagoon") && PanelLists("Letters"); }, 10000));
    EXPECT_TRUE(PanelLists("Cool Fade"));

    // A good imported scheme becomes the working fade; one whose colour is
    // no number changes nothing and the program goes on.
    ASSERT_TRUE(ChooseInPanel("Lagoon"));
    const std::string lagoon = WorkingFade();
    EXPECT_EQ(lagoon.substr(0, 12), "2,255,65280,");
    ASSERT_TRUE(ChooseInPanel("Letters"));
    EXPECT_EQ(WorkingFade(), lagoon);
    EXPECT_EQ(prismo_.Wait(0), -1) << "the program ended";
    EXPECT_GE(WatcherTicks(prismo_.Id()), 0);
    EXPECT_EQ(WindowWithChild(prismo_.Id(), IDC_MSG_AREA), nullptr);
}

// Fifty schemes take the export five seconds: AOL's close box, or Exit
// Prismo, while it runs ends the copy where it is, without a marker, a
// message or a fault.
TEST_F(WizardLiveTest, AOLClosingOrExitPrismoMidCopyEndsTheCopyAndTheProgramCleanly)
{
    for (bool closeAOL : {true, false}) {
        TestEnv::DeleteSection("Schemes");
        for (int i = 0; i < 50; ++i) {
            const std::string section = "Schemes\\Live " + std::to_string(100 + i);
            SetOption(section, "Fade Number", "2");
            SetOption(section, "One", std::to_string(i));
        }
        Start();
        ExportUpToConfirmation();
        ASSERT_FALSE(HasFatalFailure());
        PostMessageA(Control(IDC_WZ_NEXT), BM_CLICK, 0, 0);
        ASSERT_TRUE(PumpUntil([&] { return TestEnv::FilesIn(kExportFolder).size() >= 3; }, 20000));
        if (closeAOL)
            sim_.Ctl("quit");
        else
            Menu(60005);
        const HWND box = MessageOrEnd();
        EXPECT_EQ(box, nullptr) << closeAOL << ": " << WindowText(GetDlgItem(box, IDC_MSG_AREA));
        EXPECT_EQ(prismo_.Wait(10000), 0) << closeAOL;
        const std::vector<std::string> written = TestEnv::FilesIn(kExportFolder);
        EXPECT_LT(written.size(), 50u) << closeAOL;
        EXPECT_EQ(std::count(written.begin(), written.end(), "importfde.key"), 0) << closeAOL << ": a marker";
        EXPECT_EQ(sim_.WaitExit(10000), closeAOL);
        if (!closeAOL) {
            EXPECT_FALSE(ProgramMenuShown());
        }
        TearDown();
        SetUp();
    }
}

}  // namespace
}  // namespace ChatLive
