// frmSetColors: picking the user's own window and button colours.
#include "frmSetColors.h"

#include "Catalog.h"
#include "Options.h"
#include "modCmnDlg.h"
#include "modRegKeys.h"
#include "resource.h"

void SampleFrame::Attach(HWND frame)
{
    hwnd_ = frame;
    AttachTo(frame);
}

void SampleFrame::Draw(const DRAWITEMSTRUCT& item)
{
    RECT r = item.rcItem;
    GdiBrush back(CreateSolidBrush(ResolveColor(BackColor)));
    FillRect(item.hDC, &r, back.get());
    DrawEdge(item.hDC, &r, EDGE_ETCHED, BF_RECT);
}

frmSetColors::frmSetColors() : Form("frmSetColors", IDD_SETCOLORS) {}

frmSetColors::~frmSetColors() { Unload(); }

void frmSetColors::OnLoad()
{
    InitForm(*this);
    cmdExit.Attach(Item(IDC_SC_EXIT));
    SetButtonColor(cmdExit);
    cmdSampleBtn.Attach(Item(IDC_SC_SAMPLE));
    SetOptColor(false, cmdSampleBtn);
    Frame1.Attach(Item(IDC_SC_FRAME1));
    const std::pair<ZunButton*, int> colourButtons[] = {{&cmdWndClr, IDC_SC_WNDCLR},
                                                        {&cmdBtnFC, IDC_SC_BTNFC},
                                                        {&cmdBtnHL, IDC_SC_BTNHL},
                                                        {&cmdBtnTC, IDC_SC_BTNTC}};
    for (const auto& [button, id] : colourButtons) {
        button->Attach(Item(id));
        button->FillerBackground = BackColor();
    }
    cmdWndClr.BackColor = Options.WindowColor;
    cmdBtnFC.BackColor = Options.ButtonForecolor;
    cmdBtnHL.BackColor = Options.ButtonHighlight;
    cmdBtnTC.BackColor = Options.ButtonText;
    RefreshSample();
    DrawFormEdge(*this);
}

void frmSetColors::RefreshSample()
{
    Frame1.BackColor = cmdWndClr.BackColor;
    cmdSampleBtn.BackColor = cmdBtnFC.BackColor;
    cmdSampleBtn.Highlight = cmdBtnHL.BackColor;
    cmdSampleBtn.ForeColor = cmdBtnTC.BackColor;
    for (const ZunButton* b : {&cmdWndClr, &cmdBtnFC, &cmdBtnHL, &cmdBtnTC}) b->Refresh();
    if (Frame1.hwnd()) InvalidateRect(Frame1.hwnd(), nullptr, FALSE);
    cmdSampleBtn.Refresh();
}

// The platform's colour picker must not hide behind a topmost dialog.
void frmSetColors::PickInto(ZunButton& button, std::int32_t& field, const char* valueName)
{
    FormNotOnTop(*this);
    const UIColor chosen = PickColor(hwnd(), button.BackColor);
    FormOnTop(*this);
    field = chosen;
    button.BackColor = chosen;
    WriteSetting(Section::UserColors, valueName, std::to_string(chosen));
    RefreshSample();
}

void frmSetColors::OnCommand(int id, int code, HWND)
{
    if (code != BN_CLICKED) return;
    switch (id) {
    case IDC_SC_WNDCLR: return PickInto(cmdWndClr, Options.WindowColor, "WindowColor");
    case IDC_SC_BTNFC: return PickInto(cmdBtnFC, Options.ButtonForecolor, "ButtonForecolor");
    case IDC_SC_BTNHL: return PickInto(cmdBtnHL, Options.ButtonHighlight, "ButtonHighlight");
    case IDC_SC_BTNTC: return PickInto(cmdBtnTC, Options.ButtonText, "ButtonText");
    case IDC_SC_EXIT:
    case IDCANCEL: Unload(); return;
    default: return;
    }
}
