// frmEMailFade: "E-Mail Fades". The user picks stored Fade Schemes; the
// program then writes a mail in AOL as a person would: the schemes attached
// as ".fde" files, a subject, and a body with a faded sample of each scheme
// and directions for installing them. The mail is left for the user to send.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "Form.h"
#include "modZunBtns.h"

class frmEMailFade : public Form {
public:
    frmEMailFade();
    ~frmEMailFade() override;

    // --- Controls ---
    HWND lstSchemes = nullptr;  // the stored schemes, several may be selected
    ZunButton cmdEmail, cmdExit;

    // Fills lstSchemes with the stored schemes in the registry's order.
    void GetSchemes();
    // The sender's name: the alias when it is used, else the screen name.
    std::string GetOwnName();
    // Mails the selected schemes; ignored while a run or anything else runs.
    void cmdEmail_Click();

protected:
    void OnLoad() override;
    void OnCommand(int id, int code, HWND control) override;

private:
    void MailSchemes();
    std::vector<std::string> SelectedNames() const;
    // The mail and its body editor, a new mail opened when none is; false ends the run.
    bool FindMail(HWND& mail, HWND& editor);
    // Attaches each scheme's file through AOL's Attachments window; false ends the run.
    bool AttachSchemes(const std::vector<std::string>& names);
    bool AttachOne(HWND attachButton, const std::string& name);
    void ComposeMail(HWND mail, HWND editor, const std::vector<std::string>& names, const std::string& sender);
    // True once the run must end without a word: AOL or the program is going.
    bool Stopping() const;

    bool running_ = false;
};

// The program's one scheme mailer; loaded when first shown.
frmEMailFade& EMailFade();

// The control panel's E-Mail button: the scheme mailer shown.
bool ShowEMailFades();
