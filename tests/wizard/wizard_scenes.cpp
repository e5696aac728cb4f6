// Shows the Import/Export wizard on one of its pages in one colour mode and
// stays until closed, for the screenshot script:
//   wizard_scenes MODE PAGE    (MODE 0, 1 or 2; PAGE 0 welcome ... 6 finished)
// The export goes to the first drive offered; the backup page is taken while
// its copy runs.
#include <windows.h>

#include <string>

#include "Catalog.h"
#include "Options.h"
#include "OptionsLoad.h"
#include "OwnColors.h"
#include "SceneReady.h"
#include "WizardPages.h"
#include "frmWizard.h"
#include "modRegKeys.h"
#include "modWin32API.h"
#include "resource.h"

namespace {

void Click(HWND control) { SendMessageA(control, BM_CLICK, 0, 0); }

// The backup page is taken halfway through its copy.
void CALLBACK MarkHalfway(HWND, UINT, UINT_PTR id, DWORD)
{
    if (!Wizard() || Wizard()->prgStatus.Value() < 50) return;
    KillTimer(nullptr, id);
    SceneReady::MarkWhenDrawn();
}

// Drives the wizard up to `page` the way a user would.
void GoTo(frmWizard& wizard, int page)
{
    const bool importing = page == frmWizard::fraImport;
    Click(WizardControl(wizard.hwnd(), importing ? IDC_WZ_OPTIMPORT : IDC_WZ_OPTEXPORT));
    if (page == frmWizard::fraOne) return;
    wizard.cmdNext_Click();
    if (importing) {
        SetWindowTextA(WizardControl(wizard.hwnd(), IDC_WZ_LBLIMPORT), "a:\\prismo schemes\\");
        return;
    }
    Click(WizardControl(wizard.hwnd(), IDC_WZ_OPTONE));
    if (page == frmWizard::fraTwo) return;
    wizard.cmdNext_Click();
    if (page == frmWizard::fraThree) return;
    wizard.cmdNext_Click();
    if (page == frmWizard::fraFour) return;
    if (page == frmWizard::fraBackup) SetTimer(nullptr, 0, 20, MarkHalfway);
    wizard.cmdNext_Click();
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    if (__argc < 3) return 2;
    if (std::atoi(__argv[1]) == 2) UseOwnColors();
    LoadOptions();
    LoadUserColors();
    Options.UIMode = static_cast<std::int16_t>(std::atoi(__argv[1]));
    const int page = std::atoi(__argv[2]);
    if (!ShowWizard()) return 1;
    GoTo(*Wizard(), page);
    if (page != frmWizard::fraBackup) SceneReady::MarkWhenDrawn();
    WaitUntil([] { return LoadedForms().empty(); });
    return 0;
}
