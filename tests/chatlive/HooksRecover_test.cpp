// The hooks recover from what a real session brings: a program that answers
// AOL late once, an attach that fails. And every end takes prismosbc.dll out
// of AOL's process: menu Exit and Abort in the error report.
#include <cstdio>

#include "ChatLiveFixture.h"
#include "HookModules.h"

using namespace ChatLive;

namespace {

class HooksRecover : public ChatLiveTest {
protected:
    // Sent, so it returns only once the program answers its messages again.
    long Ask(const char* message, WPARAM wParam = 0) { return AskSession(prismo_.Id(), message, wParam); }
    long Ticks() { return Ask(kWatcherTicksMessage); }
    // The three hooks, as the DLL inside AOL tells the program: each still
    // hands its messages on.
    bool AllLive() { return Ask(kTestHooksLiveMessage) == 7; }
    // Once the program has ended: its menu and DLL are gone from AOL, whose chat goes on unhooked.
    void LeftAOL()
    {
        EXPECT_FALSE(ProgramMenuShown());
        EXPECT_TRUE(PumpUntil([&] { return !ProcessHoldsModule(sim_.Id(), "prismosbc.dll"); }, 5000))
            << "prismosbc.dll stays in AOL";
        EXPECT_EQ(Send("unhooked"), "unhooked\n");
    }

    // After a recovery: a line goes out faded, "/fadeoff" works, and menu Exit leaves AOL.
    void WorksAndExitsCleanly()
    {
        EXPECT_EQ(Send("after it"), Faded("after it"));
        EXPECT_EQ(Send("/fadeoff"), "");
        EXPECT_TRUE(Stored("Fader On", "False"));
        EXPECT_EQ(Send("plain"), "plain\n");
        EXPECT_TRUE(ExitPrismo());
        LeftAOL();
    }
};

TEST_F(HooksRecover, AfterOneLateAnswerTheHooksListenAgainWithinTwoTicks)
{
    Start();
    ASSERT_TRUE(AllLive());
    Ask(kTestHoldMessage, 3000);
    sim_.Ctl("type x");  // AOL waits for us, gives up, and types the x itself
    const long answeredAt = Ticks();
    const DWORD answered = GetTickCount();
    EXPECT_EQ(Input(), "x\nvisible\n");
    ASSERT_TRUE(PumpUntil([&] { return AllLive(); }, 5000)) << Ask(kTestHooksLiveMessage);
    const DWORD recovered = GetTickCount() - answered;
    EXPECT_LE(Ticks() - answeredAt, 2);
    std::printf("recovered %lu ms after the program answered again\n", static_cast<unsigned long>(recovered));
    sim_.Ctl("key backspace");
    WorksAndExitsCleanly();
}

TEST_F(HooksRecover, AnAttachThatFailedIsTriedAgainOnTheNextTick)
{
    Start();
    sim_.Ctl("close-room");
    ASSERT_TRUE(PumpUntil([&] { return sim_.Ctl("subclassed").find("input") == std::string::npos; }, 5000));
    Ask(kTestFailAttachMessage, 2);  // both send hooks of the next room fail once
    sim_.Ctl("open-room \"Lobby\"");
    ASSERT_TRUE(Hooked()) << sim_.Ctl("subclassed");
    ASSERT_TRUE(AllLive());
    WorksAndExitsCleanly();
}

// A chat input hook let go of on purpose (as while several lines are sent)
// stays off through the watcher's ticks, and comes back when resumed.
TEST_F(HooksRecover, AChatInputHookHeldOffStaysOffUntilResumed)
{
    Start();
    Ask(kTestHoldOffChatInputMessage, 1);
    const long heldAt = Ticks();
    ASSERT_TRUE(PumpUntil([&] { return Ticks() >= heldAt + 3; }, 10000));
    EXPECT_EQ(Ask(kTestHooksLiveMessage), 6) << "only the send icon and the menu are hooked";
    EXPECT_EQ(sim_.Ctl("subclassed").find("input\tsubclassed\n"), std::string::npos);
    EXPECT_EQ(Send("held"), "held\n");
    Ask(kTestHoldOffChatInputMessage, 0);
    EXPECT_TRUE(AllLive());
    EXPECT_EQ(Send("resumed"), Faded("resumed"));
}

// Abort in the error report of a failing hook handler: the report comes once
// AOL has gone on with the message, and the program leaves AOL as menu Exit does.
TEST_F(HooksRecover, AbortInTheErrorReportTakesTheProgramOutOfAOL)
{
    Start();
    Ask(kTestFailMenuHookMessage);
    PostMessageA(sim_.Frame(), WM_COMMAND, 61000, 0);  // a command nobody carries out
    HWND report = nullptr;
    ASSERT_TRUE(PumpUntil([&] { return (report = WindowWithChild(prismo_.Id(), IDC_ERR_ABORT)) != nullptr; }, 10000));
    const std::string details = WindowText(GetDlgItem(report, IDC_ERR_DETAILS));
    EXPECT_NE(details.find("Procedure: sbcMenu_WndMessageX"), std::string::npos) << details;
    EXPECT_NE(details.find("Module: frmChatTools"), std::string::npos) << details;
    EXPECT_TRUE(ProgramMenuShown()) << "AOL answers while the report is up";
    PostMessageA(report, WM_COMMAND, MAKEWPARAM(IDC_ERR_ABORT, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(report, IDC_ERR_ABORT)));
    EXPECT_EQ(prismo_.Wait(10000), 0);
    LeftAOL();
}

}  // namespace
