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

// The top-level windows of `pid` captioned `caption` (shown or not).
int WindowsCaptioned(DWORD pid, const std::string& caption)
{
    struct Count {
        DWORD pid;
        std::string caption;
        int n;
    } count{pid, caption, 0};
    EnumWindows(
        [](HWND w, LPARAM lp) -> BOOL {
            auto* c = reinterpret_cast<Count*>(lp);
            DWORD owner = 0;
            GetWindowThreadProcessId(w, &owner);
            char text[128] = "";
            GetWindowTextA(w, text, sizeof text);
            if (owner == c->pid && c->caption == text) ++c->n;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count.n;
}

// The user's decimal separator as the prefix stores it, changed for one test.
class UserDecimal {
public:
    explicit UserDecimal(const char* separator)
    {
        RegCreateKeyExA(HKEY_CURRENT_USER, "Control Panel\\International", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &key_, nullptr);
        char old[16] = "";
        DWORD size = sizeof old, type = 0;
        had_ = RegQueryValueExA(key_, "sDecimal", nullptr, &type, reinterpret_cast<BYTE*>(old), &size) ==
               ERROR_SUCCESS;
        old_ = old;
        RegSetValueExA(key_, "sDecimal", 0, REG_SZ, reinterpret_cast<const BYTE*>(separator),
                       static_cast<DWORD>(strlen(separator) + 1));
    }
    ~UserDecimal()
    {
        if (had_)
            RegSetValueExA(key_, "sDecimal", 0, REG_SZ, reinterpret_cast<const BYTE*>(old_.c_str()),
                           static_cast<DWORD>(old_.size() + 1));
        else
            RegDeleteValueA(key_, "sDecimal");
        RegCloseKey(key_);
    }
    UserDecimal(const UserDecimal&) = delete;
    UserDecimal& operator=(const UserDecimal&) = delete;

private:
    HKEY key_ = nullptr;
    bool had_ = false;
    std::string old_;
};

class OptionsLiveTest : public ChatLiveTest {
protected:
    // Prismo's menu in AOL: &Options or &About Prismo.
    void Menu(WPARAM command) { PostMessageA(sim_.Frame(), WM_COMMAND, command, 0); }
    HWND WaitForWindowWith(int childId)
    {
        HWND window = nullptr;
        PumpUntil([&] { return (window = WindowWithChild(prismo_.Id(), childId)) != nullptr; }, 15000);
        return window;
    }
    static void Click(HWND dialog, int id) { SendMessageA(GetDlgItem(dialog, id), BM_CLICK, 0, 0); }
    static void ChooseAt(HWND dialog, int id, int index)
    {
        HWND list = GetDlgItem(dialog, id);
        SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
    }
};

// A change anywhere under the program's key, from the moment it is armed.
class KeyWatch {
public:
    KeyWatch()
    {
        RegOpenKeyExA(HKEY_CURRENT_USER, "Software\\Zun Software\\Prismo", 0, KEY_NOTIFY, &key_);
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
    bool Changed() const { return WaitForSingleObject(event_, 0) == WAIT_OBJECT_0; }

private:
    HKEY key_ = nullptr;
    HANDLE event_ = nullptr;
    bool armed_ = false;
};

TEST_F(OptionsLiveTest, MenuAndChatCommandOpenOneDialogAndAModeChangeKeepsTheFader)
{
    // The panel in the top left corner, clear of the dialog in the middle.
    SetOption("", "Top", "0");
    SetOption("", "Left", "0");
    Start();
    KeyWatch watch;
    ASSERT_TRUE(watch.Armed());
    Menu(60001);
    HWND dialog = WaitForWindowWith(IDC_OP_EXIT);
    ASSERT_TRUE(dialog) << "Options never opened from the menu";
    EXPECT_EQ(WindowText(dialog), "Prismo Options");
    // The command runs once the line has gone: then the one dialog is still the only one.
    Send("/options");
    ASSERT_TRUE(PumpUntil([&] { return !CommandRunning(prismo_.Id()); }, 10000));
    EXPECT_EQ(WindowsCaptioned(prismo_.Id(), "Prismo Options"), 1);
    EXPECT_FALSE(watch.Changed()) << "opening the options wrote a setting";

    // The AOL style to the Windows style: dialog and panel change colour.
    RECT at{168, 220, 168, 220};
    MapDialogRect(dialog, &at);
    EXPECT_EQ(ScreenPixel(dialog, at.left, at.top), RGB(255, 251, 240));
    EXPECT_EQ(ScreenPixel(panel_, 400, 1), RGB(255, 251, 240));
    Click(dialog, IDC_OP_UISTD);
    EXPECT_EQ(Option("", "UIMode"), "0");
    EXPECT_EQ(ScreenPixel(dialog, at.left, at.top), GetSysColor(COLOR_BTNFACE));
    HWND panel = WindowWithChild(prismo_.Id(), IDC_CT_PREVIEW);
    ASSERT_TRUE(panel) << "the panel is not on view after its rebuild";
    EXPECT_EQ(ScreenPixel(panel, 400, 1), GetSysColor(COLOR_BTNFACE));
    // The dialog is still in front of the panel that came up again.
    EXPECT_TRUE(InFrontOf(dialog, panel));
    // The hooks stayed on AOL through the rebuild: a line still goes out faded.
    EXPECT_NE(sim_.Ctl("subclassed").find("input\tsubclassed\n"), std::string::npos);
    EXPECT_EQ(Send("still faded after the new colours"), Faded("still faded after the new colours"));
}

TEST_F(OptionsLiveTest, AnAdvertisementRunsOnThroughARebuildOfThePanel)
{
    SetOption("", "Top", "0");
    SetOption("", "Left", "0");
    Start();
    Menu(60001);
    HWND dialog = WaitForWindowWith(IDC_OP_EXIT);
    ASSERT_TRUE(dialog);
    const size_t before = Posted();
    ASSERT_TRUE(AdvertStarted(before));
    // The mode changes while the advertisement waits between its lines.
    ASSERT_TRUE(CommandRunning(prismo_.Id()));
    Click(dialog, IDC_OP_UIUSER);
    EXPECT_EQ(Option("", "UIMode"), "2");
    ASSERT_TRUE(AdvertDone(before));
    EXPECT_EQ(PostedSince(before), ExpectedAdvert());
    // The rebuilt panel shows the fader as the user left it, on, and so it is.
    HWND panel = WindowWithChild(prismo_.Id(), IDC_CT_PREVIEW);
    ASSERT_TRUE(panel);
    EXPECT_EQ(ScreenPixel(GetDlgItem(panel, IDC_CT_ON), 3, 3), RGB(192, 0, 0));
    EXPECT_EQ(Option("", "Fader On"), "True");
    EXPECT_EQ(Send("after the ad"), Faded("after the ad"));
}

TEST_F(OptionsLiveTest, AMultilineSendRunsOnThroughARebuildOfThePanel)
{
    SetOption("Multiline", "Multiline Burst", "1");
    Start();
    Menu(60001);
    HWND dialog = WaitForWindowWith(IDC_OP_EXIT);
    ASSERT_TRUE(dialog);
    EXPECT_EQ(Send("/multiline"), "");
    HWND ml = WaitForWindowWith(IDC_ML_CHAT);
    ASSERT_TRUE(ml);
    const std::string text = "first of three\r\nsecond of three\r\nthird of three";
    SendMessageA(GetDlgItem(ml, IDC_ML_CHAT), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    const size_t before = Posted();
    PostMessageA(ml, WM_COMMAND, MAKEWPARAM(IDC_ML_SEND, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(ml, IDC_ML_SEND)));
    ASSERT_TRUE(PumpUntil([&] { return Posted() > before; }, 15000)) << "the send never began";
    ASSERT_TRUE(CommandRunning(prismo_.Id()));
    Click(dialog, IDC_OP_UISTD);
    EXPECT_EQ(Option("", "UIMode"), "0");
    ASSERT_TRUE(PumpUntil([&] { return Posted() >= before + 3 && !CommandRunning(prismo_.Id()); }, 30000));
    const std::vector<std::string> expected = {Faded("first of three"), Faded("second of three"),
                                               Faded("third of three")};
    std::vector<std::string> posted;
    for (const std::string& line : PostedSince(before)) posted.push_back(line + "\n");
    EXPECT_EQ(posted, expected);
    EXPECT_EQ(Send("the hook is back"), Faded("the hook is back"));
}

TEST_F(OptionsLiveTest, InACommaLocaleTheDelayIsStoredWithAComma)
{
    UserDecimal comma(",");
    SetOption("Multiline", "Multiline Burst", "0,25");
    Start();
    Menu(60001);
    HWND dialog = WaitForWindowWith(IDC_OP_EXIT);
    ASSERT_TRUE(dialog);
    // "0,25" loaded in the user's locale opens on "0.25".
    EXPECT_EQ(TextOf(GetDlgItem(dialog, IDC_OP_BURSTSECS)), "0.25");
    ChooseAt(dialog, IDC_OP_BURSTSECS, 6);
    EXPECT_EQ(TextOf(GetDlgItem(dialog, IDC_OP_BURSTSECS)), "1.50");
    EXPECT_EQ(Option("Multiline", "Multiline Burst"), "1,5");
}

// The version the program's resource carries, read as Explorer reads it.
std::string FileVersion(const std::string& path)
{
    DWORD handle = 0;
    std::vector<char> data(GetFileVersionInfoSizeA(path.c_str(), &handle));
    if (data.empty() || !GetFileVersionInfoA(path.c_str(), 0, static_cast<DWORD>(data.size()), data.data()))
        return "";
    VS_FIXEDFILEINFO* info = nullptr;
    UINT size = 0;
    if (!VerQueryValueA(data.data(), "\\", reinterpret_cast<void**>(&info), &size) || !info) return "";
    return std::to_string(HIWORD(info->dwFileVersionMS)) + "." + std::to_string(LOWORD(info->dwFileVersionMS)) +
           "." + std::to_string(HIWORD(info->dwFileVersionLS));
}

TEST_F(OptionsLiveTest, TheAboutBoxFromTheMenuShowsTheVersionOverTheGradient)
{
    Start();
    Menu(60004);
    HWND about = WaitForWindowWith(IDC_AB_OK);
    ASSERT_TRUE(about) << "About never opened from the menu";
    EXPECT_EQ(WindowText(about), "About Prismo!");
    const std::string version = FileVersion(Prismo());
    ASSERT_FALSE(version.empty());
    EXPECT_EQ(TextOf(GetDlgItem(about, IDC_AB_VERSION)), version);
    EXPECT_EQ(TextOf(GetDlgItem(about, IDC_AB_RELEASE)), "July 06, 1999");
    HWND picture = GetDlgItem(about, IDC_AB_PICTURE1);
    RECT r;
    GetClientRect(picture, &r);
    const COLORREF top = ScreenPixel(picture, 2, 0), bottom = ScreenPixel(picture, 2, r.bottom - 1);
    EXPECT_EQ(top, RGB(0, 0, 128));
    // Blue at the top, a light sky blue at the bottom.
    EXPECT_GT(GetRValue(bottom), 120);
    EXPECT_GT(GetGValue(bottom), 200);
    EXPECT_GT(GetBValue(bottom), 250);
    Click(about, IDC_AB_OK);
    EXPECT_TRUE(PumpUntil([&] { return !IsWindow(about); }, 5000));
}

}  // namespace
}  // namespace ChatLive
