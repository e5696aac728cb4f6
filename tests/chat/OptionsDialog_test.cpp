// The options dialog and the about box under Wine, opened through the
// program's own dispatch and driven through their real controls: what each
// control stores, the colours on screen after a change of mode, the rebuilt
// panel, and Updates signed on and off.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "AOLState.h"
#include "ChatHooks.h"
#include "OptionsLoad.h"
#include "SimHarness.h"
#include "TestProcess.h"
#include "WineRegistry.h"
#include "frmAbout.h"
#include "frmChatTools.h"
#include "frmoptions.h"
#include "modFindChild.h"
#include "modWin32API.h"
#include "resource.h"

namespace {

using Tree = std::map<std::string, std::pair<DWORD, std::string>>;

// How many values differ between two snapshots of the program's key.
size_t Differences(const Tree& before, const Tree& after)
{
    size_t changed = 0;
    for (const auto& [name, value] : after) changed += !before.count(name) || before.at(name) != value;
    for (const auto& [name, value] : before) changed += !after.count(name);
    return changed;
}

std::string Stored(const std::string& section, const std::string& name)
{
    DWORD type = 0;
    std::string bytes;
    if (!TestEnv::RawGet(section, name, type, bytes)) return "<missing>";
    return bytes.c_str();
}

// The colour at a point of `window`'s client area, once it has painted.
COLORREF PixelAt(HWND window, int x, int y)
{
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    HDC dc = GetDC(window);
    const COLORREF c = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return c;
}

class OptionsDialogTest : public ::testing::Test, public ProgramWindowObserver {
protected:
    void SetUp() override
    {
        TestEnv::ResetProgramKey();
        TestEnv::InstallShippedSchemes();
        LoadOptions();
        LoadUserColors();
        Options.UIMode = UIEnhanced;
        Options.LowColorDisplay = false;
        SetProgramWindowObserver(this);
    }
    void TearDown() override
    {
        SetProgramWindowObserver(nullptr);
        if (frmoptions* d = OptionsDialog()) d->Unload();
        UnloadAbout();
        ChatTools().Unload();
    }
    // Lets everything through but the upgrade check, which is only counted.
    bool Intercept(const ProgramWindowRequest& request) override
    {
        versionChecks_ += request.which == ProgramWindow::VersionCheck;
        return request.which == ProgramWindow::VersionCheck;
    }

    static HWND Open()
    {
        EXPECT_TRUE(OpenProgramWindow({ProgramWindow::Options, ""}));
        return OptionsDialog() ? OptionsDialog()->hwnd() : nullptr;
    }
    static HWND Item(int id) { return GetDlgItem(OptionsDialog()->hwnd(), id); }
    static bool Checked(int id) { return SendMessageA(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    static bool Enabled(int id) { return IsWindowEnabled(Item(id)) != 0; }
    static void Click(int id)
    {
        SendMessageA(Item(id), BM_CLICK, 0, 0);
        DoEvents();
    }
    // Picks `entry` in a list as the user does: the selection, then the notification.
    static void Choose(int id, const std::string& entry)
    {
        const LRESULT at = SendMessageA(Item(id), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                        reinterpret_cast<LPARAM>(entry.c_str()));
        ASSERT_NE(at, CB_ERR) << entry;
        SendMessageA(Item(id), CB_SETCURSEL, static_cast<WPARAM>(at), 0);
        SendMessageA(OptionsDialog()->hwnd(), WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(Item(id)));
    }
    static std::string Selected(int id) { return WindowText(Item(id)); }
    static void CloseBox()
    {
        SendMessageA(OptionsDialog()->hwnd(), WM_CLOSE, 0, 0);
        ASSERT_EQ(OptionsDialog(), nullptr);
    }

    int versionChecks_ = 0;
};

TEST_F(OptionsDialogTest, OpeningWritesNothingAndEachBoxWritesOnlyItsOwnValue)
{
    struct Box {
        int id;
        const char *section, *name;
        bool OptionsRecord::*field;
    } boxes[] = {
        {IDC_OP_OPENFADE, "Options", "ShowFadePanelWithChat", &OptionsRecord::ShowFadePanelWithChat},
        {IDC_OP_CHATKW, "Options", "Use Chat KW", &OptionsRecord::UseChatKW},
        {IDC_OP_EFADE, "E-Fade", "ShowEFToolbar", &OptionsRecord::ShowEFToolbar},
        {IDC_OP_MULTILINE, "Multiline", "Use Multiline", &OptionsRecord::UseMultiline},
        {IDC_OP_ALIAS, "EMail", "Use Alias", &OptionsRecord::UseAlias},
        {IDC_OP_FADESAMPLE, "EMail", "Show EMail Sample", &OptionsRecord::ShowEMailSample},
    };
    TestEnv::RawSet("Options", "Use Chat KW", REG_SZ, std::string("False") + '\0');
    LoadOptions();
    const Tree atStart = TestEnv::ProgramTree();
    HWND dialog = Open();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(WindowText(dialog), "Prismo Options");
    EXPECT_EQ(Differences(atStart, TestEnv::ProgramTree()), 0u) << "opening the dialog wrote a setting";
    EXPECT_EQ(Open(), dialog) << "a second request opened a second dialog";

    for (const Box& box : boxes) {
        ASSERT_EQ(Checked(box.id), Options.*box.field) << box.name << " does not show its option";
        const bool before = Options.*box.field;
        const Tree tree = TestEnv::ProgramTree();
        Click(box.id);
        EXPECT_EQ(Options.*box.field, !before) << box.name;
        EXPECT_EQ(Stored(box.section, box.name), before ? "False" : "True") << box.name;
        EXPECT_EQ(Differences(tree, TestEnv::ProgramTree()), 1u) << box.name << " changed more than its value";
    }
}

TEST_F(OptionsDialogTest, TheListsStoreTheirNumbersAndReopenOnThem)
{
    ASSERT_TRUE(Open());
    EXPECT_EQ(Selected(IDC_OP_BURSTSECS), "1.50") << "the default 1.5 seconds";
    EXPECT_EQ(Selected(IDC_OP_LINES), "60");
    Choose(IDC_OP_BURSTSECS, "0.10");
    EXPECT_EQ(Stored("Multiline", "Multiline Burst"), "0.1");
    EXPECT_EQ(Options.MultilineBurst, 0.1f);
    Choose(IDC_OP_LINES, "75");
    EXPECT_EQ(Stored("Multiline", "Chars In Line"), "75");
    EXPECT_EQ(Options.CharsInLine, 75);
    CloseBox();
    // The next start loads what was stored, and the dialog shows it.
    LoadOptions();
    ASSERT_TRUE(Open());
    EXPECT_EQ(Selected(IDC_OP_BURSTSECS), "0.10");
    EXPECT_EQ(Selected(IDC_OP_LINES), "75");
    Choose(IDC_OP_BURSTSECS, "1.50");
    EXPECT_EQ(Stored("Multiline", "Multiline Burst"), "1.5");
    Click(IDC_OP_EXIT);

    // A delay edited by hand opens with none selected and stays through other changes.
    TestEnv::RawSet("Multiline", "Multiline Burst", REG_SZ, std::string("1.3") + '\0');
    LoadOptions();
    ASSERT_TRUE(Open());
    EXPECT_EQ(SendMessageA(Item(IDC_OP_BURSTSECS), CB_GETCURSEL, 0, 0), CB_ERR);
    Click(IDC_OP_CHATKW);
    CloseBox();
    EXPECT_EQ(Stored("Multiline", "Multiline Burst"), "1.3");
    EXPECT_EQ(Options.MultilineBurst, 1.3f);
}

TEST_F(OptionsDialogTest, MultilineGreysItsSevenControlsAndTheAliasWaitsForExit)
{
    ASSERT_TRUE(Open());
    const int seven[] = {IDC_OP_LABEL4, IDC_OP_BURSTSECS, IDC_OP_LABEL5, IDC_OP_LINETITLE,
                         IDC_OP_LINES,  IDC_OP_LABEL6,    IDC_OP_LABEL7};
    Click(IDC_OP_MULTILINE);
    for (int id : seven) EXPECT_FALSE(Enabled(id)) << id;
    EXPECT_TRUE(Enabled(IDC_OP_ALIAS));
    Click(IDC_OP_MULTILINE);
    for (int id : seven) EXPECT_TRUE(Enabled(id)) << id;

    // The alias box follows its switch; what is typed stays unstored on the close box.
    EXPECT_FALSE(Enabled(IDC_OP_TXTALIAS));
    Click(IDC_OP_ALIAS);
    EXPECT_TRUE(Enabled(IDC_OP_TXTALIAS));
    EXPECT_TRUE(Enabled(IDC_OP_LBLALIAS));
    SetWindowTextA(Item(IDC_OP_TXTALIAS), "Kim the Great");
    CloseBox();
    EXPECT_EQ(Stored("EMail", "Alias Name"), "<missing>");
    EXPECT_EQ(Options.AliasName, "");
    ASSERT_TRUE(Open());
    SetWindowTextA(Item(IDC_OP_TXTALIAS), "Kim the Great");
    Click(IDC_OP_EXIT);
    EXPECT_EQ(OptionsDialog(), nullptr);
    EXPECT_EQ(Stored("EMail", "Alias Name"), "Kim the Great");
    EXPECT_EQ(Options.AliasName, "Kim the Great");
}

TEST_F(OptionsDialogTest, ALowColourDisplayOffersOnlyTheUsersOwnColours)
{
    Options.LowColorDisplay = true;
    Options.UIMode = UIStandard;
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Checked(IDC_OP_UISTD));
    for (int id : {IDC_OP_LABEL3, IDC_OP_UISTD, IDC_OP_UIENH, IDC_OP_SETCOLORS}) EXPECT_FALSE(Enabled(id)) << id;
    EXPECT_TRUE(Enabled(IDC_OP_UIUSER));
    CloseBox();
    Options.LowColorDisplay = false;
    Options.UIMode = UIUser;
    ASSERT_TRUE(Open());
    for (int id : {IDC_OP_LABEL3, IDC_OP_UISTD, IDC_OP_UIENH, IDC_OP_SETCOLORS}) EXPECT_TRUE(Enabled(id)) << id;
}

TEST_F(OptionsDialogTest, ChangingTheModeRecoloursTheDialogAndRebuildsThePanel)
{
    frmChatTools& panel = ChatTools();
    ASSERT_TRUE(panel.Load());
    panel.ShowPanel();
    HWND dialog = Open();
    ASSERT_TRUE(dialog);
    RECT at{168, 220, 168, 220};  // between the mode buttons and Set Colors
    MapDialogRect(dialog, &at);
    Options.WindowColor = RGB(30, 60, 90);
    Options.ButtonForecolor = RGB(200, 100, 50);
    struct Case {
        int button, mode;
        COLORREF window, flatFace;
    } cases[] = {{IDC_OP_UISTD, 0, GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNFACE)},
                 {IDC_OP_UIUSER, 2, RGB(30, 60, 90), RGB(200, 100, 50)},
                 {IDC_OP_UIENH, 1, RGB(255, 251, 240), RGB(0, 109, 173)}};
    for (const Case& c : cases) {
        HWND before = panel.hwnd();
        const Tree tree = TestEnv::ProgramTree();
        Click(c.button);
        EXPECT_EQ(Differences(tree, TestEnv::ProgramTree()), 1u) << "the rebuild stored more than the mode";
        EXPECT_EQ(Stored("", "UIMode"), std::to_string(c.mode));
        EXPECT_EQ(Options.UIMode, c.mode);
        EXPECT_EQ(Enabled(IDC_OP_SETCOLORS), c.mode == 2);
        EXPECT_EQ(PixelAt(dialog, at.left, at.top), c.window) << "dialog, mode " << c.mode;
        // The check boxes stand on the same colour, past the end of their captions.
        RECT box;
        GetClientRect(Item(IDC_OP_CHATKW), &box);
        EXPECT_EQ(PixelAt(Item(IDC_OP_CHATKW), box.right - 2, 1), c.window) << "check box, mode " << c.mode;
        // The panel is a new window in the new colours, on view as it was.
        EXPECT_NE(panel.hwnd(), before) << "mode " << c.mode;
        EXPECT_TRUE(panel.Visible()) << "mode " << c.mode;
        EXPECT_EQ(PixelAt(panel.hwnd(), 400, 1), c.window) << "panel, mode " << c.mode;
        EXPECT_EQ(PixelAt(panel.optOff.hwnd(), 3, 3), c.flatFace) << "panel button, mode " << c.mode;
    }
    EXPECT_EQ(AboutBox(), nullptr) << "the about box loaded for the rebuild is gone again";
    // A hidden panel stays hidden through a rebuild.
    panel.HidePanel();
    Click(IDC_OP_UISTD);
    EXPECT_TRUE(panel.Loaded());
    EXPECT_FALSE(panel.Visible());
}

// Runs `step` once from a timer while Set Colors waits for its dialog.
std::function<void()>* setColorsStep = nullptr;
void CALLBACK SetColorsTick(HWND, UINT, UINT_PTR, DWORD)
{
    HWND dialog = FindWindowA(nullptr, "Set User Defined Colors");
    if (setColorsStep && dialog && IsWindowVisible(dialog)) std::exchange(setColorsStep, nullptr)->operator()();
}

TEST_F(OptionsDialogTest, SetColorsIsModalAndItsColoursReachThePanel)
{
    Options.UIMode = UIUser;
    frmChatTools& panel = ChatTools();
    ASSERT_TRUE(panel.Load());
    panel.ShowPanel();
    HWND dialog = Open();
    ASSERT_TRUE(dialog);
    bool blocked = false, ran = false;
    // What the colour picker leaves once the user has chosen, then Exit.
    std::function<void()> pick = [&] {
        ran = true;
        blocked = !IsWindowEnabled(dialog);
        Options.WindowColor = RGB(12, 140, 70);
        HWND colours = FindWindowA(nullptr, "Set User Defined Colors");
        PostMessageA(GetDlgItem(colours, IDC_SC_EXIT), BM_CLICK, 0, 0);
    };
    setColorsStep = &pick;
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, SetColorsTick);
    Click(IDC_OP_SETCOLORS);
    KillTimer(nullptr, timer);
    ASSERT_TRUE(ran);
    EXPECT_TRUE(blocked) << "the options dialog took input while Set Colors was open";
    EXPECT_TRUE(IsWindowEnabled(dialog));
    RECT at{168, 220, 168, 220};
    MapDialogRect(dialog, &at);
    EXPECT_EQ(PixelAt(dialog, at.left, at.top), RGB(12, 140, 70));
    EXPECT_EQ(PixelAt(panel.hwnd(), 400, 1), RGB(12, 140, 70));
}

TEST_F(OptionsDialogTest, TheAboutBoxOpensAfreshAndUpdatesAsksForTheCheckOnlyWhileSignedOn)
{
    ASSERT_TRUE(OpenProgramWindow({ProgramWindow::About, ""}));
    ASSERT_TRUE(AboutBox());
    AboutBox()->Tag = "first opening";
    SendMessageA(GetDlgItem(AboutBox()->hwnd(), IDC_AB_OK), BM_CLICK, 0, 0);
    EXPECT_EQ(AboutBox(), nullptr);
    ASSERT_TRUE(OpenProgramWindow({ProgramWindow::About, ""}));
    ASSERT_TRUE(AboutBox());
    EXPECT_EQ(AboutBox()->Tag, "") << "the closed box came back instead of a new one";
    UnloadAbout();

    for (bool signedOn : {false, true}) {
        SimAOL aol;
        ASSERT_TRUE(aol.Start("40", signedOn ? "--signed-on \"Zun Tester\"" : ""));
        AOLWindow = aol.Frame();
        AOLMDIClient = aol.Mdi();
        AOLVersion = "4";
        versionChecks_ = 0;
        ASSERT_TRUE(OpenProgramWindow({ProgramWindow::About, ""}));
        SendMessageA(GetDlgItem(AboutBox()->hwnd(), IDC_AB_UPDATES), BM_CLICK, 0, 0);
        EXPECT_EQ(AboutBox(), nullptr) << "Updates closes the box first";
        EXPECT_EQ(versionChecks_, signedOn ? 1 : 0) << (signedOn ? "signed on" : "signed off");
        AOLWindow = AOLMDIClient = nullptr;
        AOLVersion.clear();
    }
}

}  // namespace
