// The commands of the program's menu in AOL's menu bar, and the one place
// where chat commands and menu commands open the program's other windows.
#include <windows.h>

#include "ChatHooks.h"
#include "ChatSession.h"
#include "ChatText.h"
#include "Form.h"
#include "frmChatTools.h"
#include "frmMultiline.h"
#include "modAOLFunctions.h"
#include "modAOLMenu.h"
#include "modFindChild.h"
#include "modWin32API.h"

namespace {

ProgramWindowObserver*& Observer()
{
    static ProgramWindowObserver* observer = nullptr;
    return observer;
}

// Help opens in front of the panel and waits for the help window.
bool OpenHelp(const std::string& topic)
{
    RunWinHelp(ChatTools().hwnd(), topic, 0);
    return true;
}

}  // namespace

void SetProgramWindowObserver(ProgramWindowObserver* observer) { Observer() = observer; }

bool OpenProgramWindow(const ProgramWindowRequest& request)
{
    if (Observer() && Observer()->Intercept(request)) return true;
    switch (request.which) {
    case ProgramWindow::Help:
        return OpenHelp(request.text);
    case ProgramWindow::Multiline:
        return OpenMultiline(request.text);
    case ProgramWindow::MultilineInsert:
        return ShowMultilineInsert();
    // Windows still to come; each is opened here once it is part of the program.
    case ProgramWindow::Options:
    case ProgramWindow::Wizard:
    case ProgramWindow::About:
    case ProgramWindow::VersionCheck:
    case ProgramWindow::EMailToolbar:
    case ProgramWindow::EMailToolbarUnload:
        return false;
    }
    return false;
}

// While a command, an advertisement or a watcher tick runs, the panel still
// comes at once (it waits for nothing), Exit ends what runs and then the
// program, and the other commands, which open windows that wait, are ignored.
void ChatSession::RunMenuCommand(MenuCommand command)
{
    if (Busy()) {
        const WhileBusy meanwhile = MenuCommandWhileBusy(command);
        if (meanwhile == WhileBusy::RunNow) CarryOutMenuCommand(command);
        if (meanwhile == WhileBusy::HoldUntilDone && heldEnd_ == HeldEnd::None) heldEnd_ = HeldEnd::Exit;
        return;
    }
    RunOneThing(false, [&] { CarryOutMenuCommand(command); });
}

void ChatSession::CarryOutMenuCommand(MenuCommand command)
{
    switch (command) {
    case MenuCommand::ControlPanel:
        ChatRoomWindow = FindChatRoom(AOLMDIClient, "AOL Child");
        panel_.ShowPanel();
        break;
    case MenuCommand::Options:
        OpenProgramWindow({ProgramWindow::Options, ""});
        break;
    case MenuCommand::Advertise:
        Advertise();
        break;
    case MenuCommand::Wizard:
        OpenProgramWindow({ProgramWindow::Wizard, ""});
        break;
    case MenuCommand::Updates:
        OpenProgramWindow({ProgramWindow::VersionCheck, ""});
        break;
    case MenuCommand::About:
        OpenProgramWindow({ProgramWindow::About, ""});
        break;
    case MenuCommand::Exit:
        RemoveMenuFromAOL();
        Stop();
        UnloadAllForms();
        break;
    case MenuCommand::HelpContents:
        OpenProgramWindow({ProgramWindow::Help, kHelpContentsTopic});
        break;
    case MenuCommand::HelpSearch:
        OpenProgramWindow({ProgramWindow::Help, ""});
        break;
    case MenuCommand::OnlineSupport:
        if (IsAOLOnline(false)) RunAOLKeyword(OnlineSupportKeyword());
        break;
    case MenuCommand::None:
        break;
    }
}
