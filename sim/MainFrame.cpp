// AOL's main window: the "AOL FRAME25" frame with its menu bar, the toolbar
// ("AOL Toolbar" > "_AOL_Toolbar" > "_AOL_ICON" buttons) and the MDI client
// that holds every document window; it also takes keywords and aolsimctl's
// requests.
#include "Sim.h"

#include <algorithm>
#include <cctype>

namespace {

constexpr int kToolbarHeight = 44;
constexpr UINT kFirstChildId = 0xFF00;

void AppendItems(HMENU menu, const std::vector<SimMenuItem>& items) {
    for (const auto& item : items) {
        if (item.caption.empty()) {
            AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        } else if (!item.items.empty()) {
            HMENU popup = CreatePopupMenu();
            AppendItems(popup, item.items);
            AppendMenuA(menu, MF_POPUP, (UINT_PTR)popup, item.caption.c_str());
        } else {
            AppendMenuA(menu, MF_STRING, item.id, item.caption.c_str());
        }
    }
}

HMENU BuildMenu() {
    HMENU bar = CreateMenu();
    AppendItems(bar, BuildMenuBar(Sim().config, Sim().signedOn));
    return bar;
}

HMENU FindPopup(HMENU bar, const char* caption) {
    const int count = GetMenuItemCount(bar);
    for (int i = 0; i < count; ++i) {
        char text[100] = "";
        GetMenuStringA(bar, i, text, sizeof text, MF_BYPOSITION);
        if (std::string(text) == caption) return GetSubMenu(bar, i);
    }
    return nullptr;
}

// A maximised document window's system menu and buttons stand in the bar as
// pictures without text; they are named by what they do.
std::string PictureName(HMENU sub, UINT id) {
    if (sub) return "(system menu)";
    switch (id) {
    case SC_MINIMIZE: return "(minimize)";
    case SC_RESTORE: return "(restore)";
    case SC_CLOSE: return "(close)";
    }
    return "(picture)";
}

void DescribeMenu(HMENU menu, const std::string& indent, std::vector<std::string>& lines) {
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        char text[256] = "";
        const int length = GetMenuStringA(menu, i, text, sizeof text, MF_BYPOSITION);
        HMENU sub = GetSubMenu(menu, i);
        const UINT state = GetMenuState(menu, i, MF_BYPOSITION);
        if (!sub && (state & MF_SEPARATOR)) {
            lines.push_back(indent + "-");
            continue;
        }
        const UINT id = GetMenuItemID(menu, i);
        MENUITEMINFOA info{};
        info.cbSize = sizeof info;
        info.fMask = MIIM_FTYPE | MIIM_BITMAP;
        GetMenuItemInfoA(menu, i, TRUE, &info);
        const bool picture = length == 0 && ((info.fType & MFT_BITMAP) || info.hbmpItem);
        const std::string caption = picture ? PictureName(sub, id) : std::string(text);
        lines.push_back(indent + caption + "\t" + (sub ? std::string("popup") : std::to_string(id)));
        if (sub) DescribeMenu(sub, indent + "\t", lines);
    }
}

LRESULT CALLBACK ToolbarProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
    case WM_COMMAND:
        // A toolbar button: the first writes a new mail.
        if (HIWORD(wParam) == BN_CLICKED) {
            LogEvent("toolbar\t" + WindowText((HWND)lParam));
            if (LOWORD(wParam) == 1) OpenWriteMail();
        }
        return 0;
    case WM_SIZE:
        if (hwnd == Sim().toolbarOuter && Sim().toolbar)
            MoveWindow(Sim().toolbar, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
        return 0;
    }
    return DefWindowProcA(hwnd, msg, wParam, lParam);
}

void MakeToolbar(HWND frame) {
    Sim().toolbarOuter = CreateWindowExA(0, "AOL Toolbar", "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 100,
                                         kToolbarHeight, frame, nullptr, Sim().instance, nullptr);
    Sim().toolbar = CreateWindowExA(0, "_AOL_Toolbar", "", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 100,
                                    kToolbarHeight, Sim().toolbarOuter, nullptr, Sim().instance, nullptr);
    int x = 4, id = 1;
    for (const auto& caption : ToolbarCaptions(Sim().config.edition)) {
        HWND icon = MakeControl(Sim().toolbar, "_AOL_ICON", caption, 0, id++);
        MoveWindow(icon, x, 4, 78, kToolbarHeight - 8, TRUE);
        x += 80;
    }
}

void OnCopyData(const COPYDATASTRUCT* data) {
    const char* bytes = static_cast<const char*>(data->lpData);
    if (data->dwData == kKeywordMagic) {
        PerformKeyword(std::string(bytes, data->cbData));
        return;
    }
    if (data->dwData != kCtlMagic || data->cbData < sizeof(std::uint64_t)) return;
    std::uint64_t replyTo = 0;
    memcpy(&replyTo, bytes, sizeof replyTo);
    std::vector<std::string> args;
    std::string current;
    for (DWORD i = sizeof replyTo; i < data->cbData; ++i) {
        if (bytes[i] == '\0') {
            args.push_back(current);
            current.clear();
        } else {
            current += bytes[i];
        }
    }
    std::string reply;
    const bool ok = !args.empty() && RunControlCommand(args, reply);
    if (args.empty()) reply = "no command";
    COPYDATASTRUCT answer{ok ? kReplyOk : kReplyFailed, (DWORD)reply.size(), reply.data()};
    SendMessageA((HWND)(UINT_PTR)replyTo, WM_COPYDATA, (WPARAM)Sim().frame, (LPARAM)&answer);
}

bool OnMenuCommand(HWND frame, UINT id) {
    switch (id) {
    case kExitCommand:
        LogEvent("command\t8207");
        DestroyWindow(frame);
        return true;
    case kSignOffCommand:
        SignOff();
        return true;
    case 8300:
        OpenWriteMail();
        return true;
    }
    if (id >= 20000 && id <= 20005) {
        HWND focus = GetFocus();
        if (focus && ClassOf(focus) == "RICHCNTL") SendMessageA(focus, WM_COMMAND, id, 0);
        return true;
    }
    LogEvent("command\t" + std::to_string(id));
    return id < kFirstChildId;
}

LRESULT CALLBACK FrameProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    try {
        switch (msg) {
        case WM_CREATE: {
            CLIENTCREATESTRUCT ccs{};
            ccs.idFirstChild = kFirstChildId;
            Sim().mdiClient = CreateWindowExA(WS_EX_CLIENTEDGE, "MDICLIENT", nullptr,
                                              WS_CHILD | WS_CLIPCHILDREN | WS_VSCROLL | WS_HSCROLL | WS_VISIBLE, 0,
                                              kToolbarHeight, 100, 100, hwnd, nullptr, Sim().instance, &ccs);
            MakeToolbar(hwnd);
            return 0;
        }
        case WM_SIZE:
            MoveWindow(Sim().toolbarOuter, 0, 0, LOWORD(lParam), kToolbarHeight, TRUE);
            MoveWindow(Sim().mdiClient, 0, kToolbarHeight, LOWORD(lParam), HIWORD(lParam) - kToolbarHeight, TRUE);
            return 0;
        case WM_COMMAND:
            if (lParam == 0 && OnMenuCommand(hwnd, LOWORD(wParam))) return 0;
            break;
        case WM_COPYDATA:
            OnCopyData(reinterpret_cast<const COPYDATASTRUCT*>(lParam));
            return TRUE;
        case WM_SIM_PING:
            Sim().lastPing = (long)wParam;
            return 0;
        case WM_SIM_PINGED:
            return Sim().lastPing;
        case WM_SIM_READY:
            return Sim().ready ? 1 : 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        case WM_NCDESTROY:
            // Every window of AOL's has closed by now: "quit" is the log's last word.
            LogEvent("quit");
            break;
        }
    } catch (...) {
        // A failed request leaves AOL running.
    }
    return DefFrameProcA(hwnd, Sim().mdiClient, msg, wParam, lParam);
}

void RegisterFrameClasses() {
    WNDCLASSEXA wc{};
    wc.cbSize = sizeof wc;
    wc.lpfnWndProc = FrameProc;
    wc.hInstance = Sim().instance;
    wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
    wc.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
    wc.hIcon = LoadIcon(nullptr, IDI_APPLICATION);
    wc.lpszClassName = kFrameClass;
    RegisterClassExA(&wc);
    for (const char* name : {"AOL Toolbar", "_AOL_Toolbar"}) {
        wc.lpfnWndProc = ToolbarProc;
        wc.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
        wc.lpszClassName = name;
        RegisterClassExA(&wc);
    }
}

}  // namespace

HWND CreateMainFrame() {
    RegisterFrameClasses();
    Sim().frame = CreateWindowExA(0, kFrameClass, FrameCaption(Sim().config.edition).c_str(),
                                  WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 1000, 720, nullptr, BuildMenu(),
                                  Sim().instance, nullptr);
    return Sim().frame;
}

void SetSwitchNameItem(bool present) {
    if (Sim().config.version != 5) return;
    HMENU signOff = FindPopup(GetMenu(Sim().frame), "&Sign Off");
    if (!signOff) return;
    DeleteMenu(signOff, kSwitchNameCommand, MF_BYCOMMAND);
    if (present) AppendMenuA(signOff, MF_STRING, kSwitchNameCommand, "Switch Scree&n Name");
    DrawMenuBar(Sim().frame);
}

std::vector<std::string> DescribeMenuBar() {
    std::vector<std::string> lines;
    DescribeMenu(GetMenu(Sim().frame), "", lines);
    return lines;
}

void PerformKeyword(const std::string& keyword) {
    Sim().keywords.push_back(keyword);
    LogEvent("keyword\t" + keyword);
    std::string lower = keyword;
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return (char)std::tolower(c); });
    if (lower == "welcome" && Sim().signedOn) ShowWelcome();
}
