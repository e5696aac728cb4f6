// AOL's control classes as the simulator provides them: RICHCNTL over the
// system rich edit, the owner-drawn picture button _AOL_ICON, and AOL's
// list, combo, edit and check box classes over the system ones.
#include "Sim.h"

#include <richedit.h>

namespace {

WNDPROC g_richProc = nullptr;
WNDPROC g_listProc = nullptr;
WNDPROC g_comboProc = nullptr;
WNDPROC g_editProc = nullptr;
WNDPROC g_buttonProc = nullptr;
WNDPROC g_staticProc = nullptr;

// What a caption-less picture button shows in place of its picture.
std::map<HWND, std::string> g_iconFaces;

// Backspace typed as a character, as an edit control takes it: the
// highlight, or else the character before the caret, goes.
void Backspace(HWND rich) {
    CHARRANGE range{};
    SendMessageA(rich, EM_EXGETSEL, 0, (LPARAM)&range);
    if (range.cpMin == range.cpMax) {
        if (range.cpMin == 0) return;
        range.cpMin -= 1;
        SendMessageA(rich, EM_EXSETSEL, 0, (LPARAM)&range);
    }
    SendMessageA(rich, EM_REPLACESEL, TRUE, (LPARAM)"");
}

LRESULT CALLBACK RichCntlProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    try {
        switch (msg) {
        case WM_CHAR:
            // Enter belongs to the window around the control: a chat room
            // posts the line, a mail body takes it as a new paragraph.
            if (wParam == 13 && SendMessageA(GetParent(hwnd), WM_SIM_RICH_ENTER, 0, (LPARAM)hwnd)) return 0;
            if (wParam == 10 && !(GetWindowLongA(hwnd, GWL_STYLE) & ES_MULTILINE)) return 0;
            if (wParam == 8) {
                Backspace(hwnd);
                return 0;
            }
            break;
        case WM_KEYDOWN:
            // Backspace works on its WM_CHAR, as in an edit control, so a key
            // press and a posted character delete the same one character.
            if (wParam == VK_BACK) return 0;
            break;
        case WM_COMMAND: {
            // Each editor command's start and end, so a benchmark can tell
            // AOL's editor time from the time of the program driving it.
            const DWORD start = GetTickCount();
            if (lParam == 0 && RichEditorCommand(hwnd, LOWORD(wParam))) {
                NoteEditorTime(hwnd, std::to_string(LOWORD(wParam)), start, GetTickCount());
                return 0;
            }
            break;
        }
        case WM_SETTEXT: {
            const DWORD start = GetTickCount();
            const LRESULT result = CallWindowProcA(g_richProc, hwnd, msg, wParam, lParam);
            NoteEditorTime(hwnd, "WM_SETTEXT", start, GetTickCount());
            return result;
        }
        case WM_NCDESTROY:
            ForgetRichControl(hwnd);
            break;
        }
    } catch (...) {
        // A failed command leaves the control as it was.
    }
    return CallWindowProcA(g_richProc, hwnd, msg, wParam, lParam);
}

// _AOL_ICON: a picture button that clicks when the button comes up after it
// went down over it; the click reaches the parent as WM_COMMAND BN_CLICKED.
LRESULT CALLBACK IconProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    switch (msg) {
    case WM_LBUTTONDOWN:
        SetPropA(hwnd, "down", (HANDLE)1);
        InvalidateRect(hwnd, nullptr, TRUE);
        return 0;
    case WM_LBUTTONUP:
        if (GetPropA(hwnd, "down")) {
            RemovePropA(hwnd, "down");
            InvalidateRect(hwnd, nullptr, TRUE);
            const int id = GetDlgCtrlID(hwnd);
            SendMessageA(GetParent(hwnd), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), (LPARAM)hwnd);
        }
        return 0;
    case WM_SETTEXT: {
        const LRESULT r = DefWindowProcA(hwnd, msg, wParam, lParam);
        InvalidateRect(hwnd, nullptr, TRUE);
        return r;
    }
    case WM_PAINT: {
        PAINTSTRUCT ps;
        HDC dc = BeginPaint(hwnd, &ps);
        RECT rc;
        GetClientRect(hwnd, &rc);
        FillRect(dc, &rc, GetSysColorBrush(COLOR_BTNFACE));
        DrawEdge(dc, &rc, GetPropA(hwnd, "down") ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
        std::string text = WindowText(hwnd);
        if (text.empty()) {
            auto face = g_iconFaces.find(hwnd);
            text = face != g_iconFaces.end() ? face->second : "Send";  // AOL draws a picture here
        }
        SetBkMode(dc, TRANSPARENT);
        HGDIOBJ old = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
        DrawTextA(dc, text.c_str(), (int)text.size(), &rc, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        SelectObject(dc, old);
        EndPaint(hwnd, &ps);
        return 0;
    }
    case WM_DESTROY:
        RemovePropA(hwnd, "down");
        g_iconFaces.erase(hwnd);
        break;
    }
    return DefWindowProcA(hwnd, msg, wParam, lParam);
}

// The system classes under AOL's names: the same behaviour, another class.
#define SUPERCLASS_PROC(name, base) \
    LRESULT CALLBACK name(HWND h, UINT m, WPARAM w, LPARAM l) { return CallWindowProcA(base, h, m, w, l); }
SUPERCLASS_PROC(ListProc, g_listProc)
SUPERCLASS_PROC(ComboProc, g_comboProc)
SUPERCLASS_PROC(EditProc, g_editProc)
SUPERCLASS_PROC(ButtonProc, g_buttonProc)
SUPERCLASS_PROC(StaticProc, g_staticProc)

void Superclass(HINSTANCE instance, const char* base, const char* name, WNDPROC proc, WNDPROC& baseProc) {
    WNDCLASSEXA wc{};
    wc.cbSize = sizeof wc;
    if (!GetClassInfoExA(nullptr, base, &wc)) return;
    baseProc = wc.lpfnWndProc;
    wc.lpfnWndProc = proc;
    wc.hInstance = instance;
    wc.lpszClassName = name;
    RegisterClassExA(&wc);
}

}  // namespace

void RegisterSimClasses(HINSTANCE instance) {
    LoadLibraryA("riched20.dll");
    Superclass(instance, RICHEDIT_CLASSA, "RICHCNTL", RichCntlProc, g_richProc);
    Superclass(instance, "LISTBOX", "_AOL_LISTBOX", ListProc, g_listProc);
    Superclass(instance, "COMBOBOX", "_AOL_COMBOBOX", ComboProc, g_comboProc);
    WNDPROC fontComboProc = nullptr;
    Superclass(instance, "COMBOBOX", "_AOL_FontCombo", ComboProc, fontComboProc);
    Superclass(instance, "EDIT", "_AOL_EDIT", EditProc, g_editProc);
    Superclass(instance, "BUTTON", "_AOL_Checkbox", ButtonProc, g_buttonProc);
    Superclass(instance, "STATIC", "_AOL_STATIC", StaticProc, g_staticProc);

    WNDCLASSEXA icon{};
    icon.cbSize = sizeof icon;
    icon.lpfnWndProc = IconProc;
    icon.hInstance = instance;
    icon.hCursor = LoadCursor(nullptr, IDC_HAND);
    icon.lpszClassName = "_AOL_ICON";
    RegisterClassExA(&icon);
}

HWND MakeControl(HWND parent, const char* className, const std::string& text, DWORD style, int id) {
    HWND hwnd = CreateWindowExA(0, className, text.c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0, 10, 10,
                                parent, (HMENU)(INT_PTR)id, Sim().instance, nullptr);
    SendMessageA(hwnd, WM_SETFONT, (WPARAM)GetStockObject(DEFAULT_GUI_FONT), FALSE);
    return hwnd;
}

std::string WindowText(HWND hwnd) {
    const int length = GetWindowTextLengthA(hwnd);
    std::string text(length + 1, '\0');
    const int got = GetWindowTextA(hwnd, text.data(), length + 1);
    text.resize(got > 0 ? got : 0);
    return text;
}

std::string ClassOf(HWND hwnd) {
    char name[256] = "";
    GetClassNameA(hwnd, name, sizeof name);
    return name;
}

void SetIconFace(HWND icon, const std::string& face) {
    g_iconFaces[icon] = face;
    InvalidateRect(icon, nullptr, TRUE);
}
