// prismo.exe starting against AOL as members meet it: a late or missing Sign
// On screen, a closed Welcome window, and a folder with blanks in its name.
#include <windows.h>

#include <gtest/gtest.h>

#include <set>

#include "ChatLiveFixture.h"

using namespace ChatLive;

namespace {

bool ProgramMenuInAOL() { return Ctl({"menu"}).out.find("Prism&o") != std::string::npos; }

class StartupSession : public ChatLiveTest {
protected:
    // Starts Prismo until its menu is in AOL's or it shows a message; returns
    // the message, "" when start-up went through. `steps_` gets every status.
    std::string StartPrismo(DWORD ms = 90000)
    {
        EXPECT_TRUE(prismo_.Start("\"" + Prismo() + "\""));
        std::string message;
        PumpUntil(
            [&] {
                if (HWND loading = WindowWithChild(prismo_.Id(), IDC_LD_BAR))
                    steps_.insert(WindowText(GetDlgItem(loading, IDC_LD_BAR)));
                if ((box_ = WindowWithChild(prismo_.Id(), IDC_MSG_AREA)) != nullptr) {
                    message = WindowText(GetDlgItem(box_, IDC_MSG_AREA));
                    return true;
                }
                return WatcherTicks(prismo_.Id()) > 0 && ProgramMenuInAOL();
            },
            ms);
        return message;
    }

    // True once the watcher has ticked `count` more times.
    bool TicksPass(long count)
    {
        const long from = WatcherTicks(prismo_.Id());
        return PumpUntil([&] { return WatcherTicks(prismo_.Id()) >= from + count; }, 20000);
    }

    // The Welcome window closed as a member closes it, by its close box.
    void CloseWelcome()
    {
        HWND welcome = FindWindowExA(sim_.Mdi(), nullptr, "AOL Child", "Welcome, Zun Tester!");
        ASSERT_NE(welcome, nullptr);
        PostMessageA(welcome, WM_CLOSE, 0, 0);
        ASSERT_TRUE(PumpUntil([&] { return !IsWindow(welcome); }, 5000));
    }

    std::set<std::string> steps_;
    HWND box_ = nullptr;
};

TEST_F(StartupSession, ASignOnScreenEightSecondsLateIsWaitedFor)
{
    ASSERT_TRUE(sim_.Start("40", "--signon-delay 8 --screen-names \"Ann Lee,Guest\""));
    ASSERT_EQ(FindWindowExA(sim_.Mdi(), nullptr, "AOL Child", "Sign On"), nullptr);
    EXPECT_EQ(StartPrismo(), "");
    EXPECT_EQ(steps_.count("Master Screen Name: Ann Lee"), 1u);
    EXPECT_NE(FindWindowExA(sim_.Mdi(), nullptr, "AOL Child", "Sign On"), nullptr);
}

TEST_F(StartupSession, NoSignOnScreenInThreeRoundsOfTenSecondsEndsTheProgram)
{
    ASSERT_TRUE(sim_.Start("40", "--signon-delay 40"));
    const DWORD start = GetTickCount();
    const std::string message = StartPrismo();
    const DWORD waited = GetTickCount() - start;
    EXPECT_EQ(message, "Prismo timed out waiting for America Online to load.~N ~NPlease start America Online "
                       "first and then start Prismo");
    EXPECT_GE(waited, 30000u) << "three rounds of ten seconds each";
    ASSERT_TRUE(box_);
    PostMessageA(GetDlgItem(box_, IDC_MSG_CMD0), BM_CLICK, 0, 0);
    EXPECT_EQ(prismo_.Wait(15000), 0) << "the program ends after the message";
    EXPECT_FALSE(ProgramMenuInAOL());
}

TEST_F(StartupSession, SignedOnWithTheWelcomeWindowClosed)
{
    ASSERT_TRUE(sim_.Start("40", "--signed-on \"Zun Tester\" --room Lobby"));
    CloseWelcome();
    ASSERT_EQ(StartPrismo(), "");
    // Prismo never saw the sign-on list: it knows the name signed on, not
    // which is the master. AOL showed its Welcome window again to tell it.
    EXPECT_EQ(steps_.count("Signed On As: Zun Tester"), 1u);
    EXPECT_EQ(steps_.count("Master Screen Name: Zun Tester"), 0u);
    EXPECT_EQ(CtlLines({"keywords"}), std::vector<std::string>{"welcome"});

    // The watcher takes the names in once for the session: closed again, the
    // Welcome window is not asked for again tick after tick.
    ASSERT_TRUE(TicksPass(1));
    CloseWelcome();
    ASSERT_TRUE(TicksPass(3));
    EXPECT_EQ(CtlLines({"keywords"}), std::vector<std::string>{"welcome"});

    // A command for signed-on members only: the advertisement goes out.
    ASSERT_TRUE(Hooked());
    Send("/adv");
    EXPECT_TRUE(PumpUntil([&] { return Lines(sim_.Ctl("transcript")).size() >= 5; }, 20000))
        << sim_.Ctl("transcript");
}

TEST_F(StartupSession, AOLInAFolderWithBlanksIsStartedAndTakesAKeywordWithBlanks)
{
    FreshSettings(SimFolderWithBlanks());
    ASSERT_EQ(StartPrismo(), "");
    HWND frame = FindWindowA("AOL FRAME25", nullptr);
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(WindowText(frame), "America  Online");
    EXPECT_EQ(steps_.count("Master Screen Name: Zun Tester"), 1u);

    ASSERT_EQ(Ctl({"open-room", "Lobby"}).status, 0);
    ASSERT_TRUE(Hooked());
    Send("/People Connection");
    EXPECT_TRUE(PumpUntil([] { return Ctl({"keywords"}).out == "People Connection\n"; }, 10000))
        << Ctl({"keywords"}).out;
    EXPECT_EQ(Ctl({"transcript"}).out, "") << "a command never reaches the room";
    Ctl({"kill"});
}

}  // namespace
