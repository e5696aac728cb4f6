// The window base and platform helpers under Wine: the live pause, placing
// forms on screen, unloading every form, the error report's answers, and
// choosing and painting the interface colour modes and buttons.
#include <gtest/gtest.h>

#include "AOLState.h"
#include "ErrorTrap.h"
#include "Options.h"
#include "UiTestSupport.h"
#include "frmMsg.h"
#include "modRegKeys.h"
#include "modWin32API.h"
#include "modZunBtns.h"
#include "resource.h"

namespace {

// A plain form that may be larger than the screen and may refuse to close.
class TestForm : public Form {
public:
    explicit TestForm(std::string name, std::vector<std::string>* log = nullptr)
        : Form(std::move(name), 0, 300, 200), log_(log)
    {
    }
    bool refuse = false;

protected:
    bool OnQueryUnload() override { return !refuse; }
    void OnUnload() override
    {
        if (log_) log_->push_back(Name());
    }
    bool OnMessage(UINT msg, WPARAM, LPARAM lp, LRESULT& result) override
    {
        if (msg != WM_GETMINMAXINFO) return false;
        auto* info = reinterpret_cast<MINMAXINFO*>(lp);
        info->ptMaxTrackSize = {4000, 4000};
        result = 0;
        return true;
    }

private:
    std::vector<std::string>* log_;
};

double CpuMilliseconds()
{
    FILETIME created, exited, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user);
    auto ms = [](FILETIME t) { return (static_cast<double>(t.dwHighDateTime) * 4294967296.0 + t.dwLowDateTime) / 1e4; };
    return ms(kernel) + ms(user);
}

// A hidden window whose message posts itself again, for ever.
struct Echo {
    static LRESULT CALLBACK Proc(HWND hwnd, UINT msg, WPARAM wp, LPARAM lp)
    {
        if (msg == WM_APP) {
            ++count;
            PostMessageA(hwnd, WM_APP, 0, 0);
            return 0;
        }
        return DefWindowProcA(hwnd, msg, wp, lp);
    }
    inline static int count = 0;
};

}  // namespace

TEST(Pause, ZeroServicesOneRoundEvenWhenAHandlerKeepsPosting)
{
    WNDCLASSA wc{};
    wc.lpfnWndProc = Echo::Proc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = "PrismoEchoTest";
    RegisterClassA(&wc);
    HWND echo = CreateWindowExA(0, "PrismoEchoTest", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    Echo::count = 0;
    PostMessageA(echo, WM_APP, 0, 0);
    Pause(0);  // must come back although the queue never empties
    EXPECT_GE(Echo::count, 1);
    const int afterOneRound = Echo::count;
    Pause(0);
    EXPECT_GT(Echo::count, afterOneRound);
    DestroyWindow(echo);
    MSG msg;
    while (PeekMessageA(&msg, nullptr, WM_APP, WM_APP, PM_REMOVE)) {
    }
}

TEST(Pause, ASecondWaitKeepsTimersRunningAndCostsAlmostNoCpu)
{
    static int ticks = 0;
    ticks = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR, DWORD) { ++ticks; });
    const double cpuBefore = CpuMilliseconds();
    const DWORD start = GetTickCount();
    Pause(1000);
    const DWORD elapsed = GetTickCount() - start;
    const double cpu = CpuMilliseconds() - cpuBefore;
    KillTimer(nullptr, timer);
    EXPECT_GE(elapsed, 1000u);
    EXPECT_GE(ticks, 10);
    EXPECT_LT(cpu, 50.0);
    // The clock does see CPU time: a busy 200 ms shows.
    const double busyBefore = CpuMilliseconds();
    for (const DWORD spin = GetTickCount(); GetTickCount() - spin < 200;) {
    }
    EXPECT_GT(CpuMilliseconds() - busyBefore, 20.0) << "a shared machine may give the spin less than all of it";
    std::printf("Pause(1000): %lu ms elapsed, %.1f ms CPU, %d timer ticks\n", static_cast<unsigned long>(elapsed),
                cpu, ticks);
}

TEST(Pause, AQuitEndsTheWaitAndStaysQueuedForTheProgramsLoop)
{
    PostQuitMessage(3);
    const DWORD start = GetTickCount();
    Pause(3000);
    EXPECT_LT(GetTickCount() - start, 3000u) << "the wait ran to its end";
    MSG msg;
    ASSERT_TRUE(PeekMessageA(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(msg.wParam, 3u);
}

TEST(RePosForm, PullsAFormBackOnScreenInTheOrderOfTheAxes)
{
    TestForm form("frmPlace");
    ASSERT_TRUE(form.Load());
    const long tx = TwipsPerPixelX(), ty = TwipsPerPixelY();
    const long w = 300 * tx, h = 200 * ty;
    form.Move(600 * tx, ScreenHeight() - h + 300, w, h);
    const long topBefore = form.Top();
    RePosForm(form, 0);
    EXPECT_EQ(form.Top(), topBefore - 300);
    EXPECT_EQ(form.Left(), 600 * tx) << "the vertical axis leaves left alone";

    form.Move(-40 * tx, 10 * ty, w, h);
    RePosForm(form, 1);
    EXPECT_EQ(form.Left(), 0);
    RePosForm(form, 7);
    EXPECT_EQ(form.Left(), 0);

    // Larger than the screen: top 0, but right-aligned.
    const long bigW = ScreenWidth() + 600, bigH = ScreenHeight() + 900;
    form.Move(-30 * tx, 45 * ty, bigW, bigH);
    ASSERT_EQ(form.Width(), bigW);
    RePosForm(form, 0);
    RePosForm(form, 1);
    EXPECT_EQ(form.Top(), 0);
    EXPECT_EQ(form.Left(), ScreenWidth() - bigW);

    form.Move(0, 0, w, h);
    CenterForm(form);
    EXPECT_EQ(form.Left(), (ScreenWidth() - w) / 2 / tx * tx);
}

TEST(UnloadAllForms, UnloadsFromTheLastAndStopsAtARefusal)
{
    std::vector<std::string> log;
    TestForm a("a", &log), b("b", &log), c("c", &log);
    ASSERT_TRUE(a.Load() && b.Load() && c.Load());
    b.refuse = true;
    UnloadAllForms();
    EXPECT_EQ(log, (std::vector<std::string>{"c"}));
    EXPECT_TRUE(a.Loaded());
    EXPECT_TRUE(b.Loaded());
    b.refuse = false;
    UnloadAllForms();
    EXPECT_EQ(log, (std::vector<std::string>{"c", "b", "a"}));
    EXPECT_TRUE(LoadedForms().empty());
}

TEST(ErrorReport, ShowsWhereItFailedRetryRunsTheStepAgainAndTheCloseBoxLeaves)
{
    InstallErrorReport();
    std::string details, lastDetails;
    int reports = 0;
    bool closeBox = false;
    TimerSteps steps(30, [&] {
        HWND dlg = FindShown(TitleText());
        if (!dlg) return false;
        (reports == 0 ? details : lastDetails) = TextOf(GetDlgItem(dlg, IDC_ERR_DETAILS));
        // Retry the first time, the close box the second, Ignore the third.
        switch (++reports) {
        case 1: Click(GetDlgItem(dlg, IDC_ERR_RETRY)); break;
        case 2:
            closeBox = (GetWindowLongA(dlg, GWL_STYLE) & WS_SYSMENU) != 0;
            PostMessageA(dlg, WM_SYSCOMMAND, SC_CLOSE, 0);
            break;
        default: Click(GetDlgItem(dlg, IDC_ERR_IGNORE));
        }
        return reports == 3;
    });
    int runs = 0;
    bool afterClose = false, afterIgnore = false;
    ErrorTrap trap("modAOLFunctions", "TextToChat");
    const bool goesOn = trap.Run([&] {
        ++runs;
        throw RuntimeError(Err::FileNotFound, "File not found");
    }) && trap.Run([&] { afterClose = true; });
    ErrorTrap ignored("modPrismo", "Main");
    ignored.Run([] { throw RuntimeError(Err::PathNotFound, "Path not found"); });
    ignored.Run([&] { afterIgnore = true; });
    SetErrorReporter(nullptr);
    EXPECT_EQ(runs, 2);
    EXPECT_TRUE(closeBox) << "the report has a close box";
    EXPECT_FALSE(goesOn);
    EXPECT_FALSE(afterClose) << "closing the report left the procedure";
    EXPECT_TRUE(afterIgnore);
    EXPECT_NE(details.find("modAOLFunctions"), std::string::npos);
    EXPECT_NE(details.find("TextToChat"), std::string::npos);
    EXPECT_NE(details.find("53"), std::string::npos);
    EXPECT_NE(details.find("File not found"), std::string::npos);
    EXPECT_NE(details.find(VersionText()), std::string::npos);
    EXPECT_NE(lastDetails.find("Path not found"), std::string::npos);
}

TEST(UIMode, ALowColourDisplayIgnoresTheStoredMode)
{
    ASSERT_TRUE(WriteSetting(Setting::UIMode, "2"));
    EXPECT_EQ(StartUIMode(8), 0);
    EXPECT_TRUE(Options.LowColorDisplay);
    EXPECT_EQ(StartUIMode(16), 2);
    EXPECT_FALSE(Options.LowColorDisplay);
    ASSERT_TRUE(WriteSetting(Setting::UIMode, ""));
    EXPECT_EQ(StartUIMode(24), 1);
    EXPECT_EQ(StartUIMode(0), DisplayBitsPerPixel() <= 8 ? 0 : 1) << "the display's own depth";
}

TEST(UIMode, ButtonsAndFormsPaintTheModesColours)
{
    struct Case {
        int mode;
        bool uk;
        COLORREF face, text, window, flat;  // flat: a released flat button's face
    };
    Options.ButtonForecolor = 0x00123456;
    Options.ButtonText = 0x00654321;
    Options.WindowColor = 0x00ABCDEF;
    const Case cases[] = {
        {0, false, GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNTEXT), GetSysColor(COLOR_BTNFACE),
         GetSysColor(COLOR_BTNFACE)},
        {1, false, 0x00AD6D00, 0x00FFFFFF, 0x00F0FBFF, 0x00AD6D00},
        {1, true, 0x00A0E0FF, 0x00000000, 0x00F0FBFF, 0x00AD6D00},
        {2, false, 0x00123456, 0x00654321, 0x00ABCDEF, 0x00123456},
    };
    for (const Case& c : cases) {
        Options.UIMode = static_cast<std::int16_t>(c.mode);
        AOLEdition.UK = c.uk;
        TestForm form("frmColour");
        ASSERT_TRUE(form.Load());
        InitForm(form);
        ZunButton button;
        button.Create(form.hwnd(), 1001, "Sample", 10, 10, 100, 30);
        SetButtonColor(button);
        FlatButton flat, pressed;
        flat.Create(form.hwnd(), 1002, "B", 120, 10, 30, 30);
        SetOptColor(false, flat);
        pressed.Create(form.hwnd(), 1003, "P", 160, 10, 30, 30);
        SetOptColor(true, pressed);
        form.Show();
        RedrawWindow(form.hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        // Sample what was painted: the face left of the caption, the form's
        // background in a corner, the flat button's face.
        HDC buttonDC = GetDC(button.hwnd());
        EXPECT_EQ(GetPixel(buttonDC, 5, 15), c.face) << "mode " << c.mode;
        ReleaseDC(button.hwnd(), buttonDC);
        HDC formDC = GetDC(form.hwnd());
        EXPECT_EQ(GetPixel(formDC, 200, 100), c.window) << "mode " << c.mode;
        ReleaseDC(form.hwnd(), formDC);
        HDC flatDC = GetDC(flat.hwnd());
        EXPECT_EQ(GetPixel(flatDC, 3, 3), c.flat) << "mode " << c.mode;
        ReleaseDC(flat.hwnd(), flatDC);
        HDC pressedDC = GetDC(pressed.hwnd());
        EXPECT_EQ(GetPixel(pressedDC, 3, 3), RGB(192, 0, 0)) << "pressed, mode " << c.mode;
        ReleaseDC(pressed.hwnd(), pressedDC);
        EXPECT_EQ(ResolveColor(button.ForeColor), c.text) << "mode " << c.mode;
    }
    AOLEdition.UK = false;
    Options.UIMode = 7;  // outside the modes: colours stay as they are
    ZunButton untouched;
    untouched.BackColor = 0x00010203;
    SetButtonColor(untouched);
    EXPECT_EQ(untouched.BackColor, 0x00010203);
    Options.UIMode = 0;
}

TEST(UIMode, AButtonLetsGoOfItsControlWhenItGoesOrMoves)
{
    TestForm form("frmButtons");
    ASSERT_TRUE(form.Load());
    form.Show();
    HWND control = nullptr;
    {
        ZunButton button;
        control = button.Create(form.hwnd(), 1003, "Gone", 10, 10, 100, 30);
        EXPECT_EQ(OwnerDrawn::Of(control), &button);
    }
    EXPECT_EQ(OwnerDrawn::Of(control), nullptr) << "the control still points at a dead button";
    // A late repaint of the control now goes to the default drawing.
    RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    FlatButton flat;
    HWND first = flat.Create(form.hwnd(), 1004, "A", 120, 10, 30, 30);
    flat.Attach(control);
    EXPECT_EQ(OwnerDrawn::Of(first), nullptr);
    EXPECT_EQ(OwnerDrawn::Of(control), &flat);
}

TEST(Platform, ZOrderHelpWindowAndVersionText)
{
    TestForm a("frmZ1"), b("frmZ2");
    a.Show();
    b.Show();
    SetWindowZOrder(a.hwnd(), -1);
    EXPECT_TRUE(GetWindowLongA(a.hwnd(), GWL_EXSTYLE) & WS_EX_TOPMOST);
    SetWindowZOrder(a.hwnd(), 0);
    EXPECT_FALSE(GetWindowLongA(a.hwnd(), GWL_EXSTYLE) & WS_EX_TOPMOST);
    SetWindowZOrder(b.hwnd(), 0);
    SetWindowZOrder(a.hwnd(), 1);
    EXPECT_FALSE(GetWindowLongA(a.hwnd(), GWL_EXSTYLE) & WS_EX_TOPMOST) << "1 is the top, not topmost";
    HWND above = a.hwnd();
    bool aboveB = false;
    while ((above = GetWindow(above, GW_HWNDNEXT)))
        if (above == b.hwnd()) aboveB = true;
    EXPECT_TRUE(aboveB);

    // The help window turns up a little later and is made topmost.
    WNDCLASSA wc{};
    wc.lpfnWndProc = DefWindowProcA;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = "MS_WINHELP";
    RegisterClassA(&wc);
    HWND help = nullptr;
    TimerSteps later(300, [&] {
        help = CreateWindowExA(0, "MS_WINHELP", "Prismo!", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr, nullptr,
                               nullptr, nullptr);
        return true;
    });
    EXPECT_TRUE(WaitForHelpWindow());
    ASSERT_TRUE(help);
    EXPECT_TRUE(GetWindowLongA(help, GWL_EXSTYLE) & WS_EX_TOPMOST);
    DestroyWindow(help);

    EXPECT_EQ(VersionText(), PRISMO_VERSION_TEXT) << "read from the program's own version resource";
    EXPECT_EQ(TitleText(), std::string("Prismo - ") + PRISMO_VERSION_TEXT);
}

TEST(ErrorReport, AbortUnloadsEveryFormAndEndsTheProgram)
{
    // The scene program loads a form, then fails a step; its report is
    // answered Abort from here.
    const std::string folder = AppPath();
    const std::string mark = folder + "\\abort.mark";
    DeleteFileA(mark.c_str());
    SetEnvironmentVariableA("PRISMO_UNLOAD_MARK", mark.c_str());
    std::string command = "\"" + folder + "\\ui_scenes.exe\" error 0";
    STARTUPINFOA si{};
    si.cb = sizeof si;
    PROCESS_INFORMATION pi{};
    ASSERT_TRUE(CreateProcessA(nullptr, &command[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si, &pi));
    bool clicked = false;
    const DWORD start = GetTickCount();
    WaitUntil([&] {
        if (GetTickCount() - start > 20000) return true;
        HWND report = FindShown(TitleText());
        if (report && !clicked) {
            Click(GetDlgItem(report, IDC_ERR_ABORT));
            clicked = true;
        }
        return WaitForSingleObject(pi.hProcess, 0) == WAIT_OBJECT_0;
    });
    DWORD code = 99;
    GetExitCodeProcess(pi.hProcess, &code);
    CloseHandle(pi.hThread);
    CloseHandle(pi.hProcess);
    EXPECT_TRUE(clicked);
    EXPECT_EQ(code, 0u);
    EXPECT_NE(GetFileAttributesA(mark.c_str()), INVALID_FILE_ATTRIBUTES) << "the loaded form was unloaded";
    DeleteFileA(mark.c_str());
}
