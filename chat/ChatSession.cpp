// The chat session's life: its hidden window, which carries the watcher's
// one-second timer and answers other programs asking how many ticks the
// watcher has done, and the start and end of its hooks on AOL.
#include "ChatSession.h"

#include "ChatHooks.h"
#include "ErrorTrap.h"
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
        HoldIfAsked();
        sbcChatEdit_WndMessageX(w, m, wp, lp, r, nd);
    };
    sbcSendIcon.WndMessageX = [this](HWND w, UINT m, WPARAM wp, LPARAM lp, LRESULT& r, bool& nd) {
        HoldIfAsked();
        sbcSendIcon_WndMessageX(w, m, wp, lp, r, nd);
    };
    sbcMenu.WndMessageX = [this](HWND w, UINT m, WPARAM wp, LPARAM lp, LRESULT& r, bool& nd) {
        HoldIfAsked();
        sbcMenu_WndMessageX(w, m, wp, lp, r, nd);
    };
    // Their failures are reported once AOL has gone on with the message.
    sbcSendIcon.ReportAs("frmChatTools", "sbcSendIcon_WndMessageX");
    sbcMenu.ReportAs("frmChatTools", "sbcMenu_WndMessageX");
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
    ChatRoomHooked = nullptr;
}

void ChatSession::HoldOffChatInputHook(bool holdOff)
{
    ChatInputHeldOff = holdOff;
    if (holdOff) {
        catching_ = Catching::No;
        caught_.clear();
        ErrorTrap::Ignoring([&] { sbcChatEdit.Attach(nullptr, {}); });
    } else if (ChatHooked && Running()) {
        ChatHooked = HookChatRoom();
    }
}

// The Windows test build makes, on request, the faults that a loaded machine
// or a busy AOL bring: a handler that answers late, an attach that fails, a
// handler that fails. The release answers none of these requests, so its
// fault switches stay off.
bool ChatSession::AnswerTestFault(UINT message, WPARAM wParam, LRESULT& answer)
{
#ifdef PRISMO_TEST_FAULTS
    static const UINT hold = RegisterWindowMessageA(kTestHoldMessage);
    static const UINT failAttach = RegisterWindowMessageA(kTestFailAttachMessage);
    static const UINT failMenu = RegisterWindowMessageA(kTestFailMenuHookMessage);
    static const UINT live = RegisterWindowMessageA(kTestHooksLiveMessage);
    static const UINT holdOff = RegisterWindowMessageA(kTestHoldOffChatInputMessage);
    answer = 1;
    if (message == hold) testFaults_.holdMs = static_cast<DWORD>(wParam);
    else if (message == failAttach) testFaults_.failAttaches = static_cast<int>(wParam);
    else if (message == failMenu) testFaults_.failMenuHook = true;
    else if (message == holdOff) HoldOffChatInputHook(wParam != 0);
    else if (message == live)
        answer = (sbcChatEdit.Live() ? 1 : 0) | (sbcSendIcon.Live() ? 2 : 0) | (sbcMenu.Live() ? 4 : 0);
    else return false;
    return true;
#else
    (void)message;
    (void)wParam;
    (void)answer;
    return false;
#endif
}

// Holds the hooked message as a program too busy to answer would (test build only).
void ChatSession::HoldIfAsked()
{
    if (!testFaults_.holdMs) return;
    const DWORD ms = testFaults_.holdMs;
    testFaults_.holdMs = 0;
    Sleep(ms);
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
        // What a tick holds back until it ends (AOL's close, Exit) runs here too.
        try {
            session->Tick();
        } catch (...) {
            ReportCaughtError("frmChatTools", "Timer1_Timer");
        }
        return 0;
    }
    if (session && message == WatcherTicksMessage()) return session->ticks_;
    if (session && message == CommandRunningMessage()) return session->commandsRunning_ > 0;
    LRESULT answer = 0;
    if (session && message >= 0xC000 && session->AnswerTestFault(message, wParam, answer)) return answer;
    if (message == WM_NCDESTROY) SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    return DefWindowProcA(window, message, wParam, lParam);
}
