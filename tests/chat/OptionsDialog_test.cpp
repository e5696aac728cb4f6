// The options dialog and the about box under Wine, opened through the
// program's own dispatch and driven through their real controls: what each
// control writes to Options and the registry, what opening writes (nothing),
// the colours on screen after a change of mode, and the rebuilt panel.
#include <gtest/gtest.h>

#include <cstdlib>
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
#include "modZunBtns.h"
#include "resource.h"

namespace {

// A change anywhere under the program's key, from the moment it is armed.
class KeyWatch {
public:
    KeyWatch()
    {
        RegCreateKeyExA(HKEY_CURRENT_USER, "Software\\Zun Software\\Prismo", 0, nullptr, 0, KEY_NOTIFY, nullptr,
                        &key_, nullptr);
        event_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
        armed_ = RegNotifyChangeKeyValue(key_, TRUE, REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_LAST_SET, event_,
                                         TRUE) == ERROR_SUCCESS;
    }
    ~KeyWatch()
    {
        CloseHandle(event_);
        RegCloseKey(key_);
    }
    KeyWatch(const KeyWatch&) = delete;
    KeyWatch& operator=(const KeyWatch&) = delete;
    bool Armed() const { return armed_; }
    // The registry signals before the write returns: no waiting needed either way.
    bool Changed() const { return WaitForSingleObject(event_, 0) == WAIT_OBJECT_0; }

private:
    HKEY key_ = nullptr;
    HANDLE event_ = nullptr;
    bool armed_ = false;
};

using Tree = std::map<std::string, std::pair<DWORD, std::string>>;

// The values that differ between two snapshots of the program's key.
std::vector<std::string> Differences(const Tree& before, const Tree& after)
{
    std::vector<std::string> changed;
    for (const auto& [name, value] : after) {
        auto old = before.find(name);
        if (old == before.end() || old->second != value) changed.push_back(name);
    }
    for (const auto& [name, value] : before)
        if (!after.count(name)) changed.push_back(name + " (gone)");
    return changed;
}

std::string Stored(const std::string& section, const std::string& name)
{
    DWORD type = 0;
    std::string bytes;
    if (!TestEnv::RawGet(section, name, type, bytes)) return "<missing>";
    return bytes.c_str();
}

// The colour on screen at a point of `window`'s client area, once it has painted.
COLORREF PixelAt(HWND window, int x, int y)
{
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    HDC dc = GetDC(window);
    const COLORREF c = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return c;
}

// A point of the dialog with no control on it, in pixels: right of the mode
// buttons and above Set Colors.
POINT DialogBackground(HWND dialog)
{
    RECT r{168, 220, 168, 220};
    MapDialogRect(dialog, &r);
    return {r.left, r.top};
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
        if (request.which != ProgramWindow::VersionCheck) return false;
        ++versionChecks_;
        return true;
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

struct Box {
    int id;
    const char* section;
    const char* name;
    bool OptionsRecord::*field;
};
const Box kBoxes[] = {
    {IDC_OP_OPENFADE, "Options", "ShowFadePanelWithChat", &OptionsRecord::ShowFadePanelWithChat},
    {IDC_OP_CHATKW, "Options", "Use Chat KW", &OptionsRecord::UseChatKW},
    {IDC_OP_EFADE, "E-Fade", "ShowEFToolbar", &OptionsRecord::ShowEFToolbar},
    {IDC_OP_MULTILINE, "Multiline", "Use Multiline", &OptionsRecord::UseMultiline},
    {IDC_OP_ALIAS, "EMail", "Use Alias", &OptionsRecord::UseAlias},
    {IDC_OP_FADESAMPLE, "EMail", "Show EMail Sample", &OptionsRecord::ShowEMailSample},
};

TEST_F(OptionsDialogTest, OpeningWritesNothingAndEachBoxWritesOnlyItsOwnValue)
{
    TestEnv::RawSet("Options", "Use Chat KW", REG_SZ, std::string("False") + '\0');
    LoadOptions();
    KeyWatch watch;
    ASSERT_TRUE(watch.Armed());
    HWND dialog = Open();
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(WindowText(dialog), "Prismo Options");
    EXPECT_FALSE(watch.Changed()) << "opening the dialog wrote a setting";
    EXPECT_EQ(Open(), dialog) << "a second request opened a second dialog";

    for (const Box& box : kBoxes) {
        ASSERT_EQ(Checked(box.id), Options.*box.field) << box.name << " does not show its option";
        const bool before = Options.*box.field;
        const Tree tree = TestEnv::ProgramTree();
        Click(box.id);
        EXPECT_EQ(Options.*box.field, !before) << box.name;
        EXPECT_EQ(Stored(box.section, box.name), before ? "False" : "True") << box.name;
        const auto changed = Differences(tree, TestEnv::ProgramTree());
        ASSERT_EQ(changed.size(), 1u) << box.name << " changed more than its value";
    }
    EXPECT_TRUE(watch.Changed());
}

TEST_F(OptionsDialogTest, TheListsStoreTheirNumbersAndReopenSelected)
{
    HWND dialog = Open();
    ASSERT_TRUE(dialog);
    EXPECT_EQ(Selected(IDC_OP_BURSTSECS), "1.50") << "the default 1.5 seconds";
    EXPECT_EQ(Selected(IDC_OP_LINES), "60");
    EXPECT_EQ(SendMessageA(Item(IDC_OP_BURSTSECS), CB_GETCOUNT, 0, 0), 13);
    EXPECT_EQ(SendMessageA(Item(IDC_OP_LINES), CB_GETCOUNT, 0, 0), 73);

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
    LoadOptions();
    ASSERT_TRUE(Open());
    EXPECT_EQ(Selected(IDC_OP_BURSTSECS), "1.50");
}

TEST_F(OptionsDialogTest, ADelayEditedByHandOpensWithNoneSelectedAndStays)
{
    TestEnv::RawSet("Multiline", "Multiline Burst", REG_SZ, std::string("1.3") + '\0');
    LoadOptions();
    ASSERT_EQ(Options.MultilineBurst, 1.3f);
    ASSERT_TRUE(Open());
    EXPECT_EQ(SendMessageA(Item(IDC_OP_BURSTSECS), CB_GETCURSEL, 0, 0), CB_ERR);
    Click(IDC_OP_CHATKW);  // another change leaves the delay alone
    CloseBox();
    EXPECT_EQ(Stored("Multiline", "Multiline Burst"), "1.3");
    EXPECT_EQ(Options.MultilineBurst, 1.3f);
}

TEST_F(OptionsDialogTest, MultilineGreysItsSevenControlsAndTheAliasWaitsForExit)
{
    ASSERT_TRUE(Open());
    const int seven[] = {IDC_OP_LABEL4, IDC_OP_BURSTSECS, IDC_OP_LABEL5, IDC_OP_LINETITLE,
                         IDC_OP_LINES,  IDC_OP_LABEL6,    IDC_OP_LABEL7};
    for (int id : seven) ASSERT_TRUE(Enabled(id)) << id;
    Click(IDC_OP_MULTILINE);
    for (int id : seven) EXPECT_FALSE(Enabled(id)) << id;
    EXPECT_TRUE(Enabled(IDC_OP_ALIAS));
    EXPECT_TRUE(Enabled(IDC_OP_MULTILINE));
    Click(IDC_OP_MULTILINE);
    for (int id : seven) EXPECT_TRUE(Enabled(id)) << id;

    // The alias box follows its switch; what is typed stays unstored on the close box.
    EXPECT_FALSE(Enabled(IDC_OP_TXTALIAS));
    EXPECT_FALSE(Enabled(IDC_OP_LBLALIAS));
    Click(IDC_OP_ALIAS);
    EXPECT_TRUE(Enabled(IDC_OP_TXTALIAS));
    EXPECT_TRUE(Enabled(IDC_OP_LBLALIAS));
    SetWindowTextA(Item(IDC_OP_TXTALIAS), "Kim the Great");
    CloseBox();
    EXPECT_EQ(Stored("EMail", "Alias Name"), "<missing>");
    EXPECT_EQ(Options.AliasName, "");

    ASSERT_TRUE(Open());
    EXPECT_TRUE(Enabled(IDC_OP_TXTALIAS)) << "Use Alias was stored on";
    SetWindowTextA(Item(IDC_OP_TXTALIAS), "Kim the Great");
    Click(IDC_OP_EXIT);
    EXPECT_EQ(OptionsDialog(), nullptr);
    EXPECT_EQ(Stored("EMail", "Alias Name"), "Kim the Great");
    EXPECT_EQ(Options.AliasName, "Kim the Great");
    ASSERT_TRUE(Open());
    EXPECT_EQ(WindowText(Item(IDC_OP_TXTALIAS)), "Kim the Great");
}

TEST_F(OptionsDialogTest, ALowColourDisplayOffersOnlyTheUsersOwnColours)
{
    Options.LowColorDisplay = true;
    Options.UIMode = UIStandard;
    ASSERT_TRUE(Open());
    EXPECT_TRUE(Checked(IDC_OP_UISTD));
    for (int id : {IDC_OP_LABEL3, IDC_OP_UISTD, IDC_OP_UIENH}) EXPECT_FALSE(Enabled(id)) << id;
    EXPECT_TRUE(Enabled(IDC_OP_UIUSER));
    EXPECT_FALSE(Enabled(IDC_OP_SETCOLORS)) << "Set Colors belongs to the user's mode";
    CloseBox();
    Options.LowColorDisplay = false;
    Options.UIMode = UIUser;
    ASSERT_TRUE(Open());
    for (int id : {IDC_OP_LABEL3, IDC_OP_UISTD, IDC_OP_UIENH, IDC_OP_SETCOLORS}) EXPECT_TRUE(Enabled(id)) << id;
    EXPECT_TRUE(Checked(IDC_OP_UIUSER));
}

TEST_F(OptionsDialogTest, ChangingTheModeRecoloursTheDialogAndRebuildsThePanel)
{
    frmChatTools& panel = ChatTools();
    ASSERT_TRUE(panel.Load());
    panel.ShowPanel();
    ASSERT_TRUE(Open());
    HWND dialog = OptionsDialog()->hwnd();
    const POINT at = DialogBackground(dialog);
    EXPECT_EQ(PixelAt(dialog, at.x, at.y), RGB(255, 251, 240)) << "the AOL style colour";

    Options.WindowColor = RGB(30, 60, 90);
    Options.ButtonForecolor = RGB(200, 100, 50);
    struct Case {
        int button;
        int mode;
        COLORREF window, flatFace;
    } cases[] = {{IDC_OP_UISTD, 0, GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNFACE)},
                 {IDC_OP_UIUSER, 2, RGB(30, 60, 90), RGB(200, 100, 50)},
                 {IDC_OP_UIENH, 1, RGB(255, 251, 240), RGB(0, 109, 173)}};
    for (const Case& c : cases) {
        HWND before = panel.hwnd();
        const Tree tree = TestEnv::ProgramTree();
        Click(c.button);
        EXPECT_EQ(Differences(tree, TestEnv::ProgramTree()).size(), 1u) << "the rebuild stored more than the mode";
        EXPECT_EQ(Options.UIMode, c.mode);
        EXPECT_EQ(Stored("", "UIMode"), std::to_string(c.mode));
        EXPECT_EQ(Enabled(IDC_OP_SETCOLORS), c.mode == 2);
        EXPECT_EQ(PixelAt(dialog, at.x, at.y), c.window) << "dialog, mode " << c.mode;
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

// Runs `step` from a timer once the user colour dialog is on view, while
// Set Colors waits for it.
class WhenSetColorsShows {
public:
    explicit WhenSetColorsShows(std::function<void(HWND)> step) : step_(std::move(step))
    {
        current_ = this;
        id_ = SetTimer(nullptr, 0, 50, Tick);
    }
    ~WhenSetColorsShows()
    {
        KillTimer(nullptr, id_);
        current_ = nullptr;
    }
    bool Ran() const { return ran_; }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD)
    {
        WhenSetColorsShows* me = current_;
        HWND dialog = FindWindowA(nullptr, "Set User Defined Colors");
        if (!me || me->ran_ || !dialog || !IsWindowVisible(dialog)) return;
        me->ran_ = true;
        me->step_(dialog);
    }
    inline static WhenSetColorsShows* current_ = nullptr;
    std::function<void(HWND)> step_;
    bool ran_ = false;
    UINT_PTR id_ = 0;
};

TEST_F(OptionsDialogTest, SetColorsIsModalAndItsColoursReachThePanel)
{
    Options.UIMode = UIUser;
    frmChatTools& panel = ChatTools();
    ASSERT_TRUE(panel.Load());
    panel.ShowPanel();
    ASSERT_TRUE(Open());
    HWND dialog = OptionsDialog()->hwnd();
    bool blocked = false;
    // What the colour picker leaves once the user has chosen, then Exit.
    WhenSetColorsShows pick([&](HWND colours) {
        blocked = !IsWindowEnabled(dialog);
        Options.WindowColor = RGB(12, 140, 70);
        PostMessageA(GetDlgItem(colours, IDC_SC_EXIT), BM_CLICK, 0, 0);
    });
    Click(IDC_OP_SETCOLORS);
    ASSERT_TRUE(pick.Ran());
    EXPECT_TRUE(blocked) << "the options dialog took input while Set Colors was open";
    EXPECT_TRUE(IsWindowEnabled(dialog));
    const POINT at = DialogBackground(dialog);
    EXPECT_EQ(PixelAt(dialog, at.x, at.y), RGB(12, 140, 70));
    EXPECT_TRUE(panel.Visible());
    EXPECT_EQ(PixelAt(panel.hwnd(), 400, 1), RGB(12, 140, 70));
}

// The version the program's own resource carries, read as Explorer reads it.
std::string ResourceVersion()
{
    char path[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, path, sizeof path);
    DWORD handle = 0;
    std::vector<char> data(GetFileVersionInfoSizeA(path, &handle));
    if (data.empty() || !GetFileVersionInfoA(path, 0, static_cast<DWORD>(data.size()), data.data())) return "";
    VS_FIXEDFILEINFO* info = nullptr;
    UINT size = 0;
    if (!VerQueryValueA(data.data(), "\\", reinterpret_cast<void**>(&info), &size) || !info) return "";
    return std::to_string(HIWORD(info->dwFileVersionMS)) + "." + std::to_string(LOWORD(info->dwFileVersionMS)) +
           "." + std::to_string(HIWORD(info->dwFileVersionLS));
}

TEST_F(OptionsDialogTest, TheAboutBoxShowsTheVersionOverItsGradientAndOpensAfresh)
{
    ASSERT_TRUE(OpenProgramWindow({ProgramWindow::About, ""}));
    frmAbout* about = AboutBox();
    ASSERT_TRUE(about);
    EXPECT_TRUE(about->Visible());
    EXPECT_EQ(WindowText(about->hwnd()), "About Prismo!");
    const std::string version = ResourceVersion();
    ASSERT_FALSE(version.empty());
    EXPECT_EQ(WindowText(GetDlgItem(about->hwnd(), IDC_AB_VERSION)), version);
    EXPECT_EQ(WindowText(GetDlgItem(about->hwnd(), IDC_AB_RELEASE)), "July 06, 1999");
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(about->hwnd(), IDC_AB_LBLCOLOR)));

    // Top row in Picture1's own colour, bottom row in lblColor's, a blend between.
    HWND picture = about->Picture1.hwnd();
    RECT r;
    GetClientRect(picture, &r);
    const COLORREF top = ResolveColor(about->Picture1.BackColor), bottom = ResolveColor(about->lblColorBackColor);
    ASSERT_NE(top, bottom);
    EXPECT_EQ(PixelAt(picture, 2, 0), top);
    // The last line of the band lies on the row below the picture: the bottom
    // row is one step of the band short of lblColor's colour.
    const COLORREF last = PixelAt(picture, 2, r.bottom - 1);
    for (int shift : {0, 8, 16}) {
        const int want = (bottom >> shift) & 255, from = (top >> shift) & 255, got = (last >> shift) & 255;
        EXPECT_LE(std::abs(got - want), std::abs(want - from) / r.bottom + 1) << "bottom row, bits " << shift;
    }
    const COLORREF middle = PixelAt(picture, 2, r.bottom / 2);
    EXPECT_NE(middle, top);
    EXPECT_NE(middle, bottom);

    // OK closes it; the next opening is a new box, not the old one shown again.
    about->Tag = "first opening";
    SendMessageA(GetDlgItem(about->hwnd(), IDC_AB_OK), BM_CLICK, 0, 0);
    EXPECT_EQ(AboutBox(), nullptr);
    ASSERT_TRUE(OpenProgramWindow({ProgramWindow::About, ""}));
    ASSERT_TRUE(AboutBox());
    EXPECT_EQ(AboutBox()->Tag, "");
}

TEST_F(OptionsDialogTest, UpdatesAsksForTheCheckOnlyWhileSignedOn)
{
    for (bool signedOn : {false, true}) {
        SimAOL aol;
        ASSERT_TRUE(aol.Start("40", signedOn ? "--signed-on \"Zun Tester\"" : ""));
        AOLWindow = aol.Frame();
        AOLMDIClient = aol.Mdi();
        AOLVersion = "4";
        versionChecks_ = 0;
        ASSERT_TRUE(OpenProgramWindow({ProgramWindow::About, ""}));
        ASSERT_TRUE(AboutBox());
        SendMessageA(GetDlgItem(AboutBox()->hwnd(), IDC_AB_UPDATES), BM_CLICK, 0, 0);
        EXPECT_EQ(AboutBox(), nullptr) << "Updates closes the box first";
        EXPECT_EQ(versionChecks_, signedOn ? 1 : 0) << (signedOn ? "signed on" : "signed off");
        AOLWindow = AOLMDIClient = nullptr;
        AOLVersion.clear();
    }
}

// Stands in for the help viewer: WinHelp hands its request to the window of
// class "MS_WINHELP" as WM_COPYDATA; this one keeps the command and keyword.
class HelpStandIn {
public:
    HelpStandIn()
    {
        WNDCLASSA wc{};
        wc.lpfnWndProc = Proc;
        wc.hInstance = GetModuleHandleA(nullptr);
        wc.lpszClassName = "MS_WINHELP";
        RegisterClassA(&wc);
        window_ = CreateWindowExA(0, "MS_WINHELP", "Prismo!", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr,
                                  nullptr, wc.hInstance, nullptr);
    }
    ~HelpStandIn() { DestroyWindow(window_); }
    HelpStandIn(const HelpStandIn&) = delete;
    HelpStandIn& operator=(const HelpStandIn&) = delete;

    // The requests so far, as "command keyword".
    static std::vector<std::string>& Requests()
    {
        static std::vector<std::string> requests;
        return requests;
    }

private:
    // The request as WinHelp packs it.
    struct Request {
        WORD size, command;
        LONG data, reserved;
        WORD ofsFilename, ofsData;
    };
    static LRESULT CALLBACK Proc(HWND w, UINT msg, WPARAM wp, LPARAM lp)
    {
        if (msg != WM_COPYDATA) return DefWindowProcA(w, msg, wp, lp);
        const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lp);
        const auto* request = static_cast<const Request*>(data->lpData);
        const char* bytes = static_cast<const char*>(data->lpData);
        std::string keyword = request->ofsData ? bytes + request->ofsData : "";
        Requests().push_back(std::to_string(request->command) + " " + keyword);
        return TRUE;
    }
    HWND window_ = nullptr;
};

TEST_F(OptionsDialogTest, EachHelpButtonAsksForItsOwnKeyword)
{
    HelpStandIn help;
    HelpStandIn::Requests().clear();
    ASSERT_TRUE(Open());
    Click(IDC_OP_HELP);
    ASSERT_TRUE(OpenProgramWindow({ProgramWindow::About, ""}));
    SendMessageA(GetDlgItem(AboutBox()->hwnd(), IDC_AB_HELP), BM_CLICK, 0, 0);
    const std::vector<std::string> expected = {"261 Options", "261 Table Of Contents"};
    EXPECT_EQ(HelpStandIn::Requests(), expected);
}

}  // namespace
