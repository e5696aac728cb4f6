// The send hooks: Enter in AOL's chat input and a click on its send icon.
// A slash line becomes a chat command, any other line goes out faded while
// the fader is on, and everything else reaches AOL untouched.
#include <windows.h>

#include "ChatHooks.h"
#include "ChatSession.h"
#include "ChatText.h"
#include "ErrorTrap.h"
#include "Options.h"
#include "modAOLFunctions.h"
#include "frmMultiline.h"
#include "modFade.h"

namespace {

// Delayed values of the two send hooks.
constexpr LONG_PTR kRunEnterCommand = 1;   // the command taken from an Enter
constexpr LONG_PTR kRunClickCommand = 2;   // the command taken at the icon's button-down
constexpr LONG_PTR kShowInput = 3;         // the click has sent the line: show the input
constexpr LONG_PTR kMoveFullLine = 4;      // the line is full: into the multiline window
constexpr LONG_PTR kTypeCaught = 5;        // keys caught after a full line: type them on

void SetChatLine(HWND input, const char* text)
{
    SendMessageA(input, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

// Swaps the line in the input for its faded form, out of the user's sight.
void PutFadedLine(HWND input, std::string line)
{
    SetChatLine(input, "");
    FadeEngine(line);
    ShowWindow(input, SW_HIDE);
    TextToChat(line, 0);
}

}  // namespace

std::string ReadChatLine(HWND input)
{
    const LRESULT length = SendMessageA(input, WM_GETTEXTLENGTH, 0, 0);
    if (length <= 0) return "";
    std::string buffer(static_cast<size_t>(length) + 1, '\0');
    const LRESULT got = SendMessageA(input, WM_GETTEXT, buffer.size(), reinterpret_cast<LPARAM>(&buffer[0]));
    buffer.resize(got > 0 ? static_cast<size_t>(got) : 0);
    return buffer;
}

void ShowChatInput(HWND input)
{
    if (input && IsWindow(input) && !IsWindowVisible(input)) ShowWindow(input, SW_SHOWNA);
}

// The send hooks' delayed part: a command runs once AOL has finished with the
// key or click, and after a click the hidden input comes back on view. Giving
// the input the keyboard brings AOL to the front; the panel stays above it.
void ChatSession::SendHook_DelayedEvent(LONG_PTR value)
{
    switch (value) {
    case kShowInput:
        ShowChatInput(sbcChatEdit.Window());
        panel_.KeepInFront();
        return;
    case kMoveFullLine:
        EnableMultiline(sbcChatEdit.Window(), true);
        return;
    case kTypeCaught:
        if (catching_ != Catching::Moving) TypeCaught();
        return;
    case kRunClickCommand:
        // A click's command is taken once: a second click meanwhile finds none.
        if (!CommandPending) return;
        CommandPending = false;
        break;
    default:
        break;
    }
    const std::string command = PendingCommand;
    ActivateCommand(command);
}

bool ChatSession::CatchTyped(int character)
{
    if (catching_ == Catching::No) return false;
    if (catching_ == Catching::Typing && !Multiline().Loaded()) {
        catching_ = Catching::No;
        return false;
    }
    caught_ += static_cast<char>(character);
    if (catching_ == Catching::Typing && caught_.size() == 1) sbcChatEdit.PostDelayedEvent(kTypeCaught);
    return true;
}

void ChatSession::TypeCaught()
{
    std::string keys;
    keys.swap(caught_);
    if (!keys.empty() && Multiline().Loaded()) Multiline().TypeOn(keys);
}

// Runs before the chat input sees each character. Errors are ignored step by
// step: a failing step never keeps a key from AOL.
void ChatSession::sbcChatEdit_WndMessageX(HWND window, UINT message, WPARAM wParam, LPARAM,
                                           LRESULT& result, bool& noDefault)
{
    // The user is back in AOL's input: what is typed there now stays there.
    if (message == WM_SETFOCUS || message == WM_LBUTTONDOWN) catching_ = Catching::No;
    if (message != WM_CHAR || SendingEnter) return;
    const int character = static_cast<int>(wParam);
    if (CatchTyped(character)) {
        noDefault = true;
        result = 0;
        return;
    }
    // The per-key path reads only the line's length and the options in memory.
    // The key that fills the line goes on into it; the line moves once AOL
    // has it, with whatever else is typed by then.
    ErrorTrap::Ignoring([&] {
        if (!Options.UseMultiline) return;
        const long length = static_cast<long>(SendMessageA(window, WM_GETTEXTLENGTH, 0, 0));
        if (IsFullLine(length, character, Options.FaderOn, Options.CharsInLine))
            sbcChatEdit.PostDelayedEvent(kMoveFullLine);
    });
    if (character != 13) return;

    std::string line;
    ErrorTrap::Ignoring([&] { line = ReadChatLine(window); });
    switch (DecideEnter(line, Options.UseChatKW, Options.FaderOn)) {
    case SendAction::PassOn:
        return;
    case SendAction::Command:
        noDefault = true;
        result = 0;
        ErrorTrap::Ignoring([&] { SetChatLine(window, ""); });
        // The command may open windows or post lines: it runs once AOL has
        // finished with this Enter.
        PendingCommand = line.substr(1);
        sbcChatEdit.PostDelayedEvent(kRunEnterCommand);
        return;
    case SendAction::Fade:
        noDefault = true;
        result = 0;
        SendFadedLine(window, line);
        return;
    }
}

void ChatSession::SendFadedLine(HWND input, const std::string& line)
{
    ErrorTrap::Ignoring([&] { PutFadedLine(input, line); });
    // Our own Enter must pass the hook untouched; nothing between setting
    // and clearing the flag lets the user type.
    SendingEnter = true;
    ErrorTrap::Ignoring([&] { SendMessageA(input, WM_CHAR, 13, 0); });
    SendingEnter = false;
    ErrorTrap::Ignoring([&] {
        ShowChatInput(input);
        panel_.KeepInFront();
    });
}

// Runs before the send icon sees the mouse button. AOL sends on the click, so
// the faded line put in at button-down is what goes out. A failure leaves the
// click to AOL and is reported once AOL has gone on: no report may keep AOL
// waiting on the click.
void ChatSession::sbcSendIcon_WndMessageX(HWND, UINT message, WPARAM, LPARAM, LRESULT&, bool&)
{
    HWND input = sbcChatEdit.Window();
    if (message == WM_LBUTTONUP) {
        if (CommandPending) sbcSendIcon.PostDelayedEvent(kRunClickCommand);
        if (input && !IsWindowVisible(input)) sbcSendIcon.PostDelayedEvent(kShowInput);
        return;
    }
    if (message != WM_LBUTTONDOWN || !input) return;
    const std::string line = ReadChatLine(input);
    switch (DecideSendClick(line, Options.FaderOn)) {
    case SendAction::PassOn:
        return;
    case SendAction::Command:
        SetChatLine(input, "");
        PendingCommand = line.substr(1);
        CommandPending = true;
        return;
    case SendAction::Fade:
        PutFadedLine(input, line);
        return;
    }
}
