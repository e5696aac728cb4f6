// frmVerCheck: the small window that asks the maker's web site for the
// posted version while it loads, then hands the answer on.
#pragma once

#include "Form.h"
#include "modZunBtns.h"

class frmVerCheck : public Form {
public:
    frmVerCheck();
    ~frmVerCheck() override;

protected:
    void OnLoad() override;
    void OnCommand(int id, int code, HWND control) override;

private:
    void CheckForUpgrade();

    ZunButton cmdCancel;
    bool checking_ = false;
};

// Loads the window, which runs the whole check while it loads, and unloads it.
bool RunVersionCheck();
