// The chat room watcher and the hook on AOL's main window: the send hooks
// follow the open chat room, the panel comes and goes with it, the e-mail
// toolbar with mail windows, screen names are read once per sign-on, and the
// session ends, and the program with it, when AOL closes or vanishes.
#include <windows.h>

#include "AOLState.h"
#include "AOLText.h"
#include "ChatHooks.h"
#include "ChatSession.h"
#include "ChatText.h"
#include "ErrorTrap.h"
#include "Form.h"
#include "Options.h"
#include "modAOLFunctions.h"
#include "modAOLMenu.h"
#include "modFindChild.h"
#include "modWin32API.h"

namespace {

// A mail being written, looked for in the order AOL's windows are most
// likely to be it; 0 when there is none.
HWND FindMailBeingWritten()
{
    const char* caption = AOLEdition.Australia ? "Write e-mail" : "Write Mail";
    if (HWND mail = FindWindowExA(AOLMDIClient, nullptr, "AOL Child", caption)) return mail;
    for (const char* title : {"Re:", "Fwd:"}) {
        HWND reply = FindChildByTitle(AOLMDIClient, title);
        if (reply && FindWindowExA(reply, nullptr, "_AOL_EDIT", nullptr)) return reply;
    }
    if (HWND boards = FindWindowExA(AOLMDIClient, nullptr, "AOL Child", "Global Message Board Preferences"))
        return boards;
    return IsEMail(GetTopWindow(AOLMDIClient));
}

}  // namespace

void ChatSession::Timer1_Timer()
{
    FollowChatRoom();
    if (Options.ShowEFToolbar) FollowMailWindows();
    FollowSignOn();
    // AOL is gone without telling us: the program ends with it.
    if (!FindWindowA("AOL FRAME25", nullptr)) {
        Stop();
        UnloadAllForms();
    }
}

// The send hooks follow the open chat room; the panel comes and goes with it.
// A hook can go deaf: AOL stops asking us for good once we answer one message
// late, so every tick each hook is asked whether it still listens and is
// attached again when it does not. The menu hook is kept the same way.
void ChatSession::FollowChatRoom()
{
    HWND room = nullptr, input = nullptr;
    ErrorTrap::Ignoring([&] {
        room = FindChatRoom(AOLMDIClient, "AOL Child");
        if (room) input = FindChildByClass(room, "RICHCNTL", 2);
    });
    // Windows 9x gives a closed window's handle to the next window soon: a
    // new room's input may come back at the old input's handle.
    if (input != ChatInputWindow || room != ChatRoomHooked) ChatHooked = false;
    if (!room) {
        ErrorTrap::Ignoring([&] { DetachChatHooks(); });
        ChatHooked = false;
        ChatInputWindow = nullptr;
        if (PanelShownForChat) {
            PanelShownForChat = false;
            ErrorTrap::Ignoring([&] { panel_.HidePanel(); });
        }
    } else {
        if (!ChatHooked) {
            ChatInputWindow = input;
            ChatRoomHooked = room;
            if (Options.ShowFadePanelWithChat && !PanelShownForChat) {
                PanelShownForChat = true;
                ErrorTrap::Ignoring([&] { panel_.ShowPanel(); });
                ChatRoomWindow = room;
            }
        }
        ChatHooked = HookChatRoom();
    }
    if (AOLWindow) KeepHooked(sbcMenu, AOLWindow, {WM_CLOSE, WM_COMMAND});
}

// Both send hooks on the hooked room, live; the chat input's only while it is
// not held off. True when both are in place.
bool ChatSession::HookChatRoom()
{
    HWND send = nullptr;
    ErrorTrap::Ignoring([&] {
        send = GetWindow(ChatInputWindow, GW_HWNDNEXT);
        if (AOLEdition.UK && send) send = GetWindow(send, GW_HWNDNEXT);
    });
    bool input = true;
    if (ChatInputHeldOff)
        ErrorTrap::Ignoring([&] { sbcChatEdit.Attach(nullptr, {}); });
    else
        // A click or the focus on the input says the user is typing there again.
        input = KeepHooked(sbcChatEdit, ChatInputWindow, {WM_CHAR, WM_SETFOCUS, WM_LBUTTONDOWN});
    const bool icon = KeepHooked(sbcSendIcon, send, {WM_LBUTTONDOWN, WM_LBUTTONUP});
    return input && icon;
}

// True when `hook` sits on `window` and its messages reach us, attaching it
// again when they do not.
bool ChatSession::KeepHooked(SubClass& hook, HWND window, const std::vector<UINT>& messages)
{
    bool live = false;
    ErrorTrap::Ignoring([&] {
        if (window && hook.Window() == window && hook.Live()) {
            live = true;
        } else if (testFaults_.failAttaches > 0) {
            --testFaults_.failAttaches;
        } else {
            live = hook.Attach(window, messages) && window != nullptr;
        }
    });
    return live;
}

// The e-mail fader's toolbar stands beside a mail being written.
void ChatSession::FollowMailWindows()
{
    HWND mail = nullptr;
    ErrorTrap::Ignoring([&] { mail = FindMailBeingWritten(); });
    if (!mail) {
        EFadeShown = false;
        ErrorTrap::Ignoring([&] { OpenProgramWindow({ProgramWindow::EMailToolbarUnload, ""}); });
        EMailWindow = nullptr;
    } else if (!EFadeShown) {
        EMailWindow = mail;
        ErrorTrap::Ignoring([&] { OpenProgramWindow({ProgramWindow::EMailToolbar, ""}); });
        EFadeShown = true;
        ErrorTrap::Ignoring([&] { SetFocus(mail); });
    }
}

// Screen names are read once per sign-on.
void ChatSession::FollowSignOn()
{
    bool online = false;
    ErrorTrap::Ignoring([&] { online = IsAOLOnline(false); });
    if (online && !SignedOnSeen) {
        ErrorTrap::Ignoring([&] { GetScreenNames(); });
        ErrorTrap::Ignoring([&] {
            if (TrimAOLText(ScreenNames[5]).empty()) ScreenNames[5] = GetCurrentScreenName();
        });
        SignedOnSeen = true;
    } else if (!online && SignedOnSeen) {
        SignedOnSeen = false;
    }
}

// A failure here is reported once AOL has gone on with the message.
void ChatSession::sbcMenu_WndMessageX(HWND, UINT message, WPARAM wParam, LPARAM, LRESULT& result,
                                       bool& noDefault)
{
    if (testFaults_.failMenuHook) {
        testFaults_.failMenuHook = false;
        throw RuntimeError(Err::DeviceIO, "Device I/O error");
    }
    const MenuHookMessage which = message == WM_CLOSE     ? MenuHookMessage::Close
                                  : message == WM_COMMAND ? MenuHookMessage::Command
                                                          : MenuHookMessage::Other;
    const MenuHookAction action = DecideMenuMessage(which, wParam, AOLClosing);
    if (action.setClosing) AOLClosing = true;
    if (action.swallow) {
        noDefault = true;
        result = 0;
    }
    // Menu commands and closing run after AOL has returned from the message.
    if (action.post) sbcMenu.PostDelayedEvent(action.value);
}

void ChatSession::sbcMenu_DelayedEvent(LONG_PTR value)
{
    ErrorTrap trap("frmChatTools", "sbcMenu_DelayedEvent");
    if (IsClosingEvent(static_cast<long>(value))) {
        trap.Run([&] { CloseWithAOL(); });
        return;
    }
    const MenuCommand command = MenuCommandFor(static_cast<long>(value));
    if (command != MenuCommand::None) trap.Run([&] { RunMenuCommand(command); });
}

// Takes the program out of AOL and lets AOL's close go on: the menu goes, the
// hooks come off, the windows unload, and AOL gets its WM_CLOSE unhooked.
void ChatSession::UnhookPrismo()
{
    ErrorTrap::Ignoring([&] { RemoveMenuFromAOL(); });
    ErrorTrap::Ignoring([&] { Pause(500); });
    Stop();
    ErrorTrap::Ignoring([&] { UnloadAllForms(); });
    ErrorTrap::Ignoring([&] { Pause(1000); });
    if (AOLWindow && IsWindow(AOLWindow)) SendMessageA(AOLWindow, WM_CLOSE, 0, 0);
}
