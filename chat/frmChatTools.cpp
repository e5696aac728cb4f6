// frmChatTools: the control panel beside the chat room. Every change of the
// fade made here goes into Options, into the registry and onto the preview
// at once, and then the keyboard goes back to the chat room.
#include "frmChatTools.h"

#include <algorithm>
#include <cstring>

#include "ChatHooks.h"
#include "Convert.h"
#include "ErrorTrap.h"
#include "FormPlacement.h"
#include "InputBox.h"
#include "SchemeFiles.h"
#include "Schemes.h"
#include "modAOLFunctions.h"
#include "modCmnDlg.h"
#include "modFindChild.h"
#include "modMsgBox.h"
#include "modRegKeys.h"
#include "modWin32API.h"
#include "RegKey.h"
#include "resource.h"

namespace {

constexpr long kCollapsedHeight = 705;  // twips
constexpr long kExpandedHeight = 990;

// The panel's layout in pixels: two rows always shown, a third when expanded.
constexpr int kClientWidth = 506;
constexpr int kRow1 = 4, kRow2 = 25, kRow3 = 48, kRowHeight = 18;

const char* BoolText(bool value) { return value ? "True" : "False"; }

// The width a check box needs to show `caption` whole in `font`: the box,
// the space after it, the text and a little room at the end.
int CheckBoxWidth(HWND window, HFONT font, const char* caption)
{
    HDC dc = GetDC(window);
    if (!dc) return 0;
    HGDIOBJ old = SelectObject(dc, font ? font : GetStockObject(DEFAULT_GUI_FONT));
    SIZE text{}, digit{};
    GetTextExtentPoint32A(dc, caption, static_cast<int>(strlen(caption)), &text);
    GetTextExtentPoint32A(dc, "0", 1, &digit);
    SelectObject(dc, old);
    ReleaseDC(window, dc);
    return GetSystemMetrics(SM_CXMENUCHECK) + digit.cx + text.cx + 4;
}

// The "on" look of optOn and optOff: a red face, a bright red frame, white text.
void PaintOnLook(FlatButton& button)
{
    button.BackColor = 192;
    button.Highlight = 255;
    button.ForeColor = 0x00FFFFFF;
    button.Refresh();
}

}  // namespace

frmChatTools& ChatTools()
{
    static frmChatTools panel;
    return panel;
}

ChatSession& TheChatSession()
{
    static ChatSession session(ChatTools());
    return session;
}

frmChatTools::frmChatTools() : Form("frmChatTools", IDD_CHATTOOLS) {}

frmChatTools::~frmChatTools() { Unload(); }

void frmChatTools::CreateControls()
{
    HWND me = hwnd();
    HFONT font = reinterpret_cast<HFONT>(SendMessageA(me, WM_GETFONT, 0, 0));
    auto child = [&](const char* cls, const char* text, DWORD style, int id, int x, int y, int w, int h) {
        HWND c = CreateWindowExA(0, cls, text, WS_CHILD | WS_VISIBLE | style, x, y, w, h, me,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr),
                                 nullptr);
        SendMessageA(c, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        return c;
    };
    // Row 1: schemes, fade number, on/off, collapse and close.
    cboSchemes = child("COMBOBOX", "", CBS_DROPDOWNLIST | CBS_SORT | WS_VSCROLL | WS_TABSTOP, IDC_CT_SCHEMES, 4,
                       kRow1 - 1, 150, 200);
    SendMessageA(cboSchemes, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), kRowHeight - 6);
    for (int k = 0; k < 6; ++k) {
        const char digit[2] = {static_cast<char>('1' + k), 0};
        optFade[k].Create(me, IDC_CT_FADE1 + k, digit, 158 + k * 18, kRow1, 18, kRowHeight);
    }
    optOn.Create(me, IDC_CT_ON, "On", 272, kRow1, 34, kRowHeight);
    optOff.Create(me, IDC_CT_OFF, "Off", 308, kRow1, 34, kRowHeight);
    cmdMin.Create(me, IDC_CT_MIN, "", kClientWidth - 40, kRow1, 18, kRowHeight);
    cmdExit.Create(me, IDC_CT_EXIT, "x", kClientWidth - 20, kRow1, 18, kRowHeight);
    // Row 2: the colours and the preview strip.
    for (int k = 0; k < 6; ++k) cmdColor[k].Create(me, IDC_CT_COLOR1 + k, "", 4 + k * 25, kRow2, 22, kRowHeight);
    picPreview.Create(me, IDC_CT_PREVIEW, 158, kRow2, kClientWidth - 162, kRowHeight);
    SetWindowLongPtrA(picPreview.hwnd(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    // Row 3, below the separator: styles, solid, scheme commands.
    Line1 = child("STATIC", "", SS_ETCHEDHORZ, IDC_CT_LINE1, 2, kRow3 - 3, kClientWidth - 4, 2);
    const int styleTop = kRow3, styleHeight = 15;
    optWavy.Create(me, IDC_CT_WAVY, "Wavy", 4, styleTop, 36, styleHeight);
    optBold.Create(me, IDC_CT_BOLD, "Bold", 42, styleTop, 36, styleHeight);
    optItalic.Create(me, IDC_CT_ITALIC, "Italic", 80, styleTop, 36, styleHeight);
    optULine.Create(me, IDC_CT_ULINE, "U-Line", 118, styleTop, 38, styleHeight);
    // The switch takes the width its caption needs in this system's font, and
    // the scheme commands share the rest of the row.
    const char* solidCaption = "Use colors without fading";
    const int solidWidth = std::max(152, CheckBoxWidth(me, font, solidCaption));
    chkSolid = child("BUTTON", solidCaption, BS_AUTOCHECKBOX | WS_TABSTOP, IDC_CT_SOLID, 160, styleTop, solidWidth,
                     styleHeight);
    const int first = 160 + solidWidth + 4, gap = 2;
    const int room = kClientWidth - 4 - first - 3 * gap;  // 180 with the narrowest switch
    const int narrow = room * 44 / 180, wide = room - 3 * narrow;
    cmdSave.Create(me, IDC_CT_SAVE, "Save", first, styleTop, narrow, styleHeight);
    cmdEmail.Create(me, IDC_CT_EMAIL, "E-Mail", first + narrow + gap, styleTop, narrow, styleHeight);
    cmdDel.Create(me, IDC_CT_DEL, "Delete", first + 2 * (narrow + gap), styleTop, narrow, styleHeight);
    cmdRefresh.Create(me, IDC_CT_REFRESH, "Refresh", first + 3 * (narrow + gap), styleTop, wide, styleHeight);
}

void frmChatTools::OnLoad()
{
    ErrorTrap::Ignoring([&] {
        CreateControls();
        SetFormColor(*this);
        for (FlatButton* b : {&optFade[0], &optFade[1], &optFade[2], &optFade[3], &optFade[4], &optFade[5],
                              &optWavy, &optBold, &optItalic, &optULine, &optOn, &optOff, &cmdSave, &cmdEmail,
                              &cmdDel, &cmdRefresh})
            SetOptColor(false, *b);
        for (ZunButton* b : {&cmdMin, &cmdExit}) SetButtonColor(*b);
        for (ZunButton& b : cmdColor) {
            SetButtonColor(b);
            b.FillerBackground = BackColor();
        }
        Loading = true;
    });
    ErrorTrap::Ignoring([&] { ApplyState(ReadSetting(Setting::PanelState) == "Max"); });
    ErrorTrap::Ignoring([&] {
        const auto top = ToLong(ReadSetting(Setting::PanelTop));
        const auto left = ToLong(ReadSetting(Setting::PanelLeft));
        if (top) {
            Move(left.value_or(0), *top, Width(), Height());
            RePosForm(*this, 1);
            RePosForm(*this, 0);
        } else {
            CenterForm(*this);
        }
    });
    ErrorTrap::Ignoring([&] { GetSchemes(); });
    PanelFadeNumber = Options.FadeNumber;
    ErrorTrap::Ignoring([&] { Options.FaderOn ? FadeOn() : FadeOff(); });
    ErrorTrap::Ignoring([&] { SetOptState(); });
    ErrorTrap::Ignoring([&] {
        const LRESULT found = SendMessageA(cboSchemes, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                           reinterpret_cast<LPARAM>(Options.DefaultScheme.c_str()));
        SendMessageA(cboSchemes, CB_SETCURSEL, static_cast<WPARAM>(found), 0);
        cboSchemes_Click();
    });
    ErrorTrap::Ignoring([&] {
        optWavy.Value = Options.Wavy;
        optBold.Value = Options.Bold;
        optItalic.Value = Options.Italic;
        optULine.Value = Options.ULine;
        SendMessageA(chkSolid, BM_SETCHECK, Options.SolidFade ? BST_CHECKED : BST_UNCHECKED, 0);
        SetOptState();
    });
    if (AOLWindow) SetWindowLongPtrA(hwnd(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(AOLWindow));
    FocusChatRoom();
    Loading = false;
}

void frmChatTools::OnUnload()
{
    toolTips_.Forget();  // destroyed with the panel it belongs to
}

void frmChatTools::ShowPanel()
{
    Show();
    FormOnTop(*this);
}

void frmChatTools::HidePanel() { Hide(); }

void frmChatTools::KeepInFront()
{
    if (Visible()) FormOnTop(*this);
}

void frmChatTools::FocusChatRoom()
{
    if (Loading || !ChatRoomWindow || !IsWindow(ChatRoomWindow)) return;
    // A window of another thread takes the keyboard only while the two
    // threads share their input state.
    HWND input = FindChildByClass(ChatRoomWindow, "RICHCNTL", 2);
    HWND target = input ? input : ChatRoomWindow;
    if (AOLWindow && GetForegroundWindow() != AOLWindow) {
        SetForegroundWindow(AOLWindow);
        for (int i = 0; i < 10 && GetForegroundWindow() != AOLWindow; ++i) Pause(20);
    }
    // AOL's thread takes the activation as a message of its own and may then
    // put the keyboard back where it last was; place it again until it stays.
    PlaceKeyboard(target, true);
    for (int i = 0; i < 5; ++i) {
        Pause(30);
        if (PlaceKeyboard(target, false)) break;
        PlaceKeyboard(target, true);
    }
}

bool frmChatTools::PlaceKeyboard(HWND target, bool move)
{
    const DWORD mine = GetCurrentThreadId();
    const DWORD theirs = GetWindowThreadProcessId(target, nullptr);
    const bool attached = theirs != mine && AttachThreadInput(mine, theirs, TRUE);
    if (move) SetFocus(target);
    const bool there = GetFocus() == target;
    if (attached) AttachThreadInput(mine, theirs, FALSE);
    return there;
}

void frmChatTools::ApplyState(bool expanded)
{
    SendMessageA(cmdMin.hwnd(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(expanded ? "-" : "+"));
    SetMinToolTip(expanded ? "Close Options" : "Show Options");
    RECT frame{0, 0, kClientWidth, 0};
    AdjustWindowRectEx(&frame, GetWindowLongA(hwnd(), GWL_STYLE), FALSE, GetWindowLongA(hwnd(), GWL_EXSTYLE));
    const long width = (frame.right - frame.left) * TwipsPerPixelX();
    Move(Left(), Top(), width, expanded ? kExpandedHeight : kCollapsedHeight);
    ShowWindow(Line1, expanded ? SW_SHOWNA : SW_HIDE);
    DrawFormEdge(*this);
}

// The collapse button says what a click will do.
void frmChatTools::SetMinToolTip(const std::string& text)
{
    cmdMinToolTip = text;
    toolTips_.Set(hwnd(), cmdMin.hwnd(), text);
}

// ---- schemes ---------------------------------------------------------------

void frmChatTools::GetSchemes()
{
    const RegKey key = RegKey::Open(HKEY_CURRENT_USER, std::string(kSettingsRoot) + Section::Schemes, KEY_READ);
    if (!key) {
        ShowMsg(kNoSchemesKeyMessage, 16);
        return;
    }
    SendMessageA(cboSchemes, CB_RESETCONTENT, 0, 0);
    for (const std::string& name : SettingSubkeys(Section::Schemes))
        SendMessageA(cboSchemes, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
}

std::string frmChatTools::SchemeText() const
{
    char text[2048] = "";
    const LRESULT index = SendMessageA(cboSchemes, CB_GETCURSEL, 0, 0);
    if (index != CB_ERR) SendMessageA(cboSchemes, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
    return text;
}

void frmChatTools::SelectScheme(const std::string& name)
{
    const LRESULT found =
        SendMessageA(cboSchemes, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(name.c_str()));
    SendMessageA(cboSchemes, CB_SETCURSEL, static_cast<WPARAM>(found), 0);
}

void frmChatTools::cboSchemes_Click()
{
    const std::string name = SchemeText();
    const std::string section = SchemeSection(name);
    auto number = [](const std::string& text) {
        const auto n = ToLong(text);
        if (!n) throw RuntimeError(Err::TypeMismatch, "Type mismatch");
        return *n;
    };
    // The fade number is a 16-bit number: one out of that range keeps the
    // previous one instead of wrapping round ("70000" is no 4464).
    auto fadeNumber = [&number](const std::string& text) {
        const long n = number(text);
        const auto small = ToInteger(std::to_string(n));
        if (!small) throw RuntimeError(Err::Overflow, "Overflow");
        return *small;
    };
    ErrorTrap::Ignoring([&] {
        PanelFadeNumber = fadeNumber(ReadSetting(section, ValueName::FadeNumber));
        Options.FadeNumber = PanelFadeNumber;
    });
    ErrorTrap::Ignoring([&] {
        WriteSetting(Setting::FadeNumber, std::to_string(Options.FadeNumber));
        FadeNumber();
    });
    for (int k = 0; k < 6; ++k) {
        ErrorTrap::Ignoring([&] { Options.Colors[k] = number(ReadSetting(section, kColorValueNames[k])); });
        PaintColorButton(k, Options.Colors[k]);
        WriteSetting(Setting::Colors[k], std::to_string(Options.Colors[k]));
    }
    const std::pair<bool*, const SettingName*> styles[] = {{&Options.Wavy, &Setting::Wavy},
                                                           {&Options.Bold, &Setting::Bold},
                                                           {&Options.Italic, &Setting::Italic},
                                                           {&Options.ULine, &Setting::ULine}};
    for (const auto& [field, setting] : styles) {
        if (const auto value = ToBool(ReadSetting(section, setting->name))) *field = *value;
        WriteSetting(*setting, BoolText(*field));
    }
    optWavy.Value = Options.Wavy;
    optBold.Value = Options.Bold;
    optItalic.Value = Options.Italic;
    optULine.Value = Options.ULine;
    Options.DefaultScheme = name;
    WriteSetting(Setting::DefaultScheme, name);
    picPreview_Paint();
    SetOptState();
    FocusChatRoom();
}

// ---- the working fade ------------------------------------------------------

void frmChatTools::PaintColorButton(int index, ColorValue color)
{
    cmdColor[index].BackColor = color;
    cmdColor[index].Refresh();
}

void frmChatTools::FadeNumber()
{
    PaintColorButton(0, Options.Colors[0]);
    const int n = PanelFadeNumber;
    if (n >= 1 && n <= 6) {
        for (int k = 1; k < 6; ++k) {
            ShowWindow(cmdColor[k].hwnd(), k < n ? SW_SHOWNA : SW_HIDE);
            if (k < n) PaintColorButton(k, Options.Colors[k]);
        }
        for (int k = 0; k < 6; ++k) {
            optFade[k].Value = k + 1 == n;
            SetOptColor(k + 1 == n, optFade[k]);
        }
    }
    picPreview_Paint();
}

void frmChatTools::cmdColor_Click(int index)
{
    FormNotOnTop(*this);
    const ColorValue chosen = PickColor(hwnd(), cmdColor[index].BackColor);
    FormOnTop(*this);
    Options.Colors[index] = chosen;
    PaintColorButton(index, chosen);
    WriteSetting(Setting::Colors[index], std::to_string(chosen));
    picPreview_Paint();
    FocusChatRoom();
}

void frmChatTools::optFade_Click(int number)
{
    PanelFadeNumber = static_cast<std::int16_t>(number);
    FadeNumber();
    Options.FadeNumber = PanelFadeNumber;
    WriteSetting(Setting::FadeNumber, std::to_string(number));
    FocusChatRoom();
}

void frmChatTools::ToggleStyle(FlatButton& button, bool& field, const SettingName& setting)
{
    button.Value = !button.Value;
    SetOptColor(button.Value, button);
    field = button.Value;
    WriteSetting(setting, BoolText(field));
    FocusChatRoom();
}

void frmChatTools::optWavy_Click() { ToggleStyle(optWavy, Options.Wavy, Setting::Wavy); }
void frmChatTools::optBold_Click() { ToggleStyle(optBold, Options.Bold, Setting::Bold); }
void frmChatTools::optItalic_Click() { ToggleStyle(optItalic, Options.Italic, Setting::Italic); }
void frmChatTools::optULine_Click() { ToggleStyle(optULine, Options.ULine, Setting::ULine); }

void frmChatTools::SetOptState()
{
    for (FlatButton* b : {&optWavy, &optBold, &optItalic, &optULine}) SetOptColor(b->Value, *b);
}

void frmChatTools::chkSolid_Click()
{
    Options.SolidFade = SendMessageA(chkSolid, BM_GETCHECK, 0, 0) == BST_CHECKED;
    WriteSetting(Setting::SolidFade, BoolText(Options.SolidFade));
}

void frmChatTools::optOn_Click()
{
    Options.FaderOn = true;
    WriteSetting(Setting::FaderOn, "True");
    optOn.Value = true;
    optOff.Value = false;
    PaintOnLook(optOn);
    SetOptColor(false, optOff);
    FocusChatRoom();
}

void frmChatTools::optOff_Click()
{
    Options.FaderOn = false;
    WriteSetting(Setting::FaderOn, "False");
    optOff.Value = true;
    optOn.Value = false;
    PaintOnLook(optOff);
    SetOptColor(false, optOn);
    FocusChatRoom();
}

void frmChatTools::FadeOn() { optOn_Click(); }
void frmChatTools::FadeOff() { optOff_Click(); }

// ---- scheme commands -------------------------------------------------------

void frmChatTools::cmdSave_Click()
{
    ErrorTrap trap("frmChatTools", "cmdSave_Click");
    std::string name;
    trap.Run([&] {
        FormNotOnTop(*this);
        name = InputBox("Please enter the name of this Fade Scheme below.", "Prismo", SchemeText(), hwnd());
        FormOnTop(*this);
    });
    if (name.empty()) return;
    bool exists = false;
    const LRESULT count = SendMessageA(cboSchemes, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count && !exists; ++i) {
        char entry[2048] = "";
        SendMessageA(cboSchemes, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(entry));
        exists = name == entry;
    }
    if (exists) {
        if (AskMsg("The Scheme ~B~CB" + name + "~B~CN already exists.~N ~NDo you wish to replace it with these new "
                   "settings?",
                   68) != IDYES)
            return;
    } else {
        SendMessageA(cboSchemes, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
        SelectScheme(name);
    }
    const std::string section = SchemeSection(name);
    trap.Run([&] {
        WriteSetting(section, ValueName::FadeNumber, std::to_string(PanelFadeNumber));
        for (int k = 0; k < PanelFadeNumber && k < 6; ++k)
            WriteSetting(section, kColorValueNames[k], std::to_string(cmdColor[k].BackColor));
        WriteSetting(section, ValueName::Wavy, BoolText(Options.Wavy));
        WriteSetting(section, ValueName::Bold, BoolText(Options.Bold));
        WriteSetting(section, ValueName::Italic, BoolText(Options.Italic));
        WriteSetting(section, ValueName::ULine, BoolText(Options.ULine));
    });
    FocusChatRoom();
}

void frmChatTools::cmdDel_Click()
{
    const std::string name = SchemeText();
    // With no scheme selected there is nothing to delete; an empty name
    // would name the key that holds every scheme.
    if (name.empty()) return;
    if (AskMsg("Are you sure you want to delete the scheme ~B~CB" + name + "~B~CN from your scheme queue?", 68) !=
        IDYES)
        return;
    DeleteSettingKey(SchemeSection(name));
    GetSchemes();
    if (SendMessageA(cboSchemes, CB_GETCOUNT, 0, 0) > 0) {
        SendMessageA(cboSchemes, CB_SETCURSEL, 0, 0);
        cboSchemes_Click();
    }
    FocusChatRoom();
}

void frmChatTools::cmdRefresh_Click()
{
    const std::string name = SchemeText();
    UpdateFadeSchemes(IncomingFolder());
    GetSchemes();
    SelectScheme(name);
}

// The scheme mailer arrives with the e-mail part of the program.
void frmChatTools::cmdEmail_Click()
{
    RunTrapped("cmdEmail_Click", [] { OpenProgramWindow({ProgramWindow::EMailFades, ""}); });
}

void frmChatTools::cmdMin_Click()
{
    // Compared as the display shows the expanded height: at 120 DPI 990
    // twips are 82.5 pixels, and the panel is 82 of them high.
    const bool expand = Height() != ShownTwips(kExpandedHeight, TwipsPerPixelY());
    ApplyState(expand);
    if (expand) {
        RePosForm(*this, 1);
        RePosForm(*this, 0);
    }
    WriteSetting(Setting::PanelState, expand ? "Max" : "Min");
}

void frmChatTools::cmdExit_Click() { HidePanel(); }

// ---- dispatch --------------------------------------------------------------

void frmChatTools::OnCommand(int id, int code, HWND)
{
    if (id == IDC_CT_SCHEMES) {
        if (code == CBN_SELCHANGE) cboSchemes_Click();
        return;
    }
    if (code != BN_CLICKED) return;
    if (id >= IDC_CT_COLOR1 && id < IDC_CT_COLOR1 + 6) return cmdColor_Click(id - IDC_CT_COLOR1);
    if (id >= IDC_CT_FADE1 && id < IDC_CT_FADE1 + 6) return optFade_Click(id - IDC_CT_FADE1 + 1);
    switch (id) {
    case IDC_CT_WAVY: return optWavy_Click();
    case IDC_CT_BOLD: return optBold_Click();
    case IDC_CT_ITALIC: return optItalic_Click();
    case IDC_CT_ULINE: return optULine_Click();
    case IDC_CT_SOLID: return chkSolid_Click();
    case IDC_CT_ON: return optOn_Click();
    case IDC_CT_OFF: return optOff_Click();
    case IDC_CT_SAVE: return cmdSave_Click();
    case IDC_CT_EMAIL: return cmdEmail_Click();
    case IDC_CT_DEL: return cmdDel_Click();
    case IDC_CT_REFRESH: return cmdRefresh_Click();
    case IDC_CT_MIN: return cmdMin_Click();
    case IDC_CT_EXIT: return cmdExit_Click();
    default: return;
    }
}
