// The commands of the program's menu in AOL's menu bar.
#include <windows.h>

#include "ChatHooks.h"
#include "ChatSession.h"
#include "ChatText.h"
#include "Form.h"
#include "frmChatTools.h"
#include "modAOLFunctions.h"
#include "modAOLMenu.h"
#include "modFindChild.h"
#include "modWin32API.h"

void ChatSession::ShowPanelAskedFor()
{
    PanelShownForChat = false;
    panel_.ShowPanel();
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
