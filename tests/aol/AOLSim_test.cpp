// The AOL modules against the AOL simulator: rooms, TextToChat, mail, the
// session of every edition and version, the program's menu, AOLMAIL.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "SimHarness.h"
#include "AOLState.h"
#include "modAOLFunctions.h"
#include "modAOLMenu.h"
#include "modFindChild.h"
#include "modLaunch32.h"
#include "modRichText.h"
#include "modRegKeys.h"

namespace {

std::string FullPath(const std::string& path)
{
    char full[MAX_PATH];
    GetFullPathNameA(path.c_str(), sizeof full, full, nullptr);
    std::string text = full;
    for (char& c : text) c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
    return text;
}

// Bar menus of `aolsimctl menu`: the lines that are not indented.
std::vector<std::string> BarMenus(const std::string& menu)
{
    std::vector<std::string> bar;
    std::istringstream in(menu);
    for (std::string line; std::getline(in, line);)
        if (!line.empty() && line[0] != '\t') bar.push_back(line.substr(0, line.find('\t')));
    return bar;
}

class AOLSim : public ::testing::Test, public AOLMessageSink {
protected:
    void SetUp() override
    {
        AOLVersion.clear();
        AOLEdition = AOLEditionFlags{};
        ScreenNames = {};
        RememberSignOnNames({});
        messages_.clear();
        SetAOLMessageSink(this);
    }
    void TearDown() override
    {
        sim_.Stop();
        SetAOLMessageSink(nullptr);
    }
    void Message(const std::string& m, long) override { messages_ += m + "\n"; }

    // Starts the simulator (from its folder for `version`, or from
    // `folder`) and attaches to it as start-up does.
    void Start(const std::string& version, const std::string& options, const std::string& folder = "")
    {
        ASSERT_TRUE(folder.empty() ? sim_.Start(version, options) : sim_.StartIn(folder, options));
        ASSERT_TRUE(AOLIsRunning(nullptr));
        ASSERT_EQ(AOLWindow, sim_.Frame());
        ASSERT_NE(AOLMDIClient, nullptr);
    }

    SimAOL sim_;
    std::string messages_;
};

TEST_F(AOLSim, TheTopmostOfTwoRoomsIsTheChatRoom)
{
    Start("40", "--room \"Lobby A\" --room \"Lobby B\"");
    HWND room = FindChatRoom(AOLMDIClient, "aol child");
    ASSERT_NE(room, nullptr);
    EXPECT_EQ(GetText(room), "Lobby B");
    sim_.Ctl("open-room \"Lobby A\"");
    EXPECT_EQ(GetText(FindChatRoom(AOLMDIClient, "AOL Child")), "Lobby A");
    sim_.Ctl("close-room");
    sim_.Ctl("close-room");
    EXPECT_EQ(FindChatRoom(AOLMDIClient, "AOL Child"), nullptr);
}

// Windows of our own shaped like AOL's MDI children.
HWND MakeChild(HWND parent, const char* className, const char* caption)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = DefWindowProcA;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = className;
    RegisterClassA(&wc);
    return CreateWindowA(className, caption, parent ? WS_CHILD : WS_POPUP, 0, 0, 10, 10, parent,
                         nullptr, wc.hInstance, nullptr);
}

HWND MakeRoomLike(HWND parent, const char* caption, const char* sendCaption, bool withList)
{
    HWND room = MakeChild(parent, "AOL Child", caption);
    MakeChild(room, "RICHCNTL", "");
    if (withList) MakeChild(room, "_AOL_LISTBOX", "");
    MakeChild(room, "_AOL_ICON", "List Chats");
    MakeChild(room, "_AOL_COMBOBOX", "");
    MakeChild(room, "RICHCNTL", "");
    MakeChild(room, "_AOL_ICON", sendCaption);
    SetWindowPos(room, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    return room;
}

TEST(ChatRoomShape, LookAlikesWithACaptionedIconOrNoPeopleListAreNotRooms)
{
    HWND parent = MakeChild(nullptr, "FakeMDI", "");
    HWND room = MakeRoomLike(parent, "Real", "", true);
    MakeRoomLike(parent, "No people", "", false);
    MakeRoomLike(parent, "Captioned", "Send", true);
    EXPECT_EQ(GetText(GetWindow(parent, GW_CHILD)), "Captioned");
    EXPECT_EQ(FindChatRoom(parent, "aol child"), room);
    EXPECT_EQ(FindChatRoom(parent, "Other Class"), nullptr);
    DestroyWindow(parent);
}

TEST(WindowFinding, ChildSearchesCountDirectChildrenInOrder)
{
    HWND parent = MakeChild(nullptr, "FakeMDI", "");
    HWND first = MakeChild(parent, "AOL Child", "Welcome, Ann Lee!");
    MakeChild(parent, "AOL Child", "Welcome");
    HWND second = MakeChild(parent, "AOL Child", "welcome, Bob!");
    MakeChild(first, "Grandchild", "Welcome, Deep!");
    EXPECT_EQ(FindChildByTitle(parent, "Welcome,"), first);
    EXPECT_EQ(FindChildByTitle(parent, "Welcome,", 2), second);
    EXPECT_EQ(FindChildByTitle(parent, "Welcome,", 3), nullptr);
    EXPECT_EQ(FindChildByTitle(parent, "Welcome,", 0), nullptr);
    EXPECT_EQ(FindChildByClass(parent, "aol child", 3), second);
    EXPECT_EQ(FindChildByClass(parent, "Grandchild"), nullptr);
    EXPECT_EQ(FindChildByTitle(parent, "Welcome, ?ob"), second);
    EXPECT_EQ(FindChildByTitle(parent, "Welcome, [!a]"), second);
    DestroyWindow(parent);
}

TEST(WindowFinding, TextsAreReadUntrimmedAndWaitsGiveUpOnHiddenWindows)
{
    HWND parent = MakeChild(nullptr, "FakeMDI", "");
    HWND spaced = MakeChild(parent, "Edit", "  x  ");
    EXPECT_EQ(GetAPIText(spaced, true), "  x  ");
    EXPECT_EQ(GetText(spaced), "x");
    EXPECT_EQ(GetClass(spaced), "Edit");
    // Exists but stays hidden: the wait ends empty after its ten seconds.
    const DWORD start = GetTickCount();
    EXPECT_EQ(WaitForChildByClass(parent, "Edit"), nullptr);
    const DWORD waited = GetTickCount() - start;
    EXPECT_GE(waited, 9000u);
    EXPECT_LT(waited, 12000u);
    ShowWindow(spaced, SW_SHOWNA);
    ShowWindow(parent, SW_SHOWNA);
    EXPECT_EQ(WaitForChildByClass(parent, "Edit"), spaced);
    DestroyWindow(parent);
}

TEST_F(AOLSim, TextToChatModesSetSendOrOnlyFocus)
{
    Start("40", "--room \"Town Square\"");
    TextToChat("zero", 0);
    EXPECT_EQ(sim_.Ctl("input"), "zero\nvisible\n");
    EXPECT_EQ(sim_.Ctl("transcript"), "");

    TextToChat("<B>one</B>", 1);
    EXPECT_EQ(sim_.Ctl("transcript"), "<B>one</B>\n");
    EXPECT_EQ(sim_.Ctl("input"), "\nhidden\n");

    TextToChat("two", 2);
    EXPECT_EQ(sim_.Ctl("transcript"), "<B>one</B>\ntwo\n");

    sim_.Ctl("type kept");
    TextToChat("five", 5);
    EXPECT_EQ(sim_.Ctl("input"), "kept\nhidden\n");
    EXPECT_EQ(sim_.Ctl("transcript"), "<B>one</B>\ntwo\n");
    EXPECT_EQ(messages_, "");
}

TEST_F(AOLSim, TextToChatWithoutARoomTellsTheUserAndSendsNothing)
{
    Start("40", "");
    TextToChat("nobody hears", 1);
    EXPECT_EQ(messages_, "You must be in a ~B~CRchat room~B~CN to use this feature!\n");
}

TEST_F(AOLSim, MailWindowsAreRecognisedByTheirThreeMarks)
{
    Start("40", "--room Lobby --window \"Re: hello\" --window \"Global Message Board Preferences\"");
    HWND reply = FindChildByTitle(AOLMDIClient, "Re:");
    EXPECT_EQ(IsEMail(reply), reply) << "a reply is written in a full compose window";
    EXPECT_EQ(IsEMail(FindChildByTitle(AOLMDIClient, "Global Message")), nullptr);
    EXPECT_EQ(IsEMail(FindChatRoom(AOLMDIClient, "AOL Child")), nullptr);
    HWND mail = OpenEMail();
    ASSERT_NE(mail, nullptr);
    EXPECT_EQ(GetText(mail), "Write Mail");
    EXPECT_EQ(IsEMail(mail), mail);
    EXPECT_EQ(IsEMail(GetTopWindow(AOLMDIClient)), mail);
}

struct Edition {
    const char* version;
    const char* edition;
    bool uk, canada, australia;
};

class AOLEditions : public AOLSim, public ::testing::WithParamInterface<Edition> {};

TEST_P(AOLEditions, VersionEditionSignOnAndScreenNames)
{
    const Edition e = GetParam();
    Start(e.version, std::string("--edition ") + e.edition +
                         " --screen-names \"Ann  Lee,Bob,Guest,Cy\" --select Bob");
    EXPECT_EQ(FullPath(AOLPath), FullPath(sim_.Folder()));
    GetAOLVersion();
    EXPECT_EQ(AOLVersion, std::string(1, e.version[0]));
    if (AOLVersion != "3") DetectAOLEdition();
    EXPECT_EQ(AOLEdition.UK, e.uk);
    EXPECT_EQ(AOLEdition.Canada, e.canada);
    EXPECT_EQ(AOLEdition.Australia, e.australia);

    EXPECT_FALSE(IsAOLOnline(false));
    ASSERT_TRUE(GetSignOnScreenNames());
    const std::array<std::string, 6> offline = {"Ann  Lee", "Bob", "", "", "", "Bob"};
    EXPECT_EQ(ScreenNames, offline);
    EXPECT_EQ(GetCurrentScreenName(), "Bob");

    ASSERT_EQ(sim_.Ctl("sign-on \"Ann  Lee\""), "");
    EXPECT_TRUE(IsAOLOnline(false));
    EXPECT_EQ(GetCurrentScreenName(), "Ann  Lee");
    // Signed on: the account's names as the sign-on list gave them, master first.
    EXPECT_TRUE(GetScreenNames());
    const std::array<std::string, 6> account = {"Ann  Lee", "Bob", "", "", "", ""};
    EXPECT_EQ(ScreenNames, account);

    sim_.Ctl("sign-off");
    EXPECT_FALSE(IsAOLOnline(true));
    EXPECT_NE(messages_.find("You are not currently signed on!"), std::string::npos);
    ASSERT_TRUE(GetSignOnScreenNames());  // now from the goodbye screen
    EXPECT_EQ(ScreenNames, offline);
}

INSTANTIATE_TEST_SUITE_P(FourEditionsAndThreeVersions, AOLEditions,
                         ::testing::Values(Edition{"40", "us", false, false, false},
                                           Edition{"40", "uk", true, false, false},
                                           Edition{"40", "ca", false, true, false},
                                           Edition{"40", "au", false, false, true},
                                           Edition{"30", "us", false, false, false},
                                           Edition{"50", "us", false, false, false}));

TEST_F(AOLSim, SignedOnLastsWhateverWindowsTheMemberCloses)
{
    Start("40", "--signed-on Second --screen-names \"Zun Tester,Second,Guest\"");
    GetAOLVersion();
    auto close = [&](const char* caption) {
        HWND window = FindWindowExA(AOLMDIClient, nullptr, "AOL Child", caption);
        ASSERT_NE(window, nullptr) << caption;
        PostMessageA(window, WM_CLOSE, 0, 0);
        ASSERT_TRUE(PumpUntil([&] { return !IsWindow(window); }, 5000)) << caption;
    };
    close("Welcome, Second!");
    EXPECT_EQ(AOLIsOnline(), 2);
    EXPECT_TRUE(IsAOLOnline(true));
    // No sign-on list read yet: only the name signed on is known, and AOL is
    // asked to show its Welcome window again to tell it.
    EXPECT_FALSE(GetScreenNames());
    const std::array<std::string, 6> current = {"Second", "", "", "", "", ""};
    EXPECT_EQ(ScreenNames, current);
    EXPECT_EQ(sim_.Ctl("keywords"), "welcome\n");

    sim_.Ctl("sign-off");
    EXPECT_EQ(AOLIsOnline(), 1);
    ASSERT_TRUE(GetSignOnScreenNames());
    close("Goodbye From America Online!");
    EXPECT_EQ(AOLIsOnline(), 1) << "no goodbye screen is no session either";
    ASSERT_EQ(sim_.Ctl("sign-on Second"), "");
    close("Welcome, Second!");
    // The list read before this sign-on gives the account's names, master first.
    EXPECT_TRUE(GetScreenNames());
    const std::array<std::string, 6> account = {"Zun Tester", "Second", "", "", "", ""};
    EXPECT_EQ(ScreenNames, account);
    EXPECT_EQ(sim_.Ctl("keywords"), "welcome\n");
    EXPECT_EQ(messages_, "");
}

TEST_F(AOLSim, AOLInAFolderWithBlanksIsAttachedToAndTakesKeywordsWithBlanks)
{
    Start("40", "", SimFolderWithBlanks());
    EXPECT_EQ(FullPath(AOLPath), FullPath(SimFolderWithBlanks()));
    GetAOLVersion();
    EXPECT_EQ(AOLVersion, "4");
    RunAOLKeyword("People Connection");
    EXPECT_TRUE(sim_.WaitForLine("keywords", "People Connection"));
}

TEST_F(AOLSim, StartingAOLReportsItsStepsAndFindsTheMainWindow)
{
    ASSERT_TRUE(WriteSetting(Setting::AOLPath, FullPath(SimFolder() + "aol40")));
    std::string steps;
    const LoadingProgress progress = [&](const std::string& status, int percent) {
        steps += std::to_string(percent) + (status.empty() ? "" : " " + status) + ";";
    };
    AOLWindow = nullptr;
    ASSERT_TRUE(StartAOL(progress, nullptr));
    EXPECT_EQ(steps, "5;10;15;20 Starting America Online;");
    ASSERT_NE(AOLWindow, nullptr);
    EXPECT_NE(AOLMDIClient, nullptr);
    EXPECT_EQ(FullPath(AOLPath), FullPath(SimFolder() + "aol40"));

    steps.clear();
    ASSERT_TRUE(AOLIsRunning(progress));
    EXPECT_EQ(steps, "5;10;15;20 Starting America Online;25 America Online Loaded;");
    EXPECT_EQ(FullPath(ReadSetting(Setting::AOLPath)), FullPath(SimFolder() + "aol40"));

    RunAOLKeyword("prismo");
    EXPECT_TRUE(PumpUntil([&] { return sim_.Ctl("keywords").find("prismo") != std::string::npos; },
                          10000));
    Ctl({"kill"});
}

TEST_F(AOLSim, ASixteenBitAOLIsRefused)
{
    TestProcess impostor("\"" + TestFolder() + "..\\hook\\sbctarget.exe\" 5 \"AOL FRAME25\"");
    ASSERT_NE(WaitForProcessWindow("AOL FRAME25", impostor.Id()), nullptr);
    EXPECT_FALSE(AOLIsRunning(nullptr));
    EXPECT_NE(messages_.find("A 16 bit version of AOL is currently running!"), std::string::npos);
}

// AOL's program is looked for among all modules of the window's process.
TEST_F(AOLSim, AOLsProgramIsLookedForAmongAllModulesOfTheProcess)
{
    HWND mine = CreateWindowA("STATIC", "", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(mine, nullptr);
    EXPECT_EQ(WindowProgramPath(mine), "");
    const std::string waol = SimFolder() + "aol40\\waol.exe";
    HMODULE module = LoadLibraryExA(waol.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(FullPath(WindowProgramPath(mine)), FullPath(waol));
    FreeLibrary(module);
    DestroyWindow(mine);
}

TEST_F(AOLSim, ProgramMenuTakesItsPlaceAndRunsItsCommands)
{
    char folder[MAX_PATH];
    GetTempPathA(sizeof folder, folder);
    const std::string log = std::string(folder) + "aolmenu.log";
    DeleteFileA(log.c_str());
    for (int menus : {5, 8}) {
        Start("40", "--menus " + std::to_string(menus) + " --log \"" + log + "\"");
        AddMenuToAOL();
        std::vector<std::string> bar = BarMenus(sim_.Ctl("menu"));
        ASSERT_EQ(bar.size(), static_cast<size_t>(menus + 1));
        EXPECT_EQ(bar[menus == 5 ? 5 : 7], "Prism&o");

        EXPECT_TRUE(RunMenuByString(AOLWindow, "&options", true));
        EXPECT_FALSE(RunMenuByString(AOLWindow, "Options", false));

        RemoveMenuFromAOL();
        const std::string after = sim_.Ctl("menu");
        EXPECT_EQ(BarMenus(after).size(), static_cast<size_t>(menus));
        RemoveMenuFromAOL();
        EXPECT_EQ(sim_.Ctl("menu"), after);
        sim_.Stop();
    }
    std::ifstream file(log, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    size_t count = 0;
    for (size_t at = 0; (at = text.find("command\t60001", at)) != std::string::npos; ++at) ++count;
    EXPECT_EQ(count, 2u);
}

// With a room maximised the program's menu still goes right after AOL's last
// (or seventh) menu, the room's buttons stay last, and the edition is read.
TEST_F(AOLSim, ProgramMenuAndEditionWithAMaximisedRoom)
{
    for (const Edition e : {Edition{"40", "uk", true, false, false}, Edition{"40", "ca", false, true, false}}) {
        for (int menus : {5, 7, 8}) {
            SCOPED_TRACE(std::string(e.edition) + " " + std::to_string(menus));
            Start(e.version, std::string("--edition ") + e.edition + " --menus " + std::to_string(menus) +
                                 " --room Lobby");
            ASSERT_EQ(sim_.Ctl("maximize room"), "");
            AOLVersion = "4";
            DetectAOLEdition();
            EXPECT_EQ(AOLEdition.UK, e.uk);
            EXPECT_EQ(AOLEdition.Canada, e.canada);

            AddMenuToAOL();
            const std::vector<std::string> bar = BarMenus(sim_.Ctl("menu"));
            ASSERT_EQ(bar.size(), static_cast<size_t>(menus + 5));
            EXPECT_EQ(bar.front(), "(system menu)");
            EXPECT_EQ(bar[menus == 8 ? 8 : menus + 1], "Prism&o");
            EXPECT_EQ(std::vector<std::string>(bar.end() - 3, bar.end()),
                      (std::vector<std::string>{"(minimize)", "(restore)", "(close)"}));
            sim_.Stop();
        }
    }
}

TEST_F(AOLSim, AOL5SignOnIsReadFromTheMenusWithAMaximisedRoom)
{
    Start("50", "--signed-on \"Zun Tester\" --room Lobby");
    ASSERT_EQ(sim_.Ctl("maximize room"), "");
    GetAOLVersion();
    ASSERT_EQ(AOLVersion, "5");
    EXPECT_TRUE(IsAOLOnline(false));
    sim_.Ctl("sign-off");  // closes the room
    sim_.Ctl("open-room Lobby");
    ASSERT_EQ(sim_.Ctl("maximize room"), "");
    EXPECT_FALSE(IsAOLOnline(false));
}

class RichText : public ::testing::Test {
protected:
    void SetUp() override
    {
        owner_ = CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    }
    void TearDown() override { DestroyWindow(owner_); }
    HWND owner_ = nullptr;
};

TEST_F(RichText, AOLMailRoundTripsUpToItsLimit)
{
    const std::string spaced = "  <B>Hi</B>  ";
    PutRichText(owner_, spaced);
    EXPECT_EQ(GetRichText(owner_), spaced);

    const std::string longest(29999, 'x');
    PutRichText(owner_, longest);
    EXPECT_EQ(GetRichText(owner_), longest);
    PutRichText(owner_, longest + "y");
    EXPECT_EQ(GetRichText(owner_), "");

    PutRichText(owner_, "");
    EXPECT_EQ(GetRichText(owner_), "");
}

TEST_F(RichText, AOLMailIsTheOnlyFormatAfterWritingAndPlainTextIsNotRead)
{
    ASSERT_TRUE(OpenClipboard(owner_));
    EmptyClipboard();
    HGLOBAL plain = GlobalAlloc(GMEM_MOVEABLE, 6);
    memcpy(GlobalLock(plain), "plain", 6);
    GlobalUnlock(plain);
    SetClipboardData(CF_TEXT, plain);
    CloseClipboard();
    EXPECT_EQ(GetRichText(owner_), "");

    PutRichText(owner_, "<I>x</I>");
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_TEXT));
    EXPECT_TRUE(IsClipboardFormatAvailable(RegisterClipboardFormatA("AOLMAIL")));
}

TEST_F(AOLSim, AOLMailPastesIntoAMailWithItsTags)
{
    Start("40", "--mail");
    HWND body = sim_.Handle("mail-body");
    ASSERT_NE(body, nullptr);
    HWND owner = CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    PutRichText(owner, "<B>bold</B> and <I>slanted</I>");
    SendMessageA(body, WM_COMMAND, 20003, 0);
    const std::string mail = sim_.Ctl("mail-body");
    EXPECT_NE(mail.find("<B>bold</B>"), std::string::npos) << mail;
    EXPECT_NE(mail.find("<I>slanted</I>"), std::string::npos) << mail;
    DestroyWindow(owner);
}

}  // namespace
