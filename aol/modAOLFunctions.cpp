// Chat rooms, mail windows, sign-on state and screen names, AOL's toolbar
// and keywords: everything read from AOL's own windows.
#include "modAOLFunctions.h"

#include <vector>

#include "AOLHandles.h"
#include "AOLState.h"
#include "AOLText.h"
#include "SubClass.h"
#include "ErrorTrap.h"
#include "modAOLMenu.h"
#include "modFindChild.h"
#include "modLaunch32.h"
#include "modMsgBox.h"
#include "modWin32API.h"

HWND ChatRoomWindow = nullptr;

namespace {
AOLMessageSink* g_sink = nullptr;

HWND FindMDIChild(const char* caption)
{
    return AOLMDIClient ? FindWindowExA(AOLMDIClient, nullptr, "AOL Child", caption) : nullptr;
}

// The first sibling after `after` of class `className` (ignoring case), as
// FindWindowExA(parent, after, className) gives it on Windows. Wine's
// FindWindowExA only looks past `after` when it is of that class itself.
HWND NextChildOfClass(HWND after, const std::string& className)
{
    const std::string wanted = LowerAOLText(className);
    for (HWND w = GetWindow(after, GW_HWNDNEXT); w; w = GetWindow(w, GW_HWNDNEXT))
        if (LowerAOLText(GetClass(w)) == wanted) return w;
    return nullptr;
}

bool IsChatRoom(HWND window)
{
    HWND list = FindWindowExA(window, nullptr, "_AOL_LISTBOX", nullptr);
    HWND rich = FindWindowExA(window, nullptr, "RICHCNTL", nullptr);
    HWND combo = FindWindowExA(window, nullptr, "_AOL_COMBOBOX", nullptr);
    HWND icon = combo ? NextChildOfClass(combo, "_AOL_ICON") : nullptr;
    return list && rich && combo && icon && GetAPIText(icon, false).empty();
}

void SetControlText(HWND window, const std::string& text)
{
    SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

const char* SignOnCaption()
{
    return (AOLVersion == "4" || AOLVersion == "5") ? "Sign On" : "Welcome";
}

const char* GoodbyeCaption()
{
    if (AOLEdition.UK || AOLEdition.Australia) return "Goodbye From AOL!";
    if (AOLEdition.Canada) return "Goodbye From AOL Canada!";
    return "Goodbye From America Online!";
}

// The sign-on screen's list of names, or 0. AOL shows it on its Sign On
// screen (or the goodbye screen after a sign-off) with the list visible.
HWND SignOnList()
{
    HWND screen = FindMDIChild(SignOnCaption());
    if (!screen) screen = FindMDIChild(GoodbyeCaption());
    HWND combo = screen ? FindWindowExA(screen, nullptr, "_AOL_COMBOBOX", nullptr) : nullptr;
    return combo && IsWindowVisible(combo) ? combo : nullptr;
}

// Waits for the sign-on list up to three rounds of ten seconds each. A slow
// AOL shows its main window well before its Sign On screen, so each round
// waits its whole ten seconds whether or not a screen is there yet.
HWND FindSignOnList()
{
    for (int round = 0; round < 3; ++round)
        if (HWND combo = WaitFor(SignOnList)) return combo;
    return nullptr;
}

// The names in the list, read from AOL's memory: each item's data + 24 holds
// a 32-bit pointer, the name starts 6 bytes after it. Reading stops at "Guest".
// False when AOL's process cannot be opened for reading.
bool ReadSignOnNames(HWND combo, std::vector<std::string>& names)
{
    names.clear();
    DWORD pid = 0;
    GetWindowThreadProcessId(combo, &pid);
    KernelHandle process(OpenProcess(STANDARD_RIGHTS_REQUIRED | PROCESS_VM_READ, FALSE, pid));
    if (!process.Valid()) return false;
    const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const ULONG_PTR item =
            static_cast<ULONG_PTR>(SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(i), 0));
        DWORD pointer = 0;
        char bytes[16] = {};
        SIZE_T read = 0;
        if (!ReadProcessMemory(process.Get(), reinterpret_cast<LPCVOID>(item + 24), &pointer,
                               sizeof pointer, &read))
            break;
        if (!ReadProcessMemory(process.Get(),
                               reinterpret_cast<LPCVOID>(static_cast<ULONG_PTR>(pointer) + 6), bytes,
                               sizeof bytes, &read))
            break;
        const std::string name = SignOnNameFromBytes(bytes, static_cast<int>(read));
        if (name == "Guest") break;
        names.push_back(name);
    }
    return true;
}
}  // namespace

// Another program's window takes the focus only while our input is attached
// to its thread.
void FocusWindowOfOtherThread(HWND window)
{
    const DWORD ours = GetCurrentThreadId();
    const DWORD theirs = GetWindowThreadProcessId(window, nullptr);
    const bool attach = theirs && theirs != ours && AttachThreadInput(ours, theirs, TRUE);
    SetFocus(window);
    if (attach) AttachThreadInput(ours, theirs, FALSE);
}

void SetAOLMessageSink(AOLMessageSink* sink)
{
    g_sink = sink;
}

void AOLMessage(const std::string& message, long style)
{
    if (g_sink)
        g_sink->Message(message, style);
    else
        ShowMsg(message, style);
}

HWND FindChatRoom(HWND parent, const std::string& className)
{
    ErrorTrap trap("modAOLFunctions", "FindChatRoom");
    HWND room = nullptr;
    trap.Run([&] {
        const std::string wanted = LowerAOLText(className);
        for (HWND current = GetWindow(parent, GW_CHILD); current && !room;
             current = GetWindow(current, GW_HWNDNEXT)) {
            if (LowerAOLText(GetClass(current)) == wanted && IsChatRoom(current)) room = current;
        }
    });
    return room;
}

void TextToChat(const std::string& text, short mode)
{
    HWND room = FindChatRoom(AOLMDIClient, "AOL Child");
    if (!room) {
        // Shown once the hooked key or click that asked for it has returned:
        // AOL waits for our handlers, and a message box would keep it waiting.
        SbcRunAfterHookedMessage([] { AOLMessage(kNoChatRoomMessage, 64); });
        return;
    }
    HWND transcript = FindWindowExA(room, nullptr, "RICHCNTL", nullptr);
    HWND input = FindWindowExA(room, transcript, "RICHCNTL", nullptr);
    FocusWindowOfOtherThread(input);
    switch (mode) {
    case 0:
        SetControlText(input, text);
        break;
    case 1:
        ShowWindow(input, SW_HIDE);
        SetControlText(input, text);
        SendMessageA(input, WM_CHAR, 13, 0);
        break;
    case 2:
        SetControlText(input, text);
        Pause(500);
        SendMessageA(input, WM_CHAR, 13, 0);
        break;
    default:
        break;
    }
}

HWND IsEMail(HWND window)
{
    ErrorTrap trap("modAOLFunctions", "IsEMail");
    bool mail = false;
    trap.Run([&] {
        mail = FindWindowExA(window, nullptr, "_AOL_Checkbox", nullptr) &&
               FindWindowExA(window, nullptr, "_AOL_FontCombo", nullptr) &&
               FindChildByTitle(window, "Send Later");
    });
    return mail ? window : nullptr;
}

bool IsAOLAU()
{
    ErrorTrap trap("modAOLFunctions", "IsAOLAU");
    bool australia = false;
    trap.Run([&] {
        HWND outer = FindWindowExA(AOLWindow, nullptr, "AOL Toolbar", nullptr);
        HWND inner = outer ? FindWindowExA(outer, nullptr, "_AOL_Toolbar", nullptr) : nullptr;
        HWND second = inner ? FindChildByClass(inner, "_AOL_ICON", 2) : nullptr;
        australia = second && LowerAOLText(GetAPIText(second, false)) == "e-mail centre";
    });
    return australia;
}

void DetectAOLEdition()
{
    ErrorTrap trap("modAOLFunctions", "DetectAOLEdition");
    trap.Run([] { AOLEdition.UK = RunMenuByString(AOLWindow, "&About AOL", false); });
    trap.Run([] { AOLEdition.Canada = RunMenuByString(AOLWindow, "&About AOL Canada", false); });
    trap.Run([] { AOLEdition.Australia = IsAOLAU(); });
    if (AOLEdition.Australia) AOLEdition.UK = AOLEdition.Canada = false;
}

bool IsAOLOnline(bool showMessage)
{
    ErrorTrap trap("modAOLFunctions", "IsAOLOnline");
    bool online = false;
    if (AOLVersion == "5")
        trap.Run([&] { online = RunMenuByString(AOLWindow, "Switch Scree&n Name", false); });
    else if (AOLVersion == "3" || AOLVersion == "4")
        trap.Run([&] { online = AOLIsOnline() != 1; });
    else
        return false;
    if (!online && showMessage)
        AOLMessage("~B~CRYou are not currently signed on!~B~CN~N ~NYou must be online to use this "
                   "feature!",
                   64);
    return online;
}

bool GetScreenNames()
{
    ErrorTrap trap("modAOLFunctions", "GetScreenNames");
    bool master = false;
    std::string names[6];
    trap.Run([&] { master = AOLGetScreenName(AOLPath + "\\", names); });
    for (size_t i = 0; i < 6; ++i) ScreenNames[i] = TrimAOLText(names[i]);
    return master;
}

bool GetSignOnScreenNames(bool mayEndProgram)
{
    ErrorTrap trap("modAOLFunctions", "GetSignOnScreenNames");
    HWND combo = nullptr;
    if (!trap.Run([&] { combo = FindSignOnList(); })) return false;
    if (!combo && !mayEndProgram) return false;
    if (!combo) {
        AOLMessage("Prismo timed out waiting for America Online to load.~N ~NPlease start America "
                   "Online first and then start Prismo",
                   16);
        // The program's end, as the error report's Abort carries it out.
        AbortProgram();
        return false;
    }
    std::vector<std::string> names;
    bool opened = false;
    trap.Run([&] { opened = ReadSignOnNames(combo, names); });
    // AOL's memory out of reach: the names stay as they were.
    if (!opened) return true;
    RememberSignOnNames(names);
    int selection = -1;
    trap.Run([&] { selection = static_cast<int>(SendMessageA(combo, CB_GETCURSEL, 0, 0)); });
    const std::vector<std::string> slots = SignOnSlots(names, selection);
    for (size_t i = 0; i < 6; ++i) ScreenNames[i] = slots[i];
    return true;
}

std::string GetCurrentScreenName()
{
    ErrorTrap trap("modAOLFunctions", "GetCurrentScreenName");
    std::string name;
    if (!IsAOLOnline(false)) {
        GetSignOnScreenNames();
        return ScreenNames[5];
    }
    HWND welcome = nullptr;
    trap.Run([&] { welcome = FindChildByTitle(AOLMDIClient, "Welcome,"); });
    if (!welcome && AOLVersion == "5") {
        RunAOLKeyword("welcome");
        trap.Run([&] { welcome = WaitForChildByTitle(AOLMDIClient, "Welcome, "); });
    }
    if (!welcome) return "";
    trap.Run([&] {
        char caption[256] = "";
        SendMessageA(welcome, WM_GETTEXT, 255, reinterpret_cast<LPARAM>(caption));
        name = ScreenNameFromWelcome(caption);
    });
    return name;
}

HWND FindWriteMail() { return FindMDIChild(AOLEdition.Australia ? "Write e-mail" : "Write Mail"); }

HWND OpenEMail()
{
    ErrorTrap trap("modAOLFunctions", "OpenEMail");
    trap.Run([] {
        HWND outer = FindWindowExA(AOLWindow, nullptr, "AOL Toolbar", nullptr);
        HWND inner = outer ? FindWindowExA(outer, nullptr, "_AOL_Toolbar", nullptr) : nullptr;
        HWND write = inner ? FindWindowExA(inner, nullptr, "_AOL_ICON", nullptr) : nullptr;
        if (write) {
            SendMessageA(write, WM_LBUTTONDOWN, 0, 0);
            SendMessageA(write, WM_LBUTTONUP, 0, 0);
        }
    });
    const double start = SecondsSinceMidnight();
    for (;;) {
        HWND mail = nullptr;
        if (!trap.Run([&] { mail = FindWriteMail(); })) return nullptr;
        if (mail) return mail;
        double elapsed = SecondsSinceMidnight() - start;
        if (elapsed < 0) elapsed += 24 * 60 * 60;
        if (elapsed >= 10) return nullptr;
        Pause(50);
        if (!DoEvents()) return nullptr;  // the program is quitting
    }
}

void RunAOLKeyword(const std::string& keyword)
{
    ErrorTrap trap("modAOLFunctions", "RunAOLKeyword");
    trap.Run([&] { WinExec(KeywordCommandLine(AOLPath, keyword).c_str(), SW_HIDE); });
}
