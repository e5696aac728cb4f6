// frmUpdate: "Prismo Update!", the running and the posted version side by
// side; Yes (only when a newer one is posted) opens the download page in AOL.
#include "frmUpdate.h"

#include "CNetGet.h"
#include "UpgradeText.h"
#include "modAOLFunctions.h"
#include "modPrismo.h"
#include "resource.h"

void ColoredLabel::Draw(const DRAWITEMSTRUCT& item)
{
    char text[256] = "";
    GetWindowTextA(item.hwndItem, text, sizeof text);
    GdiBrush back(CreateSolidBrush(ResolveColor(BackColor)));
    FillRect(item.hDC, &item.rcItem, back.get());
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, ResolveColor(ForeColor));
    RECT r = item.rcItem;
    DrawTextA(item.hDC, text, -1, &r, DT_LEFT | DT_NOPREFIX | DT_SINGLELINE | DT_END_ELLIPSIS);
}

void ShowUpdate(const std::string& message, const std::string& current, const std::string& posted)
{
    frmUpdate form;
    form.Message = message;
    form.CurVer = current;
    form.Report = posted;
    if (!form.Load()) return;
    form.Show();
    WaitWhileShown(form, true);
    const bool openPage = form.OpenPage;
    form.Unload();
    if (openPage) RunAOLKeyword("http://" + UpgradeHost() + UpgradeText::DownloadPage);
}

frmUpdate::frmUpdate() : Form("frmUpdate", IDD_UPDATE) {}

frmUpdate::~frmUpdate() { Unload(); }

void frmUpdate::OnLoad()
{
    SetCaption("Prismo Update!");
    cmdYes.Attach(Item(IDC_UP_YES));
    cmdOK.Attach(Item(IDC_UP_OK));
    lblReport.Attach(Item(IDC_UP_REPORT));
    InitForm(*this);
    SetButtonColor(cmdYes);
    SetButtonColor(cmdOK);
    DrawFormEdge(*this);
    SetDlgItemTextA(hwnd(), IDC_UP_MSG, Message.c_str());
    SetDlgItemTextA(hwnd(), IDC_UP_CURVER, CurVer.c_str());
    SetDlgItemTextA(hwnd(), IDC_UP_REPORT, Report.c_str());
    lblReport.BackColor = BackColor();
    if (UpgradeAvailable) {
        SetWindowTextA(cmdOK.hwnd(), "No");
        ShowWindow(cmdYes.hwnd(), SW_SHOW);
        lblReport.ForeColor = 255;
    } else {
        SetWindowTextA(cmdOK.hwnd(), "OK");
        ShowWindow(cmdYes.hwnd(), SW_HIDE);
        lblReport.ForeColor = SysColor::ButtonText;
    }
    SetFocus(UpgradeAvailable ? cmdYes.hwnd() : cmdOK.hwnd());
    MessageBeep(MB_ICONQUESTION);
}

void frmUpdate::OnCommand(int id, int code, HWND)
{
    if (code != BN_CLICKED) return;
    if (id == IDC_UP_YES) {
        OpenPage = true;
        Hide();
    } else if (id == IDC_UP_OK) {
        Hide();
    }
}
