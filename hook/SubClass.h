// The program's side of prismosbc.dll: a SubClass object hooks one window of
// another process (AOL's chat input, send icon, main window) and hands its
// watched messages to the program before that window sees them.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

class SubClass {
public:
    // Runs synchronously while AOL waits, before the hooked window sees the
    // message. Setting noDefault swallows the message and `result` goes back
    // to its sender. Do only quick work here; post the rest.
    using MessageHandler = std::function<void(HWND window, UINT message, WPARAM wParam,
                                              LPARAM lParam, LRESULT& result, bool& noDefault)>;
    // Runs from the program's message loop after the hooked window's own
    // procedure has returned from the message during which it was posted.
    using DelayedHandler = std::function<void(LONG_PTR value)>;

    SubClass();
    ~SubClass();  // detaches
    SubClass(const SubClass&) = delete;
    SubClass& operator=(const SubClass&) = delete;

    // Hooks `window` for `messages` (at most 16); a window of 0 detaches.
    // One window per object: attaching elsewhere detaches the old one first;
    // attaching to the same window again makes its hook live again.
    // Returns false when the window could not be hooked.
    bool Attach(HWND window, const std::vector<UINT>& messages);
    HWND Window() const { return window_; }
    // Asks the DLL inside the hooked window's process whether the window's
    // watched messages still reach us (false after a time-out or when detached).
    bool Live();
    // Names the handler in the error report of a WndMessageX that fails.
    void ReportAs(std::string module, std::string procedure);

    // From inside WndMessageX: queue `value` for DelayedEvent.
    void PostDelayedEvent(LONG_PTR value);

    MessageHandler WndMessageX;
    DelayedHandler DelayedEvent;

private:
    friend class SbcHost;
    void Detach();

    HWND window_ = nullptr;
    DWORD thread_ = 0;
    std::vector<LONG_PTR> delayed_;  // posted during the message being handled
    std::vector<LONG_PTR> released_;  // waiting for the hooked window to return
    bool inMessage_ = false;
    std::string reportModule_ = "SubClass", reportProcedure_ = "WndMessageX";
};

// True when `window` is hooked and its watched messages still go to the
// program that hooked it (asked of the DLL inside the window's process).
bool SbcHookLive(HWND window);

// Runs `step` at once, or, while a hooked window waits for one of our
// handlers, right after that window's message has returned: nothing modal
// may keep AOL waiting.
void SbcRunAfterHookedMessage(std::function<void()> step);

// Menu work that must run inside the window's own process (another process
// may not touch its menus). Each returns false when the window did not
// answer or has no menu.
// One line per menu entry: "<level>\t<id>\t<caption>", level 0 for the menu
// bar's entries and 1 for the items of the menu under the last level-0 line.
bool SbcMenuDump(HWND window, std::string& dump);
// Inserts a popup into the menu bar at `position` (from 0); `description` is
// "P\t<caption>" ... "E" with "I\t<id>\t<caption>", "S" and nested "P" lines.
bool SbcMenuInsert(HWND window, unsigned position, const std::string& description);
bool SbcMenuDelete(HWND window, unsigned position);
// The state flags (MF_GRAYED, MF_CHECKED, ...) of the item with command `id`;
// false when no item carries it.
bool SbcMenuItemState(HWND window, unsigned id, unsigned& state);
