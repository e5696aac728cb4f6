// Shows one scene of the program's windows for the screenshot script and
// stays until it is ended: ui_scenes SCENE [MODE [uk]]. "startmode" ends at
// once with the start-up interface mode as its exit code.
#include <windows.h>

#include <cstdlib>
#include <string>

#include "AOLState.h"
#include "ErrorTrap.h"
#include "Options.h"
#include "frmMsg.h"
#include "frmSetColors.h"
#include "modMsgBox.h"
#include "modWin32API.h"
#include "modZunBtns.h"
#include "SceneReady.h"

namespace {

// Every button kind in the current mode, on a form of that mode.
class ButtonsForm : public Form {
public:
    ButtonsForm() : Form("frmButtons", 0, 420, 190) {}

protected:
    void OnLoad() override
    {
        HFONT font = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
        SendMessageA(hwnd(), WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        InitForm(*this);
        SetCaption("Prismo - mode " + std::to_string(Options.UIMode));
        button_.Create(hwnd(), 1001, "&Save Scheme", 20, 20, 110, 27);
        SetButtonColor(button_);
        focused_.Create(hwnd(), 1002, "Focused", 150, 20, 110, 27);
        SetButtonColor(focused_);
        released_.Create(hwnd(), 1003, "B", 20, 65, 40, 27);
        SetOptColor(false, released_);
        pressed_.Create(hwnd(), 1004, "I", 70, 65, 40, 27);
        pressed_.Value = true;
        SetOptColor(true, pressed_);
        bar_.Create(hwnd(), 1005, 20, 110, 370, 22);
        SetProgressColor(bar_);
        bar_.SetText("Loading User Settings");
        bar_.SetValue(80);
        for (HWND b : {button_.hwnd(), focused_.hwnd(), released_.hwnd(), pressed_.hwnd(), bar_.hwnd()})
            SendMessageA(b, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        DrawFormEdge(*this);
    }

private:
    ZunButton button_, focused_;
    FlatButton released_, pressed_;
    ProgressBar bar_;
};

// A form that leaves a mark file when it is unloaded, so that a test can
// tell that Abort unloaded every form before the program ended.
class MarkingForm : public Form {
public:
    MarkingForm() : Form("frmMarking", 0, 200, 80) {}

protected:
    void OnUnload() override
    {
        if (const char* mark = std::getenv("PRISMO_UNLOAD_MARK")) {
            HANDLE file = CreateFileA(mark, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
            if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
        }
    }
};

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    const std::string scene = __argc > 1 ? __argv[1] : "";
    if (__argc > 2) Options.UIMode = static_cast<std::int16_t>(std::atoi(__argv[2]));
    else StartUIMode();
    if (__argc > 3) AOLEdition.UK = std::string(__argv[3]) == "uk";
    Options.WindowColor = 0x00E0F0E0;
    Options.ButtonForecolor = 0x00406000;
    Options.ButtonHighlight = 0x0080FF80;
    Options.ButtonText = 0x00FFFFFF;
    InstallErrorReport();
    SceneReady::MarkWhenDrawn();

    if (scene == "startmode") {
        return Options.UIMode;  // the mode the display and the stored setting give
    } else if (scene == "chatroom") {
        ShowMsg("You must be in a ~B~CRchat room~B~CN to use this feature!", 64);
    } else if (scene == "paragraphs") {
        ShowMsg("~B~CRAOL Version 3.0 detected!~B~CN~N ~NPrismo is not compatible with this version of AOL. You must "
                "be using the ~B~CR32 bit~B~CN version of ~B~CBAOL 4.0~B~CN.~N ~NPrismo will now end.",
                16);
    } else if (scene == "ask") {
        AskMsg("Are you sure you want to delete the ~BCool Fade~B scheme?", 4 + 32);
    } else if (scene == "error") {
        MarkingForm marking;
        marking.Load();
        ErrorTrap trap("modAOLFunctions", "TextToChat");
        trap.Run([] { throw RuntimeError(Err::FileNotFound, "File not found"); });
    } else if (scene == "setcolors") {
        frmSetColors form;
        form.Show();
        WaitUntil([&form] { return !form.Loaded(); });
    } else if (scene == "buttons") {
        ButtonsForm form;
        form.Show();
        SetFocus(GetDlgItem(form.hwnd(), 1002));
        WaitWhileShown(form, false);
    }
    return 0;
}
