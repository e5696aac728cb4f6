// The hook on the simulator's chat room, typed into through aolsimctl (so the
// characters come through the input's message queue): the program sees each
// key first, can swallow it or change the line before Enter goes on, gets its
// delayed events after AOL has handled the message, and AOL carries on
// unhurt when the program holding the hooks is killed or hangs.
#include <gtest/gtest.h>

#include <cstdio>

#include "SimHarness.h"
#include "SubClass.h"
#include "modAOLFunctions.h"
#include "modFindChild.h"

namespace {

class SimHook : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(sim_.Start("40", "--room \"Town Square\""));
        input_ = sim_.Handle("input");
        send_ = sim_.Handle("send");
        ASSERT_NE(input_, nullptr);
        ASSERT_NE(send_, nullptr);
    }
    void TearDown() override { sim_.Stop(); }

    std::string Transcript() { return sim_.Ctl("transcript"); }

    // Milliseconds one aolsimctl command takes, and whether it succeeded.
    DWORD Timed(const std::string& command, bool& ok)
    {
        std::string ignored;
        const DWORD start = GetTickCount();
        ok = sim_.Ctl(command, ignored) == 0;
        return GetTickCount() - start;
    }

    SimAOL sim_;
    std::string ignored_;
    HWND input_ = nullptr;
    HWND send_ = nullptr;
};

TEST_F(SimHook, TypedKeysReachTheProgramFirstAndCanBeSwallowed)
{
    SubClass chatEdit;
    std::string seen;
    chatEdit.WndMessageX = [&](HWND, UINT, WPARAM wParam, LPARAM, LRESULT&, bool& noDefault) {
        seen += static_cast<char>(wParam);
        seen += "(" + WindowText(input_) + ")";
        if (wParam == 'x') noDefault = true;
    };
    ASSERT_TRUE(chatEdit.Attach(input_, {WM_CHAR}));
    sim_.Ctl("type axb");
    sim_.Ctl("key enter");
    EXPECT_EQ(seen, "a()x(a)b(a)\r(ab)");
    EXPECT_EQ(Transcript(), "ab\n");
}

TEST_F(SimHook, AHandlerThatRewritesTheLineSendsTheNewLine)
{
    // As the send hook does it: TextToChat focuses the input and puts the
    // new line in while AOL waits for the handler.
    AOLWindow = sim_.Frame();
    AOLMDIClient = FindWindowExA(AOLWindow, nullptr, "MDIClient", nullptr);
    SubClass chatEdit;
    chatEdit.WndMessageX = [&](HWND window, UINT, WPARAM wParam, LPARAM, LRESULT&, bool&) {
        if (wParam == 13) TextToChat("<B>" + WindowText(window) + "</B>", 0);
    };
    ASSERT_TRUE(chatEdit.Attach(input_, {WM_CHAR}));
    sim_.Ctl("type hello");
    sim_.Ctl("key enter");
    EXPECT_EQ(Transcript(), "<B>hello</B>\n");
}

TEST_F(SimHook, ASwallowedEnterCanBeSentAgainThroughTheHookItself)
{
    AOLWindow = sim_.Frame();
    AOLMDIClient = FindWindowExA(AOLWindow, nullptr, "MDIClient", nullptr);
    SubClass chatEdit;
    bool sendingEnter = false;
    int enters = 0;
    chatEdit.WndMessageX = [&](HWND window, UINT, WPARAM wParam, LPARAM, LRESULT& result,
                               bool& noDefault) {
        if (wParam != 13 || sendingEnter) return;
        ++enters;
        noDefault = true;
        result = 0;
        const std::string line = WindowText(window);
        ShowWindow(window, SW_HIDE);
        TextToChat("<I>" + line + "</I>", 0);
        // The Enter comes back into this handler while AOL still waits for it.
        sendingEnter = true;
        SendMessageA(window, WM_CHAR, 13, 0);
        sendingEnter = false;
    };
    ASSERT_TRUE(chatEdit.Attach(input_, {WM_CHAR}));
    sim_.Ctl("type again");
    sim_.Ctl("key enter");
    EXPECT_EQ(Transcript(), "<I>again</I>\n");
    EXPECT_EQ(enters, 1);
}

TEST_F(SimHook, DelayedEventsRunAfterAOLHasHandledTheMessage)
{
    SubClass chatEdit;
    std::vector<std::string> events;
    chatEdit.WndMessageX = [&](HWND, UINT, WPARAM wParam, LPARAM, LRESULT&, bool&) {
        if (wParam != 13) return;
        events.push_back("message " + Transcript());
        chatEdit.PostDelayedEvent(13);
    };
    chatEdit.DelayedEvent = [&](LONG_PTR value) {
        events.push_back("delayed " + std::to_string(value) + " " + Transcript());
    };
    ASSERT_TRUE(chatEdit.Attach(input_, {WM_CHAR}));
    sim_.Ctl("type later");
    sim_.Ctl("key enter");
    ASSERT_TRUE(PumpUntil([&] { return events.size() == 2; }, 5000));
    EXPECT_EQ(events[0], "message ");
    EXPECT_EQ(events[1], "delayed 13 later\n");
}

TEST_F(SimHook, SendIconClicksAndDetachingLeaveAOLAsItWas)
{
    SubClass chatEdit, sendIcon;
    std::string clicks;
    int keys = 0;
    chatEdit.WndMessageX = [&](HWND, UINT, WPARAM, LPARAM, LRESULT&, bool&) { ++keys; };
    sendIcon.WndMessageX = [&](HWND, UINT message, WPARAM, LPARAM, LRESULT&, bool&) {
        clicks += message == WM_LBUTTONDOWN ? "down(" + WindowText(input_) + ")" : "up";
    };
    ASSERT_TRUE(chatEdit.Attach(input_, {WM_CHAR}));
    ASSERT_TRUE(sendIcon.Attach(send_, {WM_LBUTTONDOWN, WM_LBUTTONUP}));
    sim_.Ctl("type one");
    sim_.Ctl("click-send");
    EXPECT_EQ(clicks, "down(one)up");
    EXPECT_EQ(keys, 3);

    ASSERT_TRUE(chatEdit.Attach(nullptr, {}));
    ASSERT_TRUE(sendIcon.Attach(nullptr, {}));
    sim_.Ctl("type two");
    sim_.Ctl("click-send");
    EXPECT_EQ(keys, 3);
    EXPECT_EQ(clicks, "down(one)up");
    EXPECT_EQ(Transcript(), "one\ntwo\n");
}

// The program side in a process of its own (sbcholder.exe), hooked onto the
// chat input, the send icon and AOL's main window.
class HeldHooks : public SimHook {
protected:
    void Hold(const std::string& mode)
    {
        ready_ = CreateEventA(nullptr, TRUE, FALSE, "PrismoSbcHolderReady");
        ResetEvent(ready_);
        char line[400];
        std::snprintf(line, sizeof line, "\"%s..\\hook\\sbcholder.exe\" %s %llx %llx %llx",
                      TestFolder().c_str(), mode.c_str(),
                      static_cast<unsigned long long>(reinterpret_cast<ULONG_PTR>(input_)),
                      static_cast<unsigned long long>(reinterpret_cast<ULONG_PTR>(send_)),
                      static_cast<unsigned long long>(reinterpret_cast<ULONG_PTR>(sim_.Frame())));
        ASSERT_TRUE(holder_.Start(line));
        ASSERT_EQ(WaitForSingleObject(ready_, 15000), WAIT_OBJECT_0);
    }
    void TearDown() override
    {
        holder_.Kill();
        if (ready_) CloseHandle(ready_);
        SimHook::TearDown();
    }

    TestProcess holder_;
    HANDLE ready_ = nullptr;
};

TEST_F(HeldHooks, KilledProgramLeavesAOLTypingAndSendingUnchanged)
{
    Hold("serve");
    sim_.Ctl("type ~a");  // the holder swallows "~": its hooks are at work
    EXPECT_EQ(sim_.Ctl("input"), "a\nvisible\n");
    holder_.Kill();

    // AOL goes on with the hooks' owner gone: every key and click arrives.
    EXPECT_EQ(sim_.Ctl("type ~b", ignored_), 0);
    EXPECT_EQ(sim_.Ctl("key enter", ignored_), 0);
    EXPECT_EQ(sim_.Ctl("type c", ignored_), 0);
    EXPECT_EQ(sim_.Ctl("click-send", ignored_), 0);
    EXPECT_EQ(Transcript(), "a~b\nc\n");
    EXPECT_EQ(sim_.Ctl("ping"), "pong\n");
}

TEST_F(HeldHooks, HungProgramHoldsAOLUpUntilTheTimeoutThenPassesEverything)
{
    Hold("hang");
    bool ok = false;
    // The first key waits for the program until the timeout gives up on it;
    // after that the keys pass untouched ("~" is not swallowed) and AOL
    // still answers. (What this costs in time: hook_bench.)
    const DWORD first = Timed("type ~", ok);
    EXPECT_TRUE(ok);
    EXPECT_GE(first, 1500u) << "the key did not wait for the program";
    EXPECT_EQ(sim_.Ctl("type hung", ignored_), 0);
    EXPECT_EQ(sim_.Ctl("key enter", ignored_), 0);
    EXPECT_EQ(sim_.Ctl("type d", ignored_), 0);
    EXPECT_EQ(sim_.Ctl("click-send", ignored_), 0);
    EXPECT_EQ(Transcript(), "~hung\nd\n");
    EXPECT_EQ(sim_.Ctl("ping"), "pong\n");
}

}  // namespace
