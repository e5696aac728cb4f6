// frmEFade: the e-mail fader toolbar. A fade copies the highlight out of
// AOL's mail editor through the clipboard, fades it, and pastes it back over
// the highlight in AOL's own "AOLMAIL" format; the user's clipboard text is
// put back afterwards.
#include "frmEFade.h"

#include "ChatSession.h"
#include "EMailText.h"
#include "ErrorTrap.h"
#include "Options.h"
#include "frmChatTools.h"
#include "frmFadeMsg.h"
#include "modAOLFunctions.h"
#include "modFade.h"
#include "modFindChild.h"
#include "modMsgBox.h"
#include "modRegKeys.h"
#include "modRichText.h"
#include "modWin32API.h"
#include "resource.h"

namespace {

// AOL's mail editor commands.
constexpr WPARAM kEditorUndo = 20000, kEditorCopy = 20002, kEditorPaste = 20003;

// Twips the toolbar reaches past its last button.
constexpr long kRightMargin = 110;

HWND MailEditor(HWND mail) { return mail ? FindWindowExA(mail, nullptr, "RICHCNTL", nullptr) : nullptr; }

}  // namespace

frmEFade& EFade()
{
    static frmEFade form;
    return form;
}

bool ShowEMailToolbar()
{
    frmEFade& toolbar = EFade();
    if (!toolbar.Loaded() && !toolbar.Load()) return false;
    ShowWindow(toolbar.hwnd(), SW_SHOWNOACTIVATE);
    return true;
}

bool UnloadEMailToolbar()
{
    EFade().Unload();
    return true;
}

frmEFade::frmEFade() : Form("frmEFade", IDD_EFADE) {}

frmEFade::~frmEFade() { Unload(); }

void frmEFade::OnLoad()
{
    SetCaption("Prismo E-Fade");  // the name the task list shows
    Label1 = Item(IDC_EF_LABEL1);
    cmdFade.Attach(Item(IDC_EF_FADE));
    cmdUndo.Attach(Item(IDC_EF_UNDO));
    cmdCP.Attach(Item(IDC_EF_CP));
    cmdExit.Attach(Item(IDC_EF_EXIT));
    toolTips_.Set(hwnd(), cmdFade.hwnd(), EFadeText::ApplyFade);
    toolTips_.Set(hwnd(), cmdUndo.hwnd(), EFadeText::UndoChanges);
    toolTips_.Set(hwnd(), cmdCP.hwnd(), EFadeText::ControlPanel);

    // Its width first, so that a centred toolbar is centred as it is shown.
    RECT cp{};
    GetWindowRect(cmdCP.hwnd(), &cp);
    MapWindowPoints(nullptr, hwnd(), reinterpret_cast<POINT*>(&cp), 2);
    Move(Left(), Top(), cp.right * TwipsPerPixelX() + kRightMargin, Height());
    FormOnTop(*this);
    ErrorTrap::Ignoring([&] { RestoreFormPlace(*this, Setting::EFadeTop, Setting::EFadeLeft); });
    SetFormColor(*this);
    for (ZunButton* button : {&cmdFade, &cmdUndo, &cmdCP}) SetButtonColor(*button);
    SetOptColor(false, cmdExit);
    // Owned by AOL's window, the toolbar stays with it (above it, hidden with it).
    SetWindowLongPtrA(hwnd(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(AOLWindow));
}

void frmEFade::OnUnload() { toolTips_.Forget(); }

void frmEFade::OnCommand(int id, int code, HWND)
{
    if (code != BN_CLICKED) return;
    switch (id) {
    case IDC_EF_FADE: return cmdFade_Click();
    case IDC_EF_UNDO: return cmdUndo_Click();
    case IDC_EF_CP: return cmdCP_Click();
    case IDC_EF_EXIT: return cmdExit_Click();
    }
}

// Label1 is the toolbar's title bar: the system moves the toolbar by it, and
// the place is stored once the user lets go.
bool frmEFade::OnMessage(UINT message, WPARAM, LPARAM lParam, LRESULT& result)
{
    if (message == WM_NCHITTEST) {
        const POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        RECT label{};
        GetWindowRect(Label1, &label);
        if (!PtInRect(&label, at)) return false;
        result = HTCAPTION;
        return true;
    }
    if (message == WM_EXITSIZEMOVE) Label1_MouseDown();
    return false;
}

// After a drag by Label1: the new place is stored, Top first.
void frmEFade::Label1_MouseDown()
{
    WriteSetting(Setting::EFadeTop, std::to_string(Top()));
    WriteSetting(Setting::EFadeLeft, std::to_string(Left()));
}

// A fade waits with events running; it is one of the things that never nest,
// so a second press while it runs is ignored.
void frmEFade::cmdFade_Click()
{
    TheChatSession().RunAlone([&] { ApplyFade(); });
}

void frmEFade::ApplyFade()
{
    ErrorTrap trap("frmEFade", "cmdFade_Click");
    HWND mail = nullptr, editor = nullptr;
    if (!trap.Run([&] {
            mail = IsEMail(GetTopWindow(AOLMDIClient));
            if (!mail) mail = EMailWindow;
            editor = MailEditor(mail);
        }))
        return;
    const HWND me = hwnd();
    // The user's clipboard, kept whole so that a refusal puts back everything.
    ClipboardTexts before;
    std::string kept, copied;
    if (!trap.Run([&] {
            before = SaveClipboardTexts(me);
            kept = GetRichText(me);
            ClearClipboard(me);
            SendMessageA(editor, WM_COMMAND, kEditorCopy, 0);
            copied = GetClipboardText(me);
        }))
        return;

    const HighlightCheck check = CheckHighlight(copied);
    if (check != HighlightCheck::Fade) {
        RestoreClipboardTexts(me, before);
        ShowMsg(check == HighlightCheck::NoText ? EFadeText::NoTextFound : EFadeText::MessageTooLong,
                check == HighlightCheck::NoText ? 64 : 16);
        return;
    }

    // Shown without taking the keyboard from the mail.
    trap.Run([&] {
        if (FadeMsg().Loaded() || FadeMsg().Load()) ShowWindow(FadeMsg().hwnd(), SW_SHOWNA);
    });
    Pause(500);
    // The toolbar closed, AOL or the program going: the mail stays untouched.
    if (!Loaded() || hwnd() != me || TheChatSession().Leaving() || !DoEvents()) {
        FadeMsg().Hide();
        RestoreClipboardTexts(IsWindow(me) ? me : nullptr, before);
        return;
    }
    trap.Run([&] {
        std::string faded = copied;
        FadeEngine(faded);
        PutRichText(me, faded);
        SendMessageA(editor, WM_COMMAND, kEditorPaste, 0);
    });
    trap.Run([&] { FadeMsg().Hide(); });
    trap.Run([&] {
        ClearClipboard(me);
        PutRichText(me, kept);
    });
}

void frmEFade::cmdUndo_Click()
{
    ErrorTrap trap("frmEFade", "cmdUndo_Click");
    trap.Run([&] { SendMessageA(MailEditor(EMailWindow), WM_COMMAND, kEditorUndo, 0); });
}

void frmEFade::cmdCP_Click()
{
    ErrorTrap trap("frmEFade", "cmdCP_Click");
    trap.Run([&] { TheChatSession().ShowPanelAskedFor(); });
}

void frmEFade::cmdExit_Click() { Unload(); }
