// Working with the AOL beside us: its chat rooms and mail windows, the
// sign-on state and screen names, its toolbar and keywords.
#pragma once

#include <windows.h>

#include <string>

extern HWND ChatRoomWindow;  // the chat room last found by the watcher

// Where the AOL modules' messages to the user go; tests install their own.
class AOLMessageSink {
public:
    virtual ~AOLMessageSink() = default;
    // Tells the user `message` (markup) with the message box style `style`.
    virtual void Message(const std::string& message, long style) = 0;
};
// Installs the sink (not owned); with none installed messages go to ShowMsg.
void SetAOLMessageSink(AOLMessageSink* sink);
// Every message of the AOL modules goes through here.
void AOLMessage(const std::string& message, long style);

// The topmost child of `parent` of class `className` (ignoring case) that
// holds a people list, a rich-text control, a combo box and a caption-less
// picture button after the combo box; 0 when none does.
HWND FindChatRoom(HWND parent, const std::string& className);

// What TextToChat, and every sender of chat lines, tells when no chat room is open.
inline constexpr char kNoChatRoomMessage[] = "You must be in a ~B~CRchat room~B~CN to use this feature!";

// Puts `text` into the chat input of the current room. Mode 0: set the text;
// 1: hide the input, set the text and send; 2: set the text, wait 500 ms,
// send; any other mode only focuses the input.
void TextToChat(const std::string& text, short mode);

// `window` when it is a mail being written (a "_AOL_Checkbox", a
// "_AOL_FontCombo" and a "Send Later" button among its children), else 0.
HWND IsEMail(HWND window);

// The Australian edition: the toolbar's second button reads "e-mail centre".
bool IsAOLAU();
// Reads the UK, Canada and Australia flags of AOLEdition from AOL's menus
// and toolbar.
void DetectAOLEdition();

// Signed on? With showMessage, tells the user when not.
bool IsAOLOnline(bool showMessage);
// The six screen names while signed on (modLaunch32). True when slot 1 is
// the account's master name; false when only the name now signed on is known.
bool GetScreenNames();
// The six screen names from the sign-on screen's list in AOL's memory,
// waiting up to three rounds of ten seconds for the list. After the third
// round without it the user is told and the program ends (false where it
// cannot end); with `mayEndProgram` false it only returns false, the names as
// they were. When AOL's memory cannot be read the names stay as they were.
bool GetSignOnScreenNames(bool mayEndProgram = true);
std::string GetCurrentScreenName();

// Gives the keyboard focus to a window of AOL's (another program's thread).
void FocusWindowOfOtherThread(HWND window);

// The new mail open in AOL ("Write Mail", "Write e-mail" in Australia), or 0.
HWND FindWriteMail();
// Clicks AOL's write-mail button and returns the new mail window, or 0 when
// none appeared within 10 seconds.
HWND OpenEMail();
// Has AOL perform `keyword` (waol.exe -sKEYWORD).
void RunAOLKeyword(const std::string& keyword);
