// Helpers for the tests that drive the program's real windows: finding a
// shown dialog and its buttons, clicking, and running steps from a timer
// while the code under test waits.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "ProgramInfo.h"

// The top-level window of this thread captioned `caption`, if shown.
inline HWND FindShown(const std::string& caption)
{
    HWND hwnd = FindWindowA(nullptr, caption.c_str());
    return hwnd && IsWindowVisible(hwnd) ? hwnd : nullptr;
}

inline std::string TextOf(HWND hwnd)
{
    char text[256] = "";
    GetWindowTextA(hwnd, text, sizeof text);
    return text;
}

// Clicks a button the way the mouse does, through its message queue.
inline void Click(HWND button) { PostMessageA(button, BM_CLICK, 0, 0); }

// Runs `step` every `ms` from the thread's message loop until it returns
// true; the code under test services the messages.
class TimerSteps {
public:
    TimerSteps(UINT ms, std::function<bool()> step) : step_(std::move(step))
    {
        current_ = this;
        id_ = SetTimer(nullptr, 0, ms, Tick);
    }
    ~TimerSteps()
    {
        KillTimer(nullptr, id_);
        current_ = nullptr;
    }
    TimerSteps(const TimerSteps&) = delete;
    TimerSteps& operator=(const TimerSteps&) = delete;

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR id, DWORD)
    {
        if (!current_ || current_->done_) return;
        if (current_->step_()) {
            current_->done_ = true;
            KillTimer(nullptr, id);
        }
    }
    inline static TimerSteps* current_ = nullptr;
    std::function<bool()> step_;
    UINT_PTR id_ = 0;
    bool done_ = false;
};
