// Tool tips over a form's controls: one tooltip window that belongs to the
// form and goes with the form's window.
#pragma once

#include <windows.h>

#include <string>

class ToolTips {
public:
    // Shows `text` over `control` of `form`; a second call for the control changes its text.
    void Set(HWND form, HWND control, const std::string& text);
    // The form's window has gone, and its tooltip window with it.
    void Forget() { window_ = nullptr; }

private:
    HWND window_ = nullptr;
};
