// AOL's document windows: the "AOL Child" MDI class that hosts chat rooms,
// mail windows and the sign-on screens, and the searches over them in the
// MDI client's Z-order (most recently activated first).
#include "Sim.h"

namespace {

// The object a window is being created for, handed from OpenChild to WM_CREATE.
SimChild* g_creating = nullptr;

LRESULT CALLBACK ChildProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    try {
        SimChild* child = ChildOf(hwnd);
        switch (msg) {
        case WM_CREATE:
            if (g_creating) {
                g_creating->hwnd = hwnd;
                g_creating->OnCreate(hwnd);
            }
            break;
        case WM_SIZE:
            if (child) child->OnSize(LOWORD(lParam), HIWORD(lParam));
            break;
        case WM_COMMAND:
            if (child && child->OnCommand(LOWORD(wParam), HIWORD(wParam), (HWND)lParam)) return 0;
            break;
        case WM_DESTROY:
            if (child) LogEvent("close\t" + child->caption);
            break;
        case WM_NCDESTROY:
            Sim().children.erase(hwnd);
            break;
        default:
            if (msg >= WM_APP && msg < WM_APP + 40 && child) return child->OnAppMessage(msg, wParam, lParam);
        }
    } catch (...) {
        // Nothing a document window does may take the simulator down.
    }
    return DefMDIChildProcA(hwnd, msg, wParam, lParam);
}

}  // namespace

void RegisterChildClass(HINSTANCE instance) {
    WNDCLASSEXA wc{};
    wc.cbSize = sizeof wc;
    wc.lpfnWndProc = ChildProc;
    wc.hInstance = instance;
    wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
    wc.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    wc.hIcon = LoadIcon(nullptr, IDI_APPLICATION);
    wc.lpszClassName = kChildClass;
    RegisterClassExA(&wc);
}

HWND OpenChild(std::unique_ptr<SimChild> child, const std::string& caption, int width, int height) {
    child->caption = caption;
    SimChild* raw = child.get();
    // The map owns the object from before WM_CREATE, so the window finds it.
    auto& slot = Sim().children[nullptr];
    slot = std::move(child);
    g_creating = raw;
    MDICREATESTRUCTA mcs{};
    mcs.szClass = kChildClass;
    mcs.szTitle = caption.c_str();
    mcs.hOwner = Sim().instance;
    mcs.x = CW_USEDEFAULT;
    mcs.y = CW_USEDEFAULT;
    mcs.cx = width;
    mcs.cy = height;
    mcs.style = WS_CLIPCHILDREN;
    HWND hwnd = (HWND)SendMessageA(Sim().mdiClient, WM_MDICREATE, 0, (LPARAM)&mcs);
    g_creating = nullptr;
    auto owned = std::move(Sim().children[nullptr]);
    Sim().children.erase(nullptr);
    if (!hwnd) return nullptr;
    Sim().children[hwnd] = std::move(owned);
    RECT rc;
    GetClientRect(hwnd, &rc);
    raw->OnSize(rc.right, rc.bottom);
    LogEvent("open\t" + caption);
    return hwnd;
}

SimChild* ChildOf(HWND hwnd) {
    auto& children = Sim().children;
    auto it = children.find(hwnd);
    if (it != children.end()) return it->second.get();
    // During WM_CREATE the object is still parked under the null handle.
    if (g_creating && g_creating->hwnd == hwnd) return g_creating;
    return nullptr;
}

std::vector<SimChild*> ChildrenInOrder() {
    std::vector<SimChild*> found;
    for (HWND w = GetWindow(Sim().mdiClient, GW_CHILD); w; w = GetWindow(w, GW_HWNDNEXT)) {
        if (SimChild* child = ChildOf(w)) found.push_back(child);
    }
    return found;
}

SimChild* TopChild(const char* kind) {
    for (SimChild* child : ChildrenInOrder()) {
        if (std::string(child->Kind()) == kind) return child;
    }
    return nullptr;
}

void ActivateChild(HWND hwnd) {
    SendMessageA(Sim().mdiClient, WM_MDIACTIVATE, (WPARAM)hwnd, 0);
}
