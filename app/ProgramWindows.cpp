// The one place where chat commands, menu commands, the watcher and the
// panel open the program's other windows. It sits above every subsystem, so
// none of them needs to know another's windows.
#include <windows.h>

#include "ChatHooks.h"
#include "ReloadControlPanel.h"
#include "frmAbout.h"
#include "frmChatTools.h"
#include "frmEFade.h"
#include "frmEMailFade.h"
#include "frmMultiline.h"
#include "frmVerCheck.h"
#include "frmWizard.h"
#include "frmoptions.h"
#include "modAOLFunctions.h"
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
    case ProgramWindow::EMailToolbar:
        return ShowEMailToolbar();
    case ProgramWindow::EMailToolbarUnload:
        return UnloadEMailToolbar();
    case ProgramWindow::EMailFades:
        return ShowEMailFades();
    case ProgramWindow::VersionCheck:
        return RunVersionCheck();
    case ProgramWindow::Options:
        return ShowOptions(ReloadControlPanel);
    case ProgramWindow::About:
        return ShowAbout({[] { return IsAOLOnline(false); },
                          [] { OpenProgramWindow({ProgramWindow::VersionCheck, ""}); }});
    case ProgramWindow::Wizard:
        return ShowWizard();
    }
    return false;
}
