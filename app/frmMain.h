// frmMain: the loading window that start-up shows while it attaches to AOL
// and loads the user's settings, with a status text and a percentage.
#pragma once

#include <string>

#include "Form.h"
#include "modZunBtns.h"

class frmMain : public Form {
public:
    frmMain();
    ~frmMain() override;

    ProgressBar ProgressBar1;

    // One step of start-up: a status text ("" keeps the last) and a percentage.
    void Status(const std::string& text);
    void Percent(int value);

protected:
    void OnLoad() override;
};

// The one loading window.
frmMain& LoadingWindow();
