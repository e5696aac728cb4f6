// Choosing the AOL folder with the folder picker.
#include "modPrismo.h"

#include "Catalog.h"
#include "StartupText.h"
#include "frmCMDialog.h"
#include "modMsgBox.h"
#include "modRegKeys.h"

void GetAOLPath(int firstRun)
{
    if (firstRun == 1) ShowMsg(StartupText::Welcome, 64);
    frmCMDialog picker;
    if (!picker.Load()) return;
    picker.SetCaption("Select AOL Directory");
    picker.ChangeFolder("C:\\");
    picker.Show();
    WaitWhileShown(picker, true);
    const std::string folder = picker.PathText();
    picker.Unload();
    if (folder.empty()) {
        if (firstRun == 1) {
            ShowMsg(StartupText::PathRequired, 16);
            EndProgram();
        }
        return;
    }
    WriteSetting(Setting::AOLPath, folder);
    if (firstRun == 0) ShowMsg(NextStartText(folder), 64);
}
