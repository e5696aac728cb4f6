// Mail windows: "Write Mail" ("Write e-mail" in Australia) with its address
// and subject fields, body editor, formatting icons and the attach icon that
// leads to the "Attachments" window and its file dialog; replies and forwards
// are the same compose window under their own caption; other named windows.
#include "Sim.h"
#include "resource.h"

#include <richedit.h>

namespace {

enum : int { idTo = 200, idCc, idSubject, idBody, idFont, idReceipt, idFirstIcon = 220 };

std::string ReadWholeFile(const std::string& path, bool& ok) {
    std::ifstream file(path, std::ios::binary);
    ok = static_cast<bool>(file);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

struct Attachment {
    std::string path;
    std::string contents;
};

class WriteMail;

// AOL's "Attachments" window: Attach, Detach and OK icons over a file list.
class AttachmentsWindow {
public:
    static void Open(WriteMail* mail);
};

class WriteMail : public SimChild {
public:
    ~WriteMail() override;
    const char* Kind() const override { return "mail"; }

    void OnCreate(HWND window) override {
        edits[0] = MakeControl(window, "_AOL_EDIT", "", WS_BORDER | ES_AUTOHSCROLL, idTo);
        edits[1] = MakeControl(window, "_AOL_EDIT", "", WS_BORDER | ES_AUTOHSCROLL, idCc);
        edits[2] = MakeControl(window, "_AOL_EDIT", "", WS_BORDER | ES_AUTOHSCROLL, idSubject);
        body = MakeControl(window, "RICHCNTL", "", WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN,
                           idBody);
        SendMessageA(body, EM_EXLIMITTEXT, 0, 1 << 20);
        font = MakeControl(window, "_AOL_FontCombo", "", CBS_DROPDOWNLIST | WS_VSCROLL, idFont);
        for (const char* face : {"Arial", "Courier New", "Times New Roman"})
            SendMessageA(font, CB_ADDSTRING, 0, (LPARAM)face);
        SendMessageA(font, CB_SETCURSEL, 0, 0);
        receipt = MakeControl(window, "_AOL_Checkbox", "Request \"Return Receipt\" from AOL members",
                              BS_AUTOCHECKBOX, idReceipt);
        MakeIcons(window);
    }

    // Formatting icons carry pictures, no captions; the attach icon is the
    // 13th icon in AOL 4.0 and the 14th in 5.0 (5.0 added spell checking).
    void MakeIcons(HWND window) {
        std::vector<std::string> faces{"Book", "Color", "Back", "B", "I", "U", "Left", "Mid", "Right",
                                       "Size", "Pic", "Link"};
        if (Sim().config.version == 5) faces.push_back("ABC");
        for (const auto& face : faces) {
            HWND icon = MakeControl(window, "_AOL_ICON", "", 0, idFirstIcon + (int)icons.size());
            SetIconFace(icon, face);
            icons.push_back(icon);
        }
        attachIcon = MakeControl(window, "_AOL_ICON", "Attachments", 0, idFirstIcon + (int)icons.size());
        if (Sim().config.attachIconHidden) ShowWindow(attachIcon, SW_HIDE);
        icons.push_back(attachIcon);
        sendNow = MakeControl(window, "_AOL_ICON", "Send Now", 0, idFirstIcon + (int)icons.size());
        icons.push_back(sendNow);
        sendLater = MakeControl(window, "_AOL_ICON", "Send Later", 0, idFirstIcon + (int)icons.size());
        icons.push_back(sendLater);
    }

    void OnSize(int width, int height) override {
        const int labelWidth = 0, row = 24, iconBar = 30;
        MoveWindow(edits[0], 8 + labelWidth, 8, (width - 24) / 2, row, TRUE);
        MoveWindow(edits[1], 16 + (width - 24) / 2, 8, (width - 24) / 2, row, TRUE);
        MoveWindow(edits[2], 8, 8 + row + 6, width - 16, row, TRUE);
        const int toolTop = 8 + 2 * (row + 6);
        MoveWindow(font, 8, toolTop, 130, 200, TRUE);
        const std::size_t formatting = icons.size() - 3;
        for (std::size_t i = 0; i < formatting; ++i)
            MoveWindow(icons[i], 144 + (int)i * 34, toolTop, 32, row, TRUE);
        const int bodyTop = toolTop + row + 6;
        MoveWindow(body, 8, bodyTop, width - 130, height - bodyTop - iconBar - 12, TRUE);
        MoveWindow(sendNow, width - 114, bodyTop, 106, 28, TRUE);
        MoveWindow(sendLater, width - 114, bodyTop + 34, 106, 28, TRUE);
        MoveWindow(attachIcon, width - 114, bodyTop + 68, 106, 28, TRUE);
        MoveWindow(receipt, 8, height - iconBar - 4, width - 16, iconBar - 6, TRUE);
    }

    bool OnCommand(WORD id, WORD code, HWND control) override {
        if (code != BN_CLICKED || id < idFirstIcon) return false;
        if (control == attachIcon) {
            // The click returns first; AOL opens the window afterwards.
            if (Sim().config.mailFault == SimMailFault::NoAttachments) LogEvent("icon\tAttachments");
            else PostMessageA(hwnd, WM_SIM_OPEN_ATTACHMENTS, 0, 0);
        } else if (control == sendNow || control == sendLater) {
            std::string paths;
            for (const auto& file : attachments) paths += (paths.empty() ? "" : "|") + file.path;
            LogEvent("send-mail\t" + WindowText(control) + "\t" + WindowText(edits[2]) + "\t" +
                     EscapeLogText(ReadRichAsAolHtml(body)) + "\t" + paths);
            // AOL takes the mail away once it is sent, after the click returns.
            PostMessageA(hwnd, WM_SIM_CLOSE_MAIL, 0, 0);
        } else {
            LogEvent("icon\t#" + std::to_string(id - idFirstIcon + 1));
        }
        return true;
    }

    LRESULT OnAppMessage(UINT msg, WPARAM, LPARAM lParam) override {
        if (msg == WM_SIM_OPEN_ATTACHMENTS) AttachmentsWindow::Open(this);
        if (msg == WM_SIM_CLOSE_MAIL) SendMessageA(Sim().mdiClient, WM_MDIDESTROY, (WPARAM)hwnd, 0);
        if (msg == WM_SIM_RICH_ENTER) return 0;  // a new paragraph in the body
        (void)lParam;
        return 0;
    }

    HWND edits[3] = {};
    HWND body = nullptr, font = nullptr, receipt = nullptr;
    HWND attachIcon = nullptr, sendNow = nullptr, sendLater = nullptr;
    std::vector<HWND> icons;
    std::vector<Attachment> attachments;
};

// Where the Attachments window keeps its mail and list while it is open.
struct AttachState {
    WriteMail* mail = nullptr;
    HWND modal = nullptr, attach = nullptr, detach = nullptr, ok = nullptr, list = nullptr;
};
AttachState g_attach;

// A mail that goes while its Attachments window is open takes no more files.
WriteMail::~WriteMail() {
    if (g_attach.mail == this) g_attach.mail = nullptr;
}

INT_PTR CALLBACK FileDialogProc(HWND dialog, UINT msg, WPARAM wParam, LPARAM) {
    switch (msg) {
    case WM_INITDIALOG:
        SetWindowTextA(dialog, FileDialogCaption(Sim().config.edition).c_str());
        if (Sim().config.mailFault == SimMailFault::NoFileField) DestroyWindow(GetDlgItem(dialog, IDC_FILE_NAME));
        if (Sim().config.mailFault == SimMailFault::NoOpenButton) DestroyWindow(GetDlgItem(dialog, IDOK));
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK) {
            char path[MAX_PATH * 2] = "";
            GetDlgItemTextA(dialog, IDC_FILE_NAME, path, sizeof path);
            bool ok = false;
            const std::string contents = ReadWholeFile(path, ok);
            if (!ok) {
                MessageBoxA(dialog, (std::string(path) + "\nFile not found.").c_str(), "Attach", MB_OK);
                return TRUE;
            }
            if (g_attach.mail) g_attach.mail->attachments.push_back({path, contents});
            if (g_attach.list) SendMessageA(g_attach.list, LB_ADDSTRING, 0, (LPARAM)path);
            LogEvent(std::string("attach\t") + path + "\t" + EscapeLogText(contents));
            EndDialog(dialog, IDOK);
            return TRUE;
        }
        if (LOWORD(wParam) == IDCANCEL) {
            EndDialog(dialog, IDCANCEL);
            return TRUE;
        }
        break;
    }
    return FALSE;
}

void CloseAttachments() {
    if (!g_attach.modal) return;
    EnableWindow(Sim().frame, TRUE);
    DestroyWindow(g_attach.modal);  // its WM_DESTROY forgets it and logs the close
}

LRESULT CALLBACK AttachmentsProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED && (HWND)lParam == g_attach.attach) {
            if (Sim().config.mailFault == SimMailFault::NoFileDialog) LogEvent("icon\tAttach");
            else PostMessageA(hwnd, WM_SIM_OPEN_FILE_DIALOG, 0, 0);
            return 0;
        }
        if (HIWORD(wParam) == BN_CLICKED && (HWND)lParam == g_attach.ok) {
            CloseAttachments();
            return 0;
        }
        break;
    case WM_SIM_OPEN_FILE_DIALOG:
        DialogBoxParamA(Sim().instance, MAKEINTRESOURCEA(IDD_FILE_ATTACH), hwnd, FileDialogProc, 0);
        return 0;
    case WM_CLOSE:
        CloseAttachments();
        return 0;
    case WM_DESTROY:
        // AOL itself is closing around the window (its owner goes first).
        if (hwnd == g_attach.modal) {
            g_attach = AttachState{};
            LogEvent("close\tAttachments");
        }
        return 0;
    }
    return DefWindowProcA(hwnd, msg, wParam, lParam);
}

void AttachmentsWindow::Open(WriteMail* mail) {
    if (g_attach.modal) return;
    static bool registered = false;
    if (!registered) {
        WNDCLASSEXA wc{};
        wc.cbSize = sizeof wc;
        wc.lpfnWndProc = AttachmentsProc;
        wc.hInstance = Sim().instance;
        wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
        wc.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        wc.lpszClassName = "_AOL_MODAL";
        RegisterClassExA(&wc);
        registered = true;
    }
    g_attach.mail = mail;
    g_attach.modal = CreateWindowExA(WS_EX_DLGMODALFRAME, "_AOL_MODAL", "Attachments",
                                     WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE, 240, 180, 380, 230,
                                     Sim().frame, nullptr, Sim().instance, nullptr);
    // An AOL that fails to build the window's buttons shows none of them:
    // a search for its first icon then finds nothing rather than the wrong one.
    if (Sim().config.mailFault != SimMailFault::NoAttachButton) {
        g_attach.attach = MakeControl(g_attach.modal, "_AOL_ICON", "Attach", 0, 1);
        g_attach.detach = MakeControl(g_attach.modal, "_AOL_ICON", "Detach", 0, 2);
        g_attach.ok = MakeControl(g_attach.modal, "_AOL_ICON", "OK", 0, 3);
    }
    g_attach.list = MakeControl(g_attach.modal, "_AOL_LISTBOX", "", WS_BORDER | WS_VSCROLL, 4);
    MoveWindow(g_attach.list, 10, 10, 250, 170, TRUE);
    MoveWindow(g_attach.attach, 270, 10, 90, 28, TRUE);
    MoveWindow(g_attach.detach, 270, 44, 90, 28, TRUE);
    MoveWindow(g_attach.ok, 270, 152, 90, 28, TRUE);
    for (const auto& file : mail->attachments) SendMessageA(g_attach.list, LB_ADDSTRING, 0, (LPARAM)file.path.c_str());
    EnableWindow(Sim().frame, FALSE);
    LogEvent("open\tAttachments");
}

// Any other named window (message boards, preferences...): a text area.
class NamedWindow : public SimChild {
public:
    const char* Kind() const override { return "window"; }
    void OnCreate(HWND window) override {
        text = MakeControl(window, "RICHCNTL", "", WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_WANTRETURN, 2);
        SendMessageA(text, EM_EXLIMITTEXT, 0, 1 << 20);
    }
    void OnSize(int width, int height) override { MoveWindow(text, 8, 8, width - 16, height - 16, TRUE); }
    HWND text = nullptr;
};

// AOL answers and forwards a mail in a compose window like Write Mail's,
// captioned with its subject ("Re: ..." or "Fwd: ...").
bool IsReplyOrForward(const std::string& caption) {
    return caption.rfind("Re:", 0) == 0 || caption.rfind("Fwd:", 0) == 0;
}

WriteMail* AsMail(SimChild* child) {
    return child && std::string(child->Kind()) == "mail" ? static_cast<WriteMail*>(child) : nullptr;
}

}  // namespace

HWND OpenWriteMail() {
    if (Sim().config.mailFault == SimMailFault::NoMail) return nullptr;
    return OpenComposeWindow(WriteMailCaption(Sim().config.edition));
}

HWND OpenComposeWindow(const std::string& caption) {
    return OpenChild(std::make_unique<WriteMail>(), caption, 640, 420);
}

HWND OpenNamedWindow(const std::string& caption) {
    if (caption == WriteMailCaption(Sim().config.edition)) return OpenWriteMail();
    if (IsReplyOrForward(caption)) {
        auto mail = std::make_unique<WriteMail>();
        WriteMail* compose = mail.get();
        HWND hwnd = OpenChild(std::move(mail), caption, 640, 420);
        if (hwnd) SendMessageA(compose->edits[2], WM_SETTEXT, 0, (LPARAM)caption.c_str());
        return hwnd;
    }
    return OpenChild(std::make_unique<NamedWindow>(), caption, 480, 300);
}

HWND MailBody(SimChild* mail) {
    WriteMail* m = AsMail(mail);
    return m ? m->body : nullptr;
}

HWND EditorOf(SimChild* child) {
    if (WriteMail* m = AsMail(child)) return m->body;
    if (child && std::string(child->Kind()) == "window") return static_cast<NamedWindow*>(child)->text;
    return nullptr;
}

HWND MailSendIcon(SimChild* mail, bool later) {
    WriteMail* m = AsMail(mail);
    return m ? (later ? m->sendLater : m->sendNow) : nullptr;
}

HWND MailSubject(SimChild* mail) {
    WriteMail* m = AsMail(mail);
    return m ? m->edits[2] : nullptr;
}

std::vector<std::string> MailAttachments(SimChild* mail) {
    std::vector<std::string> lines;
    if (WriteMail* m = AsMail(mail)) {
        for (const auto& file : m->attachments) lines.push_back(file.path + "\t" + EscapeLogText(file.contents));
    }
    return lines;
}
