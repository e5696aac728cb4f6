// One thing at a time beside the AOL simulator: a command, an advertisement
// or a watcher tick asked for while another one waits is not run inside that
// wait. What the room receives, what is stored and which windows come show it.
#include <gtest/gtest.h>

#include <vector>

#include "AdvertText.h"
#include "ChatLiveFixture.h"

using namespace ChatLive;

namespace {

class ChatNestingTest : public ChatLiveTest {
protected:
    // Typed straight into AOL's chat input's queue in one go, Enter last.
    void TypeAndEnter(const std::string& text)
    {
        HWND input = sim_.Handle("input");
        for (char c : text) PostMessageA(input, WM_CHAR, static_cast<unsigned char>(c), 0);
        PostMessageA(input, WM_CHAR, 13, 0);
    }
};

TEST_F(ChatNestingTest, DoubleClickOnTheSendIconPostsOneAdvertisement)
{
    Start();
    const size_t before = Posted();
    sim_.Ctl("type /adv");
    HWND send = sim_.Handle("send");
    for (int click = 0; click < 2; ++click) {
        PostMessageA(send, WM_LBUTTONDOWN, MK_LBUTTON, 0);
        PostMessageA(send, WM_LBUTTONUP, 0, 0);
    }
    ASSERT_TRUE(AdvertDone(before));
    EXPECT_EQ(PostedSince(before), ExpectedAdvert());
    // A second "/adv" while the first one runs is ignored as well.
    const size_t second = Posted();
    ASSERT_TRUE(AdvertStarted(second));
    AdvertStarted(second);
    ASSERT_TRUE(AdvertDone(second));
    EXPECT_EQ(PostedSince(second), ExpectedAdvert());
}

// AOL's close box, or the program's own Exit, during an advertisement: the
// advertisement stops at once and the program ends quietly; AOL closes only
// when it was asked to.
TEST_F(ChatNestingTest, ClosingAOLOrExitingDuringAnAdvertisementEndsPrismoWithoutAMessage)
{
    for (bool closeAOL : {true, false}) {
        Start();
        const size_t before = Posted();
        ASSERT_TRUE(AdvertStarted(before));
        if (closeAOL)
            sim_.Ctl("quit");
        else
            PostMessageA(sim_.Frame(), WM_COMMAND, 60005, 0);  // Prism&o, Exit Prismo
        const HWND box = MessageOrEnd();
        EXPECT_EQ(box, nullptr) << closeAOL << ": a message box came: " << WindowText(box);
        EXPECT_EQ(prismo_.Wait(10000), 0) << closeAOL;
        EXPECT_EQ(sim_.WaitExit(10000), closeAOL);
        if (!closeAOL) {
            EXPECT_FALSE(ProgramMenuShown());
            EXPECT_LT(PostedSince(before).size(), 5u) << "the advertisement stops";
        }
        TearDown();
        SetUp();
    }
}

TEST_F(ChatNestingTest, OnOrOffChosenDuringAnAdvertisementWins)
{
    Start();
    // Off before: "/fadeon" typed during the advertisement turns the fader
    // on for what follows, and the remaining lines still go out unfaded.
    Send("/fadeoff");
    ASSERT_TRUE(Stored("Fader On", "False"));
    size_t before = Posted();
    ASSERT_TRUE(AdvertStarted(before));
    TypeAndEnter("/fadeon");
    ASSERT_TRUE(Stored("Fader On", "True"));
    ASSERT_TRUE(AdvertDone(before));
    EXPECT_EQ(PostedSince(before), ExpectedAdvert());
    EXPECT_EQ(Send("after on"), Faded("after on"));

    // On before: the panel's Off pressed during the advertisement stays.
    before = Posted();
    ASSERT_TRUE(AdvertStarted(before));
    PostMessageA(panel_, WM_COMMAND, IDC_CT_OFF, 0);
    ASSERT_TRUE(Stored("Fader On", "False"));
    ASSERT_TRUE(AdvertDone(before));
    EXPECT_EQ(PostedSince(before), ExpectedAdvert());
    EXPECT_EQ(Send("after off"), "after off\n");
}

// The program's watcher reads the signed-on name from AOL's Welcome window;
// AOL 5.0 without one is asked for it by keyword and waited on for up to 10
// seconds. Here the window stays under another caption, so the first tick
// waits all that time, with the timer firing meanwhile.
TEST_F(ChatNestingTest, TheWatcherNeverTicksInsideItsOwnWait)
{
    ASSERT_TRUE(sim_.Start("50", "--signed-on \"Zun Tester\""));
    HWND welcome = FindWindowExA(sim_.Mdi(), nullptr, "AOL Child", "Welcome, Zun Tester!");
    ASSERT_TRUE(welcome);
    SetWindowTextA(welcome, "Hello, Zun Tester!");
    ASSERT_TRUE(prismo_.Start("\"" + Prismo() + "\""));
    const auto welcomeRuns = [&] {
        int runs = 0;
        for (const std::string& keyword : Lines(sim_.Ctl("keywords"))) runs += keyword == "welcome";
        return runs;
    };
    ASSERT_TRUE(PumpUntil([&] { return welcomeRuns() > 0; }, 60000)) << "the watcher never asked";
    const long ticks = WatcherTicks(prismo_.Id());
    EXPECT_TRUE(PumpUntil([&] { return WatcherTicks(prismo_.Id()) > ticks; }, 30000))
        << "the tick that waits never ended";
    EXPECT_EQ(welcomeRuns(), 1);
}

}  // namespace
