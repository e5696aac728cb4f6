// The chat fader end to end: prismo.exe beside the AOL simulator, typed into
// through aolsimctl as a person types. What reaches the room is compared with
// prismo-fade's output for the same scheme.
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "AdvertText.h"
#include "ChatLiveFixture.h"

using namespace ChatLive;

namespace {

TEST_F(ChatLiveTest, LinesGoOutFadedAndCommandsDriveTheProgram)
{
    Start();
    // A plain line leaves exactly as the fade engine makes it; the input is
    // empty and on view again.
    const std::string line = "Hello from Prismo, faded!";
    EXPECT_EQ(Send(line), Faded(line));
    EXPECT_EQ(Input(), "\nvisible\n");
    EXPECT_EQ(Send("by the icon", true), Faded("by the icon"));
    EXPECT_EQ(Input(), "\nvisible\n");

    // Blank lines are never touched; "/a/b" is chat, unfaded.
    EXPECT_EQ(Send("   "), "");
    EXPECT_EQ(Input(), "   \nvisible\n") << "AOL keeps a blank line in the input";
    for (int i = 0; i < 3; ++i) sim_.Ctl("key backspace");
    EXPECT_EQ(Send("/a/b"), "/a/b\n");

    // Commands: nothing reaches the room, the input is left empty.
    const std::vector<std::pair<std::string, bool>> switches{
        {"/fade off", false}, {"/FADEON", true}, {"/fadeoff", false}, {"/Fade On", true}};
    for (const auto& [command, on] : switches) {
        EXPECT_EQ(Send(command), "") << command;
        EXPECT_EQ(Input(), "\nvisible\n") << command;
        EXPECT_TRUE(Stored("Fader On", on ? "True" : "False")) << command;
        EXPECT_EQ(Send("plain <b>text</b>"), on ? Faded("plain <b>text</b>") : "plain <b>text</b>\n") << command;
    }
    EXPECT_TRUE(PanelVisible()) << "inside a hooked room the panel stays";

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
        const size_t before = Posted();
        ASSERT_TRUE(AdvertStarted(before));
        ASSERT_TRUE(AdvertDone(before));
        EXPECT_EQ(PostedSince(before), ExpectedAdvert()) << "fader " << faderOn;
        EXPECT_EQ(Input(), "\nvisible\n");
        // The fader is as it was: the next line is faded only when it was on.
        EXPECT_EQ(Send("after the ad"), faderOn ? Faded("after the ad") : "after the ad\n");
    }
    EXPECT_EQ(Option("", "Fader On"), "False") << "the advertisement never stores the fader";
}

TEST_F(ChatLiveTest, WithoutChatKeywordsEnterFadesASlashLineButTheIconRunsIt)
{
    SetOption("Options", "Use Chat KW", "False");
    Start();
    EXPECT_EQ(Send("/help"), Faded("/help"));
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
    EXPECT_EQ(Send("new room"), Faded("new room"));
}

TEST_F(ChatLiveTest, WithoutShowPanelWithChatThePanelStaysAsItWas)
{
    SetOption("Options", "ShowFadePanelWithChat", "False");
    Start("");
    ASSERT_FALSE(PanelVisible());  // without a room it waits hidden
    sim_.Ctl("open-room \"Lobby\"");
    ASSERT_TRUE(Hooked());
    EXPECT_FALSE(PanelVisible());
    EXPECT_EQ(Send("hooked anyway"), Faded("hooked anyway"));
}

// AOL closes through its own close, cleanly, once the program has let go.
TEST_F(ChatLiveTest, ClosingAOLUnhooksUnloadsAndThenLetsAOLClose)
{
    for (int way = 0; way < 2; ++way) {
        const std::string log = TempFile("prismo-close.log");
        Start("--room \"Town Square\" --log \"" + log + "\"");
        HWND frame = sim_.Frame();
        HANDLE aol = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, sim_.Id());
        const DWORD asked = GetTickCount();
        if (way == 0)
            sim_.Ctl("quit");  // the close box
        else
            PostMessageA(frame, WM_COMMAND, 8207, 0);  // File, Exit
        // The program's menu leaves AOL's menu bar before AOL goes.
        EXPECT_TRUE(PumpUntil([&] { return !ProgramMenuShown(); }, 10000)) << way;
        EXPECT_TRUE(IsWindow(frame)) << way;
        EXPECT_EQ(prismo_.Wait(8000), 0) << way;
        PumpUntil([&] { return !IsWindow(frame); }, 8000);
        const DWORD closed = GetTickCount() - asked;
        EXPECT_FALSE(IsWindow(frame)) << way;
        EXPECT_GE(closed, 1400u) << way << ": AOL is held back while the program unloads";
        DWORD code = 1;
        WaitForSingleObject(aol, 10000);
        GetExitCodeProcess(aol, &code);
        CloseHandle(aol);
        EXPECT_EQ(code, 0u) << way << ": AOL ended by a fault";
        // After the close only AOL's own windows closing are logged.
        const std::vector<std::string> lines = Lines(ReadTextFile(log));
        const auto quit = std::find(lines.begin(), lines.end(), "quit");
        ASSERT_NE(quit, lines.end()) << way;
        for (auto line = quit + 1; line != lines.end(); ++line) EXPECT_EQ(line->rfind("close\t", 0), 0u) << *line;
        TearDown();
        SetUp();
    }
}

TEST_F(ChatLiveTest, ProgramMenuAdvertisesAndExits)
{
    Start();
    const size_t before = Posted();
    PostMessageA(sim_.Frame(), WM_COMMAND, 60002, 0);  // Prism&o, Advertise
    ASSERT_TRUE(AdvertDone(before));
    EXPECT_EQ(PostedSince(before), ExpectedAdvert());
    EXPECT_TRUE(ExitPrismo());
    EXPECT_FALSE(ProgramMenuShown());
    EXPECT_TRUE(IsWindow(sim_.Frame())) << "AOL stays when only Prismo exits";
    EXPECT_EQ(Send("unhooked"), "unhooked\n") << "AOL's chat goes on unhooked";
}

TEST_F(ChatLiveTest, AOLVanishingEndsTheProgramOnTheNextTick)
{
    Start();
    sim_.Ctl("kill");
    EXPECT_EQ(prismo_.Wait(20000), 0);
}

}  // namespace
