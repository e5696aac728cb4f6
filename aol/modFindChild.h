// Finding AOL's windows: class names and captions of direct children, texts
// read through window messages (which works across processes), and the
// ten-second waits for a window to appear.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

extern HWND AOLWindow;     // AOL's main window, class "AOL FRAME25"
extern HWND AOLMDIClient;  // its "MDIClient", parent of every AOL document window

// Class name and caption, at most 99 characters, trimmed.
std::string GetClass(HWND window);
std::string GetText(HWND window);

// A control's text read with WM_GETTEXTLENGTH/WM_GETTEXT. With `wait`, tries
// again (servicing events) until the trimmed text is not empty, for at most
// 10 seconds; then "" is returned. The text found is returned untrimmed.
std::string GetAPIText(HWND window, bool wait);

// The index-th direct child (from 1) whose class equals `className` ignoring
// case, or whose caption begins with `title` (a pattern, see AOLText.h);
// 0 when there are fewer, or at once when index is below 1.
HWND FindChildByClass(HWND parent, const std::string& className, int index = 1);
HWND FindChildByTitle(HWND parent, const std::string& title, int index = 1);

// Tries `find` until it gives a window or 10 seconds have passed, letting the
// program's events run between tries.
HWND WaitFor(const std::function<HWND()>& find);
// Each waits up to 10 seconds, servicing events, for a visible window:
// FindWindowA(className, caption); the first child of `className`; the
// first child whose caption begins with `title`. 0 when none came.
HWND WaitForWindow(const std::string& className, const std::string& caption);
HWND WaitForChildByClass(HWND parent, const std::string& className);
HWND WaitForChildByTitle(HWND parent, const std::string& title);
