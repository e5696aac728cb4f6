// frmFadeMsg: "Please wait while Prismo applies the fade to your E-Mail".
#include "frmFadeMsg.h"

#include "EMailText.h"
#include "modZunBtns.h"
#include "resource.h"

frmFadeMsg& FadeMsg()
{
    static frmFadeMsg form;
    return form;
}

frmFadeMsg::frmFadeMsg() : Form("frmFadeMsg", IDD_FADEMSG) {}

frmFadeMsg::~frmFadeMsg() { Unload(); }

void frmFadeMsg::OnLoad()
{
    SetCaption("Prismo");  // the name the task list shows
    InitForm(*this);
    DrawFormEdge(*this);
    SetDlgItemTextA(hwnd(), IDC_FM_LABEL1, "Prismo");
    SetDlgItemTextA(hwnd(), IDC_FM_MSG, EFadeText::PleaseWait);
}
