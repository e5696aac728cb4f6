// frmMsg: laying out, showing and answering a marked-up message.
#include "frmMsg.h"

#include "ProgramInfo.h"
#include "modWin32API.h"
#include "resource.h"

#include <vector>

namespace {

// The designed layout, in twips.
constexpr long AreaWidth = 5400;
constexpr long AreaHeight = 780;
constexpr long ButtonWidth = 1215;
constexpr long ButtonHeight = 375;
constexpr long ButtonGap = 120;
constexpr long RightMargin = 150;
constexpr long ButtonGapBelowArea = 60;
constexpr long HeightBelowButtons = 420;
constexpr long ShiftLeft = 10;  // the buttons sit this much left of their design

const int ButtonIds[3] = {IDC_MSG_CMD0, IDC_MSG_CMD1, IDC_MSG_CMD2};

long DesignedButtonLeft(int index)
{
    return AreaWidth - RightMargin - ButtonWidth - index * (ButtonWidth + ButtonGap);
}

}  // namespace

MessageArea::~MessageArea()
{
    if (originalFont_) SelectObject(canvas_.get(), originalFont_);
    if (originalBitmap_) SelectObject(canvas_.get(), originalBitmap_);
}

void MessageArea::Attach(HWND area, UIColor backColor)
{
    hwnd_ = area;
    backColor_ = backColor;
    AttachTo(area);
    RECT r;
    GetClientRect(area, &r);
    MakeCanvas(r.right, r.bottom);
}

// A bitmap of the area's size, keeping what was printed on the old one.
void MessageArea::MakeCanvas(int width, int height)
{
    ScreenDC screen;
    GdiBitmap bitmap(CreateCompatibleBitmap(screen.get(), width, height));
    MemoryDC canvas(screen.get());
    HGDIOBJ original = SelectObject(canvas.get(), bitmap.get());
    RECT all{0, 0, width, height};
    GdiBrush back(CreateSolidBrush(ResolveColor(backColor_)));
    FillRect(canvas.get(), &all, back.get());
    if (originalBitmap_) {
        BitBlt(canvas.get(), 0, 0, width_, height_, canvas_.get(), 0, 0, SRCCOPY);
        SelectObject(canvas_.get(), originalBitmap_);
    }
    if (originalFont_) SelectObject(canvas_.get(), originalFont_);
    canvas_ = std::move(canvas);
    bitmap_ = std::move(bitmap);
    originalBitmap_ = original;
    originalFont_ = font_ ? SelectObject(canvas_.get(), font_.get()) : nullptr;
    SetBkMode(canvas_.get(), TRANSPARENT);
    width_ = width;
    height_ = height;
}

void MessageArea::Clear()
{
    RECT all{0, 0, width_, height_};
    GdiBrush back(CreateSolidBrush(ResolveColor(backColor_)));
    FillRect(canvas_.get(), &all, back.get());
    InvalidateRect(hwnd_, nullptr, FALSE);
}

void MessageArea::SetStyle(const TextStyle& style)
{
    GdiFont font(CreateFontA(-MulDiv(8, 96, 72), 0, 0, 0, style.bold ? FW_BOLD : FW_NORMAL, style.italic,
                             style.underline, FALSE, ANSI_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                             DEFAULT_QUALITY, DEFAULT_PITCH | FF_SWISS, "MS Sans Serif"));
    HGDIOBJ previous = SelectObject(canvas_.get(), font.get());
    if (!originalFont_) originalFont_ = previous;
    font_ = std::move(font);
    SetTextColor(canvas_.get(), style.color);
}

int MessageArea::TextWidth(const std::string& text)
{
    SIZE size{};
    GetTextExtentPoint32A(canvas_.get(), text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

int MessageArea::LineHeight()
{
    TEXTMETRICA tm{};
    GetTextMetricsA(canvas_.get(), &tm);
    return tm.tmHeight + tm.tmExternalLeading;
}

void MessageArea::Print(int x, int y, const std::string& text)
{
    // Place every letter where the measuring says it goes, so that words
    // printed one by one sit exactly as TextWidth laid them out.
    const int n = static_cast<int>(text.size());
    std::vector<int> ends(n), advances(n);
    SIZE size{};
    GetTextExtentExPointA(canvas_.get(), text.c_str(), n, 0, nullptr, ends.data(), &size);
    for (int i = 0; i < n; ++i) advances[i] = ends[i] - (i ? ends[i - 1] : 0);
    ExtTextOutA(canvas_.get(), x, y, 0, nullptr, text.c_str(), static_cast<UINT>(n), advances.data());
    InvalidateRect(hwnd_, nullptr, FALSE);
}

void MessageArea::Grow(int pixels)
{
    // The new height is the drawing room in twips plus 30 twips.
    const long ty = TwipsPerPixelY();
    const int newHeight = static_cast<int>((pixels * ty + 30) / ty);
    RECT r;
    GetWindowRect(hwnd_, &r);
    MapWindowPoints(nullptr, GetParent(hwnd_), reinterpret_cast<POINT*>(&r), 2);
    SetWindowPos(hwnd_, nullptr, 0, 0, r.right - r.left, newHeight, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    MakeCanvas(width_, newHeight);
}

void MessageArea::DrawIcon(int systemIcon)
{
    if (!systemIcon) return;
    HICON icon = LoadIconA(nullptr, MAKEINTRESOURCEA(systemIcon));
    if (icon) ::DrawIcon(canvas_.get(), 5, 5, icon);
    InvalidateRect(hwnd_, nullptr, FALSE);
}

void MessageArea::Draw(const DRAWITEMSTRUCT& item)
{
    BitBlt(item.hDC, 0, 0, width_, height_, canvas_.get(), 0, 0, SRCCOPY);
}

frmMsg::frmMsg() : Form("frmMsg", IDD_MSG) {}

frmMsg::~frmMsg() { Unload(); }

void frmMsg::OnLoad()
{
    FormOnTop(*this);
    SetFormColor(*this);
    const long tx = TwipsPerPixelX(), ty = TwipsPerPixelY();
    // The area sits a pixel inside the client so the form's etched edge shows all round.
    HWND area = Item(IDC_MSG_AREA);
    SetWindowPos(area, nullptr, 1, 1, AreaWidth / tx - 2, AreaHeight / ty, SWP_NOZORDER | SWP_NOACTIVATE);
    Picture1.Attach(area, BackColor());
    for (int i = 0; i < 3; ++i) {
        Command1[i].Attach(Item(ButtonIds[i]));
        SetButtonColor(Command1[i]);
    }
    CenterForm(*this);
}

void frmMsg::Prepare(const std::string& message, const MsgStyle& style)
{
    // Tab order: the focused button first, then the others.
    focusIndex_ = style.firstInTab;
    const int order[3] = {focusIndex_, focusIndex_ == 0 ? 1 : 0, 2};
    HWND after = HWND_TOP;
    for (int index : order) {
        SetWindowPos(Command1[index].hwnd(), after, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        after = Command1[index].hwnd();
    }

    const std::vector<MsgButton> set = ButtonSet(style.buttons);
    const int count = static_cast<int>(set.size());
    for (int index = 0; index < 3; ++index) {
        const bool used = index < count;
        ShowWindow(Command1[index].hwnd(), used ? SW_SHOWNA : SW_HIDE);
        if (!used) continue;
        const MsgButton& button = set[count - 1 - index];
        SetWindowTextA(Command1[index].hwnd(), button.caption.c_str());
        answers_[index] = button.answer;
    }

    RenderMarkup(Picture1, message);
    // The text also goes into the area's window text, where screen readers and
    // other programs can read it.
    SetWindowTextA(Item(IDC_MSG_AREA), message.c_str());

    const long tx = TwipsPerPixelX(), ty = TwipsPerPixelY();
    const long buttonTop = (1 + Picture1.Height()) * ty + ButtonGapBelowArea;
    for (int index = 0; index < 3; ++index)
        SetWindowPos(Command1[index].hwnd(), nullptr, (DesignedButtonLeft(index) - ShiftLeft) / tx, buttonTop / ty,
                     ButtonWidth / tx, ButtonHeight / ty, SWP_NOZORDER | SWP_NOACTIVATE);

    RECT frame{0, 0, static_cast<LONG>(AreaWidth / tx), 0};
    AdjustWindowRectEx(&frame, GetWindowLongA(hwnd(), GWL_STYLE), FALSE, GetWindowLongA(hwnd(), GWL_EXSTYLE));
    Move(Left(), Top(), (frame.right - frame.left) * tx, buttonTop + ButtonHeight + HeightBelowButtons);

    Picture1.DrawIcon(SystemIconFor(style.icon));
    SetCaption(TitleText());
    CenterForm(*this);
    FormOnTop(*this);
    DrawFormEdge(*this);
    MessageBeep(static_cast<UINT>(style.icon));
}

void frmMsg::FocusFirstButton() { SetFocus(Command1[focusIndex_].hwnd()); }

void frmMsg::Command1_Click(int index)
{
    Tag = std::to_string(answers_[index]);
    Hide();
}

void frmMsg::OnCommand(int id, int code, HWND)
{
    for (int index = 0; index < 3; ++index)
        if (id == ButtonIds[index] && code == BN_CLICKED) return Command1_Click(index);
    if (id == IDOK) {
        // Enter answers with the button that has the focus.
        HWND focus = GetFocus();
        for (int index = 0; index < 3; ++index)
            if (focus == Command1[index].hwnd()) return Command1_Click(index);
    } else if (id == IDCANCEL) {
        // Escape answers Cancel where the set has it, or OK when it is alone.
        for (int index = 0; index < 3; ++index) {
            if (!IsWindowVisible(Command1[index].hwnd())) continue;
            const bool lone = index == 0 && !IsWindowVisible(Command1[1].hwnd());
            if (answers_[index] == 2 || (lone && answers_[index] == 1)) return Command1_Click(index);
        }
    }
}
