// Finding AOL's windows by class and caption, and waiting for them.
#include "modFindChild.h"

#include <functional>

#include "AOLText.h"
#include "modWin32API.h"

HWND AOLWindow = nullptr;
HWND AOLMDIClient = nullptr;

namespace {
const double kWaitSeconds = 10;

// Seconds since `start` on the seconds-since-midnight clock, across midnight.
double SecondsSince(double start)
{
    double elapsed = SecondsSinceMidnight() - start;
    if (elapsed < 0) elapsed += 24 * 60 * 60;
    return elapsed;
}

HWND FindChild(HWND parent, int index, const std::function<bool(HWND)>& matches)
{
    if (index < 1) return nullptr;
    int count = 0;
    HWND current = GetWindow(parent, GW_CHILD);
    while (count < index && current) {
        if (matches(current)) ++count;
        if (count < index) current = GetWindow(current, GW_HWNDNEXT);
    }
    return current;
}
}  // namespace

HWND WaitFor(const std::function<HWND()>& find)
{
    const double start = SecondsSinceMidnight();
    for (;;) {
        HWND found = find();
        if (found) return found;
        if (SecondsSince(start) >= kWaitSeconds) return nullptr;
        Pause(10);
        if (!DoEvents()) return nullptr;  // the program is quitting: nothing more will come
    }
}

std::string GetClass(HWND window)
{
    char buffer[100];
    const int n = GetClassNameA(window, buffer, sizeof buffer);
    return TrimAOLText(std::string(buffer, n > 0 ? static_cast<size_t>(n) : 0));
}

std::string GetText(HWND window)
{
    char buffer[100];
    const int n = GetWindowTextA(window, buffer, sizeof buffer);
    return TrimAOLText(std::string(buffer, n > 0 ? static_cast<size_t>(n) : 0));
}

namespace {
std::string ReadControlText(HWND window)
{
    const LRESULT length = SendMessageA(window, WM_GETTEXTLENGTH, 0, 0);
    if (length <= 0) return "";
    std::string text(static_cast<size_t>(length) + 1, '\0');
    const LRESULT got = SendMessageA(window, WM_GETTEXT, static_cast<WPARAM>(length + 1),
                                     reinterpret_cast<LPARAM>(&text[0]));
    text.resize(got > 0 && got <= length ? static_cast<size_t>(got) : 0);
    return text;
}
}  // namespace

std::string GetAPIText(HWND window, bool wait)
{
    std::string text = ReadControlText(window);
    if (!wait) return text;
    const double start = SecondsSinceMidnight();
    while (TrimAOLText(text).empty()) {
        if (SecondsSince(start) >= kWaitSeconds) return "";
        Pause(10);
        text = ReadControlText(window);
    }
    return text;
}

HWND FindChildByClass(HWND parent, const std::string& className, int index)
{
    const std::string wanted = LowerAOLText(className);
    return FindChild(parent, index,
                     [&](HWND w) { return LowerAOLText(GetClass(w)) == wanted; });
}

HWND FindChildByTitle(HWND parent, const std::string& title, int index)
{
    return FindChild(parent, index,
                     [&](HWND w) { return CaptionMatchesTitle(GetText(w), title); });
}

HWND WaitForWindow(const std::string& className, const std::string& caption)
{
    return WaitFor([&]() -> HWND {
        HWND w = FindWindowA(className.c_str(), caption.c_str());
        return w && IsWindowVisible(w) ? w : nullptr;
    });
}

HWND WaitForChildByClass(HWND parent, const std::string& className)
{
    return WaitFor([&]() -> HWND {
        HWND w = FindWindowExA(parent, nullptr, className.c_str(), nullptr);
        return w && IsWindowVisible(w) ? w : nullptr;
    });
}

HWND WaitForChildByTitle(HWND parent, const std::string& title)
{
    return WaitFor([&]() -> HWND {
        HWND w = FindChildByTitle(parent, title);
        return w && IsWindowVisible(w) ? w : nullptr;
    });
}
