// frmEMailFade: mailing Fade Schemes. The run drives AOL's own windows with
// the pauses a person would leave: a new mail, the "Attachments" window and
// its file dialog for each scheme file, then the subject and a formatted body
// pasted through AOL's "AOLMAIL" clipboard format.
#include "frmEMailFade.h"

#include "AOLState.h"
#include "ChatHooks.h"
#include "ChatSession.h"
#include "Convert.h"
#include "EMailText.h"
#include "ErrorTrap.h"
#include "Options.h"
#include "ProgramInfo.h"
#include "RegKey.h"
#include "SchemeFiles.h"
#include "Schemes.h"
#include "frmChatTools.h"
#include "modAOLFunctions.h"
#include "modFindChild.h"
#include "modLaunch32.h"
#include "modMsgBox.h"
#include "modRegKeys.h"
#include "modRichText.h"
#include "modWin32API.h"
#include "resource.h"

namespace {

constexpr WPARAM kEditorPaste = 20003;

// A click as AOL's controls take it: button down, then up.
void Click(HWND control)
{
    SendMessageA(control, WM_LBUTTONDOWN, 0, 0);
    SendMessageA(control, WM_LBUTTONUP, 0, 0);
}

// The mail's attach icon: AOL 5.0 has one icon more before it.
HWND AttachIcon(HWND mail)
{
    if (AOLVersion == "4") return FindChildByClass(mail, "_AOL_ICON", 13);
    if (AOLVersion == "5") return FindChildByClass(mail, "_AOL_ICON", 14);
    return nullptr;
}

const char* FileDialogCaption() { return AOLEdition.UK || AOLEdition.Canada ? "Open" : "Attach"; }

}  // namespace

frmEMailFade& EMailFade()
{
    static frmEMailFade form;
    return form;
}

bool ShowEMailFades()
{
    EMailFade().Show();
    return true;
}

frmEMailFade::frmEMailFade() : Form("frmEMailFade", IDD_EMAILFADE) {}

frmEMailFade::~frmEMailFade() { Unload(); }

void frmEMailFade::OnLoad()
{
    SetCaption(SchemeMailText::Caption);
    lstSchemes = Item(IDC_EM_SCHEMES);
    cmdEmail.Attach(Item(IDC_EM_EMAIL));
    cmdExit.Attach(Item(IDC_EM_EXIT));
    InitForm(*this);
    SetButtonColor(cmdEmail);
    SetButtonColor(cmdExit);
    DrawFormEdge(*this);
    GetSchemes();
}

void frmEMailFade::OnCommand(int id, int code, HWND)
{
    if (code != BN_CLICKED) return;
    if (id == IDC_EM_EMAIL) cmdEmail_Click();
    if (id == IDC_EM_EXIT && !running_) Unload();
}

void frmEMailFade::GetSchemes()
{
    ErrorTrap trap("frmEMailFade", "GetSchemes");
    trap.Run([&] {
        const RegKey key =
            RegKey::Open(HKEY_CURRENT_USER, std::string(kSettingsRoot) + Section::Schemes, KEY_READ);
        if (!key) return ShowMsg(kNoSchemesKeyMessage, 16);
        SendMessageA(lstSchemes, LB_RESETCONTENT, 0, 0);
        for (const std::string& name : SettingSubkeys(Section::Schemes))
            SendMessageA(lstSchemes, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    });
}

std::vector<std::string> frmEMailFade::SelectedNames() const
{
    std::vector<std::string> names;
    const int count = static_cast<int>(SendMessageA(lstSchemes, LB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i)
        if (SendMessageA(lstSchemes, LB_GETSEL, static_cast<WPARAM>(i), 0) > 0) names.push_back(ListBoxText(lstSchemes, i));
    return names;
}

// The screen name is cached in the sixth slot: the watcher keeps it while
// signed on; signed off, the Sign On screen's selection is the sender.
std::string frmEMailFade::GetOwnName()
{
    if (Options.UseAlias) return Options.AliasName;
    if (Trim(ScreenNames[5]).empty()) {
        if (IsAOLOnline(false)) ScreenNames[5] = GetCurrentScreenName();
        // A mailing run never ends the program when no Sign On screen comes.
        else GetSignOnScreenNames(false);
    }
    return ScreenNames[5];
}

void frmEMailFade::cmdEmail_Click()
{
    // The run waits with events running; it is one of the things that never nest.
    TheChatSession().RunAlone([&] {
        const FlagUp running(running_);
        MailSchemes();
    });
}

bool frmEMailFade::Stopping() const { return TheChatSession().Leaving() || !DoEvents(); }

void frmEMailFade::MailSchemes()
{
    const std::vector<std::string> names = SelectedNames();
    // A name that cannot be a file would be attached as some other file, or none.
    const std::vector<std::string> unfit = UnfitFileNames(names, OutgoingFolder());
    if (!unfit.empty()) return ShowMsg(UnfitNamesMessage(unfit), 64);

    ErrorTrap trap("frmEMailFade", "cmdEMail_Click");
    std::string sender;
    if (!trap.Run([&] {
            Hide();
            sender = GetOwnName();
        }))
        return;
    HWND mail = nullptr, editor = nullptr;
    if (Stopping() || !FindMail(mail, editor)) return;
    HWND icon = nullptr;
    if (!trap.Run([&] { icon = AttachIcon(mail); })) return;
    // Without a visible attach icon the mail goes without attachments.
    if (icon && IsWindowVisible(icon)) {
        if (!trap.Run([&] {
                Pause(500);
                FocusWindowOfOtherThread(icon);
                Pause(500);
                Click(icon);
                Pause(1000);
            }))
            return;
        if (Stopping() || !AttachSchemes(names)) return;
    }
    if (!trap.Run([&] { ComposeMail(mail, editor, names, sender); })) return;
    trap.Run([&] {
        if (AOLIsOnline() == 1) ScreenNames[5].clear();  // looked up again next time
    });
    Unload();
}

bool frmEMailFade::FindMail(HWND& mail, HWND& editor)
{
    ErrorTrap trap("frmEMailFade", "cmdEMail_Click");
    trap.Run([&] {
        mail = FindWriteMail();
        if (!mail) mail = OpenEMail();
    });
    if (Stopping()) return false;
    if (!mail) {
        ShowMsg(SchemeMailText::NoMailWindow, 64);
        return false;
    }
    trap.Run([&] { editor = WaitForChildByClass(mail, "RICHCNTL"); });
    return editor && !Stopping();
}

bool frmEMailFade::AttachSchemes(const std::vector<std::string>& names)
{
    ErrorTrap trap("frmEMailFade", "cmdEMail_Click");
    HWND attachments = nullptr, attach = nullptr;
    trap.Run([&] { attachments = WaitForWindow("_AOL_MODAL", "Attachments"); });
    if (Stopping()) return false;
    if (!attachments) {
        ShowMsg(SchemeMailText::NoAttachmentsWindow, 64);
        return false;
    }
    trap.Run([&] { attach = WaitForChildByClass(attachments, "_AOL_ICON"); });
    if (Stopping()) return false;
    if (!attach) {
        ShowMsg(SchemeMailText::NoAttachButton, 64);
        return false;
    }
    for (const std::string& name : names)
        if (!AttachOne(attach, name)) return false;
    return trap.Run([&] {
        HWND ok = FindChildByClass(attachments, "_AOL_ICON", 3);
        FocusWindowOfOtherThread(ok);
        Click(ok);
    });
}

bool frmEMailFade::AttachOne(HWND attachButton, const std::string& name)
{
    ErrorTrap trap("frmEMailFade", "cmdEMail_Click");
    HWND dialog = nullptr, field = nullptr, open = nullptr;
    trap.Run([&] {
        WriteSchemeFile(name, OutgoingFolder());
        Click(attachButton);
        dialog = WaitForWindow("#32770", FileDialogCaption());
    });
    if (Stopping()) return false;
    if (!dialog) {
        ShowMsg(SchemeMailText::NoFileDialog, 64);
        return false;
    }
    if (IsWindow(dialog)) {
        trap.Run([&] { field = WaitForChildByClass(dialog, "Edit"); });
        if (Stopping()) return false;
        if (!field) {
            ShowMsg(SchemeMailText::NoFileField, 64);
            return false;
        }
        trap.Run([&] {
            FocusWindowOfOtherThread(field);
            Pause(500);
            const std::string path = OutgoingFolder() + name + ".fde";
            SendMessageA(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
            DoEvents();
            Pause(300);
        });
        if (Stopping()) return false;
    }
    trap.Run([&] { open = WaitForChildByTitle(dialog, "&Open"); });
    if (Stopping()) return false;
    if (!open) {
        ShowMsg(SchemeMailText::NoOpenButton, 64);
        return false;
    }
    trap.Run([&] {
        FocusWindowOfOtherThread(open);
        Click(open);
        Pause(500);
    });
    return !Stopping();
}

void frmEMailFade::ComposeMail(HWND mail, HWND editor, const std::vector<std::string>& names,
                               const std::string& sender)
{
    std::vector<MailedScheme> schemes;
    for (const std::string& name : names) {
        MailedScheme scheme{name, ""};
        ErrorTrap::Ignoring([&] { scheme.sample = MakeEMailFade(Registry(), name); });
        schemes.push_back(scheme);
    }
    const std::string subject = SchemeMailSubject(names.size(), sender);
    const std::string body = SchemeMailBody(schemes, sender, VersionText(), Options.ShowEMailSample);
    SendMessageA(FindChildByClass(mail, "_AOL_EDIT", 3), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(subject.c_str()));
    SendMessageA(editor, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(""));
    PutRichText(hwnd(), body);
    SendMessageA(editor, WM_COMMAND, kEditorPaste, 0);
}
