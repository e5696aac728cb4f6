// What the chat session's parts share: the one way to the program's other
// windows, putting a hidden chat input back on view, reading the chat line,
// and running a window procedure's step through the common error report.
#pragma once

#include <windows.h>

#include <exception>
#include <string>

#include "ErrorTrap.h"

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
    EMailFades,     // the scheme mailer, from the panel's E-Mail button
};

struct ProgramWindowRequest {
    ProgramWindow which;
    std::string text;
};

// Opens the window asked for; false when that window is not part of this
// build (the caller then leaves everything as it was).
bool OpenProgramWindow(const ProgramWindowRequest& request);

// Sees every request before it is carried out. For tests that check what
// would open without opening it.
class ProgramWindowObserver {
public:
    virtual ~ProgramWindowObserver() = default;
    // True keeps the request from being carried out.
    virtual bool Intercept(const ProgramWindowRequest& request) = 0;
};
// Puts `observer` before every request; nullptr removes it. The caller keeps it alive meanwhile.
void SetProgramWindowObserver(ProgramWindowObserver* observer);

// Holds a flag up while it lives.
class FlagUp {
public:
    explicit FlagUp(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagUp() { flag_ = false; }
    FlagUp(const FlagUp&) = delete;
    FlagUp& operator=(const FlagUp&) = delete;

private:
    bool& flag_;
};

// Shows the chat input again after we hid it to keep markup out of sight;
// AOL leaves a hidden input hidden.
void ShowChatInput(HWND input);

// The chat input's whole line (WM_GETTEXTLENGTH, then WM_GETTEXT).
std::string ReadChatLine(HWND input);

// Runs one step of a window procedure of the chat fader under the common
// error report, named by `procedure`: Retry runs it again, Ignore goes on,
// Abort ends the program. No exception leaves it.
template <class Step>
void RunTrapped(const char* procedure, Step&& step)
{
    ErrorTrap trap("frmChatTools", procedure);
    trap.Run([&] {
        try {
            step();
        } catch (const RuntimeError&) {
            throw;
        } catch (const std::exception& e) {
            throw RuntimeError(0, e.what());
        }
    });
}
