// frmoptions: the options dialog. Each box, list and mode choice sets its
// Options field and writes its setting in the same step, so nothing is lost
// when the dialog is left by its close box.
#include "frmoptions.h"

#include <string>

#include "Catalog.h"
#include "OptionsLists.h"
#include "Options.h"
#include "frmSetColors.h"
#include "modRegKeys.h"
#include "modWin32API.h"
#include "resource.h"

namespace {

// The check boxes that drive one switch each.
struct BoxSetting {
    int id;
    bool OptionsRecord::*field;
    SettingName setting;
};
const BoxSetting kBoxes[] = {
    {IDC_OP_OPENFADE, &OptionsRecord::ShowFadePanelWithChat, Setting::ShowFadePanelWithChat},
    {IDC_OP_CHATKW, &OptionsRecord::UseChatKW, Setting::UseChatKW},
    {IDC_OP_EFADE, &OptionsRecord::ShowEFToolbar, Setting::ShowEFToolbar},
    {IDC_OP_MULTILINE, &OptionsRecord::UseMultiline, Setting::UseMultiline},
    {IDC_OP_ALIAS, &OptionsRecord::UseAlias, Setting::UseAlias},
    {IDC_OP_FADESAMPLE, &OptionsRecord::ShowEMailSample, Setting::ShowEMailSample},
};

// The controls that only mean something while the multiline sender is on.
const int kMultilineControls[] = {IDC_OP_LABEL4, IDC_OP_LABEL5, IDC_OP_BURSTSECS, IDC_OP_LINETITLE,
                                  IDC_OP_LABEL6, IDC_OP_LABEL7, IDC_OP_LINES};

const int kModeButtons[] = {IDC_OP_UISTD, IDC_OP_UIENH, IDC_OP_UIUSER};

// The line delay is stored as the loading reads it: with the decimal
// separator of the user's regional settings.
char UserDecimalPoint()
{
    char separator[8] = {};
    return GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, sizeof separator) > 1 ? separator[0]
                                                                                                   : '.';
}

frmoptions*& Instance()
{
    static frmoptions* instance = nullptr;
    return instance;
}

}  // namespace

frmoptions::frmoptions(std::function<void()> reloadControlPanel)
    : Form("frmoptions", IDD_OPTIONS), reloadControlPanel_(std::move(reloadControlPanel))
{
}

frmoptions::~frmoptions() { Unload(); }

bool ShowOptions(std::function<void()> reloadControlPanel)
{
    // One dialog for the program's whole run; each opening loads it afresh.
    static frmoptions dialog(nullptr);
    Instance() = &dialog;
    if (dialog.Loaded()) {
        SetForegroundWindow(dialog.hwnd());
        return true;
    }
    dialog.reloadControlPanel_ = std::move(reloadControlPanel);
    dialog.Show();
    return dialog.Loaded();
}

frmoptions* OptionsDialog() { return Instance() && Instance()->Loaded() ? Instance() : nullptr; }

void frmoptions::OnLoad()
{
    struct LoadingScope {
        bool& flag;
        ~LoadingScope() { flag = false; }
    } loading{Loading};
    Loading = true;

    cmdSetColors.Attach(Item(IDC_OP_SETCOLORS));
    cmdHelp.Attach(Item(IDC_OP_HELP));
    cmdExit.Attach(Item(IDC_OP_EXIT));
    InitForm(*this);
    Recolor(false);

    for (const BoxSetting& box : kBoxes) SetChecked(box.id, Options.*box.field);
    EnableMultilineControls(Options.UseMultiline);
    FillList(IDC_OP_BURSTSECS, BurstChoices(), BurstIndex(Options.MultilineBurst));
    FillList(IDC_OP_LINES, LineChoices(), LinesIndex(Options.CharsInLine));

    EnableWindow(Item(IDC_OP_TXTALIAS), Options.UseAlias);
    EnableWindow(Item(IDC_OP_LBLALIAS), Options.UseAlias);
    SetWindowTextA(Item(IDC_OP_TXTALIAS), Options.AliasName.c_str());

    if (Options.UIMode >= 0 && Options.UIMode <= 2) SetChecked(kModeButtons[Options.UIMode], true);
    EnableWindow(cmdSetColors.hwnd(), Options.UIMode == UIUser);
    // A display of 256 colours or fewer cannot show the two colourful modes.
    if (Options.LowColorDisplay)
        for (int id : {IDC_OP_LABEL3, IDC_OP_UISTD, IDC_OP_UIENH}) EnableWindow(Item(id), FALSE);
}

void frmoptions::Recolor(bool rebuildPanel)
{
    if (!Loaded()) return;
    SetFormColor(*this);
    for (ZunButton* button : {&cmdSetColors, &cmdHelp, &cmdExit}) SetButtonColor(*button);
    // The check boxes and option buttons take the form's colour as they repaint.
    for (HWND child = GetWindow(hwnd(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        InvalidateRect(child, nullptr, TRUE);
    DrawFormEdge(*this);
    if (!rebuildPanel || !reloadControlPanel_) return;
    reloadControlPanel_();
    // The rebuilt panel comes up on top; the user is still working here.
    FormOnTop(*this);
}

bool frmoptions::Checked(int id) const { return SendMessageA(Item(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }

void frmoptions::SetChecked(int id, bool on)
{
    SendMessageA(Item(id), BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
}

void frmoptions::FillList(int id, const std::vector<std::string>& entries, int selected)
{
    HWND list = Item(id);
    SendMessageA(list, CB_RESETCONTENT, 0, 0);
    for (const std::string& entry : entries) SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(selected), 0);
}

void frmoptions::EnableMultilineControls(bool on)
{
    for (int id : kMultilineControls) EnableWindow(Item(id), on);
}

void frmoptions::CheckBox_Click(int id)
{
    if (Loading) return;
    for (const BoxSetting& box : kBoxes) {
        if (box.id != id) continue;
        const bool on = Checked(id);
        Options.*box.field = on;
        WriteSetting(box.setting, on ? kTrueText : kFalseText);
    }
    if (id == IDC_OP_MULTILINE) chkMultiline_Click();
    if (id == IDC_OP_ALIAS) chkAlias_Click();
}

void frmoptions::chkMultiline_Click() { EnableMultilineControls(Checked(IDC_OP_MULTILINE)); }

void frmoptions::chkAlias_Click()
{
    const bool on = Checked(IDC_OP_ALIAS);
    EnableWindow(Item(IDC_OP_TXTALIAS), on);
    EnableWindow(Item(IDC_OP_LBLALIAS), on);
}

void frmoptions::cboBurstSecs_Click()
{
    if (Loading) return;
    const LRESULT chosen = SendMessageA(Item(IDC_OP_BURSTSECS), CB_GETCURSEL, 0, 0);
    if (chosen < 0 || chosen >= static_cast<LRESULT>(BurstChoices().size())) return;
    Options.MultilineBurst = BurstOfChoice(BurstChoices()[static_cast<std::size_t>(chosen)]);
    WriteSetting(Setting::MultilineBurst, BurstText(Options.MultilineBurst, UserDecimalPoint()));
}

void frmoptions::cboLines_Click()
{
    if (Loading) return;
    const LRESULT chosen = SendMessageA(Item(IDC_OP_LINES), CB_GETCURSEL, 0, 0);
    if (chosen < 0 || chosen >= static_cast<LRESULT>(LineChoices().size())) return;
    Options.CharsInLine = std::stoi(LineChoices()[static_cast<std::size_t>(chosen)]);
    WriteSetting(Setting::CharsInLine, std::to_string(Options.CharsInLine));
}

void frmoptions::optUI_Click(int mode)
{
    if (Loading) return;
    Options.UIMode = static_cast<std::int16_t>(mode);
    WriteSetting(Setting::UIMode, std::to_string(mode));
    EnableWindow(cmdSetColors.hwnd(), mode == UIUser);
    Recolor(true);
}

void frmoptions::cmdSetColors_Click()
{
    frmSetColors colors;
    colors.Show();
    WaitWhileShown(colors, true);
    Recolor(true);
}

void frmoptions::cmdHelp_Click() { RunWinHelp(hwnd(), "Options", 0); }

// Only Exit keeps the alias typed; the close box leaves the stored one.
void frmoptions::cmdExit_Click()
{
    Options.AliasName = WindowTextOf(Item(IDC_OP_TXTALIAS));
    WriteSetting(Setting::AliasName, Options.AliasName);
    Unload();
}

void frmoptions::OnCommand(int id, int code, HWND)
{
    switch (id) {
    case IDC_OP_BURSTSECS:
        if (code == CBN_SELCHANGE) cboBurstSecs_Click();
        return;
    case IDC_OP_LINES:
        if (code == CBN_SELCHANGE) cboLines_Click();
        return;
    default:
        break;
    }
    if (code != BN_CLICKED) return;
    switch (id) {
    case IDC_OP_UISTD: return optUI_Click(UIStandard);
    case IDC_OP_UIENH: return optUI_Click(UIEnhanced);
    case IDC_OP_UIUSER: return optUI_Click(UIUser);
    case IDC_OP_SETCOLORS: return cmdSetColors_Click();
    case IDC_OP_HELP: return cmdHelp_Click();
    case IDC_OP_EXIT: return cmdExit_Click();
    case IDCANCEL: Unload(); return;  // Escape, as the close box
    default: return CheckBox_Click(id);
    }
}
