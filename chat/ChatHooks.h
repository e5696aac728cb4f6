// What the chat hooks, chat commands, watcher and AOL menu commands share:
// the one way to the program's other windows, the delayed work of the send
// hooks, and putting a hidden chat input back on view.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

class frmChatTools;

// The program's windows that chat commands and the AOL menu open. Each one
// lands in OpenProgramWindow by adding its case there.
enum class ProgramWindow {
    Options,        // the options window
    Wizard,         // the backup wizard
    About,          // the about box
    VersionCheck,   // loaded and unloaded again: the check runs while it loads
    Help,           // the help file at `text` (the topic)
    Multiline,      // the multiline window, loaded on first use, with `text`, Insert hidden
    MultilineInsert,  // the multiline window's Insert button made visible
    EMailToolbar,   // the e-mail fader toolbar for EMailWindow, shown without activating
    EMailToolbarUnload,
};

struct ProgramWindowRequest {
    ProgramWindow which;
    std::string text;
};

// Opens the window asked for; false when that window is not part of this
// build (the caller then leaves everything as it was).
bool OpenProgramWindow(const ProgramWindowRequest& request);

// Sees every request before it is carried out; returning true stops it there.
// For tests that check what would open without opening it.
using ProgramWindowObserver = std::function<bool(const ProgramWindowRequest&)>;
void SetProgramWindowObserver(ProgramWindowObserver observer);

// Gives the send hooks their delayed part (running a command after AOL has
// handled the key or click). Safe to call again.
void WireChatHooks(frmChatTools& panel);

// Shows the chat input again after we hid it to keep markup out of sight;
// AOL leaves a hidden input hidden.
void ShowChatInput(HWND input);

// The chat input's whole line (WM_GETTEXTLENGTH, then WM_GETTEXT).
std::string ReadChatLine(HWND input);

// Carries out one command of the program's AOL menu (after AOL has handled
// the menu message).
enum class MenuCommand;
void RunMenuCommand(frmChatTools& panel, MenuCommand command);
