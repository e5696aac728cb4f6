// The chat session's life: its hidden window, which carries the watcher's
// one-second timer and answers other programs asking how many ticks the
// watcher has done, and the start and end of its hooks on AOL.
#include "ChatSession.h"

#include "ChatHooks.h"
#include "Form.h"
#include "modFindChild.h"

bool AOLClosing = false;
HWND EMailWindow = nullptr;

namespace {

constexpr UINT_PTR kTimer1 = 1;
constexpr UINT kTimer1Interval = 1000;  // ms

UINT WatcherTicksMessage()
{
    static const UINT message = RegisterWindowMessageA(kWatcherTicksMessage);
    return message;
}

UINT CommandRunningMessage()
{
    static const UINT message = RegisterWindowMessageA(kCommandRunningMessage);
    return message;
}

}  // namespace

void ChatSession::WindowCloser::operator()(HWND window) const
{
    if (IsWindow(window)) DestroyWindow(window);
}

ChatSession::ChatSession(ChatPanel& panel) : panel_(panel) { WireHooks(); }

// The hooks come off as they go; the window takes its timer with it.
ChatSession::~ChatSession() = default;

void ChatSession::WireHooks()
{
    sbcChatEdit.WndMessageX = [this](HWND w, UINT m, WPARAM wp, LPARAM lp, LRESULT& r, bool& nd) {
        sbcChatEdit_WndMessageX(w, m, wp, lp, r, nd);
    };
    sbcSendIcon.WndMessageX = [this](HWND w, UINT m, WPARAM wp, LPARAM lp, LRESULT& r, bool& nd) {
        sbcSendIcon_WndMessageX(w, m, wp, lp, r, nd);
    };
    sbcMenu.WndMessageX = [this](HWND w, UINT m, WPARAM wp, LPARAM lp, LRESULT& r, bool& nd) {
        sbcMenu_WndMessageX(w, m, wp, lp, r, nd);
    };
    // Commands run after AOL has handled the key or click that asked for them.
    auto sendDelayed = [this](LONG_PTR value) { ErrorTrap::Ignoring([&] { SendHook_DelayedEvent(value); }); };
    sbcChatEdit.DelayedEvent = sendDelayed;
    sbcSendIcon.DelayedEvent = sendDelayed;
    sbcMenu.DelayedEvent = [this](LONG_PTR value) { sbcMenu_DelayedEvent(value); };
}

void ChatSession::Start()
{
    if (Running()) return;
    RegisterWindowClass(kChatSessionClass, WindowProc, IDC_ARROW);
    // A hidden top-level window: Windows 95 has no message-only windows, and
    // another program finds this one by its class.
    window_.reset(CreateWindowExA(WS_EX_TOOLWINDOW, kChatSessionClass, kChatSessionCaption, WS_POPUP, 0, 0, 0, 0,
                                  nullptr, nullptr, GetModuleHandleA(nullptr), this));
    if (!window_) return;
    // The menu hook sits on AOL from now on.
    ErrorTrap::Ignoring([&] {
        if (AOLWindow) sbcMenu.Attach(AOLWindow, {WM_CLOSE, WM_COMMAND});
    });
    SetTimer(window_.get(), kTimer1, kTimer1Interval, nullptr);
}

void ChatSession::Stop()
{
    if (window_) KillTimer(window_.get(), kTimer1);
    ErrorTrap::Ignoring([&] {
        DetachChatHooks();
        sbcMenu.Attach(nullptr, {});
    });
    window_.reset();
}

bool ChatSession::Running() const { return window_ != nullptr; }

void ChatSession::DetachChatHooks()
{
    sbcChatEdit.Attach(nullptr, {});
    sbcSendIcon.Attach(nullptr, {});
    ChatHooked = false;
}

// A failing tick is ignored as each of its steps is; the next tick comes as
// usual. The timer fires inside any wait, a tick's own included: a tick then
// is skipped, never run inside another one or inside a command.
void ChatSession::Tick()
{
    RunOneThing(true, [&] {
        RunTrapped("Timer1_Timer", [&] { ErrorTrap::Ignoring([&] { Timer1_Timer(); }); });
        ++ticks_;
    });
}

LRESULT CALLBACK ChatSession::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* session = reinterpret_cast<ChatSession*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (session && message == WM_TIMER && wParam == kTimer1) {
        session->Tick();
        return 0;
    }
    if (session && message == WatcherTicksMessage()) return session->ticks_;
    if (session && message == CommandRunningMessage()) return session->commandsRunning_ > 0;
    if (message == WM_NCDESTROY) SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    return DefWindowProcA(window, message, wParam, lParam);
}
