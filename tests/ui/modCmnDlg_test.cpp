// The colour picker and frmSetColors driven through the platform's real
// colour dialog: custom colours kept even on Cancel, the chosen colour
// returned, and the user colours written where they belong.
#include <gtest/gtest.h>

#include <colordlg.h>

#include "Catalog.h"
#include "Options.h"
#include "UiTestSupport.h"
#include "frmSetColors.h"
#include "modCmnDlg.h"
#include "modRegKeys.h"
#include "modWin32API.h"
#include "resource.h"

namespace {

// Answers the colour dialog: types `color` into its red, green and blue
// boxes, optionally adds it to the custom colours, then presses `finish`.
class ColorDialogDriver {
public:
    ColorDialogDriver(COLORREF color, bool addCustom, int finish)
        : steps_(40, [=] { return Step(color, addCustom, finish); })
    {
    }
    bool seen = false;

private:
    bool Step(COLORREF color, bool addCustom, int finish)
    {
        HWND dlg = FindShown("Color");
        if (!dlg) return false;
        seen = true;
        switch (stage_++) {
        case 0:
            SetDlgItemInt(dlg, COLOR_RED, GetRValue(color), FALSE);
            SetDlgItemInt(dlg, COLOR_GREEN, GetGValue(color), FALSE);
            SetDlgItemInt(dlg, COLOR_BLUE, GetBValue(color), FALSE);
            return false;
        case 1:
            if (addCustom) Click(GetDlgItem(dlg, COLOR_ADD));
            return false;
        default:
            Click(GetDlgItem(dlg, finish));
            return true;
        }
    }
    int stage_ = 0;
    TimerSteps steps_;
};

}  // namespace

TEST(PickColor, CancelKeepsTheInitialColourButStoresNewCustomColours)
{
    for (int i = 0; i < 16; ++i) SaveCustomColor(i, 16777215);
    ASSERT_TRUE(WriteSetting(Section::CustomColors, "3", "255"));
    EXPECT_EQ(GetCustomColor(3), 255);
    ASSERT_TRUE(WriteSetting(Section::CustomColors, "4", ""));
    EXPECT_EQ(GetCustomColor(4), 16777215) << "an empty one is white";

    ColorDialogDriver driver(RGB(10, 200, 30), true, IDCANCEL);
    EXPECT_EQ(PickColor(nullptr, 0x00123456), 0x00123456);
    EXPECT_TRUE(driver.seen);
    int found = 0;
    for (int i = 0; i < 16; ++i) found += GetCustomColor(i) == static_cast<UIColor>(RGB(10, 200, 30));
    EXPECT_EQ(found, 1) << "the added custom colour is stored although the dialog was cancelled";
    EXPECT_EQ(GetCustomColor(3), 255) << "the others come back as they were";
}

TEST(PickColor, OkReturnsTheChosenColour)
{
    ColorDialogDriver driver(RGB(1, 2, 3), false, IDOK);
    EXPECT_EQ(PickColor(nullptr, 0x8000000F), static_cast<UIColor>(RGB(1, 2, 3)));
}

TEST(frmSetColors, PickingTheWindowColourStoresItAndRepaintsTheSample)
{
    Options.UIMode = 2;
    Options.WindowColor = 0x00E0E0E0;
    Options.ButtonForecolor = 0x00400000;
    Options.ButtonHighlight = 0x00FF8080;
    Options.ButtonText = 0x00FFFFFF;
    frmSetColors form;
    form.Show();
    EXPECT_EQ(TextOf(form.hwnd()), "Set User Defined Colors");
    EXPECT_EQ(form.cmdBtnFC.BackColor, 0x00400000);
    EXPECT_EQ(form.cmdSampleBtn.BackColor, 0x00400000);
    EXPECT_EQ(form.cmdSampleBtn.Highlight, 0x00FF8080);
    EXPECT_EQ(form.Frame1.BackColor, 0x00E0E0E0);

    ColorDialogDriver driver(RGB(200, 100, 50), false, IDOK);
    Click(form.Item(IDC_SC_WNDCLR));
    WaitUntil([&] { return driver.seen && !FindShown("Color"); });
    // The sample takes the picked colour last.
    WaitUntil([&] { return form.Frame1.BackColor == static_cast<UIColor>(RGB(200, 100, 50)); });
    EXPECT_EQ(Options.WindowColor, static_cast<UIColor>(RGB(200, 100, 50)));
    EXPECT_EQ(ReadSetting(Section::UserColors, "WindowColor"), std::to_string(RGB(200, 100, 50)));
    EXPECT_EQ(form.Frame1.BackColor, static_cast<UIColor>(RGB(200, 100, 50)));
    EXPECT_EQ(GetWindowLongA(form.hwnd(), GWL_EXSTYLE) & WS_EX_TOPMOST, WS_EX_TOPMOST) << "topmost again";

    Click(form.Item(IDC_SC_EXIT));
    WaitUntil([&] { return !form.Loaded(); });
    Options.UIMode = 0;
}

TEST(OpenDialog, ReturnsTheFileOrItsFolderAndNothingWhenCancelled)
{
    char temp[MAX_PATH] = "";
    GetTempPathA(sizeof temp, temp);
    const std::string folder = std::string(temp);  // ends in a backslash
    const std::string file = folder + "Cool Fade.fde";
    HANDLE h = CreateFileA(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(h, INVALID_HANDLE_VALUE);
    CloseHandle(h);

    // Types the full path into the file name box and opens it.
    auto answer = [&](bool open) {
        return [=] {
            HWND dlg = FindShown("Open");
            if (!dlg) return false;
            if (open) {
                for (int id : {0x47c, 0x480}) SetDlgItemTextA(dlg, id, file.c_str());
                Click(GetDlgItem(dlg, IDOK));
            } else {
                Click(GetDlgItem(dlg, IDCANCEL));
            }
            return true;
        };
    };
    {
        TimerSteps steps(50, answer(true));
        EXPECT_EQ(OpenDialog("Fade Schemes", "*.fde", 1), file);
    }
    {
        TimerSteps steps(50, answer(true));
        EXPECT_EQ(OpenDialog("Fade Schemes", "*.fde", 2), folder);
    }
    {
        TimerSteps steps(50, answer(false));
        EXPECT_EQ(OpenDialog("Fade Schemes", "*.fde", 1), "");
    }
    DeleteFileA(file.c_str());
}
