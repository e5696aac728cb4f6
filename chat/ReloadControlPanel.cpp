// Rebuilding the control panel for a new colour mode.
#include "ReloadControlPanel.h"

#include <string>

#include "Catalog.h"
#include "Options.h"
#include "frmAbout.h"
#include "frmChatTools.h"
#include "modRegKeys.h"

namespace {

// The fader as the user set it. An advertisement switches it off in memory
// only while it runs; the panel loading again must neither show nor store
// that as the user's choice, or the fader would stay off after it.
bool FaderAsChosen()
{
    const std::string stored = ReadSetting(Setting::FaderOn);
    if (stored == kFalseText) return false;
    if (stored == kTrueText || stored.empty()) return true;
    return Options.FaderOn;
}

}  // namespace

void ReloadControlPanel()
{
    frmChatTools& panel = ChatTools();
    const bool wasVisible = panel.Visible();
    // A hidden about box keeps a window of the program loaded while the
    // panel is away, as it always has.
    const bool aboutLoaded = LoadAboutHidden();
    panel.Unload();
    const bool faderInUse = Options.FaderOn;
    Options.FaderOn = FaderAsChosen();
    panel.Load();
    Options.FaderOn = faderInUse;
    if (wasVisible) panel.ShowPanel();
    if (aboutLoaded) UnloadAbout();
}
