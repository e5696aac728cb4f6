// Small platform services every window shares: a pause that keeps the
// interface live, the system folder, z-order, and opening help at a keyword.
// (The form placement helpers take a form and live with the window base.)
#pragma once

#include <windows.h>

#include <string>

// Returns once the millisecond tick count has moved `ms` on from the call,
// servicing every message as it arrives; an idle wait costs no CPU.
void Pause(double ms);

// Services every message already waiting (a modeless dialog gets its
// keyboard handling), then returns. One round of Pause. False when the
// program has been asked to quit: the quit is left in the queue for the
// program's own message loop, and waits end at once.
bool DoEvents();

// Services messages, sleeping between them, until `done()` is true or the
// program is quitting.
template <class Done>
void WaitUntil(Done done)
{
    for (;;) {
        if (!DoEvents()) return;
        if (done()) return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
    }
}

// The system folder (GetSystemDirectoryA), without a trailing backslash.
std::string GetSysDir();

// onTop -1: topmost; 0: not topmost; anything else: top of the non-topmost.
void SetWindowZOrder(HWND window, int onTop);

// The program's own folder, without a trailing backslash.
std::string AppPath();

// The help file RunWinHelp opens; start-up sets it, the default is
// the program folder + "\prismo.hlp".
void SetHelpFile(const std::string& path);
const std::string& HelpFile();

// Opens the help file at `keyword`. Unless noWait is True (-1), waits up to
// 10 seconds for the help window "Prismo!" and makes it topmost.
void RunWinHelp(HWND owner, const std::string& keyword, int noWait);

// Waits up to 10 seconds, servicing messages, for the help window
// ("MS_WINHELP" captioned "Prismo!") and makes it topmost; false when it
// did not come.
bool WaitForHelpWindow();

// Seconds since midnight on the local clock, as the program's 10-second
// waits measure them.
double SecondsSinceMidnight();
