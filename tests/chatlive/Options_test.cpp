// The options dialog and the about box live: prismo.exe beside the AOL
// simulator signed on in a room, opened from Prismo's menu in AOL and by the
// chat command, driven from outside as a user would, read back through the
// registry and the screen.
#include "AdvertText.h"
#include "ChatLiveFixture.h"

namespace ChatLive {
namespace {

// Text of a control of another process (GetWindowText does not ask it).
std::string TextOf(HWND window)
{
    char text[256] = "";
    SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

// The colour the screen shows at a point of `window`'s client area.
COLORREF ScreenPixel(HWND window, int x, int y)
{
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    POINT p{x, y};
    ClientToScreen(window, &p);
    HDC screen = GetDC(nullptr);
    const COLORREF c = GetPixel(screen, p.x, p.y);
    ReleaseDC(nullptr, screen);
    return c;
}

// True when `front` comes before `back` in the order of top-level windows.
bool InFrontOf(HWND front, HWND back)
{
    for (HWND w = GetWindow(front, GW_HWNDNEXT); w; w = GetWindow(w, GW_HWNDNEXT))
        if (w == back) return true;
    return false;
}

// The top-level windows of `pid` captioned "Prismo Options".
int OptionsDialogs(DWORD pid)
{
    int n = 0;
    for (HWND w = GetTopWindow(nullptr); w; w = GetWindow(w, GW_HWNDNEXT)) {
        DWORD owner = 0;
        GetWindowThreadProcessId(w, &owner);
        n += owner == pid && WindowText(w) == "Prismo Options";
    }
    return n;
}

// A change anywhere under the program's key, from the moment it is armed.
class KeyWatch {
public:
    KeyWatch()
    {
        RegOpenKeyExA(HKEY_CURRENT_USER, "Software\\Zun Software\\Prismo", 0, KEY_NOTIFY, &key_);
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
    // The registry signals before the write returns: nothing to wait for.
    bool Changed() const { return WaitForSingleObject(event_, 0) == WAIT_OBJECT_0; }

private:
    HKEY key_ = nullptr;
    HANDLE event_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    bool armed_ = false;
};

class OptionsLiveTest : public ChatLiveTest {
protected:
    // The panel in the top left corner, clear of the dialog in the middle; the dialog open.
    HWND StartWithOptions()
    {
        SetOption("", "Top", "0");
        SetOption("", "Left", "0");
        Start();
        Menu(60001);
        return WindowHolding(IDC_OP_EXIT, 15000);
    }
    static void Click(HWND dialog, int id) { SendMessageA(GetDlgItem(dialog, id), BM_CLICK, 0, 0); }
};

TEST_F(OptionsLiveTest, MenuAndChatCommandOpenOneDialogAndAModeChangeKeepsTheFader)
{
    SetOption("", "Top", "0");
    SetOption("", "Left", "0");
    Start();
    KeyWatch watch;
    ASSERT_TRUE(watch.Armed());
    Menu(60001);
    HWND dialog = WindowHolding(IDC_OP_EXIT, 15000);
    ASSERT_TRUE(dialog) << "Options never opened from the menu";
    // The command runs once the line has gone: then the one dialog is still the only one.
    Send("/options");
    ASSERT_TRUE(PumpUntil([&] { return !CommandRunning(prismo_.Id()); }, 10000));
    EXPECT_EQ(OptionsDialogs(prismo_.Id()), 1);
    EXPECT_FALSE(watch.Changed()) << "opening the options wrote a setting";

    // The AOL style to the Windows style: dialog and panel change colour on screen.
    RECT at{168, 220, 168, 220};  // between the mode buttons and Set Colors
    MapDialogRect(dialog, &at);
    EXPECT_EQ(ScreenPixel(dialog, at.left, at.top), RGB(255, 251, 240));
    Click(dialog, IDC_OP_UISTD);
    EXPECT_TRUE(watch.Changed());
    EXPECT_EQ(Option("", "UIMode"), "0");
    EXPECT_EQ(ScreenPixel(dialog, at.left, at.top), GetSysColor(COLOR_BTNFACE));
    HWND panel = WindowWithChild(prismo_.Id(), IDC_CT_PREVIEW);
    ASSERT_TRUE(panel) << "the panel is not on view after its rebuild";
    EXPECT_EQ(ScreenPixel(panel, 400, 1), GetSysColor(COLOR_BTNFACE));
    EXPECT_TRUE(InFrontOf(dialog, panel)) << "the rebuilt panel came up over the dialog";
    // The hooks stayed on AOL through the rebuild: a line still goes out faded.
    EXPECT_EQ(Send("still faded after the new colours"), Faded("still faded after the new colours"));
}

TEST_F(OptionsLiveTest, AnAdvertisementAndAMultilineSendRunOnThroughARebuildOfThePanel)
{
    SetOption("Multiline", "Multiline Burst", "1");
    HWND dialog = StartWithOptions();
    ASSERT_TRUE(dialog);
    size_t before = Posted();
    ASSERT_TRUE(AdvertStarted(before));
    ASSERT_TRUE(CommandRunning(prismo_.Id()));
    Click(dialog, IDC_OP_UIUSER);  // while the advertisement waits between its lines
    ASSERT_TRUE(AdvertDone(before));
    EXPECT_EQ(PostedSince(before), ExpectedAdvert());
    // The rebuilt panel shows the fader as the user left it, on, and so it is.
    HWND panel = WindowWithChild(prismo_.Id(), IDC_CT_PREVIEW);
    ASSERT_TRUE(panel);
    EXPECT_EQ(ScreenPixel(GetDlgItem(panel, IDC_CT_ON), 3, 3), RGB(192, 0, 0));
    EXPECT_EQ(Option("", "Fader On"), "True");
    EXPECT_EQ(Send("after the ad"), Faded("after the ad"));

    EXPECT_EQ(Send("/multiline"), "");
    HWND ml = WindowHolding(IDC_ML_CHAT, 15000);
    ASSERT_TRUE(ml);
    const std::string text = "first of three\r\nsecond of three\r\nthird of three";
    SendMessageA(GetDlgItem(ml, IDC_ML_CHAT), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    before = Posted();
    PostMessageA(ml, WM_COMMAND, MAKEWPARAM(IDC_ML_SEND, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(ml, IDC_ML_SEND)));
    ASSERT_TRUE(PumpUntil([&] { return Posted() > before; }, 15000)) << "the send never began";
    ASSERT_TRUE(CommandRunning(prismo_.Id()));
    Click(dialog, IDC_OP_UISTD);
    ASSERT_TRUE(PumpUntil([&] { return Posted() >= before + 3 && !CommandRunning(prismo_.Id()); }, 30000));
    std::string posted;
    for (const std::string& line : PostedSince(before)) posted += line + "\n";
    EXPECT_EQ(posted, Faded("first of three") + Faded("second of three") + Faded("third of three"));
    EXPECT_EQ(Send("the hook is back"), Faded("the hook is back"));
}

TEST_F(OptionsLiveTest, InACommaLocaleTheDelayIsStoredWithAComma)
{
    // The user's decimal separator as Windows keeps it, for this test only.
    HKEY international = nullptr;
    RegCreateKeyExA(HKEY_CURRENT_USER, "Control Panel\\International", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                    &international, nullptr);
    char old[16] = ".";
    DWORD size = sizeof old;
    RegQueryValueExA(international, "sDecimal", nullptr, nullptr, reinterpret_cast<BYTE*>(old), &size);
    RegSetValueExA(international, "sDecimal", 0, REG_SZ, reinterpret_cast<const BYTE*>(","), 2);
    SetOption("Multiline", "Multiline Burst", "0,25");
    HWND dialog = StartWithOptions();
    RegSetValueExA(international, "sDecimal", 0, REG_SZ, reinterpret_cast<const BYTE*>(old),
                   static_cast<DWORD>(strlen(old) + 1));
    RegCloseKey(international);
    ASSERT_TRUE(dialog);
    // "0,25" loaded in the user's locale opens on "0.25"; "1.50" is stored as "1,5".
    HWND list = GetDlgItem(dialog, IDC_OP_BURSTSECS);
    EXPECT_EQ(TextOf(list), "0.25");
    SendMessageA(list, CB_SETCURSEL, 6, 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDC_OP_BURSTSECS, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
    EXPECT_EQ(TextOf(list), "1.50");
    EXPECT_EQ(Option("Multiline", "Multiline Burst"), "1,5");
}

TEST_F(OptionsLiveTest, TheAboutBoxFromTheMenuShowsTheVersionOverTheGradient)
{
    Start();
    Menu(60004);
    HWND about = WindowHolding(IDC_AB_OK, 15000);
    ASSERT_TRUE(about) << "About never opened from the menu";
    EXPECT_EQ(WindowText(about), "About Prismo!");
    // The version as Explorer reads it from the program's resource.
    std::vector<char> data(GetFileVersionInfoSizeA(Prismo().c_str(), nullptr));
    VS_FIXEDFILEINFO* info = nullptr;
    UINT size = 0;
    ASSERT_FALSE(data.empty());
    ASSERT_TRUE(GetFileVersionInfoA(Prismo().c_str(), 0, static_cast<DWORD>(data.size()), data.data()) &&
                VerQueryValueA(data.data(), "\\", reinterpret_cast<void**>(&info), &size));
    EXPECT_EQ(TextOf(GetDlgItem(about, IDC_AB_VERSION)),
              std::to_string(HIWORD(info->dwFileVersionMS)) + "." + std::to_string(LOWORD(info->dwFileVersionMS)) +
                  "." + std::to_string(HIWORD(info->dwFileVersionLS)));
    EXPECT_EQ(TextOf(GetDlgItem(about, IDC_AB_RELEASE)), "July 06, 1999");
    // Deep blue on the top row, a light sky blue on the bottom one, a blend between.
    HWND picture = GetDlgItem(about, IDC_AB_PICTURE1);
    RECT r;
    GetClientRect(picture, &r);
    EXPECT_EQ(ScreenPixel(picture, 2, 0), RGB(0, 0, 128));
    const COLORREF bottom = ScreenPixel(picture, 2, r.bottom - 1), middle = ScreenPixel(picture, 2, r.bottom / 2);
    EXPECT_NEAR(GetRValue(bottom), 128, 4);
    EXPECT_NEAR(GetGValue(bottom), 208, 6);
    EXPECT_NEAR(GetBValue(bottom), 255, 2);
    EXPECT_NEAR(GetGValue(middle), 104, 6);
    Click(about, IDC_AB_OK);
    EXPECT_TRUE(PumpUntil([&] { return !IsWindow(about); }, 5000));
}

}  // namespace
}  // namespace ChatLive
