// Shows the options dialog or the about box and stays until closed, for the
// screenshot script:
//   options_scenes options MODE     (MODE 0, 1 or 2; the panel beside it)
//   options_scenes about
#include <windows.h>

#include <string>

#include "Catalog.h"
#include "OptionsLoad.h"
#include "OwnColors.h"
#include "ReloadControlPanel.h"
#include "SceneReady.h"
#include "frmAbout.h"
#include "frmChatTools.h"
#include "frmoptions.h"
#include "modRegKeys.h"
#include "modWin32API.h"

namespace {

void ShowOptionsIn(int mode)
{
    if (mode == 2) UseOwnColors();
    // The panel along the top of the screen, clear of the dialog.
    WriteSetting(Setting::PanelTop, "0");
    WriteSetting(Setting::PanelLeft, std::to_string(480 * 15));
    LoadOptions();
    LoadUserColors();
    Options.UIMode = static_cast<std::int16_t>(mode);
    ChatTools().ShowPanel();
    ShowOptions(ReloadControlPanel);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    const std::string scene = __argc > 1 ? __argv[1] : "";
    SceneReady::MarkWhenDrawn();
    if (scene == "options" && __argc > 2) {
        ShowOptionsIn(std::atoi(__argv[2]));
    } else if (scene == "about") {
        LoadOptions();
        LoadUserColors();
        Options.UIMode = 1;
        ShowAbout({});
    } else {
        return 2;
    }
    WaitUntil([] { return LoadedForms().empty(); });
    return 0;
}
