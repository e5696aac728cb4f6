// Chat commands and AOL menu commands reach the program's other windows
// through one dispatch: which window, with which help topic or text. The
// windows themselves are not opened here.
#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

#include "ChatHooks.h"
#include "ChatText.h"
#include "frmChatTools.h"
#include "modWin32API.h"

namespace {

class Dispatch : public ::testing::Test {
protected:
    void SetUp() override
    {
        SetProgramWindowObserver([this](const ProgramWindowRequest& request) {
            seen_.push_back(request);
            return true;
        });
    }
    void TearDown() override { SetProgramWindowObserver(nullptr); }

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
};

TEST_F(Dispatch, ChatCommandsOpenTheirWindows)
{
    frmChatTools& panel = ChatTools();
    panel.ActivateCommand("Help");
    ExpectOne(ProgramWindow::Help, "Table of Contents", "help");
    EXPECT_EQ(HelpFile(), AppPath() + "\\prismo.hlp");
    for (const char* word : {"options", "OPT"}) {
        panel.ActivateCommand(word);
        ExpectOne(ProgramWindow::Options, "", word);
    }
    for (const char* word : {"update", "up dates"}) {
        panel.ActivateCommand(word);
        ExpectOne(ProgramWindow::VersionCheck, "", word);
    }
    // "multiline" opens the window empty (no room hooked) and then shows its
    // Insert button.
    panel.ActivateCommand("multiline");
    const auto requests = Take();
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[0].which, ProgramWindow::Multiline);
    EXPECT_EQ(requests[0].text, "");
    EXPECT_EQ(requests[1].which, ProgramWindow::MultilineInsert);
}

TEST_F(Dispatch, AFullLineMovesWithTheCharacterTyped)
{
    HWND edit = CreateWindowA("EDIT", "a full line", WS_POPUP, 0, 0, 100, 20, nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(edit);
    ChatTools().EnableMultiline(edit, '!', 11);
    ExpectOne(ProgramWindow::Multiline, "a full line!", "full line");
    // Only the given length is read.
    ChatTools().EnableMultiline(edit, 0, 6);
    ExpectOne(ProgramWindow::Multiline, "a full", "shorter length");
    DestroyWindow(edit);
}

TEST_F(Dispatch, MenuCommandsOpenTheirWindows)
{
    frmChatTools& panel = ChatTools();
    RunMenuCommand(panel, MenuCommand::HelpContents);
    ExpectOne(ProgramWindow::Help, "Table of Contents", "contents");
    RunMenuCommand(panel, MenuCommand::HelpSearch);
    ExpectOne(ProgramWindow::Help, "", "search");
    RunMenuCommand(panel, MenuCommand::Options);
    ExpectOne(ProgramWindow::Options, "", "options");
    RunMenuCommand(panel, MenuCommand::Wizard);
    ExpectOne(ProgramWindow::Wizard, "", "wizard");
    RunMenuCommand(panel, MenuCommand::About);
    ExpectOne(ProgramWindow::About, "", "about");
    RunMenuCommand(panel, MenuCommand::Updates);
    ExpectOne(ProgramWindow::VersionCheck, "", "updates");
}

TEST(DispatchWithoutObserver, WindowsNotYetBuiltReportThatTheyDidNotOpen)
{
    EXPECT_FALSE(OpenProgramWindow({ProgramWindow::Multiline, "kept"}));
    EXPECT_FALSE(OpenProgramWindow({ProgramWindow::About, ""}));
}

}  // namespace
