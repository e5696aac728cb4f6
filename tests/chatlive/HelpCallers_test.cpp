// Every place that opens help, live: prismo.exe beside the AOL simulator asks
// for prismo.hlp at its keyword, and the help window comes to the top. A help
// window of the test's own stands where winhlp32 would and reads each request
// as WinHelpA hands it over.
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

#include "ChatLiveFixture.h"

namespace ChatLive {
namespace {

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

class HelpCallersTest : public ChatLiveTest {
protected:
    void Menu(WPARAM command) { PostMessageA(sim_.Frame(), WM_COMMAND, command, 0); }
    // One of Prismo's windows opened from its menu in AOL, by the child it holds.
    HWND OpenFromMenu(WPARAM command, int childId)
    {
        Menu(command);
        HWND window = nullptr;
        PumpUntil([&] { return (window = WindowWithChild(prismo_.Id(), childId)) != nullptr; }, 15000);
        return window;
    }
    // Where Prismo's help file lies: beside prismo.exe.
    std::string HelpFileBesideProgram()
    {
        char full[MAX_PATH] = "";
        GetFullPathNameA(program_.c_str(), sizeof full, full, nullptr);
        const std::string path = full;
        return path.substr(0, path.find_last_of('\\')) + "\\prismo.hlp";
    }
};

TEST_F(HelpCallersTest, EveryCallerOpensTheHelpFileAtItsKeywordAndBringsItToTheTop)
{
    Start();
    StandInHelp help;
    ASSERT_TRUE(help.hwnd());
    ASSERT_EQ(FindWindowA("MS_WINHELP", nullptr), help.hwnd()) << "another help window is open";
    const std::string file = HelpFileBesideProgram();
    ASSERT_NE(GetFileAttributesA(file.c_str()), INVALID_FILE_ATTRIBUTES) << file;

    // Each caller: how it is asked, the window that asks, the keyword it asks for.
    struct Caller {
        const char* what;
        std::function<HWND()> ask;
        std::string keyword;
    };
    const std::vector<Caller> callers{
        {"Help, Table of Contents", [&] { Menu(62000); return panel_; }, "Table of Contents"},
        {"Help, Search for Help on...", [&] { Menu(62001); return panel_; }, ""},
        {"/help", [&] { EXPECT_EQ(Send("/help"), ""); return panel_; }, "Table of Contents"},
        {"the wizard's Help",
         [&] {
             HWND wizard = OpenFromMenu(60003, IDC_WZ_HELP);
             Press(wizard, IDC_WZ_HELP);
             return wizard;
         },
         "Import Settings"},
        {"the options' Help",
         [&] {
             HWND options = OpenFromMenu(60001, IDC_OP_HELP);
             Press(options, IDC_OP_HELP);
             return options;
         },
         "Options"},
        {"the about box's Help",
         [&] {
             HWND about = OpenFromMenu(60004, IDC_AB_HELP);
             Press(about, IDC_AB_HELP);
             return about;
         },
         "Table Of Contents"},
    };

    for (const Caller& caller : callers) {
        SCOPED_TRACE(caller.what);
        help.Reset();
        const size_t before = help.Requests().size();
        const HWND owner = caller.ask();
        ASSERT_TRUE(owner);
        ASSERT_TRUE(PumpUntil([&] { return help.Requests().size() > before; }, 15000)) << "no help request";
        // Prismo's wait finds the window once it carries the help file's caption.
        EXPECT_TRUE(PumpUntil([&] { return help.Topmost(); }, 15000)) << "the help window was not put on top";
        ASSERT_EQ(help.Requests().size(), before + 1);

        const HelpRequest& got = help.Requests().back();
        EXPECT_EQ(got.dwData, kWinHelpCopyData);
        EXPECT_EQ(got.caller, owner);
        ASSERT_TRUE(got.Whole()) << got.Hex();
        EXPECT_EQ(got.Header().size, got.bytes.size());
        EXPECT_EQ(got.Header().command, HELP_PARTIALKEY);
        EXPECT_EQ(lstrcmpiA(got.File().c_str(), file.c_str()), 0) << got.File() << " is not " << file;
        EXPECT_EQ(got.Keyword(), caller.keyword) << got.Hex();
    }
}

}  // namespace
}  // namespace ChatLive
