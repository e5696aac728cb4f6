// The chat fader's fixed words and decisions, apart from any window: the chat
// command words, what a sent line becomes, when the input line is full, the
// advertisement's five lines, the commands of the program's AOL menu, and the
// names by which other programs find the running chat session.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Maker.h"

// The chat session's hidden window (its class name) and the registered
// messages it answers: the number of watcher ticks done so far, and 1 while a
// chat or menu command (an advertisement, say) is still running, so that a
// program beside Prismo can wait for the watcher's next look at AOL or for a
// command to finish.
inline constexpr char kChatSessionClass[] = "PrismoChatSession";
inline constexpr char kChatSessionCaption[] = "Prismo Chat Session";
inline constexpr char kWatcherTicksMessage[] = "Prismo.WatcherTicks";
inline constexpr char kCommandRunningMessage[] = "Prismo.CommandRunning";
// Only the Windows test build answers these, to make faults a user's machine
// brings happen on cue: wParam milliseconds of holding the next hooked
// message; the next wParam attaches of the watcher failing; the next look at
// AOL's menu messages failing with a run-time error; the chat input hook held
// off (wParam 1) or resumed (0). And which hooks are live now, as the DLL
// inside AOL tells: 1 the chat input's, 2 the send icon's, 4 the main window's.
inline constexpr char kTestHooksLiveMessage[] = "Prismo.TestHooksLive";
inline constexpr char kTestHoldOffChatInputMessage[] = "Prismo.TestHoldOffChatInput";
inline constexpr char kTestHoldMessage[] = "Prismo.TestHoldHookedMessage";
inline constexpr char kTestFailAttachMessage[] = "Prismo.TestFailAttach";
inline constexpr char kTestFailMenuHookMessage[] = "Prismo.TestFailMenuHook";

// ---- Chat commands ("/" + word typed into the chat input) ----

enum class ChatCommand {
    Help,       // the help file at "Table of Contents"
    Advertise,  // the five-line advertisement
    Updates,    // the version check window
    Show,       // show the control panel
    Hide,       // hide the control panel
    FadeOn,
    FadeOff,
    Options,    // the options window
    Multiline,  // the multiline window, empty, Insert button shown
    Keyword,    // anything else: the whole text is an AOL keyword
};

// The text lower-cased and trimmed, with every space removed ("Fade On" ->
// "fadeon").
std::string CommandWord(const std::string& text);
// The command a text (without its slash) names.
ChatCommand CommandFor(const std::string& text);

// The help topic the help command and the menu's contents item open.
inline constexpr char kHelpContentsTopic[] = "Table of Contents";

// ---- A line being sent ----

// Blanks (spaces) removed from both ends.
std::string TrimBlanks(const std::string& text);

// "/a/b" is chat, not a command: a slash line holding a further slash, unless
// it holds "http://" (then it is a command that AOL opens as a keyword).
bool IsSlashChat(const std::string& line);

enum class SendAction {
    PassOn,   // the gesture goes on to AOL with the line as typed
    Command,  // empty the input and run the line minus its slash
    Fade,     // fade the line and send the faded text
};

// Enter in the chat input: slash commands only with "Use Chat KW" on.
SendAction DecideEnter(const std::string& line, bool useChatKW, bool faderOn);
// A click on the send icon: a slash line is always a command.
SendAction DecideSendClick(const std::string& line, bool faderOn);

// Should the character `ch`, typed into a line of `length` characters, move
// the line into the multiline window? The full length is "Chars In Line"
// (compared as 16 bits) with the fader on, 85 with it off; backspace, tab,
// line feed and Enter never do; a line already longer never does.
bool IsFullLine(long length, int ch, bool faderOn, std::int32_t charsInLine);
inline constexpr long kFullLineFaderOff = 85;

// ---- The advertisement ----

// The five lines, in the order they are posted; bytes in the ANSI code page.
std::vector<std::string> AdvertLines();

// ---- The program's AOL menu ----

enum class MenuCommand {
    None,          // not ours: AOL's own command
    ControlPanel,  // 60000
    Options,       // 60001
    Advertise,     // 60002
    Wizard,        // 60003
    About,         // 60004
    Exit,          // 60005
    Updates,       // 60006
    HelpContents,  // 62000
    HelpSearch,    // 62001
    OnlineSupport, // 62002
};
MenuCommand MenuCommandFor(long id);

// AOL's exit command on its File menu.
inline constexpr long kAOLExitCommand = 8207;
// The delayed values that mean "AOL is closing": its close box and its exit
// command. Below zero, so that no menu command's id is taken for them.
inline constexpr long kCloseBoxEvent = -1;
inline constexpr long kExitCommandEvent = -2;

// The messages on AOL's main window the menu hook tells apart, as the window
// side names them to this file.
enum class MenuHookMessage {
    Close,    // the close box, or a close sent to the window
    Command,  // a menu or accelerator command; its id comes with it
    Other,
};

// What the menu hook does with a message on AOL's main window.
struct MenuHookAction {
    bool swallow = false;     // AOL does not see the message
    bool post = false;        // run the delayed part with `value`
    long value = 0;
    bool setClosing = false;  // AOL's own exit command: let the next close through
};
MenuHookAction DecideMenuMessage(MenuHookMessage message, std::uintptr_t commandId, bool aolClosing);
// Does a delayed value close AOL (and so unhook the program)?
bool IsClosingEvent(long value);

// The support page the menu's online support item opens as an AOL keyword.
std::string OnlineSupportKeyword();

// ---- One thing at a time ----

// What becomes of a command asked for while another command, an
// advertisement or a watcher tick is under way (and may be waiting).
enum class WhileBusy {
    Ignore,          // dropped: it would run inside the other one's wait
    RunNow,          // quick and the user's to decide: carried out at once
    HoldUntilDone,   // ends the program: carried out once the other one has ended
};
// Chat commands: only the fader's On and Off, and only during an advertisement.
WhileBusy ChatCommandWhileBusy(ChatCommand command, bool advertising);
// Menu commands: the control panel comes at once, Exit is held, the rest are dropped.
WhileBusy MenuCommandWhileBusy(MenuCommand command);
// The fader once an advertisement is over: the stored "Fader On" when it
// changed meanwhile (the user chose On or Off), else as it was before.
bool FaderAfterAdvert(bool wasOn, const std::string& storedBefore, const std::string& storedAfter);
