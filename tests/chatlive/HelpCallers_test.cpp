// Every place that opens help, live: prismo.exe beside the AOL simulator asks
// for prismo.hlp at its keyword, and the help window comes to the top. A help
// window of the test's own stands where winhlp32 would and reads each request
// as WinHelpA hands it over.
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

#include "ChatLiveFixture.h"
#include "HelpStandIn.h"

namespace ChatLive {
namespace {

class HelpCallersTest : public ChatLiveTest {
protected:
    // One of Prismo's windows opened from its menu in AOL, and its Help pressed.
    HWND PressHelpOf(WPARAM command, int helpId)
    {
        Menu(command);
        HWND window = WindowHolding(helpId, 15000);
        if (window) Press(window, helpId);
        return window;
    }
    // Where Prismo's help file lies: beside prismo.exe.
    std::string HelpFileBesideProgram()
    {
        char full[MAX_PATH] = "";
        GetFullPathNameA(program_.c_str(), sizeof full, full, nullptr);
        const std::string path = full;
        return path.substr(0, path.find_last_of('\\')) + "\\prismo.hlp";
    }
};

TEST_F(HelpCallersTest, EveryCallerOpensTheHelpFileAtItsKeywordAndBringsItToTheTop)
{
    Start();
    StandInHelp help;
    ASSERT_TRUE(help.hwnd());
    ASSERT_EQ(FindWindowA("MS_WINHELP", nullptr), help.hwnd()) << "another help window is open";
    const std::string file = HelpFileBesideProgram();
    ASSERT_NE(GetFileAttributesA(file.c_str()), INVALID_FILE_ATTRIBUTES) << file;

    // Each caller: how it is asked, the window that asks, the keyword it asks for.
    struct Caller {
        const char* what;
        std::function<HWND()> ask;
        std::string keyword;
    };
    const std::vector<Caller> callers{
        {"Help, Table of Contents", [&] { Menu(62000); return panel_; }, "Table of Contents"},
        {"Help, Search for Help on...", [&] { Menu(62001); return panel_; }, ""},
        {"/help", [&] { EXPECT_EQ(Send("/help"), ""); return panel_; }, "Table of Contents"},
        {"the wizard's Help", [&] { return PressHelpOf(60003, IDC_WZ_HELP); }, "Import Settings"},
        {"the options' Help", [&] { return PressHelpOf(60001, IDC_OP_HELP); }, "Options"},
        {"the about box's Help", [&] { return PressHelpOf(60004, IDC_AB_HELP); }, "Table Of Contents"},
    };

    for (const Caller& caller : callers) {
        SCOPED_TRACE(caller.what);
        help.Reset();
        const size_t before = help.Requests().size();
        const HWND owner = caller.ask();
        ASSERT_TRUE(owner);
        ASSERT_TRUE(PumpUntil([&] { return help.Requests().size() > before; }, 15000)) << "no help request";
        // Prismo's wait finds the window once it carries the help file's caption.
        EXPECT_TRUE(PumpUntil([&] { return help.Topmost(); }, 15000)) << "the help window was not put on top";
        ASSERT_EQ(help.Requests().size(), before + 1);

        const HelpRequest& got = help.Requests().back();
        EXPECT_EQ(got.dwData, kWinHelpCopyData);
        EXPECT_EQ(got.caller, owner);
        ASSERT_TRUE(got.Whole()) << got.Hex();
        EXPECT_EQ(got.Header().size, got.bytes.size());
        EXPECT_EQ(got.Header().command, HELP_PARTIALKEY);
        EXPECT_EQ(lstrcmpiA(got.File().c_str(), file.c_str()), 0) << got.File() << " is not " << file;
        EXPECT_EQ(got.Keyword(), caller.keyword) << got.Hex();
    }
}

}  // namespace
}  // namespace ChatLive
