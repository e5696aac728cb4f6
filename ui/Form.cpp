// The window base: creation, the message procedures, the loaded-form list
// and the placement helpers.
#include "Form.h"

#include <algorithm>

#include "Convert.h"
#include "ErrorTrap.h"
#include "FormPlacement.h"
#include "modRegKeys.h"
#include "modWin32API.h"
#include "modZunBtns.h"

namespace {

const char* const FormClass = "PrismoForm";
const char* const OwnerDrawnProp = "PrismoOwnerDrawn";

std::vector<Form*>& FormList()
{
    static std::vector<Form*> forms;
    return forms;
}

RECT WindowRect(HWND hwnd)
{
    RECT r{};
    GetWindowRect(hwnd, &r);
    return r;
}

}  // namespace

OwnerDrawn* OwnerDrawn::Of(HWND control) { return static_cast<OwnerDrawn*>(GetPropA(control, OwnerDrawnProp)); }

OwnerDrawn::~OwnerDrawn() { Release(); }

void OwnerDrawn::AttachTo(HWND control)
{
    Release();
    if (control && SetPropA(control, OwnerDrawnProp, this)) control_ = control;
}

// A late WM_DRAWITEM for the control must not reach an object that is gone.
void OwnerDrawn::Release()
{
    if (control_ && Of(control_) == this) RemovePropA(control_, OwnerDrawnProp);
    control_ = nullptr;
}

Form::Form(std::string name, int templateId, int pixelWidth, int pixelHeight)
    : name_(std::move(name)), templateId_(templateId), pixelWidth_(pixelWidth), pixelHeight_(pixelHeight)
{
}

Form::~Form()
{
    if (hwnd_) {
        // The derived form is already gone: its window must not call back into it.
        SetWindowLongPtrA(hwnd_, templateId_ ? DWLP_USER : GWLP_USERDATA, 0);
        DestroyWindow(hwnd_);
    }
    auto& forms = FormList();
    forms.erase(std::remove(forms.begin(), forms.end(), this), forms.end());
}

bool Form::Load()
{
    if (hwnd_) return true;
    HINSTANCE instance = GetModuleHandleA(nullptr);
    SetBackColor(backColor_);
    FormList().push_back(this);
    if (templateId_) {
        CreateDialogParamA(instance, MAKEINTRESOURCEA(templateId_), nullptr, DialogProc, reinterpret_cast<LPARAM>(this));
    } else {
        RegisterWindowClass(FormClass, WindowProc, IDC_ARROW);
        CreateWindowExA(0, FormClass, "", WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX, CW_USEDEFAULT,
                        CW_USEDEFAULT, pixelWidth_, pixelHeight_, nullptr, nullptr, instance, this);
    }
    if (!hwnd_) {
        auto& forms = FormList();
        forms.erase(std::remove(forms.begin(), forms.end(), this), forms.end());
        return false;
    }
    return true;
}

void Form::Show()
{
    if (!Load()) return;
    ShowWindow(hwnd_, SW_SHOW);
    UpdateWindow(hwnd_);
}

void Form::Hide()
{
    if (hwnd_) ShowWindow(hwnd_, SW_HIDE);
}

bool Form::Unload()
{
    if (!hwnd_) return true;
    if (!OnQueryUnload()) return false;
    OnUnload();
    HWND old = hwnd_;
    hwnd_ = nullptr;
    DestroyWindow(old);
    auto& forms = FormList();
    forms.erase(std::remove(forms.begin(), forms.end(), this), forms.end());
    return true;
}

bool Form::Visible() const { return hwnd_ && IsWindowVisible(hwnd_); }

long Form::Left() const { return WindowRect(hwnd_).left * TwipsPerPixelX(); }
long Form::Top() const { return WindowRect(hwnd_).top * TwipsPerPixelY(); }

long Form::Width() const
{
    const RECT r = WindowRect(hwnd_);
    return (r.right - r.left) * TwipsPerPixelX();
}

long Form::Height() const
{
    const RECT r = WindowRect(hwnd_);
    return (r.bottom - r.top) * TwipsPerPixelY();
}

void Form::Move(long left, long top, long width, long height)
{
    const long tx = TwipsPerPixelX(), ty = TwipsPerPixelY();
    // Whole pixels, as ShownTwips tells the form's own code.
    SetWindowPos(hwnd_, nullptr, left / tx, top / ty, ShownTwips(width, tx) / tx, ShownTwips(height, ty) / ty,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void Form::SetCaption(const std::string& caption) { SetWindowTextA(hwnd_, caption.c_str()); }

void Form::SetBackColor(UIColor color)
{
    backColor_ = color;
    backBrush_.reset(CreateSolidBrush(ResolveColor(color)));
    if (hwnd_) InvalidateRect(hwnd_, nullptr, TRUE);
}

void Form::SetFormEdge(bool on)
{
    edge_ = on;
    if (hwnd_) InvalidateRect(hwnd_, nullptr, TRUE);
}

bool Form::Paint()
{
    PAINTSTRUCT ps;
    HDC dc = BeginPaint(hwnd_, &ps);
    if (edge_) {
        // The client rectangle grown by a pixel: only the inner line of
        // the etch shows, as a fine frame inside the window's border.
        RECT r;
        GetClientRect(hwnd_, &r);
        InflateRect(&r, 1, 1);
        DrawEdge(dc, &r, EDGE_ETCHED, BF_LEFT | BF_TOP);
        DrawEdge(dc, &r, EDGE_ETCHED, BF_RIGHT | BF_BOTTOM);
    }
    EndPaint(hwnd_, &ps);
    return true;
}

bool Form::Dispatch(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result)
{
    result = 0;
    switch (msg) {
    case WM_COMMAND:
        OnCommand(LOWORD(wp), HIWORD(wp), reinterpret_cast<HWND>(lp));
        return true;
    case WM_CLOSE:
        OnClose();
        return true;
    case WM_ERASEBKGND: {
        RECT r;
        GetClientRect(hwnd_, &r);
        FillRect(reinterpret_cast<HDC>(wp), &r, backBrush_.get());
        result = 1;
        return true;
    }
    case WM_PAINT:
        return Paint();
    case WM_CTLCOLORDLG:
        result = reinterpret_cast<LRESULT>(backBrush_.get());
        return true;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
        SetBkColor(reinterpret_cast<HDC>(wp), ResolveColor(backColor_));
        result = reinterpret_cast<LRESULT>(backBrush_.get());
        return true;
    case WM_DRAWITEM: {
        const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lp);
        if (OwnerDrawn* control = OwnerDrawn::Of(item->hwndItem)) {
            control->Draw(*item);
            result = TRUE;
            return true;
        }
        break;
    }
    default:
        break;
    }
    return OnMessage(msg, wp, lp, result);
}

// No exception leaves a window procedure: each is handed to the error report.
INT_PTR CALLBACK Form::DialogProc(HWND hwnd, UINT msg, WPARAM wp, LPARAM lp)
{
    if (msg == WM_INITDIALOG) SetWindowLongPtrA(hwnd, DWLP_USER, lp);
    auto* form = reinterpret_cast<Form*>(GetWindowLongPtrA(hwnd, DWLP_USER));
    if (!form) return FALSE;
    try {
        if (msg == WM_INITDIALOG) {
            form->hwnd_ = hwnd;
            form->OnLoad();
            return FALSE;  // the form sets its own focus
        }
        LRESULT result = 0;
        if (!form->hwnd_ || !form->Dispatch(msg, wp, lp, result)) return FALSE;
        SetWindowLongPtrA(hwnd, DWLP_MSGRESULT, result);
        // These messages return their answer directly, not through DWLP_MSGRESULT.
        if (msg == WM_CTLCOLORDLG || msg == WM_CTLCOLORSTATIC || msg == WM_CTLCOLORBTN) return result;
        return TRUE;
    } catch (...) {
        const std::string module = form->name_;  // the report may outlive the form
        ReportCaughtError(module, "DialogProc");
    }
    return TRUE;
}

LRESULT CALLBACK Form::WindowProc(HWND hwnd, UINT msg, WPARAM wp, LPARAM lp)
{
    if (msg == WM_NCCREATE) {
        auto* cs = reinterpret_cast<CREATESTRUCTA*>(lp);
        SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(cs->lpCreateParams));
    }
    auto* form = reinterpret_cast<Form*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
    if (!form) return DefWindowProcA(hwnd, msg, wp, lp);
    try {
        if (msg == WM_CREATE) {
            form->hwnd_ = hwnd;
            form->OnLoad();
            return 0;
        }
        LRESULT result = 0;
        if (form->hwnd_ && form->Dispatch(msg, wp, lp, result)) return result;
    } catch (...) {
        const std::string module = form->name_;  // the report may outlive the form
        ReportCaughtError(module, "WindowProc");
        return 0;
    }
    return DefWindowProcA(hwnd, msg, wp, lp);
}

const std::vector<Form*>& LoadedForms() { return FormList(); }

void UnloadAllForms()
{
    auto& forms = FormList();
    while (!forms.empty()) {
        const std::size_t before = forms.size();
        forms.back()->Unload();
        if (forms.size() == before) return;  // the form refused to close
    }
}

namespace {

struct Blocked {
    HWND keep;
    std::vector<HWND> windows;
};

BOOL CALLBACK DisableOne(HWND hwnd, LPARAM lp)
{
    auto* blocked = reinterpret_cast<Blocked*>(lp);
    if (hwnd != blocked->keep && IsWindowVisible(hwnd) && IsWindowEnabled(hwnd)) {
        EnableWindow(hwnd, FALSE);
        blocked->windows.push_back(hwnd);
    }
    return TRUE;
}

}  // namespace

void WaitWhileShown(Form& form, bool blockOthers)
{
    Blocked blocked{form.hwnd(), {}};
    if (blockOthers) EnumThreadWindows(GetCurrentThreadId(), DisableOne, reinterpret_cast<LPARAM>(&blocked));
    WaitUntil([&form] { return !form.Visible(); });
    for (HWND hwnd : blocked.windows)
        if (IsWindow(hwnd)) EnableWindow(hwnd, TRUE);
}

long TwipsPerPixelX()
{
    ScreenDC dc;
    const int dpi = GetDeviceCaps(dc.get(), LOGPIXELSX);
    return dpi > 0 ? 1440 / dpi : 15;
}

long TwipsPerPixelY()
{
    ScreenDC dc;
    const int dpi = GetDeviceCaps(dc.get(), LOGPIXELSY);
    return dpi > 0 ? 1440 / dpi : 15;
}

long ScreenWidth() { return GetSystemMetrics(SM_CXSCREEN) * TwipsPerPixelX(); }
long ScreenHeight() { return GetSystemMetrics(SM_CYSCREEN) * TwipsPerPixelY(); }

namespace {

FormRect RectOf(const Form& form) { return {form.Left(), form.Top(), form.Width(), form.Height()}; }

void MoveTo(Form& form, const FormRect& r) { form.Move(r.left, r.top, r.width, r.height); }

}  // namespace

void CenterForm(Form& form) { MoveTo(form, CenterRect(RectOf(form), ScreenWidth(), ScreenHeight())); }

void RePosForm(Form& form, int axis) { MoveTo(form, RePosRect(RectOf(form), axis, ScreenWidth(), ScreenHeight())); }

void RestoreFormPlace(Form& form, const SettingName& top, const SettingName& left)
{
    const auto storedTop = ToLong(ReadSetting(top));
    if (!storedTop) return CenterForm(form);
    form.Move(ToLong(ReadSetting(left)).value_or(0), *storedTop, form.Width(), form.Height());
    RePosForm(form, 0);
    RePosForm(form, 1);
}

void FormOnTop(Form& form) { SetWindowZOrder(form.hwnd(), -1); }
void FormNotOnTop(Form& form) { SetWindowZOrder(form.hwnd(), 0); }

void InitForm(Form& form)
{
    FormOnTop(form);
    CenterForm(form);
    SetFormColor(form);
}

void RegisterWindowClass(const char* name, WNDPROC proc, LPCSTR cursor)
{
    WNDCLASSA wc{};
    if (GetClassInfoA(GetModuleHandleA(nullptr), name, &wc)) return;
    wc.lpfnWndProc = proc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.hCursor = LoadCursor(nullptr, cursor);
    wc.lpszClassName = name;
    RegisterClassA(&wc);
}

std::string WindowTextOf(HWND window)
{
    const int length = GetWindowTextLengthA(window);
    if (length <= 0) return "";
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    const int got = GetWindowTextA(window, &text[0], length + 1);
    text.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return text;
}

std::string ListBoxText(HWND list, int index)
{
    const LRESULT length = SendMessageA(list, LB_GETTEXTLEN, static_cast<WPARAM>(index), 0);
    if (length <= 0) return "";
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&text[0]));
    text.resize(static_cast<std::size_t>(length));
    return text;
}
