// prismosbc.dll: loaded into AOL's process by a window hook, it subclasses the
// AOL windows Prismo asks for, hands their watched messages to Prismo before
// AOL sees them, and carries out menu changes that only AOL's own process may
// make. AOL must never crash or hang because of Prismo, so whenever Prismo
// does not answer in time every message goes on untouched.
//
// All state lives with the hooked window (a window property), except what
// keeps the DLL itself loaded; the DLL writes nothing to disk and uses no
// exceptions.
#include <windows.h>

#include <cstdlib>
#include <cstring>

#include "SbcProtocol.h"

namespace {

const char kStateProp[] = "PrismoSbcState";
HINSTANCE g_module;  // our own module handle, fixed for the life of the DLL

// The DLL stays loaded while a window is subclassed or a frame of our window
// procedure is on AOL's stack: code that a frame returns into must not go
// away under it. AOL's windows all live on its one user-interface thread.
HMODULE g_pin;               // our own reference to the DLL, while needed
int g_windows;               // windows subclassed now
int g_frames;                // frames of SbcWndProc under way now
BOOL g_loaderReferenceGone;  // Wine's hook loader's reference, given back once
BOOL g_justLoaded;           // no hook call has returned since the DLL came in

struct Frame {
    Frame() { ++g_frames; }
    ~Frame() { --g_frames; }
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
};

struct HookedWindow {
    WNDPROC original;
    HWND host;  // Prismo's message window
    UINT messages[sbc::kMaxMessages];
    int count;
    BOOL passThrough;  // Prismo timed out or is gone: hand everything on
    BOOL attached;     // a SubClass object holds the window (not just a menu request)
    BOOL hasResult;
    LRESULT result;
};

LRESULT CALLBACK SbcWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void HandleRequest(HWND window, HWND host, const COPYDATASTRUCT* data);

HookedWindow* StateOf(HWND window)
{
    return static_cast<HookedWindow*>(GetPropA(window, kStateProp));
}

bool IsOurs(const COPYDATASTRUCT* data)
{
    return data && (static_cast<DWORD>(data->dwData) & sbc::kTagMask) == sbc::kTag;
}

bool Watches(const HookedWindow* state, UINT message)
{
    for (int i = 0; i < state->count; ++i)
        if (state->messages[i] == message) return true;
    return false;
}

void SendReply(HWND host, HWND from, BOOL ok, const char* text, DWORD length)
{
    if (!IsWindow(host)) return;
    const DWORD size = sizeof(sbc::Reply) + length;
    char* block = static_cast<char*>(HeapAlloc(GetProcessHeap(), 0, size));
    if (!block) return;
    sbc::Reply header;
    header.ok = ok ? 1 : 0;
    memcpy(block, &header, sizeof header);
    if (length) memcpy(block + sizeof header, text, length);
    COPYDATASTRUCT data;
    data.dwData = sbc::kTag | sbc::OpReply;
    data.cbData = size;
    data.lpData = block;
    DWORD_PTR ignored = 0;
    SendMessageTimeoutA(host, WM_COPYDATA, reinterpret_cast<WPARAM>(from),
                        reinterpret_cast<LPARAM>(&data), SMTO_NORMAL | SMTO_ABORTIFHUNG,
                        sbc::kTimeoutMs, &ignored);
    HeapFree(GetProcessHeap(), 0, block);
}

// ---- subclassing -------------------------------------------------------

// Puts our procedure in front of the window's own, watching nothing yet, so
// that Prismo's requests reach us with their data intact.
BOOL Subclass(HWND window, HWND host)
{
    HookedWindow* state = StateOf(window);
    if (!state) {
        char path[MAX_PATH];
        if (!GetModuleFileNameA(g_module, path, sizeof path)) return FALSE;
        if (!g_pin && !(g_pin = LoadLibraryA(path))) return FALSE;
        state = static_cast<HookedWindow*>(
            HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, sizeof(HookedWindow)));
        if (!state) return FALSE;
        if (!SetPropA(window, kStateProp, state)) {
            HeapFree(GetProcessHeap(), 0, state);
            return FALSE;
        }
        ++g_windows;
        state->original = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(
            window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&SbcWndProc)));
        state->host = host;
    }
    return TRUE;
}

BOOL Attach(HWND window, HWND host, const sbc::AttachRequest* request)
{
    HookedWindow* state = StateOf(window);
    if (!state) return FALSE;
    state->host = host;
    state->attached = TRUE;
    state->count = 0;
    for (DWORD i = 0; i < request->count && i < sbc::kMaxMessages; ++i)
        state->messages[state->count++] = request->messages[i];
    state->passThrough = FALSE;
    return TRUE;
}

// Puts AOL's procedure back. If someone subclassed the window after us we
// cannot step out of the chain; we stay, passing everything on.
BOOL Detach(HWND window)
{
    HookedWindow* state = StateOf(window);
    if (!state) return TRUE;
    state->count = 0;
    state->attached = FALSE;
    state->passThrough = TRUE;
    const LONG_PTR current = GetWindowLongPtrA(window, GWLP_WNDPROC);
    if (current != reinterpret_cast<LONG_PTR>(&SbcWndProc)) return FALSE;
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(state->original));
    RemovePropA(window, kStateProp);
    HeapFree(GetProcessHeap(), 0, state);
    // The pin stays: this request runs in a frame of ours. The window hook
    // lets the DLL go once Prismo holds nothing here (LeaveProcess).
    --g_windows;
    return TRUE;
}

// Wine's window hook loads the DLL into a process and never gives that
// reference back (Windows gives it back when the hook goes).
BOOL UnderWine()
{
    HMODULE ntdll = GetModuleHandleA("ntdll.dll");
    return ntdll && GetProcAddress(ntdll, "wine_get_version") != nullptr;
}

// Lets the DLL go out of AOL's process once nothing of ours is in use: no
// window subclassed and no frame of our window procedure on the stack. Runs
// only inside the window hook, whose caller holds the DLL until the hook
// procedure has returned, so the last reference goes after our code has run.
// Not in the hook call that loaded the DLL: that call holds no reference of
// its own.
void LeaveProcess(BOOL loadedForThisCall)
{
    if (g_windows > 0 || g_frames > 0) return;
    if (HMODULE pin = g_pin) {
        g_pin = nullptr;
        FreeLibrary(pin);
    }
    if (!loadedForThisCall && !g_loaderReferenceGone && UnderWine()) {
        g_loaderReferenceGone = TRUE;
        FreeLibrary(g_module);
    }
}

// Prismo did not answer in time: every window of this thread that waits for
// the same program stops waiting now, so AOL is held up once, not once per
// hooked window.
BOOL CALLBACK StopWaitingFor(HWND window, LPARAM host)
{
    HookedWindow* state = StateOf(window);
    if (state && state->host == reinterpret_cast<HWND>(host)) state->passThrough = TRUE;
    return TRUE;
}

BOOL CALLBACK StopWaitingForTree(HWND window, LPARAM host)
{
    StopWaitingFor(window, host);
    EnumChildWindows(window, StopWaitingFor, host);
    return TRUE;
}

void GiveUpOn(HWND host)
{
    EnumThreadWindows(GetCurrentThreadId(), StopWaitingForTree, reinterpret_cast<LPARAM>(host));
}

// Asks Prismo about one message. Returns false when the message is to be
// swallowed, with `result` set to what the sender gets back.
bool AskProgram(HWND window, HookedWindow* state, UINT message, WPARAM wParam, LPARAM lParam,
                LRESULT* result, bool* delayed)
{
    *delayed = false;
    if (!IsWindow(state->host)) {
        state->passThrough = TRUE;
        return true;
    }
    sbc::HookedMessage hooked;
    hooked.window = reinterpret_cast<std::uintptr_t>(window);
    hooked.message = message;
    hooked.pad = 0;
    hooked.wParam = wParam;
    hooked.lParam = lParam;
    COPYDATASTRUCT data;
    data.dwData = sbc::kTag | sbc::OpMessage;
    data.cbData = sizeof hooked;
    data.lpData = &hooked;
    const HWND host = state->host;
    state->hasResult = FALSE;
    DWORD_PTR answer = 0;
    const LRESULT sent = SendMessageTimeoutA(host, WM_COPYDATA, reinterpret_cast<WPARAM>(window),
                                             reinterpret_cast<LPARAM>(&data),
                                             SMTO_NORMAL | SMTO_ABORTIFHUNG, sbc::kTimeoutMs,
                                             &answer);
    // The program may have detached (and freed the state) while we waited.
    state = StateOf(window);
    if (!sent) {
        if (state) state->passThrough = TRUE;
        GiveUpOn(host);
        return true;
    }
    *delayed = (answer & sbc::AnswerDelayed) != 0;
    if (!(answer & sbc::AnswerNoDefault)) return true;
    *result = (state && state->hasResult) ? state->result : 0;
    return false;
}

LRESULT CALLBACK SbcWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const Frame frame;
    HookedWindow* state = StateOf(window);
    if (!state) return DefWindowProcA(window, message, wParam, lParam);
    const WNDPROC original = state->original;
    if (message == WM_COPYDATA && IsOurs(reinterpret_cast<COPYDATASTRUCT*>(lParam))) {
        HandleRequest(window, reinterpret_cast<HWND>(wParam),
                      reinterpret_cast<const COPYDATASTRUCT*>(lParam));
        return TRUE;  // Prismo's requests are never AOL's business
    }
    if (message == WM_NCDESTROY) {
        // The window goes away while hooked: put its procedure back and let
        // it finish. The pin stays, since this code is still running.
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original));
        RemovePropA(window, kStateProp);
        HeapFree(GetProcessHeap(), 0, state);
        --g_windows;
        return CallWindowProcA(original, window, message, wParam, lParam);
    }
    if (state->passThrough || !Watches(state, message))
        return CallWindowProcA(original, window, message, wParam, lParam);

    const HWND host = state->host;
    LRESULT result = 0;
    bool delayed = false;
    const bool goOn = AskProgram(window, state, message, wParam, lParam, &result, &delayed);
    if (goOn) result = CallWindowProcA(original, window, message, wParam, lParam);
    if (delayed) PostMessageA(host, RegisterWindowMessageA(sbc::kReleaseMessageName),
                              reinterpret_cast<WPARAM>(window), 0);
    return result;
}

// ---- menus ---------------------------------------------------------------

// Appends "text" to a growing heap buffer; returns false when it is full.
struct TextBuffer {
    char* data;
    DWORD length;
    DWORD capacity;
    bool Append(const char* text)
    {
        const DWORD n = lstrlenA(text);
        if (length + n > capacity) return false;
        memcpy(data + length, text, n);
        length += n;
        return true;
    }
};

void AppendMenuLine(TextBuffer* out, int level, UINT id, const char* caption)
{
    char line[160];
    wsprintfA(line, "%d\t%d\t", level, static_cast<int>(id));
    out->Append(line);
    out->Append(caption);
    out->Append("\n");
}

void DumpMenu(HWND window, HWND host)
{
    HMENU bar = GetMenu(window);
    if (!bar) {
        SendReply(host, window, FALSE, "", 0);
        return;
    }
    TextBuffer out = {static_cast<char*>(HeapAlloc(GetProcessHeap(), 0, 65536)), 0, 65536};
    if (!out.data) return;
    const int count = GetMenuItemCount(bar);
    for (int i = 0; i < count; ++i) {
        char caption[100] = "";
        GetMenuStringA(bar, i, caption, sizeof caption, MF_BYPOSITION);
        AppendMenuLine(&out, 0, GetMenuItemID(bar, i), caption);
        HMENU sub = GetSubMenu(bar, i);
        const int items = sub ? GetMenuItemCount(sub) : 0;
        for (int j = 0; j < items; ++j) {
            const UINT id = GetMenuItemID(sub, j);
            char text[100] = "";
            GetMenuStringA(sub, id, text, sizeof text, MF_BYCOMMAND);
            AppendMenuLine(&out, 1, id, text);
        }
    }
    SendReply(host, window, TRUE, out.data, out.length);
    HeapFree(GetProcessHeap(), 0, out.data);
}

// Reads one line of `text` (up to '\n' or `end`) into `line`; returns the
// start of the next line.
const char* NextLine(const char* text, const char* end, char* line, int size)
{
    int n = 0;
    while (text < end && *text != '\n') {
        if (n < size - 1) line[n++] = *text;
        ++text;
    }
    line[n] = 0;
    return text < end ? text + 1 : end;
}

// Builds the popup described after the first line (which opened it) and
// returns it; `text` moves past its "E" line.
HMENU BuildPopup(const char** text, const char* end, int depth)
{
    HMENU menu = CreatePopupMenu();
    char line[200];
    while (*text < end) {
        *text = NextLine(*text, end, line, sizeof line);
        if (line[0] == 'E') break;
        if (line[0] == 'S') {
            AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        } else if (line[0] == 'I' && line[1] == '\t') {
            char* caption = strchr(line + 2, '\t');
            if (!caption) continue;
            *caption++ = 0;
            AppendMenuA(menu, MF_STRING, static_cast<UINT>(atoi(line + 2)), caption);
        } else if (line[0] == 'P' && line[1] == '\t' && depth < 4) {
            HMENU sub = BuildPopup(text, end, depth + 1);
            AppendMenuA(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(sub), line + 2);
        }
    }
    return menu;
}

void InsertProgramMenu(HWND window, HWND host, const char* text, DWORD length)
{
    const char* end = text + length;
    char line[200];
    text = NextLine(text, end, line, sizeof line);
    const UINT position = static_cast<UINT>(atoi(line));
    text = NextLine(text, end, line, sizeof line);
    HMENU bar = GetMenu(window);
    if (!bar || line[0] != 'P' || line[1] != '\t') {
        SendReply(host, window, FALSE, "", 0);
        return;
    }
    HMENU popup = BuildPopup(&text, end, 1);
    const BOOL ok = InsertMenuA(bar, position, MF_BYPOSITION | MF_POPUP,
                                reinterpret_cast<UINT_PTR>(popup), line + 2);
    if (!ok) DestroyMenu(popup);
    DrawMenuBar(window);
    SendReply(host, window, ok, "", 0);
}

void DeleteMenuAt(HWND window, HWND host, UINT position)
{
    HMENU bar = GetMenu(window);
    const BOOL ok = bar && DeleteMenu(bar, position, MF_BYPOSITION);
    if (ok) DrawMenuBar(window);
    SendReply(host, window, ok, "", 0);
}

// The state flags (MF_GRAYED and the like) of the item that carries command
// `id` anywhere in the window's menus.
void MenuItemState(HWND window, HWND host, UINT id)
{
    HMENU bar = GetMenu(window);
    const UINT state = bar ? GetMenuState(bar, id, MF_BYCOMMAND) : static_cast<UINT>(-1);
    char text[16];
    wsprintfA(text, "%u", state);
    SendReply(host, window, state != static_cast<UINT>(-1), text, lstrlenA(text));
}

// ---- requests ------------------------------------------------------------

// A window we subclassed only to carry a menu request goes back as it was.
void LeaveIfUnused(HWND window)
{
    HookedWindow* state = StateOf(window);
    if (state && !state->attached) Detach(window);
}

void HandleRequest(HWND window, HWND host, const COPYDATASTRUCT* data)
{
    const char* bytes = static_cast<const char*>(data->lpData);
    switch (static_cast<DWORD>(data->dwData) & ~sbc::kTagMask) {
    case sbc::OpAttach:
        if (data->cbData >= sizeof(sbc::AttachRequest))
            SendReply(host, window,
                      Attach(window, host, static_cast<const sbc::AttachRequest*>(data->lpData)),
                      "", 0);
        break;
    case sbc::OpDetach:
        SendReply(host, window, Detach(window), "", 0);
        break;
    case sbc::OpQuery: {
        // Live: attached, its program still there, and not passing everything on.
        const HookedWindow* state = StateOf(window);
        SendReply(host, window, state && state->attached && !state->passThrough && IsWindow(state->host),
                  "", 0);
        LeaveIfUnused(window);
        break;
    }
    case sbc::OpResult:
        if (HookedWindow* state = StateOf(window)) {
            if (data->cbData >= sizeof(std::int64_t)) {
                std::int64_t value;
                memcpy(&value, bytes, sizeof value);
                state->result = static_cast<LRESULT>(value);
                state->hasResult = TRUE;
            }
        }
        break;
    case sbc::OpMenuDump:
        DumpMenu(window, host);
        LeaveIfUnused(window);
        break;
    case sbc::OpMenuInsert:
        InsertProgramMenu(window, host, bytes, data->cbData);
        LeaveIfUnused(window);
        break;
    case sbc::OpMenuDelete:
        if (data->cbData >= sizeof(std::uint32_t)) {
            std::uint32_t position;
            memcpy(&position, bytes, sizeof position);
            DeleteMenuAt(window, host, position);
        }
        LeaveIfUnused(window);
        break;
    case sbc::OpMenuState:
        if (data->cbData >= sizeof(std::uint32_t)) {
            std::uint32_t id;
            memcpy(&id, bytes, sizeof id);
            MenuItemState(window, host, id);
        }
        LeaveIfUnused(window);
        break;
    default:
        break;
    }
}

}  // namespace

// The window hook Prismo installs on AOL's thread: it is what brings this DLL
// into AOL's process, where it puts our procedure in front of a window.
extern "C" __declspec(dllexport) LRESULT CALLBACK SbcCallWndProc(int code, WPARAM wParam,
                                                                 LPARAM lParam)
{
    // Only the subclassed window procedure sees WM_COPYDATA's data intact
    // (Wine hands hooks the packed form), so the hook only subclasses.
    const BOOL loadedForThisCall = g_justLoaded;
    g_justLoaded = FALSE;
    if (code == HC_ACTION) {
        const CWPSTRUCT* call = reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (call->message >= 0xC000 &&
            call->message == RegisterWindowMessageA(sbc::kPrepareMessageName))
            Subclass(call->hwnd, reinterpret_cast<HWND>(call->wParam));
        else if (call->message >= 0xC000 &&
                 call->message == RegisterWindowMessageA(sbc::kUnloadMessageName))
            LeaveProcess(loadedForThisCall);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        g_module = instance;
        g_justLoaded = TRUE;
        DisableThreadLibraryCalls(instance);
    }
    return TRUE;
}
