// frmMultiline: the multiline window and its sender. The text is poured into
// a hidden word-wrapping box made narrower until no wrapped line is longer
// than a chat line may be; the box's own word wrap then decides where every
// chat line ends, so lines break between words.
#include "frmMultiline.h"

#include <algorithm>
#include <cstring>

#include "ChatHooks.h"
#include "ChatSession.h"
#include "ErrorTrap.h"
#include "MultilineText.h"
#include "Options.h"
#include "frmChatTools.h"
#include "modAOLFunctions.h"
#include "modCmnDlg.h"
#include "modFade.h"
#include "modFileOp.h"
#include "modFindChild.h"
#include "modMsgBox.h"
#include "modRegKeys.h"
#include "modWin32API.h"
#include "resource.h"

namespace {

const char* const kOldProcProp = "PrismoOldProc";

// txtChat: Enter sends (once the key has been handled) instead of starting a new line.
LRESULT CALLBACK TxtChatProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto old = reinterpret_cast<WNDPROC>(GetPropA(edit, kOldProcProp));
    if (message == WM_CHAR && wParam == 13) {
        HWND form = GetParent(edit);
        PostMessageA(form, WM_COMMAND, MAKEWPARAM(IDC_ML_SEND, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(form, IDC_ML_SEND)));
        return 0;
    }
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(old));
        RemovePropA(edit, kOldProcProp);
    }
    return old ? CallWindowProcA(old, edit, message, wParam, lParam) : 0;
}

void SendEnterToForm(HWND edit)
{
    const LONG_PTR old = SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(TxtChatProc));
    SetPropA(edit, kOldProcProp, reinterpret_cast<HANDLE>(old));
}

// The keyboard to `control` of our window while another program is in front:
// Windows hands the foreground over only while the two threads share input.
void TakeKeyboard(HWND window, HWND control)
{
    const DWORD mine = GetCurrentThreadId();
    HWND front = GetForegroundWindow();
    const DWORD theirs = front ? GetWindowThreadProcessId(front, nullptr) : 0;
    const bool attached = theirs && theirs != mine && AttachThreadInput(mine, theirs, TRUE);
    SetForegroundWindow(window);
    SetFocus(control);
    if (attached) AttachThreadInput(mine, theirs, FALSE);
}

}  // namespace

frmMultiline& Multiline()
{
    static frmMultiline form;
    return form;
}

frmMultiline::frmMultiline() : Form("frmMultiline", IDD_MULTILINE) {}

frmMultiline::~frmMultiline() { Unload(); }

// Every loading starts afresh: a window closed and opened again is a new one.
void frmMultiline::OnLoad()
{
    SetCaption("Prismo Multiline");  // the name the task list shows
    txtChat = Item(IDC_ML_CHAT);
    txtHidden = Item(IDC_ML_HIDDEN);
    for (HWND box : {txtChat, txtHidden}) SendMessageA(box, EM_SETLIMITTEXT, kMultilineMaxText, 0);
    SendEnterToForm(txtChat);
    RECT chat{};
    GetWindowRect(txtChat, &chat);
    MapWindowPoints(nullptr, hwnd(), reinterpret_cast<POINT*>(&chat), 2);
    SSPanel1.Create(hwnd(), IDC_ML_PROGRESS, chat.left, 4, chat.right - chat.left, chat.top - 8);
    cmdInsert.Attach(Item(IDC_ML_INSERT));
    cmdSend.Attach(Item(IDC_ML_SEND));
    cmdClose.Attach(Item(IDC_ML_CLOSE));
    FormOnTop(*this);
    ErrorTrap::Ignoring([&] { RestoreFormPlace(*this, Setting::MultilineTop, Setting::MultilineLeft); });
    SetFormColor(*this);
    for (ZunButton* button : {&cmdInsert, &cmdSend, &cmdClose}) SetButtonColor(*button);
    SetProgressColor(SSPanel1);
    DrawFormEdge(*this);
}

void frmMultiline::OnCommand(int id, int code, HWND)
{
    if (code != BN_CLICKED) return;
    switch (id) {
    case IDC_ML_SEND:
    case IDOK:
        cmdSend_Click();
        break;
    case IDC_ML_INSERT:
        cmdInsert_Click();
        break;
    case IDC_ML_CLOSE:
    case IDCANCEL:
        cmdClose_Click();
        break;
    default:
        break;
    }
}

bool frmMultiline::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT&)
{
    if (message != WM_PARENTNOTIFY || LOWORD(wParam) != WM_LBUTTONDOWN) return false;
    const POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    if (ChildWindowFromPoint(hwnd(), at) == SSPanel1.hwnd()) SSPanel1_MouseDown();
    return true;
}

void frmMultiline::SSPanel1_MouseDown()
{
    // The system moves the window as if a title bar had been grabbed and
    // returns when the user lets go.
    ReleaseCapture();
    SendMessageA(hwnd(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
    if (!Loaded()) return;
    WriteSetting(Setting::MultilineTop, std::to_string(Top()));
    WriteSetting(Setting::MultilineLeft, std::to_string(Left()));
}

void frmMultiline::cmdClose_Click() { Unload(); }

void frmMultiline::cmdSend_Click()
{
    if (sending_) return;
    // A send is one of the things that never run inside another one's wait.
    if (TheChatSession().RunAlone([&] { SendMultiline(); })) Unload();
}

void frmMultiline::cmdInsert_Click()
{
    ErrorTrap trap("frmMultiline", "cmdInsert_Click");
    std::string path;
    // The file dialog must come in front of the window, not behind it.
    trap.Run([&] { FormNotOnTop(*this); });
    trap.Run([&] { path = OpenDialog("Text Based Files", "*.txt;*.log;*.wri", 1, hwnd()); });
    trap.Run([&] { FormOnTop(*this); });
    if (path.empty() || !Loaded()) return;
    std::optional<std::string> text;
    if (!trap.Run([&] { text = MultilineFileText(ReadFile(path, kMultilineMaxText + 1)); })) return;
    if (!text) {
        ShowMsg("~B~CRThis file is too long!~B~CN~N ~NThe multiline window holds at most 60,000 characters; "
                "the text stays as it was.",
                48);
        return;
    }
    SetWindowTextA(txtChat, text->c_str());
}

void frmMultiline::TakeFullLine(const std::string& line)
{
    const std::string before = WindowTextOf(txtChat);
    const std::string after = AddFullLine(before, line);
    if (after != before) SetWindowTextA(txtChat, after.c_str());
    const WPARAM end = after.size();
    SendMessageA(txtChat, EM_SETSEL, end, static_cast<LPARAM>(end));
    SendMessageA(txtChat, EM_SCROLLCARET, 0, 0);
}

// Runs of printable characters go in at once: a key at a time, a long text
// would be laid out again for every key. The others are typed as keys.
void frmMultiline::TypeOn(const std::string& characters)
{
    std::string run;
    const auto putRun = [&] {
        if (!run.empty()) SendMessageA(txtChat, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(run.c_str()));
        run.clear();
    };
    for (unsigned char c : characters) {
        if (c >= 32) {
            run += static_cast<char>(c);
            continue;
        }
        putRun();
        SendMessageA(txtChat, WM_CHAR, c, 0);
    }
    putRun();
}

// Errors are ignored step by step: a line that fails does not keep the next
// one from going out. The send ends early, without a word, when the window
// is closed or AOL or the program goes; and with one message when the chat
// room it began in is gone, so that no line lands in another room.
void frmMultiline::SendMultiline()
{
    const FlagUp running(sending_);
    ChatSession& session = TheChatSession();
    const HWND window = hwnd();
    // The Enter sent with each line must reach AOL untouched.
    const HWND input = session.ChatInput();
    ErrorTrap::Ignoring([&] { session.HoldOffChatInputHook(true); });
    std::string text;
    long width = 0;
    ErrorTrap::Ignoring([&] {
        text = WindowTextOf(txtChat);
        SetWindowTextA(txtHidden, text.c_str());
        width = HiddenWidth();
    });
    if (!text.empty()) {
        ErrorTrap::Ignoring([&] {
            SSPanel1.BackColor = 0x00FFFFFF;
            SSPanel1.SetValue(SSPanel1.Value());
        });
        ErrorTrap::Ignoring([&] { FitLines(); });
        SendLines(window, input);
    }
    if (hwnd() == window) {
        ErrorTrap::Ignoring([&] { SetHiddenWidth(width); });
        ErrorTrap::Ignoring([&] {
            SetWindowTextA(txtHidden, "");
            SetWindowTextA(txtChat, "");
        });
        ErrorTrap::Ignoring([&] { SSPanel1.SetValue(100); });
    }
    // Nothing is hooked again into an AOL the program is leaving.
    if (session.Leaving() || !DoEvents()) return;
    ErrorTrap::Ignoring([&] { Pause(250); });
    if (!session.Leaving()) ErrorTrap::Ignoring([&] { session.HoldOffChatInputHook(false); });
}

void frmMultiline::FitLines()
{
    const long limit = MultilineLimit(Options.FaderOn, Options.CharsInLine);
    FitWidth(HiddenWidth(), kMinimumWrapWidth, limit, [&](long width) {
        SetHiddenWidth(width);
        std::vector<long> lengths;
        const long count = static_cast<long>(SendMessageA(txtHidden, EM_GETLINECOUNT, 0, 0));
        for (long i = 0; i < count; ++i) {
            const LRESULT first = SendMessageA(txtHidden, EM_LINEINDEX, i, 0);
            lengths.push_back(static_cast<long>(SendMessageA(txtHidden, EM_LINELENGTH, first, 0)));
        }
        return lengths;
    });
}

void frmMultiline::SendLines(HWND window, HWND input)
{
    const unsigned long delay = BurstDelay(Options.MultilineBurst);
    HWND room = nullptr;
    ErrorTrap::Ignoring([&] { room = FindChatRoom(AOLMDIClient, "AOL Child"); });
    long count = 0;
    ErrorTrap::Ignoring([&] { count = static_cast<long>(SendMessageA(txtHidden, EM_GETLINECOUNT, 0, 0)); });
    for (long i = 0; i < count; ++i) {
        if (SendMustStop(window)) return;
        ErrorTrap::Ignoring([&] { SSPanel1.SetValue(MultilineProgress(i, count)); });
        std::string line;
        ErrorTrap::Ignoring([&] { line = HiddenLine(i); });
        std::optional<std::string> out = ChatLineFor(line);
        if (!out) continue;
        if (delay && !WaitBeforeLine(delay, window)) return;
        bool sameRoom = true;
        ErrorTrap::Ignoring([&] { sameRoom = room && FindChatRoom(AOLMDIClient, "AOL Child") == room; });
        if (!sameRoom) {
            ShowMsg(kNoChatRoomMessage, 64);
            return;
        }
        if (Options.FaderOn) {
            ErrorTrap::Ignoring([&] { FadeEngine(*out); });
            ErrorTrap::Ignoring([&] { ShowWindow(input, SW_HIDE); });
        }
        ErrorTrap::Ignoring([&] { TextToChat(*out, 1); });
        // AOL leaves a hidden input hidden; giving it the line brought AOL in
        // front of the panel, which goes back above it, and this window above both.
        ErrorTrap::Ignoring([&] {
            ShowChatInput(FindChildByClass(room, "RICHCNTL", 2));
            ChatTools().KeepInFront();
            if (hwnd() == window) FormOnTop(*this);
        });
    }
}

bool frmMultiline::WaitBeforeLine(unsigned long ms, HWND window)
{
    const DWORD start = GetTickCount();
    for (;;) {
        if (!DoEvents() || SendMustStop(window)) return false;
        const DWORD elapsed = GetTickCount() - start;
        if (elapsed >= ms) return true;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, ms - elapsed, QS_ALLINPUT);
    }
}

bool frmMultiline::SendMustStop(HWND window) const { return hwnd() != window || TheChatSession().Leaving(); }

// The line as EM_GETLINE gives it: a buffer of its length plus one, filled
// with blanks, its first word telling the control the buffer's size.
std::string frmMultiline::HiddenLine(long index) const
{
    const LRESULT first = SendMessageA(txtHidden, EM_LINEINDEX, index, 0);
    const LRESULT length = SendMessageA(txtHidden, EM_LINELENGTH, first, 0);
    if (first < 0 || length <= 0) return "";
    std::string buffer(std::max<size_t>(static_cast<size_t>(length) + 1, sizeof(WORD)), ' ');
    const WORD size = static_cast<WORD>(std::min<size_t>(buffer.size(), 0xFFFF));
    std::memcpy(&buffer[0], &size, sizeof size);
    SendMessageA(txtHidden, EM_GETLINE, index, reinterpret_cast<LPARAM>(&buffer[0]));
    buffer.resize(static_cast<size_t>(length));
    return buffer;
}

long frmMultiline::HiddenWidth() const
{
    RECT r{};
    GetWindowRect(txtHidden, &r);
    return (r.right - r.left) * TwipsPerPixelX();
}

void frmMultiline::SetHiddenWidth(long twips)
{
    RECT r{};
    GetWindowRect(txtHidden, &r);
    SetWindowPos(txtHidden, nullptr, 0, 0, twips / TwipsPerPixelX(), r.bottom - r.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool OpenMultiline(const std::string& line)
{
    frmMultiline& form = Multiline();
    if (!form.Load()) return false;
    ShowWindow(form.cmdInsert.hwnd(), SW_HIDE);
    // The line is in before the window shows: it never appears empty.
    form.TakeFullLine(line);
    ShowWindow(form.hwnd(), SW_SHOW);
    DoEvents();
    if (!form.Loaded()) return false;
    TakeKeyboard(form.hwnd(), form.txtChat);
    return true;
}

bool ShowMultilineInsert()
{
    frmMultiline& form = Multiline();
    if (!form.Loaded()) return false;
    ShowWindow(form.cmdInsert.hwnd(), SW_SHOW);
    return true;
}
