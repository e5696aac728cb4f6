// frmVerCheck: "Polling" the maker's web site for the posted version. The
// whole check runs while the window loads; the caller unloads it afterwards.
#include "frmVerCheck.h"

#include "CNetGet.h"
#include "ErrorTrap.h"
#include "UpgradeText.h"
#include "modMsgBox.h"
#include "modPrismo.h"
#include "modWin32API.h"
#include "resource.h"

bool RunVersionCheck()
{
    frmVerCheck form;
    const bool loaded = form.Load();
    form.Unload();
    return loaded;
}

frmVerCheck::frmVerCheck() : Form("frmVerCheck", IDD_VERCHECK) {}

frmVerCheck::~frmVerCheck() { Unload(); }

void frmVerCheck::OnLoad()
{
    ErrorTrap trap("frmVerCheck", "Form_Load");
    trap.Run([&] {
        SetCaption("Prismo");  // the name the task list shows
        cmdCancel.Attach(Item(IDC_VC_CANCEL));
        InitForm(*this);
        SetButtonColor(cmdCancel);
        DrawFormEdge(*this);
        SetDlgItemTextA(hwnd(), IDC_VC_LABEL2, UpgradeText::PleaseWait);
        SetDlgItemTextA(hwnd(), IDC_VC_MSG, ("Polling " + UpgradeHost()).c_str());
        // On view while the check waits for the web site.
        Show();
    });
    trap.Run([&] { Pause(50); });
    checking_ = true;
    CheckForUpgrade();
    checking_ = false;
}

void frmVerCheck::CheckForUpgrade()
{
    ErrorTrap trap("frmVerCheck", "Form_Load");
    CNetGet net;
    bool ok = false;
    trap.Run([&] { net.Init(); });
    trap.Run([&] {
        const std::string url = "http://" + UpgradeHost() + UpgradeText::VersionFile;
        if (!url.empty()) net.ReadUrl(url, ok);
    });
    trap.Run([&] {
        if (ok)
            UpgradeNotify();
        else
            ShowMsg(UpgradeText::NetErrorPrefix + net.GetLastError(), MB_ICONSTOP);
    });
    trap.Run([&] { net.Term(); });
}

void frmVerCheck::OnCommand(int id, int code, HWND)
{
    // While the check runs the window goes once it is done anyway.
    if (id == IDC_VC_CANCEL && code == BN_CLICKED && !checking_) Unload();
}
