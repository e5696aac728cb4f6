// frmSetColors: the dialog where the user picks the four colours of the
// "I will specify my own colors" mode, with a sample of the result.
#pragma once

#include "Form.h"
#include "modZunBtns.h"

// The sample frame: a rectangle in the chosen window colour.
class SampleFrame : public OwnerDrawn {
public:
    void Attach(HWND frame);
    void Draw(const DRAWITEMSTRUCT& item) override;
    UIColor BackColor = SysColor::ButtonFace;
    HWND hwnd() const { return hwnd_; }

private:
    HWND hwnd_ = nullptr;
};

class frmSetColors : public Form {
public:
    frmSetColors();
    ~frmSetColors() override;

    ZunButton cmdWndClr, cmdBtnFC, cmdBtnHL, cmdBtnTC, cmdExit;
    FlatButton cmdSampleBtn;
    SampleFrame Frame1;

    // Refreshes the sample from the faces of the four colour buttons.
    void RefreshSample();

protected:
    void OnLoad() override;
    void OnCommand(int id, int code, HWND control) override;

private:
    void PickInto(ZunButton& button, std::int32_t& field, const char* valueName);
};
