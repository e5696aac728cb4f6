// The simulator's side of aolsimctl: each request names a command and its
// arguments; the answer is the text aolsimctl prints, or why it failed.
#include "Sim.h"

#include <richedit.h>

#include <cstdio>
#include <functional>

namespace {

using Args = std::vector<std::string>;
using Handler = std::function<bool(const Args&, std::string&)>;

std::string Join(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines) text += line + "\n";
    return text;
}

std::string Hex(HWND hwnd) {
    char text[32];
    snprintf(text, sizeof text, "%llx", (unsigned long long)(UINT_PTR)hwnd);
    return text;
}

bool Fail(std::string& reply, const std::string& why) {
    reply = why;
    return false;
}

SimChild* RoomOrFail(std::string& reply) {
    SimChild* room = TopChild("room");
    if (!room) reply = "no chat room is open";
    return room;
}

SimChild* MailOrFail(std::string& reply) {
    SimChild* mail = TopChild("mail");
    if (!mail) reply = "no " + WriteMailCaption(Sim().config.edition) + " window is open";
    return mail;
}

// The editor a mail command works in: that of the window captioned CAPTION
// after "--window CAPTION" (taken out of args), else the top compose window's body.
HWND EditorOrFail(Args& args, std::string& reply) {
    if (args.size() > 2 && args[1] == "--window") {
        const std::string caption = args[2];
        args.erase(args.begin() + 1, args.begin() + 3);
        for (SimChild* child : ChildrenInOrder()) {
            if (WindowText(child->hwnd) != caption) continue;
            if (HWND editor = EditorOf(child)) return editor;
            reply = "\"" + caption + "\" has no text to edit";
            return nullptr;
        }
        reply = "no window \"" + caption + "\" is open";
        return nullptr;
    }
    SimChild* mail = MailOrFail(reply);
    return mail ? MailBody(mail) : nullptr;
}

bool NeedArgs(const Args& args, std::size_t count, std::string& reply) {
    if (args.size() - 1 >= count) return true;
    return Fail(reply, args[0] + " needs " + std::to_string(count) + " argument(s)");
}

bool WindowHandle(const Args& args, std::string& reply) {
    if (!NeedArgs(args, 1, reply)) return false;
    const std::string& which = args[1];
    HWND found = nullptr;
    if (which == "frame") found = Sim().frame;
    else if (which == "mdi") found = Sim().mdiClient;
    else if (which == "input" || which == "send" || which == "room") {
        SimChild* room = RoomOrFail(reply);
        if (!room) return false;
        found = which == "input" ? RoomInput(room) : which == "send" ? RoomSendIcon(room) : room->hwnd;
    } else if (which == "mail-body" || which == "mail" || which == "send-now" || which == "send-later") {
        SimChild* mail = MailOrFail(reply);
        if (!mail) return false;
        found = which == "mail" ? mail->hwnd : which == "mail-body" ? MailBody(mail) : MailSendIcon(mail, which == "send-later");
    } else {
        return Fail(reply, "unknown window \"" + which + "\"");
    }
    reply = Hex(found);
    return true;
}

bool Transcript(const Args&, std::string& reply) {
    SimChild* room = RoomOrFail(reply);
    if (!room) return false;
    reply = Join(RoomTranscript(room));
    return true;
}

bool PostTimes(const Args&, std::string& reply) {
    SimChild* room = RoomOrFail(reply);
    if (!room) return false;
    for (DWORD tick : RoomPostTimes(room)) reply += std::to_string(tick) + "\n";
    return true;
}

bool Input(const Args&, std::string& reply) {
    SimChild* room = RoomOrFail(reply);
    if (!room) return false;
    HWND input = RoomInput(room);
    reply = WindowText(input) + "\n" + (IsWindowVisible(input) ? "visible" : "hidden") + "\n";
    return true;
}

bool MailSelect(const Args& request, std::string& reply) {
    Args args = request;
    HWND editor = EditorOrFail(args, reply);
    if (!editor || !NeedArgs(args, 2, reply)) return false;
    long start = 0, length = 0;
    if (sscanf(args[1].c_str(), "%ld", &start) != 1 || sscanf(args[2].c_str(), "%ld", &length) != 1)
        return Fail(reply, "mail-select takes two numbers");
    CHARRANGE range{start, length < 0 ? -1 : start + length};
    SendMessageA(editor, EM_EXSETSEL, 0, (LPARAM)&range);
    return true;
}

bool MailText(const Args& request, std::string& reply) {
    Args args = request;
    HWND editor = EditorOrFail(args, reply);
    if (!editor || !NeedArgs(args, 1, reply)) return false;
    SendMessageA(editor, WM_SETTEXT, 0, (LPARAM)args[1].c_str());
    return true;
}

bool MailBodyCommand(const Args& request, std::string& reply) {
    Args args = request;
    HWND editor = EditorOrFail(args, reply);
    if (editor) reply = ReadRichAsAolHtml(editor) + "\n";
    return editor != nullptr;
}

bool EditorTimesCommand(const Args& request, std::string& reply) {
    Args args = request;
    HWND editor = EditorOrFail(args, reply);
    if (editor) reply = Join(EditorTimes(editor));
    return editor != nullptr;
}

UINT ClipboardFormat(const std::string& name, std::string& reply) {
    if (name == "aolmail") return RegisterClipboardFormatA("AOLMAIL");
    if (name == "text") return CF_TEXT;
    reply = "the clipboard format is aolmail or text, not \"" + name + "\"";
    return 0;
}

// The clipboard's AOLMAIL or plain text as bytes (up to its NUL); a format
// that is absent is a failure, told apart from an empty text.
bool ClipboardCommand(const Args& args, std::string& reply) {
    if (!NeedArgs(args, 1, reply)) return false;
    const UINT format = ClipboardFormat(args[1], reply);
    if (!format) return false;
    if (!OpenClipboard(Sim().frame)) return Fail(reply, "the clipboard is busy");
    HANDLE data = GetClipboardData(format);
    if (data) {
        const char* bytes = static_cast<const char*>(GlobalLock(data));
        reply = bytes ? std::string(bytes, strnlen(bytes, GlobalSize(data))) : "";
        GlobalUnlock(data);
    }
    CloseClipboard();
    if (!data) reply = args[1] == "aolmail" ? "no AOLMAIL on the clipboard" : "no text on the clipboard";
    return data != nullptr;
}

// Empties the clipboard and puts TEXT on it in that one format.
bool PutOnClipboard(UINT format, const std::string& text, std::string& reply) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, text.size() + 1);
    if (!block) return Fail(reply, "out of memory");
    memcpy(GlobalLock(block), text.data(), text.size());
    GlobalUnlock(block);
    if (!OpenClipboard(Sim().frame)) {
        GlobalFree(block);
        return Fail(reply, "the clipboard is busy");
    }
    EmptyClipboard();
    if (!SetClipboardData(format, block)) GlobalFree(block);
    CloseClipboard();
    return true;
}

bool ClipboardSet(const Args& args, std::string& reply) {
    if (!NeedArgs(args, 2, reply)) return false;
    const UINT format = ClipboardFormat(args[1], reply);
    return format && PutOnClipboard(format, args[2], reply);
}

// Puts TEXT on the clipboard as "AOLMAIL" and pastes it into the body, the
// way Prismo hands a faded text to the mail editor.
bool MailPaste(const Args& args, std::string& reply) {
    if (!NeedArgs(args, 1, reply)) return false;
    SimChild* mail = MailOrFail(reply);
    if (!mail) return false;
    if (!PutOnClipboard(RegisterClipboardFormatA("AOLMAIL"), args[1], reply)) return false;
    SendMessageA(MailBody(mail), WM_COMMAND, 20003, 0);
    return true;
}

bool MailSubjectCommand(const Args& args, std::string& reply) {
    SimChild* mail = MailOrFail(reply);
    if (!mail) return false;
    if (args.size() > 1) SendMessageA(MailSubject(mail), WM_SETTEXT, 0, (LPARAM)args[1].c_str());
    reply = WindowText(MailSubject(mail)) + "\n";
    return true;
}

bool CloseRoom(const Args&, std::string& reply) {
    SimChild* room = RoomOrFail(reply);
    if (!room) return false;
    SendMessageA(Sim().mdiClient, WM_MDIDESTROY, (WPARAM)room->hwnd, 0);
    return true;
}

bool Windows(const Args&, std::string& reply) {
    for (SimChild* child : ChildrenInOrder()) reply += std::string(child->Kind()) + "\t" + WindowText(child->hwnd) + "\n";
    return true;
}

// The top document window's own children in Z-order: class, TAB, caption.
bool Children(const Args&, std::string& reply) {
    std::vector<SimChild*> children = ChildrenInOrder();
    if (children.empty()) return Fail(reply, "no window is open");
    for (HWND w = GetWindow(children.front()->hwnd, GW_CHILD); w; w = GetWindow(w, GW_HWNDNEXT))
        reply += ClassOf(w) + "\t" + WindowText(w) + "\n";
    return true;
}

// Which of the windows Prismo hooks carry a window procedure that is not
// their class's own: another program has subclassed them. One line each,
// name TAB "subclassed" or "own"; the room's windows only while one is open.
bool Subclassed(const Args&, std::string& reply) {
    auto describe = [&reply](const char* name, HWND w) {
        const bool foreign = GetWindowLongPtrA(w, GWLP_WNDPROC) != (LONG_PTR)GetClassLongPtrA(w, GCLP_WNDPROC);
        reply += std::string(name) + "\t" + (foreign ? "subclassed" : "own") + "\n";
    };
    describe("frame", Sim().frame);
    if (SimChild* room = TopChild("room")) {
        describe("input", RoomInput(room));
        describe("send", RoomSendIcon(room));
    }
    return true;
}

// The document window a command names: the top one of a kind ("room",
// "mail", ...), or the top one of any kind without a name.
SimChild* NamedChild(const Args& args, std::string& reply) {
    if (args.size() < 2) {
        std::vector<SimChild*> children = ChildrenInOrder();
        if (children.empty()) reply = "no window is open";
        return children.empty() ? nullptr : children.front();
    }
    SimChild* child = TopChild(args[1].c_str());
    if (!child) reply = "no " + args[1] + " window is open";
    return child;
}

// Maximises a document window as its maximise box does: the MDI client then
// puts the window's system menu and its minimise, restore and close buttons
// into the frame's menu bar and the window's caption into the frame's.
bool Maximize(const Args& args, std::string& reply) {
    SimChild* child = NamedChild(args, reply);
    if (!child) return false;
    SendMessageA(Sim().mdiClient, WM_MDIMAXIMIZE, (WPARAM)child->hwnd, 0);
    return true;
}

// Gives the maximised document window its own frame again (its restore button).
bool Restore(const Args&, std::string& reply) {
    BOOL maximized = FALSE;
    HWND active = (HWND)SendMessageA(Sim().mdiClient, WM_MDIGETACTIVE, 0, (LPARAM)&maximized);
    if (!active || !maximized) return Fail(reply, "no window is maximised");
    SendMessageA(Sim().mdiClient, WM_MDIRESTORE, (WPARAM)active, 0);
    return true;
}

const std::map<std::string, Handler>& Commands() {
    static const std::map<std::string, Handler> commands{
        {"ping", [](const Args&, std::string& r) { r = "pong\n"; return true; }},
        {"hwnd", WindowHandle},
        {"transcript", Transcript},
        {"post-times", PostTimes},
        {"input", Input},
        {"open-room", [](const Args& a, std::string& r) { return NeedArgs(a, 1, r) && OpenChatRoom(a[1]) != nullptr; }},
        {"close-room", CloseRoom},
        {"open-mail",
         [](const Args& a, std::string& r) {
             const bool other = a.size() > 1 && a[1] != WriteMailCaption(Sim().config.edition);
             if ((other ? OpenComposeWindow(a[1]) : OpenWriteMail()) != nullptr) return true;
             return Fail(r, "no mail window opens");
         }},
        {"mail-select", MailSelect},
        {"mail-text", MailText},
        {"mail-body", MailBodyCommand},
        {"editor-times", EditorTimesCommand},
        {"clipboard", ClipboardCommand},
        {"clipboard-set", ClipboardSet},
        {"mail-subject", MailSubjectCommand},
        {"mail-paste", MailPaste},
        {"mail-attachments",
         [](const Args&, std::string& r) {
             SimChild* mail = MailOrFail(r);
             if (mail) r = Join(MailAttachments(mail));
             return mail != nullptr;
         }},
        {"open-window",
         [](const Args& a, std::string& r) { return NeedArgs(a, 1, r) && OpenNamedWindow(a[1]) != nullptr; }},
        {"sign-on", [](const Args& a, std::string& r) { return NeedArgs(a, 1, r) && SignOn(a[1], r); }},
        {"sign-off",
         [](const Args&, std::string& r) {
             if (!Sim().signedOn) return Fail(r, "not signed on");
             SignOff();
             return true;
         }},
        {"keywords", [](const Args&, std::string& r) { r = Join(Sim().keywords); return true; }},
        {"menu", [](const Args&, std::string& r) { r = Join(DescribeMenuBar()); return true; }},
        {"caption", [](const Args&, std::string& r) { r = WindowText(Sim().frame) + "\n"; return true; }},
        {"windows", Windows},
        {"maximize", Maximize},
        {"restore", Restore},
        {"children", Children},
        {"subclassed", Subclassed},
        // Paints whatever is still to be painted before answering, so a
        // screenshot taken next shows everything asked for so far.
        {"paint",
         [](const Args&, std::string&) {
             RedrawWindow(Sim().frame, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
             return true;
         }},
    };
    return commands;
}

}  // namespace

bool RunControlCommand(const std::vector<std::string>& args, std::string& reply) {
    const auto& commands = Commands();
    auto it = commands.find(args[0]);
    if (it == commands.end()) return Fail(reply, "unknown command \"" + args[0] + "\"");
    return it->second(args, reply);
}
