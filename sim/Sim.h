// Shared state and window plumbing of the AOL simulator (waol.exe): the one
// program-wide record, the MDI child objects and the helpers every window uses.
#pragma once

#include "SimConfig.h"

#include <windows.h>

#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

// Messages between the simulator's own windows and from aolsimctl.
constexpr UINT WM_SIM_RICH_ENTER = WM_APP + 1;    // RICHCNTL -> parent: Enter typed (lParam: control)
constexpr UINT WM_SIM_OPEN_ATTACHMENTS = WM_APP + 2;
constexpr UINT WM_SIM_OPEN_FILE_DIALOG = WM_APP + 3;
constexpr UINT WM_SIM_CLOSE_MAIL = WM_APP + 4;    // posted by a mail to itself once sent
constexpr UINT WM_SIM_PING = WM_APP + 50;         // posted by aolsimctl after its input
constexpr UINT WM_SIM_PINGED = WM_APP + 51;       // sent: returns the last ping seen
constexpr UINT WM_SIM_READY = WM_APP + 52;        // sent: 1 once the start-up windows are open

constexpr ULONG_PTR kCtlMagic = 0x53494D43;       // WM_COPYDATA from aolsimctl
constexpr ULONG_PTR kKeywordMagic = 0x534B4559;   // WM_COPYDATA from "waol.exe -s..."
constexpr ULONG_PTR kReplyOk = 0;
constexpr ULONG_PTR kReplyFailed = 1;

constexpr char kFrameClass[] = "AOL FRAME25";
constexpr char kChildClass[] = "AOL Child";

// One document window inside AOL's MDI client; subclasses add its contents.
class SimChild {
public:
    virtual ~SimChild() = default;
    virtual const char* Kind() const = 0;  // "room", "mail", "signon", "welcome", "window"
    virtual void OnCreate(HWND hwnd) = 0;
    virtual void OnSize(int /*width*/, int /*height*/) {}
    // Button clicks and control notifications; true when handled.
    virtual bool OnCommand(WORD /*id*/, WORD /*code*/, HWND /*control*/) { return false; }
    virtual LRESULT OnAppMessage(UINT /*msg*/, WPARAM /*wParam*/, LPARAM /*lParam*/) { return 0; }
    HWND hwnd = nullptr;
    std::string caption;
};

struct SimState {
    SimConfig config;
    HINSTANCE instance = nullptr;
    HWND frame = nullptr;
    HWND mdiClient = nullptr;
    HWND toolbarOuter = nullptr;
    HWND toolbar = nullptr;
    bool signedOn = false;
    std::string currentName;
    std::vector<std::string> keywords;
    long lastPing = 0;
    bool ready = false;
    std::ofstream log;
    std::map<HWND, std::unique_ptr<SimChild>> children;
};

SimState& Sim();

// Appends one event line to the log file (when one was asked for).
void LogEvent(const std::string& line);

// Control classes: RICHCNTL, _AOL_ICON, _AOL_LISTBOX, _AOL_COMBOBOX, ...
void RegisterSimClasses(HINSTANCE instance);
HWND MakeControl(HWND parent, const char* className, const std::string& text, DWORD style, int id);
std::string WindowText(HWND hwnd);
// The picture drawn on a caption-less _AOL_ICON (it keeps its empty caption).
void SetIconFace(HWND icon, const std::string& face);
std::string ClassOf(HWND hwnd);

// MDI children.
HWND OpenChild(std::unique_ptr<SimChild> child, const std::string& caption, int width, int height);
SimChild* ChildOf(HWND hwnd);
void RegisterChildClass(HINSTANCE instance);
// Topmost MDI child of a kind ("room", "mail", ...), or null.
SimChild* TopChild(const char* kind);
std::vector<SimChild*> ChildrenInOrder();

// Chat rooms (ChatRoom.cpp).
HWND OpenChatRoom(const std::string& name);
void ActivateChild(HWND hwnd);
std::vector<std::string> RoomTranscript(SimChild* room);
// The tick count (GetTickCount, ms) at which each of those lines was posted.
std::vector<DWORD> RoomPostTimes(SimChild* room);
HWND RoomInput(SimChild* room);
HWND RoomSendIcon(SimChild* room);

// Mail and other windows (MailWindow.cpp).
HWND OpenWriteMail();
// A compose window with Write Mail's children under another caption.
HWND OpenComposeWindow(const std::string& caption);
HWND OpenNamedWindow(const std::string& caption);
HWND MailBody(SimChild* mail);
// The rich text control a window is edited in: a mail's body, another named
// window's text area; null for rooms and the sign-on windows.
HWND EditorOf(SimChild* child);
// The top compose window's "Send Now" or "Send Later" icon, or null.
HWND MailSendIcon(SimChild* mail, bool later);
HWND MailSubject(SimChild* mail);
std::vector<std::string> MailAttachments(SimChild* mail);

// Sign-on (SignOn.cpp).
void ShowSignedOffScreen(bool goodbye);
// The Sign On screen `seconds` after now, as a slow AOL shows it.
void ShowSignOnLater(int seconds);
bool SignOn(const std::string& name, std::string& error);
void SignOff();
void ShowWelcome();

// The main window (MainFrame.cpp).
HWND CreateMainFrame();
void SetSwitchNameItem(bool present);
std::vector<std::string> DescribeMenuBar();
void PerformKeyword(const std::string& keyword);

// The rich text controls' AOL HTML (RichText.cpp).
void AppendChatLine(HWND transcript, const std::string& name, const std::string& html);
std::string ReadRichAsAolHtml(HWND rich);
// Editor commands 20000 to 20005; true when the id is one of them.
bool RichEditorCommand(HWND rich, WORD id);
void ForgetRichControl(HWND rich);
// Each editor command and WM_SETTEXT a rich text control received, with the
// tick counts at which it began and ended: "ID<TAB>start<TAB>end".
std::vector<std::string> EditorTimes(HWND rich);
void NoteEditorTime(HWND rich, const std::string& what, DWORD start, DWORD end);

// aolsimctl's commands (SimControl.cpp): fills reply, returns success.
bool RunControlCommand(const std::vector<std::string>& args, std::string& reply);
