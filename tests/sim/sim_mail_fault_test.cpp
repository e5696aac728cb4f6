// An AOL that leaves out one step of writing and attaching mail: the step a
// mailer waits for never comes, and closing AOL in the middle of the dialogs
// still ends it cleanly.
#include "SimSearch.h"

#include <gtest/gtest.h>

namespace {

// Returns once nothing that the simulator had been asked to do is pending:
// whatever a click posted has been handled.
void Settle() { ASSERT_EQ(Ctl({"settle"}).status, 0); }

HWND TopLevelNow(const char* className, const char* caption) { return FindWindowA(className, caption); }

// Closes AOL as its user does while a dialog is open; it must end, its log
// closing with "quit".
void CheckCleanQuit(SimAOL& sim, const std::string& log) {
    HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, sim.Id());
    ASSERT_NE(process, nullptr);
    ASSERT_EQ(Ctl({"quit"}).status, 0);
    EXPECT_TRUE(sim.WaitExit(15000)) << "AOL still runs";
    DWORD code = 1;
    GetExitCodeProcess(process, &code);
    CloseHandle(process);
    EXPECT_EQ(code, 0u) << "AOL ended by a fault";
    std::string text = ReadFileText(log);
    while (!text.empty() && text.back() == '\n') text.pop_back();
    EXPECT_EQ(text.substr(text.rfind('\n') + 1), "quit");
}

TEST(SimMailFault, NoMailOpensByAnyWay) {
    SimAOL sim(4, {"--mail-fault", "no-mail", "--mail"});
    HWND outer = FindWindowExA(sim.Frame(), nullptr, "AOL Toolbar", nullptr);
    HWND write = FindWindowExA(FindWindowExA(outer, nullptr, "_AOL_Toolbar", nullptr), nullptr, "_AOL_ICON", nullptr);
    ASSERT_NE(write, nullptr);
    Click(write);
    SendMessageA(sim.Frame(), WM_COMMAND, 8300, 0);  // Mail > Write Mail
    EXPECT_NE(Ctl({"open-mail"}).status, 0);
    Settle();
    EXPECT_EQ(ChildByCaption(sim.Mdi(), "Write Mail"), nullptr);
    EXPECT_EQ(CtlLines({"windows"}), std::vector<std::string>{"signon\tSign On"});
}

// Each fault takes away the one window or control it names, and nothing before it.
TEST(SimMailFault, EachAttachingStepCanBeMissing) {
    struct Case {
        const char* fault;
        bool attachments, attachButton, fileDialog, fileField, openButton;
    };
    for (const Case& c : {Case{"no-attachments", false, false, false, false, false},
                          Case{"no-attach-button", true, false, false, false, false},
                          Case{"no-file-dialog", true, true, false, false, false},
                          Case{"no-file-field", true, true, true, false, true},
                          Case{"no-open-button", true, true, true, true, false}}) {
        SCOPED_TRACE(c.fault);
        const std::string log = TempPath("fault.log");
        SimAOL sim(4, {"--mail-fault", c.fault, "--mail", "--log", log});
        HWND mail = ChildByCaption(sim.Mdi(), "Write Mail");
        ASSERT_NE(mail, nullptr);
        Click(NthChildOfClass(mail, "_AOL_ICON", 13));
        Settle();
        HWND modal = TopLevelNow("_AOL_MODAL", "Attachments");
        EXPECT_EQ(modal != nullptr, c.attachments);
        if (!modal) {
            CheckCleanQuit(sim, log);
            continue;
        }
        HWND attach = NthChildOfClass(modal, "_AOL_ICON", 1);
        EXPECT_EQ(attach != nullptr, c.attachButton);
        EXPECT_EQ(NthChildOfClass(modal, "_AOL_ICON", 3) != nullptr, c.attachButton) << "OK goes with Attach";
        if (attach) {
            Click(attach);
            Settle();
        }
        HWND dialog = TopLevelNow("#32770", "Attach");
        EXPECT_EQ(dialog != nullptr, c.fileDialog);
        if (dialog) {
            EXPECT_EQ(FindWindowExA(dialog, nullptr, "Edit", nullptr) != nullptr, c.fileField);
            EXPECT_EQ(FindWindowExA(dialog, nullptr, nullptr, "&Open") != nullptr, c.openButton);
        }
        CheckCleanQuit(sim, log);
    }
}

// The mail's attach icon is there, in its place, but cannot be seen.
TEST(SimMailFault, HiddenAttachIcon) {
    SimAOL sim(4, {"--attach-icon", "hidden", "--mail"});
    HWND icon = NthChildOfClass(ChildByCaption(sim.Mdi(), "Write Mail"), "_AOL_ICON", 13);
    ASSERT_NE(icon, nullptr);
    EXPECT_EQ(WindowText(icon), "Attachments");
    EXPECT_FALSE(IsWindowVisible(icon));
}

// Closing AOL with a working file dialog and its Attachments window open.
TEST(SimMailFault, QuitWithTheFileDialogOpen) {
    const std::string log = TempPath("quit.log");
    SimAOL sim(5, {"--edition", "uk", "--mail", "--log", log});
    Click(NthChildOfClass(ChildByCaption(sim.Mdi(), "Write Mail"), "_AOL_ICON", 14));
    HWND modal = WaitTopLevel("_AOL_MODAL", "Attachments");
    ASSERT_NE(modal, nullptr);
    Click(NthChildOfClass(modal, "_AOL_ICON", 1));
    ASSERT_NE(WaitTopLevel("#32770", "Open"), nullptr);
    CheckCleanQuit(sim, log);
}

}  // namespace
