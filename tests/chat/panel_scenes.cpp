// Shows one window of start-up or the control panel and stays until closed,
// for the screenshot script:
//   panel_scenes loading
//   panel_scenes picker FOLDER
//   panel_scenes panel MODE min|max     (MODE 0, 1 or 2)
#include <windows.h>

#include <string>

#include "Catalog.h"
#include "OptionsLoad.h"
#include "frmCMDialog.h"
#include "frmChatTools.h"
#include "frmMain.h"
#include "modRegKeys.h"
#include "modWin32API.h"
#include "SceneReady.h"

namespace {

void ShowLoading()
{
    frmMain& loading = LoadingWindow();
    loading.Show();
    loading.Status("Master Screen Name: Zun Tester");
    loading.Percent(50);
}

void ShowPicker(frmCMDialog& picker, const std::string& folder)
{
    picker.Load();
    picker.SetCaption("Select AOL Directory");
    picker.ChangeFolder(folder);
    picker.Show();
}

// The user's own colours of mode 2: green window, purple buttons.
void UseOwnColors()
{
    WriteSetting(Setting::WindowColor, std::to_string(0x00D8F0D8));
    WriteSetting(Setting::ButtonForecolor, std::to_string(0x00803060));
    WriteSetting(Setting::ButtonHighlight, std::to_string(0x00FFA0E0));
    WriteSetting(Setting::ButtonText, std::to_string(0x00FFFFFF));
}

void ShowPanel(int mode, bool expanded)
{
    if (mode == 2) UseOwnColors();
    WriteSetting(Setting::PanelState, expanded ? "Max" : "Min");
    // Beside the simulator's chat room, lower right.
    WriteSetting(Setting::PanelTop, std::to_string(540 * 15));
    WriteSetting(Setting::PanelLeft, std::to_string(480 * 15));
    LoadOptions();
    LoadUserColors();
    Options.UIMode = static_cast<std::int16_t>(mode);
    ChatTools().ShowPanel();
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    const std::string scene = __argc > 1 ? __argv[1] : "";
    frmCMDialog picker;
    SceneReady::MarkWhenDrawn();
    if (scene == "loading") {
        ShowLoading();
    } else if (scene == "picker" && __argc > 2) {
        ShowPicker(picker, __argv[2]);
    } else if (scene == "panel" && __argc > 3) {
        ShowPanel(std::atoi(__argv[2]), std::string(__argv[3]) == "max");
    } else {
        return 2;
    }
    WaitUntil([] { return LoadedForms().empty(); });
    return 0;
}
