// The chat fader end to end: prismo.exe beside the AOL simulator, typed into
// through aolsimctl as a person types. What reaches the room is compared with
// prismo-fade's output for the same scheme.
#include <gtest/gtest.h>

#include <vector>

#include "AdvertText.h"
#include "ChatLive.h"
#include "resource.h"

using namespace ChatLive;

namespace {

std::vector<std::string> Lines(const std::string& text)
{
    std::vector<std::string> lines;
    size_t start = 0;
    for (size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
        lines.push_back(text.substr(start, end - start));
    return lines;
}

class ChatLiveTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        EndEveryAOL();
        FreshSettings(SimFolder() + "aol40");
    }
    void TearDown() override
    {
        prismo_.Kill();
        sim_.Stop();
        EndEveryAOL();
    }

    // AOL signed on in a room, then Prismo, until its watcher has hooked the room.
    void Start(const std::string& simOptions = "--room \"Town Square\"")
    {
        ASSERT_TRUE(sim_.Start("40", "--signed-on \"Zun Tester\" " + simOptions));
        ASSERT_TRUE(prismo_.Start("\"" + Prismo() + "\""));
        PumpUntil([&] { return (panel_ = WindowWithChild(prismo_.Id(), IDC_CT_PREVIEW, false)) != nullptr; },
                  60000);
        ASSERT_TRUE(panel_) << "the control panel never came";
        const bool room = simOptions.find("--room") != std::string::npos;
        ASSERT_TRUE(Hooked(room)) << sim_.Ctl("subclassed");
    }

    // True once the program's hooks sit on AOL's main window and, with
    // `room`, on the room's chat input and send icon.
    bool Hooked(bool room = true)
    {
        return PumpUntil(
            [&] {
                const std::string hooks = sim_.Ctl("subclassed");
                return hooks.find("frame\tsubclassed\n") != std::string::npos &&
                       (!room || (hooks.find("input\tsubclassed\n") != std::string::npos &&
                                  hooks.find("send\tsubclassed\n") != std::string::npos));
            },
            20000);
    }

    // Types `text` and sends it with Enter (or the icon); returns what the
    // room received. The hooks decide while AOL waits, so whatever the send
    // puts into the room is there once aolsimctl has had AOL handle it.
    std::string Send(const std::string& text, bool byIcon = false)
    {
        const size_t before = Lines(sim_.Ctl("transcript")).size();
        if (!text.empty()) sim_.Ctl("type \"" + text + "\"");
        sim_.Ctl(byIcon ? "click-send" : "key enter");
        const std::vector<std::string> after = Lines(sim_.Ctl("transcript"));
        std::string got;
        for (size_t i = before; i < after.size(); ++i) got += after[i] + "\n";
        return got;
    }

    std::string Input() { return sim_.Ctl("input"); }
    // A command runs right after the send that asked for it: wait for what it stores.
    bool Stored(const std::string& name, const std::string& value)
    {
        return PumpUntil([&] { return Option("", name) == value; }, 5000);
    }
    bool PanelVisible() { return IsWindowVisible(panel_) != 0; }
    bool KeywordSeen(const std::string& keyword)
    {
        return PumpUntil([&] { return sim_.Ctl("keywords").find(keyword + "\n") != std::string::npos; }, 5000);
    }

    SimAOL sim_;
    TestProcess prismo_;
    HWND panel_ = nullptr;
};

TEST_F(ChatLiveTest, LinesGoOutFadedAndCommandsDriveTheProgram)
{
    Start();
    // A plain line leaves exactly as the fade engine makes it; the input is
    // empty and on view again.
    const std::string line = "Hello from Prismo, faded!";
    EXPECT_EQ(Send(line), FadedByCli("Cool Fade", line) + "\n");
    EXPECT_EQ(Input(), "\nvisible\n");
    EXPECT_EQ(Send("by the icon", true), FadedByCli("Cool Fade", "by the icon") + "\n");
    EXPECT_EQ(Input(), "\nvisible\n");

    // Blank lines are never touched; "/a/b" is chat, unfaded.
    EXPECT_EQ(Send("   "), "");
    EXPECT_EQ(Input(), "   \nvisible\n") << "AOL keeps a blank line in the input";
    for (int i = 0; i < 3; ++i) sim_.Ctl("key backspace");
    EXPECT_EQ(Send("/a/b"), "/a/b\n");

    // Commands: nothing reaches the room, the input is left empty.
    EXPECT_EQ(Send("/fade off"), "");
    EXPECT_EQ(Input(), "\nvisible\n");
    EXPECT_TRUE(Stored("Fader On", "False"));
    EXPECT_TRUE(PanelVisible()) << "inside a hooked room the panel stays";
    EXPECT_EQ(Send("plain <b>text</b>"), "plain <b>text</b>\n");
    EXPECT_EQ(Send("/FADEON"), "");
    EXPECT_TRUE(Stored("Fader On", "True"));
    EXPECT_EQ(Send("/fadeoff"), "");
    EXPECT_TRUE(Stored("Fader On", "False"));
    EXPECT_EQ(Send("/Fade On"), "");
    EXPECT_TRUE(Stored("Fader On", "True"));
    EXPECT_EQ(Send("x"), FadedByCli("Cool Fade", "x") + "\n");

    // Any other word, and a web address, is an AOL keyword.
    EXPECT_EQ(Send("/fade-on"), "");
    EXPECT_TRUE(KeywordSeen("fade-on"));
    EXPECT_EQ(Send("/http://www.aol.com/x"), "");
    EXPECT_TRUE(KeywordSeen("http://www.aol.com/x"));

    // /hide and /show act on the panel.
    Send("/hide");
    EXPECT_TRUE(PumpUntil([&] { return !PanelVisible(); }, 3000));
    Send("/show");
    EXPECT_TRUE(PumpUntil([&] { return PanelVisible(); }, 3000));
}

TEST_F(ChatLiveTest, AdvertisementGoesOutUnfadedAndLeavesTheFaderAsItWas)
{
    Start();
    for (bool faderOn : {true, false}) {
        if (!faderOn) {
            Send("/fadeoff");
            ASSERT_TRUE(Stored("Fader On", "False"));
        }
        const size_t before = Lines(sim_.Ctl("transcript")).size();
        sim_.Ctl("type /adv");
        sim_.Ctl("key enter");
        PumpUntil([&] { return Lines(sim_.Ctl("transcript")).size() >= before + 5; }, 15000);
        // The advertisement ends with a pause after its last line and only
        // then gives the fader back.
        ASSERT_TRUE(PumpUntil([&] { return !CommandRunning(prismo_.Id()); }, 15000));
        const std::vector<std::string> all = Lines(sim_.Ctl("transcript"));
        const std::vector<std::string> posted(all.begin() + static_cast<long>(before), all.end());
        EXPECT_EQ(posted, ExpectedAdvert()) << "fader " << faderOn;
        EXPECT_EQ(Input(), "\nvisible\n");
        // The fader is as it was: the next line is faded only when it was on.
        const std::string next = Send("after the ad");
        EXPECT_EQ(next, (faderOn ? FadedByCli("Cool Fade", "after the ad") : "after the ad") + "\n");
    }
    EXPECT_EQ(Option("", "Fader On"), "False") << "the advertisement never stores the fader";
}

TEST_F(ChatLiveTest, WithoutChatKeywordsEnterFadesASlashLineButTheIconRunsIt)
{
    SetOption("Options", "Use Chat KW", "False");
    Start();
    EXPECT_EQ(Send("/help"), FadedByCli("Cool Fade", "/help") + "\n");
    EXPECT_EQ(Send("/fade-on", true), "");
    EXPECT_TRUE(KeywordSeen("fade-on"));
    EXPECT_EQ(Input(), "\nvisible\n");
    // The fader off: lines go out exactly as typed, the input never hidden.
    Send("/fadeoff", true);
    EXPECT_EQ(Send("as <i>typed</i>"), "as <i>typed</i>\n");
    EXPECT_EQ(Input(), "\nvisible\n");
}

TEST_F(ChatLiveTest, HooksAndPanelFollowTheRoom)
{
    Start();
    ASSERT_TRUE(PanelVisible());
    sim_.Ctl("close-room");
    EXPECT_TRUE(PumpUntil([&] { return !PanelVisible(); }, 5000)) << "the panel shown for the room goes with it";
    sim_.Ctl("open-room \"Lobby\"");
    EXPECT_TRUE(PumpUntil([&] { return PanelVisible(); }, 5000));
    ASSERT_TRUE(Hooked()) << "the new room is hooked";
    EXPECT_EQ(Send("new room"), FadedByCli("Cool Fade", "new room") + "\n");
}

TEST_F(ChatLiveTest, WithoutShowPanelWithChatThePanelStaysAsItWas)
{
    SetOption("Options", "ShowFadePanelWithChat", "False");
    Start("");
    ASSERT_FALSE(PanelVisible());  // without a room it waits hidden
    sim_.Ctl("open-room \"Lobby\"");
    ASSERT_TRUE(Hooked());
    EXPECT_FALSE(PanelVisible());
    EXPECT_EQ(Send("hooked anyway"), FadedByCli("Cool Fade", "hooked anyway") + "\n");
}

TEST_F(ChatLiveTest, ClosingAOLUnhooksUnloadsAndThenLetsAOLClose)
{
    for (int way = 0; way < 2; ++way) {
        Start();
        HWND frame = sim_.Frame();
        const DWORD asked = GetTickCount();
        if (way == 0)
            sim_.Ctl("quit");  // the close box
        else
            PostMessageA(frame, WM_COMMAND, 8207, 0);  // File, Exit
        // The program's menu leaves AOL's menu bar before AOL goes.
        EXPECT_TRUE(PumpUntil([&] { return sim_.Ctl("menu").find("Prism&o") == std::string::npos; }, 10000))
            << way;
        EXPECT_TRUE(IsWindow(frame)) << way;
        EXPECT_EQ(prismo_.Wait(8000), 0) << way;
        PumpUntil([&] { return !IsWindow(frame); }, 8000);
        const DWORD closed = GetTickCount() - asked;
        EXPECT_FALSE(IsWindow(frame)) << way;
        EXPECT_GE(closed, 1400u) << way << ": AOL is held back while the program unloads";
        TearDown();
        SetUp();
    }
}

TEST_F(ChatLiveTest, ProgramMenuAdvertisesAndExits)
{
    Start();
    const size_t before = Lines(sim_.Ctl("transcript")).size();
    PostMessageA(sim_.Frame(), WM_COMMAND, 60002, 0);  // Prism&o, Advertise
    PumpUntil([&] { return Lines(sim_.Ctl("transcript")).size() >= before + 5; }, 15000);
    EXPECT_EQ(Lines(sim_.Ctl("transcript")).size(), before + 5);
    // The advertisement's closing pause ends before Exit is asked for.
    ASSERT_TRUE(PumpUntil([&] { return !CommandRunning(prismo_.Id()); }, 15000));
    PostMessageA(sim_.Frame(), WM_COMMAND, 60005, 0);  // Prism&o, Exit Prismo
    EXPECT_EQ(prismo_.Wait(8000), 0);
    EXPECT_EQ(sim_.Ctl("menu").find("Prism&o"), std::string::npos);
    EXPECT_TRUE(IsWindow(sim_.Frame())) << "AOL stays when only Prismo exits";
    // AOL's chat goes on unhooked.
    EXPECT_EQ(Send("unhooked"), "unhooked\n");
}

TEST_F(ChatLiveTest, AOLVanishingEndsTheProgramOnTheNextTick)
{
    Start();
    sim_.Ctl("kill");
    EXPECT_EQ(prismo_.Wait(20000), 0);
}

}  // namespace
