// Small platform services every window shares: a pause that keeps the
// interface live, the system folder, z-order, and opening help at a keyword.
// (The form placement helpers take a form and live with the window base.)
#pragma once

#include <windows.h>

#include <string>

// Returns once the millisecond tick count has moved `ms` on from the call,
// servicing every message as it arrives; an idle wait costs no CPU.
void Pause(double ms);

// The system folder (GetSystemDirectoryA), without a trailing backslash.
std::string GetSysDir();

// onTop -1: topmost; 0: not topmost; anything else: top of the non-topmost.
void SetWindowZOrder(HWND window, int onTop);
