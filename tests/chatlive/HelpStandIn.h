// A help window of a test's own: a top-level "MS_WINHELP" window stands
// where winhlp32 would and keeps each request WinHelpA hands it.
#pragma once

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace ChatLive {

// What WinHelpA copies to the help window: this header, then the file name
// and the keyword, each ended by a zero, at the offsets it gives (from the
// header's start; an empty keyword is one zero). `data` carries a number
// only for the numeric commands, and `reserved` is left as it was.
struct WinHelpHeader {
    WORD size;
    WORD command;
    LONG data;
    LONG reserved;
    WORD ofsFilename;
    WORD ofsData;
};
constexpr ULONG_PTR kWinHelpCopyData = 0xA1DE505;  // WM_COPYDATA's dwData for a help request

// One request as it arrived: who asked, and its copied bytes.
struct HelpRequest {
    ULONG_PTR dwData = 0;
    HWND caller = nullptr;
    std::string bytes;

    bool Whole() const { return bytes.size() >= sizeof(WinHelpHeader); }
    WinHelpHeader Header() const
    {
        WinHelpHeader header{};
        if (Whole()) std::memcpy(&header, bytes.data(), sizeof header);
        return header;
    }
    // The text at `offset`; "(none)" when the offset is 0 or leads outside the bytes.
    std::string TextAt(WORD offset) const
    {
        if (offset == 0 || offset >= bytes.size()) return "(none)";
        return std::string(bytes.c_str() + offset);
    }
    std::string File() const { return TextAt(Header().ofsFilename); }
    std::string Keyword() const { return TextAt(Header().ofsData); }
    std::string Hex() const
    {
        std::string out;
        char two[4];
        for (unsigned char c : bytes) {
            std::snprintf(two, sizeof two, "%02x ", c);
            out += two;
        }
        return out;
    }
};

// A top-level "MS_WINHELP" window of this process. WinHelpA gives its request
// to the first such window it finds, so Prismo talks to this one; like
// winhlp32 it then takes the help file's caption, "Prismo!".
class StandInHelp {
public:
    StandInHelp()
    {
        WNDCLASSA wc{};
        wc.lpfnWndProc = Proc;
        wc.hInstance = GetModuleHandleA(nullptr);
        wc.lpszClassName = kClass;
        RegisterClassA(&wc);
        hwnd_ = CreateWindowExA(0, kClass, "Help", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 600, 400, 300, 200, nullptr,
                                nullptr, wc.hInstance, this);
    }
    ~StandInHelp()
    {
        DestroyWindow(hwnd_);
        UnregisterClassA(kClass, GetModuleHandleA(nullptr));
    }
    StandInHelp(const StandInHelp&) = delete;
    StandInHelp& operator=(const StandInHelp&) = delete;

    HWND hwnd() const { return hwnd_; }
    // Back to a window no one has asked yet: another caption, not topmost.
    void Reset()
    {
        SetWindowTextA(hwnd_, "Help");
        SetWindowPos(hwnd_, HWND_NOTOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    }
    bool Topmost() const { return (GetWindowLongA(hwnd_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }
    const std::vector<HelpRequest>& Requests() const { return requests_; }

private:
    static constexpr const char* kClass = "MS_WINHELP";

    static LRESULT CALLBACK Proc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam)
    {
        if (msg == WM_NCCREATE) {
            auto* self = static_cast<StandInHelp*>(reinterpret_cast<CREATESTRUCTA*>(lParam)->lpCreateParams);
            SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        }
        auto* self = reinterpret_cast<StandInHelp*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
        if (msg == WM_COPYDATA && self) {
            const auto* copy = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
            self->requests_.push_back({copy->dwData, reinterpret_cast<HWND>(wParam),
                                       std::string(static_cast<const char*>(copy->lpData), copy->cbData)});
            SetWindowTextA(hwnd, "Prismo!");
            return TRUE;
        }
        return DefWindowProcA(hwnd, msg, wParam, lParam);
    }

    HWND hwnd_ = nullptr;
    std::vector<HelpRequest> requests_;
};

}  // namespace ChatLive
