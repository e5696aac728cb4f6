// frmUpdate: the upgrade check's answer, offering the download page when a
// newer version is posted.
#pragma once

#include <string>

#include "Form.h"
#include "modZunBtns.h"

// A label that paints its text in a colour of its own (owner-drawn static).
class ColoredLabel : public OwnerDrawn {
public:
    void Attach(HWND label) { AttachTo(label); }
    void Draw(const DRAWITEMSTRUCT& item) override;
    UIColor ForeColor = SysColor::ButtonText;
    UIColor BackColor = SysColor::ButtonFace;
};

class frmUpdate : public Form {
public:
    frmUpdate();
    ~frmUpdate() override;

    // Filled in before the window is shown.
    std::string Message, CurVer, Report;
    bool OpenPage = false;  // Yes was chosen

protected:
    void OnLoad() override;
    void OnCommand(int id, int code, HWND control) override;

private:
    ZunButton cmdYes, cmdOK;
    ColoredLabel lblReport;
};

// Shows the answer modally; Yes opens the download page through AOL.
void ShowUpdate(const std::string& message, const std::string& current, const std::string& posted);
