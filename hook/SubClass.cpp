// The program's side of the hook: one hidden window receives every message
// that prismosbc.dll forwards from AOL and hands it to the SubClass object
// that hooked the window; window hooks on AOL's threads load the DLL there.
#include "SubClass.h"

#include <cstdlib>
#include <cstring>
#include <map>
#include <utility>

#include "ErrorTrap.h"
#include "SbcProtocol.h"

namespace {
const char kHostClass[] = "PrismoSbcHost";
// How long the program waits for AOL to carry out a request.
const UINT kRequestTimeoutMs = 5000;
// Posted to the hidden window: show the failures of handlers that ran while
// AOL waited, and run what they left for afterwards.
const UINT kReportMessage = WM_APP + 1;

BOOL CALLBACK TakeFirstWindow(HWND window, LPARAM out)
{
    *reinterpret_cast<HWND*>(out) = window;
    return FALSE;
}

// A window of `thread` that can carry a message to the window hook there.
HWND WindowOfThread(DWORD thread, HWND known)
{
    if (known && IsWindow(known) && GetWindowThreadProcessId(known, nullptr) == thread) return known;
    HWND found = nullptr;
    EnumThreadWindows(thread, TakeFirstWindow, reinterpret_cast<LPARAM>(&found));
    return found;
}
}  // namespace

// The hidden window, the loaded DLL and one window hook per hooked thread.
class SbcHost {
public:
    static SbcHost& Get()
    {
        static SbcHost host;
        return host;
    }

    HWND Window();
    // Puts the window hook on `window`'s thread (once per thread).
    bool AcquireThread(HWND window);
    void ReleaseThread(DWORD thread);
    // Sends a request to `target` and waits for the DLL's reply.
    bool Request(HWND target, sbc::Op op, const void* data, DWORD size, std::string* text);

    void Register(HWND window, SubClass* object) { objects_[window] = object; }
    void Unregister(HWND window) { objects_.erase(window); }
    void RunAfterHookedMessage(std::function<void()> step);

private:
    struct Hook {
        HHOOK handle;
        int users;
        HWND window;  // one of the thread's windows, for the last word to the DLL
    };
    SbcHost() = default;
    bool LoadDll();
    static LRESULT CALLBACK WndProc(HWND, UINT, WPARAM, LPARAM);
    LRESULT OnCopyData(HWND from, const COPYDATASTRUCT* data);
    LRESULT OnHookedMessage(const sbc::HookedMessage& hooked);
    void OnRelease(HWND hooked);
    void ShowDeferredReports();

    HWND window_ = nullptr;
    HMODULE dll_ = nullptr;
    HOOKPROC hookProc_ = nullptr;
    UINT releaseMessage_ = 0;
    UINT prepareMessage_ = 0;
    UINT unloadMessage_ = 0;
    int hookedMessages_ = 0;  // forwarded messages being handled now (nested ones too)
    std::vector<std::function<void()>> afterMessage_;
    std::map<DWORD, Hook> hooks_;
    std::map<HWND, SubClass*> objects_;
    bool gotReply_ = false;
    bool replyOk_ = false;
    std::string replyText_;
    std::vector<ErrorReport> deferred_;  // failures waiting for AOL to go on
};

bool SbcHost::LoadDll()
{
    if (dll_) return true;
    // The DLL travels beside the program.
    char exe[MAX_PATH];
    const DWORD n = GetModuleFileNameA(nullptr, exe, sizeof exe);
    std::string path(exe, n);
    path = path.substr(0, path.find_last_of('\\') + 1) + "prismosbc.dll";
    dll_ = LoadLibraryA(path.c_str());
    if (!dll_) return false;
    hookProc_ = reinterpret_cast<HOOKPROC>(
        reinterpret_cast<void (*)()>(GetProcAddress(dll_, "SbcCallWndProc")));
    return hookProc_ != nullptr;
}

HWND SbcHost::Window()
{
    if (window_ && IsWindow(window_)) return window_;
    HINSTANCE instance = GetModuleHandleA(nullptr);
    WNDCLASSA wc = {};
    wc.lpfnWndProc = &SbcHost::WndProc;
    wc.hInstance = instance;
    wc.lpszClassName = kHostClass;
    RegisterClassA(&wc);  // fails harmlessly when already registered
    releaseMessage_ = RegisterWindowMessageA(sbc::kReleaseMessageName);
    prepareMessage_ = RegisterWindowMessageA(sbc::kPrepareMessageName);
    unloadMessage_ = RegisterWindowMessageA(sbc::kUnloadMessageName);
    // A hidden top-level window: message-only windows do not exist on Windows 95.
    window_ = CreateWindowA(kHostClass, "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, instance,
                            nullptr);
    return window_;
}

bool SbcHost::AcquireThread(HWND window)
{
    const DWORD thread = GetWindowThreadProcessId(window, nullptr);
    auto found = hooks_.find(thread);
    if (found != hooks_.end()) {
        ++found->second.users;
        found->second.window = window;
        return true;
    }
    if (!LoadDll() || !Window()) return false;
    HHOOK handle = SetWindowsHookExA(WH_CALLWNDPROC, hookProc_, dll_, thread);
    if (!handle) return false;
    hooks_[thread] = Hook{handle, 1, window};
    return true;
}

// The last hold on a thread goes: the DLL is told, through its window hook,
// that it may leave the process, and then the hook goes.
void SbcHost::ReleaseThread(DWORD thread)
{
    auto found = hooks_.find(thread);
    if (found == hooks_.end() || --found->second.users > 0) return;
    if (HWND window = WindowOfThread(thread, found->second.window)) {
        DWORD_PTR ignored = 0;
        SendMessageTimeoutA(window, unloadMessage_, 0, 0, SMTO_NORMAL | SMTO_ABORTIFHUNG, kRequestTimeoutMs,
                            &ignored);
    }
    UnhookWindowsHookEx(found->second.handle);
    hooks_.erase(found);
}

void SbcHost::RunAfterHookedMessage(std::function<void()> step)
{
    if (hookedMessages_ == 0) {
        step();
        return;
    }
    afterMessage_.push_back(std::move(step));
    PostMessageA(Window(), kReportMessage, 0, 0);
}

bool SbcHost::Request(HWND target, sbc::Op op, const void* data, DWORD size, std::string* text)
{
    COPYDATASTRUCT request;
    request.dwData = sbc::kTag | op;
    request.cbData = size;
    request.lpData = const_cast<void*>(data);
    gotReply_ = false;
    replyOk_ = false;
    replyText_.clear();
    DWORD_PTR ignored = 0;
    SendMessageTimeoutA(target, prepareMessage_, reinterpret_cast<WPARAM>(Window()), 0,
                        SMTO_NORMAL | SMTO_ABORTIFHUNG, kRequestTimeoutMs, &ignored);
    SendMessageTimeoutA(target, WM_COPYDATA, reinterpret_cast<WPARAM>(Window()),
                        reinterpret_cast<LPARAM>(&request), SMTO_NORMAL | SMTO_ABORTIFHUNG,
                        kRequestTimeoutMs, &ignored);
    if (text) *text = replyText_;
    return gotReply_ && replyOk_;
}

LRESULT CALLBACK SbcHost::WndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    SbcHost& host = Get();
    if (message == WM_COPYDATA)
        return host.OnCopyData(reinterpret_cast<HWND>(wParam),
                               reinterpret_cast<const COPYDATASTRUCT*>(lParam));
    if (message == kReportMessage) {
        host.ShowDeferredReports();
        return 0;
    }
    if (message == host.releaseMessage_ && host.releaseMessage_ != 0) {
        host.OnRelease(reinterpret_cast<HWND>(wParam));
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT SbcHost::OnCopyData(HWND, const COPYDATASTRUCT* data)
{
    if (!data || (static_cast<DWORD>(data->dwData) & sbc::kTagMask) != sbc::kTag) return FALSE;
    const DWORD op = static_cast<DWORD>(data->dwData) & ~sbc::kTagMask;
    if (op == sbc::OpReply && data->cbData >= sizeof(sbc::Reply)) {
        sbc::Reply header;
        std::memcpy(&header, data->lpData, sizeof header);
        gotReply_ = true;
        replyOk_ = header.ok != 0;
        replyText_.assign(static_cast<const char*>(data->lpData) + sizeof header,
                          data->cbData - sizeof header);
        return TRUE;
    }
    if (op == sbc::OpMessage && data->cbData >= sizeof(sbc::HookedMessage)) {
        sbc::HookedMessage hooked;
        std::memcpy(&hooked, data->lpData, sizeof hooked);
        return OnHookedMessage(hooked);
    }
    return FALSE;
}

// Hands one forwarded message to its object. Nothing may escape back into
// AOL: a handler that fails lets the message go on untouched, and its failure
// is reported once AOL has gone on (a report now would keep AOL waiting).
LRESULT SbcHost::OnHookedMessage(const sbc::HookedMessage& hooked)
{
    const HWND window = reinterpret_cast<HWND>(static_cast<std::uintptr_t>(hooked.window));
    auto found = objects_.find(window);
    if (found == objects_.end() || !found->second->WndMessageX) return 0;
    SubClass* object = found->second;
    LRESULT result = 0;
    bool noDefault = false;
    const bool outer = !object->inMessage_;
    object->inMessage_ = true;
    ++hookedMessages_;
    try {
        object->WndMessageX(window, hooked.message, static_cast<WPARAM>(hooked.wParam),
                            static_cast<LPARAM>(hooked.lParam), result, noDefault);
    } catch (...) {
        noDefault = false;
        deferred_.push_back(CaughtErrorReport(object->reportModule_, object->reportProcedure_));
        PostMessageA(Window(), kReportMessage, 0, 0);
    }
    --hookedMessages_;
    if (outer) object->inMessage_ = false;
    // The handler may have detached the object; then it answers no more.
    found = objects_.find(window);
    if (found == objects_.end() || found->second != object)
        return noDefault ? LRESULT(sbc::AnswerNoDefault) : 0;

    LRESULT answer = 0;
    if (noDefault) {
        answer |= sbc::AnswerNoDefault;
        if (result != 0) {
            const std::int64_t value = result;
            Request(window, sbc::OpResult, &value, sizeof value, nullptr);
        }
    }
    if (outer && !object->delayed_.empty()) {
        object->released_.insert(object->released_.end(), object->delayed_.begin(),
                                 object->delayed_.end());
        object->delayed_.clear();
        answer |= sbc::AnswerDelayed;
    }
    return answer;
}

// Runs the delayed events posted during the message AOL has now finished.
// A failing event is reported like any step: Retry runs it again, Ignore goes
// on with the next.
void SbcHost::OnRelease(HWND hooked)
{
    auto found = objects_.find(hooked);
    if (found == objects_.end()) return;
    SubClass* object = found->second;
    std::vector<LONG_PTR> values;
    values.swap(object->released_);
    for (std::size_t i = 0; i < values.size();) {
        found = objects_.find(hooked);
        if (found == objects_.end() || found->second != object) return;  // detached meanwhile
        try {
            if (object->DelayedEvent) object->DelayedEvent(values[i]);
        } catch (...) {
            if (ReportCaughtError("SubClass", "DelayedEvent") == AnswerRetry) continue;
        }
        ++i;
    }
}

void SbcHost::ShowDeferredReports()
{
    std::vector<ErrorReport> reports;
    reports.swap(deferred_);
    for (const ErrorReport& report : reports)
        if (ReportError(report) == AnswerAbort) AbortProgram();
    std::vector<std::function<void()>> steps;
    steps.swap(afterMessage_);
    for (auto& step : steps) step();
}

void SbcRunAfterHookedMessage(std::function<void()> step)
{
    SbcHost::Get().RunAfterHookedMessage(std::move(step));
}

// ---- SubClass ------------------------------------------------------------

SubClass::SubClass() = default;

SubClass::~SubClass()
{
    Detach();
}

bool SubClass::Attach(HWND window, const std::vector<UINT>& messages)
{
    sbc::AttachRequest request = {};
    for (UINT message : messages)
        if (request.count < sbc::kMaxMessages) request.messages[request.count++] = message;
    SbcHost& host = SbcHost::Get();
    // Already ours: the DLL only has to listen again.
    if (window && window == window_ && IsWindow(window) &&
        host.Request(window, sbc::OpAttach, &request, sizeof request, nullptr))
        return true;
    Detach();
    if (!window) return true;
    if (!IsWindow(window)) return false;
    const DWORD thread = GetWindowThreadProcessId(window, nullptr);
    if (!host.AcquireThread(window)) return false;
    if (!host.Request(window, sbc::OpAttach, &request, sizeof request, nullptr)) {
        host.ReleaseThread(thread);
        return false;
    }
    window_ = window;
    thread_ = thread;
    host.Register(window, this);
    return true;
}

bool SubClass::Live()
{
    return window_ && SbcHookLive(window_);
}

void SubClass::ReportAs(std::string module, std::string procedure)
{
    reportModule_ = std::move(module);
    reportProcedure_ = std::move(procedure);
}

void SubClass::Detach()
{
    if (!window_) return;
    SbcHost& host = SbcHost::Get();
    host.Unregister(window_);
    if (IsWindow(window_)) host.Request(window_, sbc::OpDetach, nullptr, 0, nullptr);
    host.ReleaseThread(thread_);
    window_ = nullptr;
    thread_ = 0;
    delayed_.clear();
    released_.clear();
}

void SubClass::PostDelayedEvent(LONG_PTR value)
{
    if (inMessage_) {
        delayed_.push_back(value);
        return;
    }
    // Outside a hooked message there is nothing to wait for.
    released_.push_back(value);
    PostMessageA(SbcHost::Get().Window(), RegisterWindowMessageA(sbc::kReleaseMessageName),
                 reinterpret_cast<WPARAM>(window_), 0);
}

// ---- menus ---------------------------------------------------------------

namespace {
// Runs one request with the DLL loaded on the window's thread.
bool MenuRequest(HWND window, sbc::Op op, const void* data, DWORD size, std::string* text)
{
    if (!window || !IsWindow(window)) return false;
    SbcHost& host = SbcHost::Get();
    const DWORD thread = GetWindowThreadProcessId(window, nullptr);
    if (!host.AcquireThread(window)) return false;
    const bool ok = host.Request(window, op, data, size, text);
    host.ReleaseThread(thread);
    return ok;
}
}  // namespace

bool SbcHookLive(HWND window)
{
    return MenuRequest(window, sbc::OpQuery, "", 1, nullptr);
}

bool SbcMenuDump(HWND window, std::string& dump)
{
    return MenuRequest(window, sbc::OpMenuDump, "", 1, &dump);
}

bool SbcMenuInsert(HWND window, unsigned position, const std::string& description)
{
    const std::string request = std::to_string(position) + "\n" + description;
    return MenuRequest(window, sbc::OpMenuInsert, request.data(),
                       static_cast<DWORD>(request.size()), nullptr);
}

bool SbcMenuDelete(HWND window, unsigned position)
{
    const std::uint32_t value = position;
    return MenuRequest(window, sbc::OpMenuDelete, &value, sizeof value, nullptr);
}

bool SbcMenuItemState(HWND window, unsigned id, unsigned& state)
{
    const std::uint32_t value = id;
    std::string text;
    if (!MenuRequest(window, sbc::OpMenuState, &value, sizeof value, &text)) return false;
    state = static_cast<unsigned>(std::strtol(text.c_str(), nullptr, 10));
    return true;
}
