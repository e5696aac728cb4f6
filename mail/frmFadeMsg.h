// frmFadeMsg: the small window that asks the user to wait while the e-mail
// fader puts a fade into a mail.
#pragma once

#include "Form.h"

class frmFadeMsg : public Form {
public:
    frmFadeMsg();
    ~frmFadeMsg() override;

protected:
    void OnLoad() override;
};

// The program's one wait window; loaded when first shown.
frmFadeMsg& FadeMsg();
