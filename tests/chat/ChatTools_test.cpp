// The control panel driven through its real controls under Wine: every
// change must reach Options, the registry and the preview strip together.
#include "frmChatTools.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "OptionsLoad.h"
#include "modAOLFunctions.h"
#include "modFade.h"
#include "modFindChild.h"
#include "ProgramInfo.h"
#include "SimHarness.h"
#include "WindowSurface.h"
#include "WineRegistry.h"
#include "modWin32API.h"
#include "resource.h"

namespace {

std::string Stored(const std::string& section, const std::string& name)
{
    DWORD type = 0;
    std::string bytes;
    if (!TestEnv::RawGet(section, name, type, bytes)) return "<missing>";
    return std::string(bytes.c_str());
}

// Clicks a control as the mouse does, and lets the panel handle it.
void ClickAndSettle(HWND control)
{
    SendMessageA(control, BM_CLICK, 0, 0);
    DoEvents();
}

// Answers the dialogs the panel opens, in order, from a timer while the
// panel waits for them.
class Answerer {
public:
    explicit Answerer(std::vector<std::function<bool()>> steps) : steps_(std::move(steps))
    {
        current_ = this;
        id_ = SetTimer(nullptr, 0, 100, Tick);
    }
    ~Answerer()
    {
        KillTimer(nullptr, id_);
        current_ = nullptr;
    }
    bool Done() const { return next_ == steps_.size(); }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD)
    {
        Answerer* me = current_;
        if (me && !me->Done() && me->steps_[me->next_]()) ++me->next_;
    }
    inline static Answerer* current_ = nullptr;
    std::vector<std::function<bool()>> steps_;
    size_t next_ = 0;
    UINT_PTR id_ = 0;
};

HWND ShownDialog(const std::string& caption)
{
    HWND dialog = FindWindowA(nullptr, caption.c_str());
    return dialog && IsWindowVisible(dialog) ? dialog : nullptr;
}

// Types `name` into the input box and presses OK (or `button`).
std::function<bool()> TypeIntoInputBox(const std::string& name, std::string* prompt = nullptr,
                                       int button = IDC_IB_OK)
{
    return [name, prompt, button] {
        HWND box = ShownDialog("Prismo");
        if (!box || !GetDlgItem(box, IDC_IB_TEXT)) return false;
        if (prompt) *prompt = WindowText(GetDlgItem(box, IDC_IB_PROMPT));
        SetDlgItemTextA(box, IDC_IB_TEXT, name.c_str());
        PostMessageA(GetDlgItem(box, button), BM_CLICK, 0, 0);
        return true;
    };
}

// Clicks the button captioned `answer` in the program's message box.
std::function<bool()> AnswerMessage(const std::string& answer, std::string* message = nullptr)
{
    return [answer, message] {
        HWND box = ShownDialog(TitleText());
        if (!box) return false;
        if (message) *message = WindowText(GetDlgItem(box, IDC_MSG_AREA));
        for (int id : {IDC_MSG_CMD0, IDC_MSG_CMD1, IDC_MSG_CMD2}) {
            std::string caption = WindowText(GetDlgItem(box, id));
            caption.erase(std::remove(caption.begin(), caption.end(), '&'), caption.end());
            if (caption == answer && IsWindowVisible(GetDlgItem(box, id))) {
                PostMessageA(GetDlgItem(box, id), BM_CLICK, 0, 0);
                return true;
            }
        }
        return false;
    };
}

std::vector<std::string> ListEntries(HWND combo)
{
    std::vector<std::string> entries;
    const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        char text[512] = "";
        SendMessageA(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        entries.push_back(text);
    }
    return entries;
}

void ChooseScheme(frmChatTools& panel, const std::string& name)
{
    const LRESULT at = SendMessageA(panel.cboSchemes, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                    reinterpret_cast<LPARAM>(name.c_str()));
    ASSERT_NE(at, CB_ERR) << name;
    SendMessageA(panel.cboSchemes, CB_SETCURSEL, static_cast<WPARAM>(at), 0);
    SendMessageA(panel.hwnd(), WM_COMMAND, MAKEWPARAM(IDC_CT_SCHEMES, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(panel.cboSchemes));
    DoEvents();
}

class ChatToolsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        TestEnv::ResetProgramKey();
        TestEnv::InstallShippedSchemes();
        LoadOptions();
        panel().Load();
        panel().ShowPanel();
        DoEvents();
    }
    void TearDown() override { panel().Unload(); }
    static frmChatTools& panel() { return ChatTools(); }
    // Presses `button` with `steps` answering the dialogs it opens; true once all were answered.
    static bool Press(HWND button, std::vector<std::function<bool()>> steps)
    {
        Answerer answer(std::move(steps));
        ClickAndSettle(button);
        return answer.Done();
    }
    static bool Save(std::vector<std::function<bool()>> steps) { return Press(panel().cmdSave.hwnd(), std::move(steps)); }
};

TEST_F(ChatToolsTest, LoadsTheDefaultSchemeAsTheWorkingFade)
{
    EXPECT_EQ(Options.DefaultScheme, "Cool Fade");
    EXPECT_EQ(WindowText(panel().cboSchemes), "Cool Fade");
    EXPECT_EQ(Options.FadeNumber, 5);
    EXPECT_EQ(Options.Colors[0], 16748574);
    EXPECT_EQ(panel().cmdColor[4].BackColor, 11823615);
    EXPECT_FALSE(panel().Loading);
    EXPECT_EQ(ListEntries(panel().cboSchemes).size(), 4u);
}

TEST_F(ChatToolsTest, FadeNumberThreeShowsThreeColoursAndSavesOnlyThose)
{
    ClickAndSettle(panel().optFade[2].hwnd());
    EXPECT_EQ(Options.FadeNumber, 3);
    EXPECT_EQ(panel().PanelFadeNumber, 3);
    EXPECT_EQ(Stored("Colors", "Fade Number"), "3");
    for (int k = 0; k < 6; ++k) EXPECT_EQ(IsWindowVisible(panel().cmdColor[k].hwnd()) != 0, k < 3) << k;
    for (int k = 0; k < 6; ++k) EXPECT_EQ(panel().optFade[k].Value, k == 2) << k;

    std::string prompt;
    EXPECT_TRUE(Save({TypeIntoInputBox("Three Tone", &prompt)}));
    EXPECT_EQ(prompt, "Please enter the name of this Fade Scheme below.");
    EXPECT_EQ(Stored("Schemes\\Three Tone", "Fade Number"), "3");
    EXPECT_EQ(Stored("Schemes\\Three Tone", "One"), "16748574");
    EXPECT_EQ(Stored("Schemes\\Three Tone", "Three"), std::to_string(Options.Colors[2]));
    EXPECT_EQ(Stored("Schemes\\Three Tone", "Four"), "<missing>");
    EXPECT_EQ(Stored("Schemes\\Three Tone", "Six"), "<missing>");
    EXPECT_EQ(Stored("Schemes\\Three Tone", "Bold"), "False");
    EXPECT_EQ(WindowText(panel().cboSchemes), "Three Tone");
}

TEST_F(ChatToolsTest, SavingUnderAnExistingNameAsksAndYesOverwritesOnce)
{
    ClickAndSettle(panel().optFade[1].hwnd());
    const size_t before = ListEntries(panel().cboSchemes).size();
    EXPECT_TRUE(Save({TypeIntoInputBox("Fire"), AnswerMessage("No")}));
    EXPECT_EQ(Stored("Schemes\\Fire", "One"), "255") << "No changes nothing";
    std::string asked;
    ASSERT_TRUE(Save({TypeIntoInputBox("Fire"), AnswerMessage("Yes", &asked)}));
    EXPECT_NE(asked.find("The Scheme ~B~CBFire~B~CN already exists."), std::string::npos) << asked;
    EXPECT_EQ(Stored("Schemes\\Fire", "One"), "16748574");
    EXPECT_EQ(Stored("Schemes\\Fire", "Fade Number"), "2");
    EXPECT_EQ(ListEntries(panel().cboSchemes).size(), before);
}

TEST_F(ChatToolsTest, CancelledOrEmptyNameSavesNothing)
{
    const auto before = TestEnv::ProgramTree();
    const size_t entries = ListEntries(panel().cboSchemes).size();
    EXPECT_TRUE(Save({TypeIntoInputBox("")}));
    // A name typed and then Cancel pressed is no name at all.
    EXPECT_TRUE(Save({TypeIntoInputBox("Never Saved", nullptr, IDC_IB_CANCEL)}));
    EXPECT_EQ(TestEnv::ProgramTree(), before);
    EXPECT_FALSE(TestEnv::SectionExists("Schemes\\Never Saved"));
    EXPECT_EQ(ListEntries(panel().cboSchemes).size(), entries);
}

TEST_F(ChatToolsTest, DeleteRemovesTheKeyAndLoadsTheFirstScheme)
{
    ChooseScheme(panel(), "Ocean");
    ASSERT_TRUE(Press(panel().cmdDel.hwnd(), {AnswerMessage("Yes")}));
    EXPECT_FALSE(TestEnv::SectionExists("Schemes\\Ocean"));
    const auto entries = ListEntries(panel().cboSchemes);
    EXPECT_EQ(std::count(entries.begin(), entries.end(), "Ocean"), 0);
    ASSERT_FALSE(entries.empty());
    EXPECT_EQ(WindowText(panel().cboSchemes), entries.front());
    EXPECT_EQ(Options.DefaultScheme, entries.front());
    EXPECT_EQ(Stored("Schemes", "Default"), entries.front());
    EXPECT_EQ(Stored("Colors", "Fade Number"), Stored("Schemes\\" + entries.front(), "Fade Number"));
}

TEST_F(ChatToolsTest, DeleteWithNoSchemeSelectedDeletesNothing)
{
    const auto before = ListEntries(panel().cboSchemes);
    SendMessageA(panel().cboSchemes, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    EXPECT_FALSE(Press(panel().cmdDel.hwnd(), {AnswerMessage("Yes")})) << "nothing to ask about";
    EXPECT_TRUE(TestEnv::SectionExists("Schemes\\Ocean"));
    EXPECT_EQ(ListEntries(panel().cboSchemes), before);
}

TEST_F(ChatToolsTest, AFadeNumberBeyondSixteenBitsKeepsThePreviousOne)
{
    ClickAndSettle(panel().optFade[2].hwnd());
    TestEnv::RawSet("Schemes\\Ocean", "Fade Number", REG_SZ, std::string("70000", 6));
    ChooseScheme(panel(), "Ocean");
    EXPECT_EQ(panel().PanelFadeNumber, 3);
    EXPECT_EQ(Options.FadeNumber, 3);
    EXPECT_EQ(Stored("Colors", "Fade Number"), "3");
}

// Fade numbers outside 1 to 6 come only from a stored scheme: the panel takes
// them as they are, changes no button and no strip, the typed text goes out
// as typed, and a save writes no colour beyond the sixth.
TEST_F(ChatToolsTest, FadeNumbersZeroAndSevenLeaveButtonsStripAndTextAlone)
{
    ClickAndSettle(panel().optFade[2].hwnd());
    HDC strip = GetDC(panel().picPreview.hwnd());
    const COLORREF stripBefore = GetPixel(strip, 5, 5);
    for (const char* number : {"0", "7"}) {
        TestEnv::RawSet("Schemes\\Ocean", "Fade Number", REG_SZ, std::string(number, 2));
        TestEnv::RawSet("Schemes\\Ocean", "One", REG_SZ, std::string("255", 4));
        ChooseScheme(panel(), "Ocean");
        EXPECT_EQ(panel().PanelFadeNumber, number[0] - '0');
        EXPECT_EQ(Options.FadeNumber, number[0] - '0');
        EXPECT_EQ(Stored("Colors", "Fade Number"), number);
        for (int k = 0; k < 6; ++k) {
            EXPECT_EQ(IsWindowVisible(panel().cmdColor[k].hwnd()) != 0, k < 3) << number << ": colour " << k;
            EXPECT_EQ(panel().optFade[k].Value, k == 2) << number << ": button " << k;
        }
        EXPECT_EQ(GetPixel(strip, 5, 5), stripBefore) << number << ": the strip was painted";
        Options.Bold = Options.Italic = Options.ULine = false;
        std::string text = "Hi all";
        EXPECT_EQ(FadeEngine(text), "Hi all") << number;
        Options.SolidFade = true;
        EXPECT_EQ(FadeEngine(text), "Hi all") << number << ", solid";
        Options.SolidFade = false;

        const std::string scheme = std::string("Number ") + number;
        ASSERT_TRUE(Save({TypeIntoInputBox(scheme)}));
        EXPECT_EQ(Stored("Schemes\\" + scheme, "Fade Number"), number);
        EXPECT_EQ(Stored("Schemes\\" + scheme, "One"), number[0] == '0' ? "<missing>" : "255");
        EXPECT_EQ(Stored("Schemes\\" + scheme, "Six"), number[0] == '0' ? "<missing>" : Stored("Colors", "Six"));
    }
    ReleaseDC(panel().picPreview.hwnd(), strip);
}

TEST_F(ChatToolsTest, BoldTwiceLeavesEverythingAsItWas)
{
    const bool bold = Options.Bold;
    const std::string stored = Stored("Style", "Bold");
    ClickAndSettle(panel().optBold.hwnd());
    EXPECT_EQ(Options.Bold, !bold);
    EXPECT_EQ(Stored("Style", "Bold"), bold ? "False" : "True");
    ClickAndSettle(panel().optBold.hwnd());
    EXPECT_EQ(Options.Bold, bold);
    EXPECT_EQ(Stored("Style", "Bold"), stored);
    EXPECT_EQ(panel().optBold.Value, bold);
}

TEST_F(ChatToolsTest, OffIsStoredAndTheNextStartStartsOff)
{
    ClickAndSettle(panel().optOn.hwnd());
    EXPECT_EQ(Stored("", "Fader On"), "True");
    ClickAndSettle(panel().optOff.hwnd());
    EXPECT_FALSE(Options.FaderOn);
    EXPECT_EQ(Stored("", "Fader On"), "False");
    EXPECT_EQ(panel().optOff.BackColor, 192);  // the "on" look moved to Off
    panel().Unload();
    Options.FaderOn = true;
    LoadOptions();
    panel().Load();
    EXPECT_FALSE(Options.FaderOn);
    EXPECT_TRUE(panel().optOff.Value);
    EXPECT_FALSE(panel().optOn.Value);
}

TEST_F(ChatToolsTest, SolidSwitchIsStoredButNotPartOfASavedScheme)
{
    ClickAndSettle(panel().chkSolid);
    EXPECT_TRUE(Options.SolidFade);
    EXPECT_EQ(Stored("Colors", "SolidFade"), "True");
    ASSERT_TRUE(Save({TypeIntoInputBox("Solid One")}));
    // The scheme was saved (Cool Fade's colours) but without the switch.
    EXPECT_EQ(Stored("Schemes\\Solid One", "Fade Number"), "5");
    EXPECT_EQ(Stored("Schemes\\Solid One", "One"), "16748574");
    EXPECT_EQ(Stored("Schemes\\Solid One", "SolidFade"), "<missing>");
}

// Run at 96 DPI with the rest, and at 120 DPI by at120dpi.sh, which names
// the DPI it set in PRISMO_EXPECT_DPI: there 990 twips are 82.5 pixels.
TEST_F(ChatToolsTest, CollapseAndExpandStoreStateAndSurviveAReload)
{
    if (const char* dpi = getenv("PRISMO_EXPECT_DPI")) {
        HDC screen = GetDC(nullptr);
        ASSERT_EQ(GetDeviceCaps(screen, LOGPIXELSY), atoi(dpi)) << "the display did not take the DPI";
        ReleaseDC(nullptr, screen);
    }
    // Within a pixel of the height asked for: the display shows whole pixels.
    auto high = [](long twips) { return std::abs(panel().Height() - twips) < TwipsPerPixelY(); };
    EXPECT_TRUE(high(705)) << panel().Height();
    EXPECT_FALSE(IsWindowVisible(panel().Line1));
    ClickAndSettle(panel().cmdMin.hwnd());
    EXPECT_TRUE(high(990)) << panel().Height();
    EXPECT_TRUE(IsWindowVisible(panel().Line1));
    EXPECT_EQ(panel().cmdMinToolTip, "Close Options");
    EXPECT_EQ(Stored("", "State"), "Max");
    panel().Unload();
    panel().Load();
    EXPECT_TRUE(high(990)) << panel().Height();
    ClickAndSettle(panel().cmdMin.hwnd());
    EXPECT_TRUE(high(705)) << "the expanded panel did not collapse: " << panel().Height();
    EXPECT_EQ(panel().cmdMinToolTip, "Show Options");
    EXPECT_EQ(Stored("", "State"), "Min");
    ClickAndSettle(panel().cmdMin.hwnd());
    EXPECT_TRUE(high(990)) << panel().Height();
}

TEST_F(ChatToolsTest, StoredPositionIsPulledBackOntoTheScreen)
{
    panel().Unload();
    TestEnv::RawSet("", "Top", REG_SZ, "999999");
    TestEnv::RawSet("", "Left", REG_SZ, "-5000");
    panel().Load();
    EXPECT_EQ(panel().Left(), 0);
    EXPECT_EQ(panel().Top() + panel().Height(), ScreenHeight());
}

// ---- the preview strip, read back from its pixels --------------------------

COLORREF Pixel(HWND strip, int x)
{
    HDC dc = GetDC(strip);
    RECT r;
    GetClientRect(strip, &r);
    const COLORREF c = GetPixel(dc, x, r.bottom / 2);
    ReleaseDC(strip, dc);
    return c;
}

COLORREF AsPixel(ColorValue v) { return static_cast<COLORREF>(v) & 0xFFFFFF; }

class PreviewTest : public ChatToolsTest {
protected:
    void SetUp() override
    {
        ChatToolsTest::SetUp();
        const char* names[6] = {"One", "Two", "Three", "Four", "Five", "Six"};
        for (int k = 0; k < 6; ++k) TestEnv::RawSet("Schemes\\Strip", names[k], REG_SZ, std::to_string(colours[k]));
        TestEnv::RawSet("Schemes\\Strip", "Fade Number", REG_SZ, "6");
        panel().GetSchemes();
        ChooseScheme(panel(), "Strip");
        RECT r;
        GetClientRect(panel().picPreview.hwnd(), &r);
        width = r.right;
    }
    const ColorValue colours[6] = {0x0000FF, 0x00FF00, 0xFF0000, 0x00FFFF, 0xFFFFFF, 0x808000};
    int width = 0;
};

TEST_F(PreviewTest, ColumnsHaveTheColoursOfTheRangeTable)
{
    const HWND strip = panel().picPreview.hwnd();
    ASSERT_GT(width, 100);
    const int w = width;  // pixels: the scale width is whole
    // Where colour k + 1 starts, for 2 to 6 colours (the later range repaints the boundary).
    const std::vector<std::vector<int>> starts = {
        {0},
        {0, w / 2},
        {0, w / 3, w - w / 3},
        {0, w / 4, w / 2, w - w / 4},
        {0, w / 5, 2 * (w / 5), 3 * (w / 5), w - w / 5},
    };
    for (int n = 2; n <= 6; ++n) {
        ClickAndSettle(panel().optFade[n - 1].hwnd());
        const std::vector<int>& at = starts[n - 2];
        for (size_t k = 0; k < at.size(); ++k)
            EXPECT_EQ(Pixel(strip, at[k]), AsPixel(colours[k])) << n << " colours, range " << k;
        // The column before a boundary is still on its way to the next colour.
        for (size_t k = 1; k < at.size(); ++k)
            EXPECT_NE(Pixel(strip, at[k] - 1), AsPixel(colours[k - 1])) << n << " colours, before " << k;
        // The last column shown is nearly the last colour: one step short of it.
        const COLORREF last = Pixel(strip, w - 1), end = AsPixel(colours[n - 1]);
        for (int shift : {0, 8, 16})
            EXPECT_LE(std::abs(int((last >> shift) & 255) - int((end >> shift) & 255)), 64) << n;
    }
}

TEST_F(PreviewTest, OneColourFillsTheStripAndSolidStillBlends)
{
    const HWND strip = panel().picPreview.hwnd();
    ClickAndSettle(panel().optFade[0].hwnd());
    for (int x : {0, width / 3, width - 1}) EXPECT_EQ(Pixel(strip, x), AsPixel(colours[0])) << x;
    ClickAndSettle(panel().chkSolid);
    ClickAndSettle(panel().optFade[1].hwnd());
    EXPECT_EQ(Pixel(strip, 0), AsPixel(colours[0]));
    const COLORREF middle = Pixel(strip, width / 2);
    EXPECT_NE(middle, AsPixel(colours[0]));
    EXPECT_NE(middle, AsPixel(colours[1]));
}

TEST_F(PreviewTest, NothingIsPaintedWhileLoading)
{
    const HWND strip = panel().picPreview.hwnd();
    HDC dc = GetDC(strip);
    RECT r;
    GetClientRect(strip, &r);
    HBRUSH marker = CreateSolidBrush(RGB(1, 2, 3));
    FillRect(dc, &r, marker);
    DeleteObject(marker);
    ReleaseDC(strip, dc);
    panel().Loading = true;
    panel().picPreview_Paint();
    panel().FadeNumber();
    InvalidateRect(strip, nullptr, TRUE);
    UpdateWindow(strip);
    panel().Loading = false;
    for (int x : {0, width / 2, width - 1}) EXPECT_EQ(Pixel(strip, x), RGB(1, 2, 3)) << x;
}

// The about box's gradient on a real window: top row the first colour, the
// bottom row nearly the second.
TEST_F(PreviewTest, GradientOnAWindowRunsTopToBottom)
{
    const HWND strip = panel().picPreview.hwnd();
    RECT r;
    GetClientRect(strip, &r);
    {
        WindowSurface surface(strip);
        Gradient(surface, 0x0000FF, 0xFF0000);
    }
    HDC dc = GetDC(strip);
    const COLORREF top = GetPixel(dc, 5, 0), bottom = GetPixel(dc, 5, r.bottom - 1), middle = GetPixel(dc, 5, r.bottom / 2);
    ReleaseDC(strip, dc);
    EXPECT_EQ(top, RGB(255, 0, 0));
    EXPECT_GT(GetBValue(bottom), 200);
    EXPECT_LT(GetRValue(bottom), 55);
    EXPECT_GT(GetRValue(middle), 90);
    EXPECT_GT(GetBValue(middle), 90);
}

// After a change on the panel the keyboard is back in the chat room's input
// box, which lives in AOL's process.
TEST_F(ChatToolsTest, EveryChangeHandsTheKeyboardBackToTheChatRoom)
{
    SimAOL aol;
    ASSERT_TRUE(aol.Start("40", "--signed-on \"Zun Tester\" --room \"Lobby 7\""));
    AOLWindow = aol.Frame();
    ChatRoomWindow = FindChildByTitle(FindChildByClass(AOLWindow, "MDIClient"), "Lobby 7");
    ASSERT_TRUE(ChatRoomWindow);
    HWND input = FindChildByClass(ChatRoomWindow, "RICHCNTL", 2);
    ASSERT_TRUE(input);
    const DWORD aolThread = GetWindowThreadProcessId(input, nullptr);
    auto focusInAOL = [&] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(aolThread, &info);
        return info.hwndFocus;
    };
    HWND transcript = FindChildByClass(ChatRoomWindow, "RICHCNTL", 1);
    for (HWND control : {panel().optItalic.hwnd(), panel().optFade[3].hwnd(), panel().optOn.hwnd()}) {
        // The keyboard starts elsewhere in AOL: in the room's transcript.
        AttachThreadInput(GetCurrentThreadId(), aolThread, TRUE);
        SetFocus(transcript);
        AttachThreadInput(GetCurrentThreadId(), aolThread, FALSE);
        ASSERT_EQ(focusInAOL(), transcript);
        SetForegroundWindow(panel().hwnd());
        SetFocus(control);
        ClickAndSettle(control);
        PumpUntil([&] { return focusInAOL() == input; }, 5000);
        EXPECT_EQ(focusInAOL(), input) << WindowText(control);
    }
    AOLWindow = nullptr;
    ChatRoomWindow = nullptr;
}

}  // namespace

// The rightmost column of `control` that differs from its background, as
// the control draws itself on screen.
int RightmostInk(HWND control)
{
    RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    RECT r;
    GetClientRect(control, &r);
    HDC dc = GetDC(control);
    const COLORREF background = GetPixel(dc, r.right - 1, 0);
    int rightmost = -1;
    for (int x = 0; x < r.right; ++x)
        for (int y = 1; y < r.bottom - 1; ++y)
            if (GetPixel(dc, x, y) != background) rightmost = x;
    ReleaseDC(control, dc);
    return rightmost;
}

TEST_F(ChatToolsTest, TheSolidSwitchShowsItsWholeCaptionInEveryColourMode)
{
    const OptionsRecord saved = Options;
    for (int mode : {0, 1, 2}) {
        panel().Unload();
        Options.UIMode = static_cast<std::int16_t>(mode);
        Options.WindowColor = 0x00C0E0C0;  // the user's own colours show the text too
        Options.ButtonText = 0;
        panel().Load();
        panel().ShowPanel();
        if (panel().Height() != 990) ClickAndSettle(panel().cmdMin.hwnd());
        HWND solid = panel().chkSolid;
        ASSERT_EQ(WindowText(solid), "Use colors without fading");
        // The same switch with all the room it wants, over the second row,
        // shows where the caption's ink ends.
        RECT at;
        GetClientRect(solid, &at);
        HWND roomy = CreateWindowExA(0, "BUTTON", "Use colors without fading", WS_CHILD | WS_VISIBLE | BS_AUTOCHECKBOX,
                                     4, 25, 480, at.bottom, panel().hwnd(), nullptr, nullptr, nullptr);
        SendMessageA(roomy, WM_SETFONT, SendMessageA(solid, WM_GETFONT, 0, 0), TRUE);
        SetWindowPos(roomy, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        DoEvents();
        const int needed = RightmostInk(roomy) + 1;
        DestroyWindow(roomy);
        ASSERT_GT(needed, 100) << "mode " << mode;
        EXPECT_GE(at.right, needed) << "the caption is cut in mode " << mode;
        // Nothing to its right covers it.
        RECT solidOnScreen, save;
        GetWindowRect(solid, &solidOnScreen);
        GetWindowRect(panel().cmdSave.hwnd(), &save);
        EXPECT_LE(solidOnScreen.right, save.left) << "mode " << mode;
    }
    Options = saved;
}
