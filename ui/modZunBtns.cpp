// Owner-drawn buttons and progress bar, and colouring by interface mode.
#include "modZunBtns.h"

#include <optional>

#include "AOLState.h"
#include "ErrorTrap.h"
#include "Options.h"
#include "modRegKeys.h"

namespace {

const char* const ProgressClass = "PrismoProgressBar";

UserColors CurrentUserColors()
{
    UserColors u;
    u.WindowColor = Options.WindowColor;
    u.ButtonForecolor = Options.ButtonForecolor;
    u.ButtonHighlight = Options.ButtonHighlight;
    u.ButtonText = Options.ButtonText;
    return u;
}

EditionColors CurrentEdition() { return {AOLEdition.UK, AOLEdition.Australia}; }

void PaintRect(HDC dc, const RECT& r, UIColor color)
{
    GdiBrush brush(CreateSolidBrush(ResolveColor(color)));
    FillRect(dc, &r, brush.get());
}

void FrameColor(HDC dc, const RECT& r, UIColor color)
{
    GdiBrush brush(CreateSolidBrush(ResolveColor(color)));
    FrameRect(dc, &r, brush.get());
}

// One-pixel lines along the top and left, then the bottom and right.
void Bevel(HDC dc, const RECT& r, UIColor lit, UIColor shaded)
{
    PaintRect(dc, {r.left, r.top, r.right - 1, r.top + 1}, lit);
    PaintRect(dc, {r.left, r.top, r.left + 1, r.bottom - 1}, lit);
    PaintRect(dc, {r.left, r.bottom - 1, r.right, r.bottom}, shaded);
    PaintRect(dc, {r.right - 1, r.top, r.right, r.bottom}, shaded);
}

void DrawCaption(HWND control, HDC dc, RECT r, UIColor color, bool enabled)
{
    char text[256] = "";
    GetWindowTextA(control, text, sizeof text);
    HFONT font = reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0));
    Selected selected(dc, font ? static_cast<HGDIOBJ>(font) : GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, enabled ? ResolveColor(color) : GetSysColor(COLOR_GRAYTEXT));
    DrawTextA(dc, text, -1, &r, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

HWND CreateOwnerDrawn(HWND parent, int id, const std::string& caption, int x, int y, int width, int height)
{
    HWND button = CreateWindowExA(0, "BUTTON", caption.c_str(), WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, x,
                                  y, width, height, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                  GetModuleHandleA(nullptr), nullptr);
    SendMessageA(button, WM_SETFONT, SendMessageA(parent, WM_GETFONT, 0, 0), FALSE);
    return button;
}

LRESULT CALLBACK ProgressProc(HWND hwnd, UINT msg, WPARAM wp, LPARAM lp)
{
    if (msg == WM_PAINT) {
        PAINTSTRUCT ps;
        HDC dc = BeginPaint(hwnd, &ps);
        // Nothing escapes the window procedure; the report waits until the
        // paint is over.
        std::optional<ErrorReport> failure;
        try {
            if (auto* bar = reinterpret_cast<const ProgressBar*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA)))
                bar->Paint(dc);
        } catch (...) {
            failure = CaughtErrorReport("modZunBtns", "ProgressBar_Paint");
        }
        EndPaint(hwnd, &ps);
        if (failure && ReportError(*failure) == AnswerAbort) AbortProgram();
        return 0;
    }
    if (msg == WM_ERASEBKGND) return 1;
    return DefWindowProcA(hwnd, msg, wp, lp);
}

}  // namespace

COLORREF ResolveColor(UIColor color)
{
    const auto value = static_cast<std::uint32_t>(color);
    if (value & 0x80000000u) return GetSysColor(static_cast<int>(value & 0xFF));
    return value & 0x00FFFFFF;
}

void OwnerDrawnButton::Attach(HWND button)
{
    hwnd_ = button;
    AttachTo(button);
}

HWND OwnerDrawnButton::Create(HWND parent, int id, const std::string& caption, int x, int y, int width, int height)
{
    Attach(CreateOwnerDrawn(parent, id, caption, x, y, width, height));
    return hwnd_;
}

void OwnerDrawnButton::Refresh() const
{
    if (hwnd_) InvalidateRect(hwnd_, nullptr, FALSE);
}

void ZunButton::Draw(const DRAWITEMSTRUCT& item)
{
    HDC dc = item.hDC;
    RECT r = item.rcItem;
    const bool pressed = item.itemState & ODS_SELECTED;
    const bool focused = item.itemState & ODS_FOCUS;
    // The outer pixel is the margin, or the focus frame on the focused button.
    FrameColor(dc, r, focused ? FocusColor : FillerBackground);
    InflateRect(&r, -1, -1);
    PaintRect(dc, r, BackColor);
    if (pressed) {
        FrameColor(dc, r, ShadowColor);
    } else {
        Bevel(dc, r, BorderColor, 0x00000000);
        RECT inner = r;
        InflateRect(&inner, -1, -1);
        Bevel(dc, inner, BackColor, ShadowColor);
    }
    RECT text = r;
    if (pressed) OffsetRect(&text, 1, 1);
    DrawCaption(item.hwndItem, dc, text, ForeColor, !(item.itemState & ODS_DISABLED));
    if (focused) {
        RECT dots = r;
        InflateRect(&dots, -3, -3);
        SetTextColor(dc, RGB(0, 0, 0));
        SetBkColor(dc, RGB(255, 255, 255));
        DrawFocusRect(dc, &dots);
    }
}

void FlatButton::Draw(const DRAWITEMSTRUCT& item)
{
    HDC dc = item.hDC;
    RECT r = item.rcItem;
    const bool held = item.itemState & ODS_SELECTED;
    PaintRect(dc, r, held ? ClickColor : BackColor);
    FrameColor(dc, r, Highlight);
    DrawCaption(item.hwndItem, dc, r, ForeColor, !(item.itemState & ODS_DISABLED));
    if (item.itemState & ODS_FOCUS) {
        RECT dots = r;
        InflateRect(&dots, -2, -2);
        SetTextColor(dc, ResolveColor(FocusColor));
        SetBkColor(dc, ResolveColor(BackColor));
        DrawFocusRect(dc, &dots);
    }
}

HWND ProgressBar::Create(HWND parent, int id, int x, int y, int width, int height)
{
    RegisterWindowClass(ProgressClass, ProgressProc, IDC_ARROW);
    hwnd_ = CreateWindowExA(0, ProgressClass, "", WS_CHILD | WS_VISIBLE, x, y, width, height, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
    SetWindowLongPtrA(hwnd_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SendMessageA(hwnd_, WM_SETFONT, SendMessageA(parent, WM_GETFONT, 0, 0), FALSE);
    return hwnd_;
}

ProgressBar::~ProgressBar()
{
    if (hwnd_ && IsWindow(hwnd_) && GetWindowLongPtrA(hwnd_, GWLP_USERDATA) == reinterpret_cast<LONG_PTR>(this))
        SetWindowLongPtrA(hwnd_, GWLP_USERDATA, 0);
}

void ProgressBar::SetValue(int percent)
{
    value_ = percent < 0 ? 0 : percent > 100 ? 100 : percent;
    if (hwnd_) InvalidateRect(hwnd_, nullptr, FALSE);
}

void ProgressBar::SetText(const std::string& status)
{
    text_ = status;
    if (!hwnd_) return;
    // Kept as the window's text too, where a screen reader or a test reads it.
    SetWindowTextA(hwnd_, status.c_str());
    InvalidateRect(hwnd_, nullptr, FALSE);
}

void ProgressBar::Paint(HDC dc) const
{
    RECT r;
    GetClientRect(hwnd_, &r);
    PaintRect(dc, r, BackColor);
    DrawEdge(dc, &r, BDR_SUNKENOUTER, BF_RECT | BF_ADJUST);
    RECT filled = r;
    filled.right = r.left + (r.right - r.left) * value_ / 100;
    PaintRect(dc, filled, FillColor);
    const std::string caption = text_ + (text_.empty() ? "" : "  ") + std::to_string(value_) + "%";
    HFONT font = reinterpret_cast<HFONT>(SendMessageA(hwnd_, WM_GETFONT, 0, 0));
    Selected selected(dc, font ? static_cast<HGDIOBJ>(font) : GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, ResolveColor(ForeColor));
    DrawTextA(dc, caption.c_str(), -1, &r, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

void SetFormColor(Form& form)
{
    if (auto color = FormColorFor(Options.UIMode, CurrentUserColors(), CurrentEdition())) form.SetBackColor(*color);
}

void SetButtonColor(ZunButton& button)
{
    const auto colors = ButtonColorsFor(Options.UIMode, CurrentUserColors(), CurrentEdition());
    if (!colors) return;
    button.BackColor = colors->face;
    button.FocusColor = colors->focus;
    button.ForeColor = colors->text;
    button.FillerBackground = colors->background;
    if (colors->border) button.BorderColor = *colors->border;
    button.ShadowColor = colors->shadow;
    button.Refresh();
}

void SetOptColor(bool pressed, FlatButton& button)
{
    const auto colors = FlatColorsFor(pressed, Options.UIMode, CurrentUserColors());
    if (!colors) return;
    button.BackColor = colors->face;
    button.Highlight = colors->highlight;
    button.ForeColor = colors->text;
    button.Refresh();
}

void SetProgressColor(ProgressBar& bar)
{
    const auto colors = ButtonColorsFor(Options.UIMode, CurrentUserColors(), CurrentEdition());
    if (!colors) return;
    bar.FillColor = colors->face;
    bar.ForeColor = Options.UIMode == UIStandard ? SysColor::ButtonText : 0;
    if (bar.hwnd()) InvalidateRect(bar.hwnd(), nullptr, FALSE);
}

void DrawFormEdge(Form& form) { form.SetFormEdge(true); }

int DisplayBitsPerPixel()
{
    ScreenDC dc;
    return GetDeviceCaps(dc.get(), BITSPIXEL) * GetDeviceCaps(dc.get(), PLANES);
}

int GetUIMode(int bitsPerPixel)
{
    return DefaultUIMode(bitsPerPixel > 0 ? bitsPerPixel : DisplayBitsPerPixel(), Options.LowColorDisplay);
}

int StartUIMode(int bitsPerPixel)
{
    const int bpp = bitsPerPixel > 0 ? bitsPerPixel : DisplayBitsPerPixel();
    Options.UIMode = static_cast<std::int16_t>(ChooseUIMode(bpp, Options.LowColorDisplay, ReadSetting(Setting::UIMode)));
    return Options.UIMode;
}
