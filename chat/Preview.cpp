// The control panel's fade preview strip: the working colours as one band,
// painted from the colour buttons, and a handle to drag the panel by.
#include "frmChatTools.h"

#include "ChatHooks.h"
#include "PreviewRanges.h"
#include "WindowSurface.h"
#include "modRegKeys.h"

namespace {

constexpr char kStripClass[] = "PrismoPreviewStrip";

frmChatTools* PanelOf(HWND strip)
{
    return reinterpret_cast<frmChatTools*>(GetWindowLongPtrA(strip, GWLP_USERDATA));
}

// Painting and dragging report their errors under their own routine's name.
LRESULT CALLBACK StripProc(HWND strip, UINT msg, WPARAM wp, LPARAM lp)
{
    frmChatTools* panel = PanelOf(strip);
    switch (msg) {
    case WM_ERASEBKGND:
        // The band covers the strip; only one colour shows the background.
        RunTrapped("picPreview_Paint", [&] {
            if (panel && panel->PanelFadeNumber == 1 && !panel->Loading)
                WindowSurface(strip).Fill(panel->picPreview.BackColor);
        });
        return 1;
    case WM_PAINT: {
        PAINTSTRUCT ps;
        BeginPaint(strip, &ps);
        EndPaint(strip, &ps);
        if (panel) RunTrapped("picPreview_Paint", [&] { panel->picPreview_Paint(); });
        return 0;
    }
    case WM_LBUTTONDOWN:
        if (panel) RunTrapped("picPreview_MouseDown", [&] { panel->picPreview_MouseDown(); });
        return 0;
    default:
        return DefWindowProcA(strip, msg, wp, lp);
    }
}

}  // namespace

HWND PreviewStrip::Create(HWND parent, int id, int x, int y, int width, int height)
{
    RegisterWindowClass(kStripClass, StripProc, IDC_SIZEALL);
    hwnd_ = CreateWindowExA(WS_EX_CLIENTEDGE, kStripClass, "", WS_CHILD | WS_VISIBLE, x, y, width, height, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
    return hwnd_;
}

void frmChatTools::picPreview_Paint()
{
    if (Loading || !picPreview.hwnd()) return;
    const int n = PanelFadeNumber;
    if (n < 1 || n > 6) return;
    ColorValue c[6];
    for (int k = 0; k < n; ++k) c[k] = cmdColor[k].BackColor;
    if (n == 1) return Fade1Preview(c[0]);
    WindowSurface surface(picPreview.hwnd());
    PaintPreview(surface, n, c);
}

void frmChatTools::Fade1Preview(const ColorValue& color)
{
    picPreview.BackColor = color;
    WindowSurface(picPreview.hwnd()).Fill(color);
}

void frmChatTools::picPreview_MouseDown()
{
    // The system moves the panel as if its title bar had been grabbed and
    // returns when the user lets go.
    ReleaseCapture();
    SendMessageA(hwnd(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
    WriteSetting(Setting::PanelTop, std::to_string(Top()));
    WriteSetting(Setting::PanelLeft, std::to_string(Left()));
}
