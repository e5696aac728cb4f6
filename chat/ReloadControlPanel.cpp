// Rebuilding the control panel for a new colour mode.
#include "ReloadControlPanel.h"

#include "frmAbout.h"
#include "frmChatTools.h"

void ReloadControlPanel()
{
    frmChatTools& panel = ChatTools();
    const bool wasVisible = panel.Visible();
    // A hidden about box keeps a window of the program loaded while the
    // panel is away, as it always has.
    const bool aboutLoaded = LoadAboutHidden();
    panel.Unload();
    panel.Load();
    if (wasVisible) panel.ShowPanel();
    if (aboutLoaded) UnloadAbout();
}
