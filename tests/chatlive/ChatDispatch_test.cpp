// Chat commands and AOL menu commands reach the program's other windows
// through one dispatch: which window, with which help topic or text. The
// windows themselves are not opened here. And the chat session's watcher, as
// a program beside Prismo sees it through the session's hidden window.
#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <utility>
#include <vector>

#include "ChatHooks.h"
#include "ChatSession.h"
#include "ChatText.h"
#include "frmChatTools.h"
#include "modWin32API.h"

namespace {

class Dispatch : public ::testing::Test, public ProgramWindowObserver {
protected:
    void SetUp() override { SetProgramWindowObserver(this); }
    void TearDown() override { SetProgramWindowObserver(nullptr); }
    bool Intercept(const ProgramWindowRequest& request) override
    {
        seen_.push_back(request);
        // The window asked for would wait here, servicing events.
        if (whileOpening_) std::exchange(whileOpening_, nullptr)();
        return true;
    }

    std::vector<ProgramWindowRequest> Take()
    {
        std::vector<ProgramWindowRequest> taken;
        taken.swap(seen_);
        return taken;
    }
    void ExpectOne(ProgramWindow which, const std::string& text, const std::string& what)
    {
        const auto requests = Take();
        ASSERT_EQ(requests.size(), 1u) << what;
        EXPECT_EQ(requests[0].which, which) << what;
        EXPECT_EQ(requests[0].text, text) << what;
    }

    std::vector<ProgramWindowRequest> seen_;
    std::function<void()> whileOpening_;  // runs once, inside the next request
};

TEST_F(Dispatch, ChatCommandsOpenTheirWindows)
{
    ChatSession& session = TheChatSession();
    session.ActivateCommand("Help");
    ExpectOne(ProgramWindow::Help, "Table of Contents", "help");
    EXPECT_EQ(HelpFile(), AppPath() + "\\prismo.hlp");
    for (const char* word : {"options", "OPT"}) {
        session.ActivateCommand(word);
        ExpectOne(ProgramWindow::Options, "", word);
    }
    for (const char* word : {"update", "up dates"}) {
        session.ActivateCommand(word);
        ExpectOne(ProgramWindow::VersionCheck, "", word);
    }
    // "multiline" opens the window empty (no room hooked) and then shows its
    // Insert button.
    session.ActivateCommand("multiline");
    const auto requests = Take();
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[0].which, ProgramWindow::Multiline);
    EXPECT_EQ(requests[0].text, "");
    EXPECT_EQ(requests[1].which, ProgramWindow::MultilineInsert);
}

TEST_F(Dispatch, CommandsAskedForWhileOneRunsAreIgnored)
{
    ChatSession& session = TheChatSession();
    bool ranAlone = true;
    whileOpening_ = [&] {
        EXPECT_TRUE(session.Busy());
        session.ActivateCommand("help");
        session.RunMenuCommand(MenuCommand::About);
        ranAlone = session.RunAlone([] { ADD_FAILURE() << "ran inside the options window's wait"; });
    };
    session.ActivateCommand("options");
    ExpectOne(ProgramWindow::Options, "", "only the first command");
    EXPECT_FALSE(ranAlone);
    EXPECT_FALSE(session.Busy());
    whileOpening_ = [&] { session.ActivateCommand("options"); };
    session.RunMenuCommand(MenuCommand::Wizard);
    ExpectOne(ProgramWindow::Wizard, "", "only the menu command");
    // Once it has ended, the next one runs.
    EXPECT_TRUE(session.RunAlone([&] { session.ActivateCommand("help"); }) && Take().empty());
    session.ActivateCommand("help");
    ExpectOne(ProgramWindow::Help, "Table of Contents", "after the first one ended");
}

TEST_F(Dispatch, AFullLineMovesWhole)
{
    // The key that filled the line is in it by now, and so is anything typed after it.
    HWND edit = CreateWindowA("EDIT", "a full line!!", WS_POPUP, 0, 0, 100, 20, nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(edit);
    TheChatSession().EnableMultiline(edit, true);
    ExpectOne(ProgramWindow::Multiline, "a full line!!", "full line");
    DestroyWindow(edit);
}

TEST_F(Dispatch, MenuCommandsOpenTheirWindows)
{
    ChatSession& session = TheChatSession();
    session.RunMenuCommand(MenuCommand::HelpContents);
    ExpectOne(ProgramWindow::Help, "Table of Contents", "contents");
    session.RunMenuCommand(MenuCommand::HelpSearch);
    ExpectOne(ProgramWindow::Help, "", "search");
    session.RunMenuCommand(MenuCommand::Options);
    ExpectOne(ProgramWindow::Options, "", "options");
    session.RunMenuCommand(MenuCommand::Wizard);
    ExpectOne(ProgramWindow::Wizard, "", "wizard");
    session.RunMenuCommand(MenuCommand::About);
    ExpectOne(ProgramWindow::About, "", "about");
    session.RunMenuCommand(MenuCommand::Updates);
    ExpectOne(ProgramWindow::VersionCheck, "", "updates");
}

// AOL's main window as the watcher looks for it, made in this process.
class StandInAOLFrame {
public:
    StandInAOLFrame()
    {
        WNDCLASSA cls{};
        cls.lpfnWndProc = DefWindowProcA;
        cls.hInstance = GetModuleHandleA(nullptr);
        cls.lpszClassName = "AOL FRAME25";
        RegisterClassA(&cls);
        window = CreateWindowA("AOL FRAME25", "America  Online", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                               cls.hInstance, nullptr);
    }
    ~StandInAOLFrame() { Close(); }
    StandInAOLFrame(const StandInAOLFrame&) = delete;
    StandInAOLFrame& operator=(const StandInAOLFrame&) = delete;
    void Close()
    {
        if (window) DestroyWindow(window);
        window = nullptr;
    }
    HWND window = nullptr;
};

// The watcher ticks the session's window answers, found the way another
// program finds it; -1 when this process has no session window.
long TicksAnswered()
{
    HWND session = FindWindowA(kChatSessionClass, kChatSessionCaption);
    DWORD pid = 0;
    GetWindowThreadProcessId(session, &pid);
    if (!session || pid != GetCurrentProcessId()) return -1;
    return static_cast<long>(SendMessageA(session, RegisterWindowMessageA(kWatcherTicksMessage), 0, 0));
}

// Services messages until `done`; the limit only ends a hung run.
template <class Done>
bool PumpUntil(Done done)
{
    const DWORD start = GetTickCount();
    while (!done()) {
        if (GetTickCount() - start > 30000) return false;
        Pause(50);
    }
    return true;
}

TEST_F(Dispatch, TheWatcherTicksOnItsOwnWindowAndEndsTheSessionWithAOL)
{
    StandInAOLFrame aol;
    ASSERT_TRUE(aol.window);
    ChatSession& session = TheChatSession();
    session.Start();
    ASSERT_TRUE(session.Running());
    const long first = TicksAnswered();
    ASSERT_GE(first, 0) << "no session window of this class and caption";
    ASSERT_TRUE(PumpUntil([&] { return TicksAnswered() >= first + 2; }));
    EXPECT_EQ(TicksAnswered(), session.WatcherTicks());
    // The control panel is not the session's window: it may come and go.
    EXPECT_FALSE(ChatTools().Loaded());

    // AOL gone: the next tick stops the session; its window, and the
    // timer on it, go with it.
    aol.Close();
    ASSERT_TRUE(PumpUntil([&] { return !session.Running(); }));
    EXPECT_EQ(TicksAnswered(), -1);
    session.Stop();  // a second stop is harmless
    EXPECT_FALSE(session.Running());
}

}  // namespace
