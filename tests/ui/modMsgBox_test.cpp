// Drives the real frmMsg under Wine: buttons, focus, icons, answers, the
// growing message area, the markup as printed, and waiting with and without
// blocking the program's other windows.
#include <gtest/gtest.h>

#include <vector>

#include "UiTestSupport.h"
#include "frmMsg.h"
#include "modMsgBox.h"
#include "resource.h"

namespace {

const int ButtonIds[3] = {IDC_MSG_CMD0, IDC_MSG_CMD1, IDC_MSG_CMD2};

// What a test saw of the shown message box.
struct Seen {
    bool shown = false;
    RECT window{}, area{}, button[3]{};  // area and buttons in client pixels
    bool visible[3]{};
    std::string caption[3], focus, title;
    int width = 0, height = 0;
    std::vector<COLORREF> pixels;  // what the message area holds
    COLORREF Pixel(int x, int y) const { return pixels[y * width + x]; }
};

RECT ClientRectOf(HWND dlg, HWND control)
{
    RECT r;
    GetWindowRect(control, &r);
    MapWindowPoints(nullptr, dlg, reinterpret_cast<POINT*>(&r), 2);
    return r;
}

Seen Look(HWND dlg)
{
    Seen s;
    s.shown = true;
    s.title = TextOf(dlg);
    GetWindowRect(dlg, &s.window);
    HWND area = GetDlgItem(dlg, IDC_MSG_AREA);
    s.area = ClientRectOf(dlg, area);
    for (int i = 0; i < 3; ++i) {
        HWND b = GetDlgItem(dlg, ButtonIds[i]);
        s.button[i] = ClientRectOf(dlg, b);
        s.visible[i] = IsWindowVisible(b);
        s.caption[i] = TextOf(b);
    }
    s.focus = TextOf(GetFocus());
    auto* canvas = dynamic_cast<MessageArea*>(OwnerDrawn::Of(area));
    if (canvas) {
        s.width = canvas->Width();
        s.height = canvas->Height();
        for (int y = 0; y < s.height; ++y)
            for (int x = 0; x < s.width; ++x) s.pixels.push_back(GetPixel(canvas->Canvas(), x, y));
    }
    return s;
}

// Shows the message, looks at it, clicks Command1(clickIndex) and returns
// what was seen; `answer` gets what the call returned.
Seen ShowAndLook(const std::string& message, long style, bool ask, int clickIndex = 0, int* answer = nullptr)
{
    Seen seen;
    TimerSteps steps(30, [&] {
        HWND dlg = FindShown(TitleText());
        if (!dlg) return false;
        seen = Look(dlg);
        Click(GetDlgItem(dlg, ButtonIds[clickIndex]));
        return true;
    });
    if (ask) {
        const int a = AskMsg(message, style);
        if (answer) *answer = a;
    } else {
        ShowMsg(message, style);
    }
    return seen;
}

// The share of the icon's 32 x 32 pixels that the area shows at (5, 5).
double IconLikeness(const Seen& s, int systemIcon)
{
    ScreenDC screen;
    MemoryDC dc(screen.get());
    GdiBitmap bitmap(CreateCompatibleBitmap(screen.get(), 32, 32));
    Selected sel(dc.get(), bitmap.get());
    RECT all{0, 0, 32, 32};
    GdiBrush back(CreateSolidBrush(s.Pixel(1, 1)));
    FillRect(dc.get(), &all, back.get());
    DrawIcon(dc.get(), 0, 0, LoadIconA(nullptr, MAKEINTRESOURCEA(systemIcon)));
    int same = 0;
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x) same += GetPixel(dc.get(), x, y) == s.Pixel(5 + x, 5 + y);
    return same / 1024.0;
}

int CountPixels(const Seen& s, COLORREF color)
{
    int n = 0;
    for (COLORREF p : s.pixels) n += p == color;
    return n;
}

}  // namespace

TEST(AskMsg, YesNoWithInformationIconFocusesNoAndAnswersSeven)
{
    int answer = 0;
    const Seen s = ShowAndLook("Are you sure you want to delete this scheme?", 68, true, 0, &answer);
    ASSERT_TRUE(s.shown);
    EXPECT_EQ(answer, 7);
    EXPECT_EQ(s.title, TitleText());
    EXPECT_EQ(s.caption[1], "&Yes");
    EXPECT_EQ(s.caption[0], "&No");
    EXPECT_TRUE(s.visible[0] && s.visible[1]);
    EXPECT_FALSE(s.visible[2]);
    EXPECT_LT(s.button[1].left, s.button[0].left) << "Yes stands left of No";
    EXPECT_EQ(s.focus, "&No");
    EXPECT_EQ(IconLikeness(s, 32516), 1.0);
    EXPECT_LT(IconLikeness(s, 32513), 0.95) << "the icon is the information icon, not any icon";
}

TEST(AskMsg, Style256FocusesTheFirstButtonAndEachSetAnswersItsCodes)
{
    int answer = 0;
    Seen s = ShowAndLook("Save?", 324, true, 1, &answer);
    EXPECT_EQ(s.focus, "&Yes");
    EXPECT_EQ(answer, 6);

    s = ShowAndLook("Failed", 2 + 16, true, 2, &answer);
    EXPECT_EQ(s.caption[2], "&Abort");
    EXPECT_EQ(s.caption[1], "&Retry");
    EXPECT_EQ(s.caption[0], "&Ignore");
    EXPECT_EQ(s.focus, "&Ignore");
    EXPECT_EQ(answer, 3);
    EXPECT_EQ(IconLikeness(s, 32513), 1.0);
    // Retry and Ignore answer as the system's box does (4 and 5): the error
    // report runs the step again or goes on by these codes.
    ShowAndLook("Failed", 2 + 16, true, 1, &answer);
    EXPECT_EQ(answer, 4) << "Retry";
    ShowAndLook("Failed", 2 + 16, true, 0, &answer);
    EXPECT_EQ(answer, 5) << "Ignore";

    s = ShowAndLook("Go on?", 3, true, 0, &answer);
    EXPECT_EQ(s.caption[0], "Cancel");
    EXPECT_EQ(answer, 2);
    EXPECT_LT(IconLikeness(s, 32516), 0.95) << "no icon value draws no icon";
}

TEST(ShowMsg, OnlyOkWhateverTheButtonValue)
{
    int unused = 0;
    const Seen s = ShowAndLook("Note", 4 + 48, false, 0, &unused);
    EXPECT_EQ(s.caption[0], "OK");
    EXPECT_FALSE(s.visible[1]);
    EXPECT_FALSE(s.visible[2]);
    EXPECT_EQ(IconLikeness(s, 32515), 1.0);
}

namespace {

struct Counter {
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) { ++ticks; }
    inline static int ticks = 0;
};

// A window of the program that stays open while a message is shown.
class OtherForm : public Form {
public:
    OtherForm() : Form("frmOther", 0, 200, 100) {}
};

}  // namespace

TEST(ShowMsg, Modeless4096WaitsForOkWhileTheProgramRunsOn)
{
    OtherForm other;
    other.Show();
    Counter::ticks = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 20, Counter::Tick);
    bool clicked = false, otherEnabled = false;
    int ticksWhenClicked = 0;
    TimerSteps steps(30, [&] {
        HWND dlg = FindShown(TitleText());
        if (!dlg || Counter::ticks < 10) return false;
        otherEnabled = IsWindowEnabled(other.hwnd());
        ticksWhenClicked = Counter::ticks;
        clicked = true;
        Click(GetDlgItem(dlg, IDC_MSG_CMD0));
        return true;
    });
    ShowMsg("Still working", 4160);
    KillTimer(nullptr, timer);
    EXPECT_TRUE(clicked) << "ShowMsg returned before OK was clicked";
    EXPECT_GE(ticksWhenClicked, 10);
    EXPECT_TRUE(otherEnabled);
}

TEST(ShowMsg, WithoutModelessTheOtherWindowsWaitDisabled)
{
    OtherForm other;
    other.Show();
    bool otherEnabled = true;
    TimerSteps steps(30, [&] {
        HWND dlg = FindShown(TitleText());
        if (!dlg) return false;
        otherEnabled = IsWindowEnabled(other.hwnd());
        Click(GetDlgItem(dlg, IDC_MSG_CMD0));
        return true;
    });
    ShowMsg("Blocking", 64);
    EXPECT_FALSE(otherEnabled);
    EXPECT_TRUE(IsWindowEnabled(other.hwnd())) << "enabled again afterwards";
}

TEST(ShowMsg, ALongMessageMakesTheDialogTallerWithButtons60TwipsBelowTheText)
{
    const Seen shortOne = ShowAndLook("One line.", 64, false);
    std::string longText;
    for (int i = 0; i < 12; ++i) longText += "This sentence is here to make the message run over many lines. ";
    longText += "~N ~NAnd a last paragraph.";
    const Seen longOne = ShowAndLook(longText, 64, false);
    const long ty = TwipsPerPixelY();
    const long windowShort = shortOne.window.bottom - shortOne.window.top;
    const long windowLong = longOne.window.bottom - longOne.window.top;
    EXPECT_GT(windowLong, windowShort + 40);
    for (const Seen* s : {&shortOne, &longOne}) {
        EXPECT_LE(s->area.top, 1);
        EXPECT_EQ((s->button[0].top - s->area.bottom) * ty, 60);
        // The dialog is the buttons' top + their height + 420 twips high.
        EXPECT_EQ((s->window.bottom - s->window.top) * ty, s->button[0].bottom * ty + 420);
    }
    // The last line is inside the area: no black text in its last rows.
    int inkBelow = 0;
    for (int y = longOne.height - 4; y < longOne.height; ++y)
        for (int x = 0; x < longOne.width; ++x) inkBelow += longOne.Pixel(x, y) == RGB(0, 0, 0);
    EXPECT_EQ(inkBelow, 0);
}

TEST(ShowMsg, MarkupPrintsBoldRedExactlyWhereMarkedInEitherCase)
{
    const Seen upper = ShowAndLook("You must be in a ~B~CRchat room~B~CN to use this feature!", 64, false);
    const Seen lower = ShowAndLook("You must be in a ~b~crchat room~b~cn to use this feature!", 64, false);
    const Seen plain = ShowAndLook("You must be in a chat room to use this feature!", 64, false);
    EXPECT_GT(CountPixels(upper, RGB(255, 0, 0)), 50);
    EXPECT_EQ(CountPixels(plain, RGB(255, 0, 0)), 0);
    EXPECT_EQ(upper.pixels, lower.pixels);
    EXPECT_NE(upper.pixels, plain.pixels);
}

TEST(ShowMsg, UnknownCodesPrintNothing)
{
    const Seen clean = ShowAndLook("Plain words here", 0, false);
    const Seen unknown = ShowAndLook("Plain ~Qwords~CX here~", 0, false);
    EXPECT_EQ(clean.pixels, unknown.pixels);
}

TEST(ShowMsg, ABlankBetweenTwoBreaksLeavesOneEmptyLine)
{
    const Seen s = ShowAndLook("First.~N ~NSecond.", 0, false);
    // Rows that carry ink, grouped into lines: two lines with a gap of
    // at least one line's height between them.
    std::vector<bool> inked(s.height, false);
    for (int y = 0; y < s.height; ++y)
        for (int x = 51; x < s.width; ++x)
            if (s.Pixel(x, y) == RGB(0, 0, 0)) inked[y] = true;
    int firstEnd = -1, secondStart = -1;
    for (int y = 1; y < s.height; ++y) {
        if (inked[y - 1] && !inked[y] && firstEnd < 0) firstEnd = y;
        if (!inked[y - 1] && inked[y] && firstEnd >= 0) secondStart = y;
    }
    ASSERT_GT(firstEnd, 0);
    ASSERT_GT(secondStart, 0);
    EXPECT_GE(secondStart - firstEnd, 13) << "an empty line between the paragraphs";
}
