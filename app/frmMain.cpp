// frmMain: the loading window.
#include "frmMain.h"

#include "ProgramInfo.h"
#include "resource.h"

frmMain& LoadingWindow()
{
    static frmMain form;
    return form;
}

frmMain::frmMain() : Form("frmMain", IDD_LOADING) {}

frmMain::~frmMain() { Unload(); }

void frmMain::OnLoad()
{
    InitForm(*this);
    SetCaption(TitleText());
    const std::string title = "Loading " + TitleText();
    SetDlgItemTextA(hwnd(), IDC_LD_TITLE, title.c_str());
    RECT client;
    GetClientRect(hwnd(), &client);
    ProgressBar1.Create(hwnd(), IDC_LD_BAR, 12, client.bottom - 36, client.right - 24, 22);
    SetProgressColor(ProgressBar1);
    DrawFormEdge(*this);
}

void frmMain::Status(const std::string& text)
{
    if (!text.empty()) ProgressBar1.SetText(text);
    // The bar's window text carries the status, for anyone reading it from outside.
    if (ProgressBar1.hwnd()) SetWindowTextA(ProgressBar1.hwnd(), ProgressBar1.Text().c_str());
}

void frmMain::Percent(int value) { ProgressBar1.SetValue(value); }
