// The chat session: everything the program does inside AOL for its whole run.
// It owns the three hooks (AOL's chat input, its send icon, its main window),
// the watcher that follows the chat room once a second, the chat commands,
// the advertisement and the program's AOL menu commands. It lives apart from
// the control panel, on a hidden window of its own, so that the panel's window
// can be rebuilt without dropping a hook, an advertisement or a multiline send.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "ChatText.h"
#include "SubClass.h"

class ErrorTrap;

// What the session asks of the control panel, and nothing more.
class ChatPanel {
public:
    virtual ~ChatPanel() = default;
    // Shows the panel above AOL (loading it first when needed).
    virtual void ShowPanel() = 0;
    // Hides the panel; it stays loaded.
    virtual void HidePanel() = 0;
    // Switches the fader on as a click on the panel's On does.
    virtual void FadeOn() = 0;
    // Switches the fader off as a click on the panel's Off does.
    virtual void FadeOff() = 0;
    // Puts the panel back above AOL when it is on view; a hidden panel stays hidden.
    virtual void KeepInFront() = 0;
};

class ChatSession {
public:
    explicit ChatSession(ChatPanel& panel);
    ~ChatSession();
    ChatSession(const ChatSession&) = delete;
    ChatSession& operator=(const ChatSession&) = delete;

    // Makes the hidden window, hooks AOL's main window and starts the watcher; a second call does nothing.
    void Start();
    // Stops the watcher and takes every hook off AOL; safe when never started.
    void Stop();
    // True from Start until Stop (or the end the watcher sees when AOL is gone).
    bool Running() const;
    // The watcher ticks finished since the program started.
    long WatcherTicks() const { return ticks_; }
    // The chat input the send hooks sit on; 0 outside a chat room.
    HWND ChatInput() const { return sbcChatEdit.Window(); }

    // One look at AOL: follows the chat room, mail windows, sign-on and AOL itself.
    void Timer1_Timer();
    // Carries out a chat command typed as "/" + `command`.
    void ActivateCommand(const std::string& command);
    // Posts the five-line advertisement into the open chat room.
    void Advertise();
    // Moves the whole line of `inputBox` into the multiline window and empties
    // the input. After a full line (`fullLine`; the command passes false)
    // what is still arriving at the input follows the line there.
    void EnableMultiline(HWND inputBox, bool fullLine);
    // Shows the panel because the user asked for it: it no longer goes when the chat room does.
    void ShowPanelAskedFor();
    // Carries out one command of the program's menu in AOL's menu bar.
    void RunMenuCommand(MenuCommand command);
    // Takes the program out of AOL, ends it, and lets AOL's close go on.
    void UnhookPrismo();
    // While held off, the chat input hook stays detached and the watcher
    // leaves it so; resuming hooks the room's input again at once.
    void HoldOffChatInputHook(bool holdOff);

    // One thing at a time. A command, an advertisement, a multiline send or a
    // watcher tick may wait (servicing events) for seconds; whatever else is
    // asked for meanwhile is ignored rather than run inside that wait, except
    // AOL's close and the menu's Exit, which are held until it ends.
    // True while a command, an advertisement, a watcher tick or work given to RunAlone is under way.
    bool Busy() const { return commandsRunning_ > 0 || ticking_; }
    // Runs `work` (a multiline send, say) as a command unless something is under way; false when it did not run.
    bool RunAlone(const std::function<void()>& work);
    // True once AOL or the program is going: work under way ends now and hooks nothing again.
    bool Leaving() const;

private:
    struct WindowCloser {
        void operator()(HWND window) const;
    };
    using OwnedWindow = std::unique_ptr<std::remove_pointer_t<HWND>, WindowCloser>;

    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Tick();
    void WireHooks();
    void FollowChatRoom();
    void FollowMailWindows();
    void FollowSignOn();
    void DetachChatHooks();
    // Hooks that recover (Watcher.cpp): each tick asks the DLL whether each
    // hook still listens and attaches again any that does not.
    bool HookChatRoom();
    bool KeepHooked(SubClass& hook, HWND window, const std::vector<UINT>& messages);
    // Faults on cue, answered by the Windows test build only (ChatSession.cpp).
    bool AnswerTestFault(UINT message, WPARAM wParam, LRESULT& answer);
    void HoldIfAsked();

    // The send hooks (SendHooks.cpp).
    void sbcChatEdit_WndMessageX(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                                 bool& noDefault);
    void sbcSendIcon_WndMessageX(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                                 bool& noDefault);
    void SendHook_DelayedEvent(LONG_PTR value);
    void SendFadedLine(HWND input, const std::string& line);
    // After a full line, the keys that still reach AOL's input (a key repeat,
    // a paste) go on into the multiline window: caught while the line moves,
    // typed on there once it has. It ends when the user is back in AOL's input.
    enum class Catching { No, Moving, Typing };
    bool CatchTyped(int character);
    void TypeCaught();
    // The hook on AOL's main window (Watcher.cpp).
    void sbcMenu_WndMessageX(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result,
                             bool& noDefault);
    void sbcMenu_DelayedEvent(LONG_PTR value);

    // Counts the chat and menu commands under way while it lives.
    class CommandScope {
    public:
        explicit CommandScope(ChatSession& session) : session_(session) { ++session_.commandsRunning_; }
        ~CommandScope() { --session_.commandsRunning_; }
        CommandScope(const CommandScope&) = delete;
        CommandScope& operator=(const CommandScope&) = delete;

    private:
        ChatSession& session_;
    };

    // One thing at a time (see Busy).
    enum class HeldEnd { None, CloseWithAOL, Exit };
    // Runs `work` as the one thing under way (a tick when `tick`); ignored while busy.
    void RunOneThing(bool tick, const std::function<void()>& work);
    // Carries out the end held while something ran, if any.
    void RunHeldEnd();
    // AOL is closing: the program leaves it now, or once what runs has ended.
    void CloseWithAOL();
    // RunMenuCommand's work, done when nothing else runs.
    void CarryOutMenuCommand(MenuCommand command);
    // True when an advertisement under way must stop: its room, AOL or the program is going.
    bool AdvertMustStop(HWND room) const;
    // What a "/fadeon" or "/fadeoff" does, also while an advertisement runs.
    void SwitchFader(bool on, ErrorTrap& trap);
    bool ticking_ = false;             // a watcher tick is under way
    bool Advertising = false;          // an advertisement is under way
    HeldEnd heldEnd_ = HeldEnd::None;  // AOL's close or Exit, asked for while busy

    ChatPanel& panel_;
    OwnedWindow window_;
    long ticks_ = 0;
    int commandsRunning_ = 0;

    SubClass sbcChatEdit, sbcSendIcon, sbcMenu;
    bool ChatHooked = false;           // the chat input hooks sit on the current room
    bool SendingEnter = false;         // our own Enter is on its way to the chat input
    bool AdvertFaderWasOn = false;     // the fader's state before an advertisement
    bool CommandPending = false;       // a "/" command waits for the send icon's button-up
    Catching catching_ = Catching::No;  // keys for the multiline window
    std::string caught_;               // caught and not yet typed on
    std::string PendingCommand;        // that command, without its slash
    HWND ChatInputWindow = nullptr;    // the chat input the hooks were attached to
    bool EFadeShown = false;           // the e-mail fader toolbar is up for a mail window
    bool SignedOnSeen = false;         // sign-on state and screen name taken in
    bool PanelShownForChat = false;    // the watcher showed the panel for the open room

    // Hooks that recover.
    HWND ChatRoomHooked = nullptr;     // the chat room the send hooks were attached in
    bool ChatInputHeldOff = false;     // the chat input hook let go of on purpose
    struct {
        DWORD holdMs = 0;              // hold the next hooked message this long
        int failAttaches = 0;          // attaches still to fail
        bool failMenuHook = false;     // the next menu hook message fails
    } testFaults_;
};

// Shared flags of the chat fader.
extern bool AOLClosing;   // AOL's exit command was seen; the program is ending
extern HWND EMailWindow;  // the mail being written that the e-mail fader works on
