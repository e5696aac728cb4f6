// frmEFade: the e-mail fader toolbar. It floats above AOL while a mail is
// being written; Apply Fade fades the text highlighted in the mail, Undo
// asks AOL's editor to undo, and the third button opens the control panel.
#pragma once

#include <windows.h>

#include "Form.h"
#include "ToolTips.h"
#include "modZunBtns.h"

class frmEFade : public Form {
public:
    frmEFade();
    ~frmEFade() override;

    // --- Controls ---
    ZunButton cmdFade, cmdUndo, cmdCP;
    FlatButton cmdExit;
    HWND Label1 = nullptr;  // the strip the toolbar is dragged by

    void cmdFade_Click();  // fades the highlight; ignored while a fade or anything else runs
    void cmdUndo_Click();
    void cmdCP_Click();
    void cmdExit_Click();
    void Label1_MouseDown();  // the end of a drag by Label1

protected:
    void OnLoad() override;
    void OnUnload() override;
    void OnCommand(int id, int code, HWND control) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void ApplyFade();
    ToolTips toolTips_;
};

// The program's one toolbar; each loading starts afresh.
frmEFade& EFade();

// The watcher's two requests: the toolbar loaded and shown without taking
// the keyboard from the mail, and unloaded.
bool ShowEMailToolbar();
bool UnloadEMailToolbar();
