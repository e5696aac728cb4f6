// The hook against a window of another process (sbctarget.exe): handlers,
// delayed events, failures, detaching, and menus changed from inside.
#include <gtest/gtest.h>

#include <stdexcept>

#include "ErrorTrap.h"
#include "HookModules.h"
#include "SubClass.h"
#include "TestProcess.h"

namespace {

class HookTarget : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(process_.Start("\"" + TestFolder() + "sbctarget.exe\" 5"));
        main_ = WaitForProcessWindow("SbcTarget", process_.Id());
        ASSERT_NE(main_, nullptr);
        PumpUntil([&] { return (edit_ = FindWindowExA(main_, nullptr, "Edit", nullptr)) != nullptr; },
                  5000);
        ASSERT_NE(edit_, nullptr);
    }

    // Types `c` through the edit box's message queue, as the keyboard would.
    void Type(char c) { PostMessageA(edit_, WM_CHAR, static_cast<unsigned char>(c), 1); }

    bool WaitForText(const std::string& expected)
    {
        return PumpUntil([&] { return WindowText(edit_) == expected; }, 5000);
    }

    LONG_PTR EditProcedure() { return SendMessageA(main_, WM_APP, 0, 0); }

    TestProcess process_;
    HWND main_ = nullptr;
    HWND edit_ = nullptr;
};

TEST_F(HookTarget, HandlerSeesEachCharacterBeforeTheWindowAndCanSwallowIt)
{
    SubClass hook;
    std::string seen, textWhenSeen;
    hook.WndMessageX = [&](HWND window, UINT message, WPARAM wParam, LPARAM, LRESULT&,
                           bool& noDefault) {
        EXPECT_EQ(window, edit_);
        EXPECT_EQ(message, static_cast<UINT>(WM_CHAR));
        seen += static_cast<char>(wParam);
        textWhenSeen += "[" + WindowText(edit_) + "]";
        if (wParam == 'x') noDefault = true;
    };
    ASSERT_TRUE(hook.Attach(edit_, {WM_CHAR}));
    Type('a');
    Type('x');
    Type('b');
    ASSERT_TRUE(WaitForText("ab"));
    EXPECT_EQ(seen, "axb");
    // Each character reached the handler before the box took it in.
    EXPECT_EQ(textWhenSeen, "[][a][a]");
}

TEST_F(HookTarget, SwallowedMessageReturnsTheHandlersResultToItsSender)
{
    SubClass hook;
    hook.WndMessageX = [&](HWND, UINT, WPARAM, LPARAM, LRESULT& result, bool& noDefault) {
        result = 4242;
        noDefault = true;
    };
    // A message the edit box itself answers with 0.
    const UINT question = WM_APP + 5;
    ASSERT_TRUE(hook.Attach(edit_, {question}));
    EXPECT_EQ(SendMessageA(edit_, question, 0, 0), 4242);
    ASSERT_TRUE(hook.Attach(nullptr, {}));
    EXPECT_EQ(SendMessageA(edit_, question, 0, 0), 0);
}

TEST_F(HookTarget, DelayedEventRunsAfterTheWindowHasHandledTheMessage)
{
    SubClass hook;
    std::vector<std::string> events;
    hook.WndMessageX = [&](HWND, UINT, WPARAM wParam, LPARAM, LRESULT&, bool&) {
        events.push_back("message " + WindowText(edit_));
        hook.PostDelayedEvent(static_cast<LONG_PTR>(wParam));
    };
    hook.DelayedEvent = [&](LONG_PTR value) {
        events.push_back("delayed " + std::to_string(value) + " " + WindowText(edit_));
    };
    ASSERT_TRUE(hook.Attach(edit_, {WM_CHAR}));
    Type('q');
    ASSERT_TRUE(PumpUntil([&] { return events.size() == 2; }, 5000));
    EXPECT_EQ(events[0], "message ");
    EXPECT_EQ(events[1], "delayed 113 q");
}

// Records every report; answers Retry to the first report of a delayed event.
struct RecordingReporter : ErrorReporter {
    int Report(const ErrorReport& report) override
    {
        reports.push_back(report);
        return report.procedure == "DelayedEvent" && ++delayedReports == 1 ? AnswerRetry : AnswerIgnore;
    }
    void Abort() override {}
    std::vector<ErrorReport> reports;
    int delayedReports = 0;
};

TEST_F(HookTarget, AFailingHandlerIsReportedAndTheMessageGoesOnUntouched)
{
    RecordingReporter reporter;
    SetErrorReporter(&reporter);
    SubClass hook;
    int delayedRuns = 0;
    hook.WndMessageX = [&](HWND, UINT, WPARAM, LPARAM, LRESULT&, bool& noDefault) {
        noDefault = true;
        hook.PostDelayedEvent(1);
        throw RuntimeError(Err::FileNotFound, "File not found");
    };
    hook.DelayedEvent = [&](LONG_PTR) {
        ++delayedRuns;
        throw std::runtime_error("broken");
    };
    ASSERT_TRUE(hook.Attach(edit_, {WM_CHAR}));
    Type('a');
    EXPECT_TRUE(WaitForText("a")) << "a failed handler must not swallow the message";
    EXPECT_TRUE(PumpUntil([&] { return reporter.reports.size() == 3; }, 5000));
    SetErrorReporter(nullptr);
    ASSERT_EQ(reporter.reports.size(), 3u);
    int fromMessage = 0;
    for (const ErrorReport& report : reporter.reports) {
        EXPECT_EQ(report.module, "SubClass");
        if (report.procedure != "WndMessageX") continue;
        ++fromMessage;
        EXPECT_EQ(report.number, "53");
        EXPECT_EQ(report.description, "File not found");
    }
    EXPECT_EQ(fromMessage, 1);
    EXPECT_EQ(delayedRuns, 2) << "Retry runs the delayed event again";
}

TEST_F(HookTarget, DetachingPutsTheWindowsOwnProcedureBack)
{
    const LONG_PTR own = EditProcedure();
    int calls = 0;
    {
        SubClass hook;
        hook.WndMessageX = [&](HWND, UINT, WPARAM, LPARAM, LRESULT&, bool&) { ++calls; };
        ASSERT_TRUE(hook.Attach(edit_, {WM_CHAR}));
        EXPECT_NE(EditProcedure(), own);
        Type('a');
        ASSERT_TRUE(WaitForText("a"));
        // A second attach of the same object moves it; the window is hooked once.
        ASSERT_TRUE(hook.Attach(edit_, {WM_CHAR}));
        ASSERT_TRUE(hook.Attach(nullptr, {}));
        EXPECT_EQ(EditProcedure(), own);
        ASSERT_TRUE(hook.Attach(edit_, {WM_CHAR}));
    }  // the destructor detaches too
    EXPECT_EQ(EditProcedure(), own);
    Type('b');
    ASSERT_TRUE(WaitForText("ab"));
    EXPECT_EQ(calls, 1);
}

// The DLL leaves the other process once the program holds nothing there, and
// not while a frame of its window procedure is still on that process's stack.
TEST_F(HookTarget, TheDllLeavesTheProcessOnlyWhenNothingOfItIsInUse)
{
    const auto holdsDll = [&] { return ProcessHoldsModule(process_.Id(), "prismosbc.dll"); };
    {
        SubClass edit, main;
        ASSERT_TRUE(edit.Attach(edit_, {WM_CHAR}));
        ASSERT_TRUE(main.Attach(main_, {WM_CLOSE}));
        EXPECT_TRUE(holdsDll());
        ASSERT_TRUE(edit.Attach(nullptr, {}));
        EXPECT_TRUE(holdsDll()) << "the main window is still hooked";
    }
    EXPECT_TRUE(PumpUntil([&] { return !holdsDll(); }, 5000));
    Type('a');
    ASSERT_TRUE(WaitForText("a")) << "the window works on without us";

    // A handler that lets go of the hook while the keystroke waits for it:
    // the keystroke's frame returns into code that is still there.
    {
        SubClass edit;
        edit.WndMessageX = [&](HWND, UINT, WPARAM, LPARAM, LRESULT&, bool&) { edit.Attach(nullptr, {}); };
        ASSERT_TRUE(edit.Attach(edit_, {WM_CHAR}));
        Type('b');
        ASSERT_TRUE(WaitForText("ab"));
        EXPECT_EQ(edit.Window(), nullptr);
    }
    Type('c');
    EXPECT_TRUE(WaitForText("abc"));
    EXPECT_EQ(process_.Wait(0), -1) << "the other process is still running";
    // Hooked and let go once more: the DLL comes back and leaves again.
    {
        SubClass edit;
        ASSERT_TRUE(edit.Attach(edit_, {WM_CHAR}));
        EXPECT_TRUE(edit.Live());
    }
    EXPECT_TRUE(PumpUntil([&] { return !holdsDll(); }, 5000));
}

// After the program failed to answer in time the hook passes everything on;
// the DLL says so, and attaching again makes it live.
TEST_F(HookTarget, AHookThatTimedOutSaysSoAndAttachingAgainRevivesIt)
{
    SubClass hook;
    int calls = 0;
    bool stall = true;
    hook.WndMessageX = [&](HWND, UINT, WPARAM, LPARAM, LRESULT&, bool&) {
        ++calls;
        // Answers only once the hook has given up and handed the key on itself.
        if (stall) WaitForText("a");
        stall = false;
    };
    ASSERT_TRUE(hook.Attach(edit_, {WM_CHAR}));
    EXPECT_TRUE(hook.Live());
    Type('a');
    ASSERT_TRUE(WaitForText("a"));
    ASSERT_TRUE(PumpUntil([&] { return calls == 1; }, 5000));
    EXPECT_FALSE(hook.Live());
    Type('b');
    ASSERT_TRUE(WaitForText("ab"));
    EXPECT_EQ(calls, 1) << "a hook that gave up passes keys on without asking";
    ASSERT_TRUE(hook.Attach(edit_, {WM_CHAR}));
    EXPECT_TRUE(hook.Live());
    Type('c');
    ASSERT_TRUE(WaitForText("abc"));
    EXPECT_EQ(calls, 2);
}

TEST_F(HookTarget, AttachingToAWindowThatIsGoneFails)
{
    SubClass hook;
    process_.Kill();
    EXPECT_FALSE(hook.Attach(edit_, {WM_CHAR}));
    EXPECT_EQ(hook.Window(), nullptr);
}

TEST_F(HookTarget, TheDllReadsAndChangesTheTargetsMenuFromInside)
{
    std::string dump;
    ASSERT_TRUE(SbcMenuDump(main_, dump));
    EXPECT_NE(dump.find("0\t-1\t&File\n1\t101\t&First\n1\t0\t\n1\t102\t&Second\n"), std::string::npos);
    EXPECT_NE(dump.find("1\t402\tSwitch Scree&n Name\n"), std::string::npos);

    ASSERT_TRUE(SbcMenuInsert(main_, 5,
                              "P\tPrism&o\nI\t60000\t&One\nS\nP\t&Help\nI\t62000\t&Two\nE\nE\n"));
    ASSERT_TRUE(SbcMenuDump(main_, dump));
    EXPECT_NE(dump.find("1\t502\t&Second\n0\t-1\tPrism&o\n1\t60000\t&One\n1\t0\t\n1\t-1\t\n"),
              std::string::npos)
        << dump;
    ASSERT_TRUE(SbcMenuDelete(main_, 5));
    ASSERT_TRUE(SbcMenuDump(main_, dump));
    EXPECT_EQ(dump.find("Prism&o"), std::string::npos);
    EXPECT_FALSE(SbcMenuDelete(main_, 5));
}

}  // namespace
