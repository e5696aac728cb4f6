// aolsimctl: drives a running AOL simulator from outside, the way a person or
// Prismo would reach it, and prints what it reads. Exit status 0 on success,
// 1 with a message on standard error otherwise.
#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr UINT WM_SIM_PING = WM_APP + 50;
constexpr UINT WM_SIM_PINGED = WM_APP + 51;
constexpr UINT WM_SIM_READY = WM_APP + 52;
constexpr ULONG_PTR kCtlMagic = 0x53494D43;
constexpr DWORD kTimeoutMs = 30000;

struct Reply {
    bool arrived = false;
    bool ok = false;
    std::string text;
};
Reply g_reply;

LRESULT CALLBACK ReplyProc(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) {
    if (msg == WM_COPYDATA) {
        const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        g_reply.arrived = true;
        g_reply.ok = data->dwData == 0;
        g_reply.text.assign(static_cast<const char*>(data->lpData), data->cbData);
        return TRUE;
    }
    return DefWindowProcA(hwnd, msg, wParam, lParam);
}

[[noreturn]] void Die(const std::string& message) {
    fprintf(stderr, "aolsimctl: %s\n", message.c_str());
    exit(1);
}

HWND FindSimulator() {
    HWND frame = FindWindowA("AOL FRAME25", nullptr);
    if (!frame) Die("AOL is not running (no \"AOL FRAME25\" window)");
    return frame;
}

// Sends one request; the simulator answers with WM_COPYDATA to our window
// before the send returns.
Reply Request(HWND frame, const std::vector<std::string>& args) {
    WNDCLASSEXA wc{};
    wc.cbSize = sizeof wc;
    wc.lpfnWndProc = ReplyProc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = "aolsimctl reply";
    RegisterClassExA(&wc);
    HWND replyWindow = CreateWindowExA(0, wc.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, wc.hInstance, nullptr);
    std::string payload(sizeof(std::uint64_t), '\0');
    const auto replyTo = static_cast<std::uint64_t>(reinterpret_cast<UINT_PTR>(replyWindow));
    memcpy(payload.data(), &replyTo, sizeof replyTo);
    for (const auto& arg : args) payload += arg + '\0';
    COPYDATASTRUCT data{kCtlMagic, (DWORD)payload.size(), payload.data()};
    g_reply = Reply{};
    DWORD_PTR result = 0;
    if (!SendMessageTimeoutA(frame, WM_COPYDATA, (WPARAM)replyWindow, (LPARAM)&data, SMTO_NORMAL, kTimeoutMs, &result))
        Die("AOL did not answer");
    DestroyWindow(replyWindow);
    if (!g_reply.arrived) Die("AOL did not understand the request (is it the simulator?)");
    return g_reply;
}

std::string Ask(HWND frame, const std::vector<std::string>& args) {
    Reply reply = Request(frame, args);
    if (!reply.ok) Die(reply.text);
    return reply.text;
}

HWND AskWindow(HWND frame, const std::string& which) {
    return reinterpret_cast<HWND>(static_cast<UINT_PTR>(std::stoull(Ask(frame, {"hwnd", which}), nullptr, 16)));
}

// Waits until the simulator has worked through everything posted to it so far:
// messages posted to one thread are handled in order, so once our ping is
// seen, the input before it has been handled too.
void WaitUntilHandled(HWND frame) {
    const long cookie = (long)(GetTickCount() ^ (GetCurrentProcessId() << 8)) & 0x7FFFFFFF;
    PostMessageA(frame, WM_SIM_PING, (WPARAM)cookie, 0);
    for (int tries = 0; tries < 3000; ++tries) {
        DWORD_PTR seen = 0;
        if (SendMessageTimeoutA(frame, WM_SIM_PINGED, 0, 0, SMTO_NORMAL, kTimeoutMs, &seen) && (long)seen == cookie)
            return;
        Sleep(10);
    }
    Die("AOL did not handle the input in time");
}

void PostChars(HWND frame, HWND target, const std::string& text) {
    for (unsigned char c : text) PostMessageA(target, WM_CHAR, c, 1);
    WaitUntilHandled(frame);
}

int KeyCode(const std::string& name) {
    if (name == "enter") return 13;
    if (name == "backspace") return 8;
    if (name == "tab") return 9;
    if (name == "ctrl-enter") return 10;
    Die("unknown key \"" + name + "\" (enter, backspace, tab or ctrl-enter)");
}

void Kill(HWND frame) {
    DWORD pid = 0;
    GetWindowThreadProcessId(frame, &pid);
    HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, pid);
    if (!process || !TerminateProcess(process, 9)) Die("cannot end AOL's process");
    WaitForSingleObject(process, 10000);
    CloseHandle(process);
}

void WaitForSimulator(int seconds) {
    for (int i = 0; i < seconds * 20; ++i) {
        HWND frame = FindWindowA("AOL FRAME25", nullptr);
        DWORD_PTR ready = 0;
        if (frame && SendMessageTimeoutA(frame, WM_SIM_READY, 0, 0, SMTO_ABORTIFHUNG, 1000, &ready) && ready) return;
        Sleep(50);
    }
    Die("AOL did not start");
}

// "--file PATH" in a mail-text, mail-paste or clipboard-set request becomes
// the file's contents: a long text does not fit on a command line.
std::vector<std::string> WithFileContents(std::vector<std::string> args) {
    for (std::size_t i = 1; i + 1 < args.size(); ++i) {
        if (args[i] != "--file") continue;
        FILE* file = fopen(args[i + 1].c_str(), "rb");
        if (!file) Die("cannot read " + args[i + 1]);
        std::string text;
        char buffer[65536];
        for (std::size_t got; (got = fread(buffer, 1, sizeof buffer, file)) > 0;) text.append(buffer, got);
        fclose(file);
        args.erase(args.begin() + (long)i);
        args[i] = text;
        break;
    }
    return args;
}

std::string JoinArgs(const std::vector<std::string>& args, std::size_t from) {
    std::string text;
    for (std::size_t i = from; i < args.size(); ++i) text += (i > from ? " " : "") + args[i];
    return text;
}

int Run(const std::vector<std::string>& args) {
    if (args.empty()) Die("usage: aolsimctl COMMAND [ARGUMENTS] (see sim/README.md)");
    const std::string& command = args[0];
    if (command == "wait") {
        WaitForSimulator(args.size() > 1 ? std::stoi(args[1]) : 20);
        return 0;
    }
    HWND frame = FindSimulator();
    if (command == "type") {
        if (args.size() < 2) Die("type needs a text");
        PostChars(frame, AskWindow(frame, "input"), JoinArgs(args, 1));
    } else if (command == "key") {
        if (args.size() < 2) Die("key needs a key name");
        PostChars(frame, AskWindow(frame, "input"), std::string(1, (char)KeyCode(args[1])));
    } else if (command == "mail-type") {
        if (args.size() < 2) Die("mail-type needs a text");
        PostChars(frame, AskWindow(frame, "mail-body"), JoinArgs(args, 1));
    } else if (command == "click-send") {
        HWND send = AskWindow(frame, "send");
        PostMessageA(send, WM_LBUTTONDOWN, MK_LBUTTON, 0);
        PostMessageA(send, WM_LBUTTONUP, 0, 0);
        WaitUntilHandled(frame);
    } else if (command == "mail-send") {
        if (args.size() < 2 || (args[1] != "now" && args[1] != "later")) Die("mail-send needs now or later");
        HWND send = AskWindow(frame, args[1] == "now" ? "send-now" : "send-later");
        PostMessageA(send, WM_LBUTTONDOWN, MK_LBUTTON, 0);
        PostMessageA(send, WM_LBUTTONUP, 0, 0);
        // The click, then the close the mail posts itself after it.
        WaitUntilHandled(frame);
        WaitUntilHandled(frame);
    } else if (command == "settle") {
        WaitUntilHandled(frame);
    } else if (command == "mail-text" || command == "mail-paste" || command == "clipboard-set") {
        Ask(frame, WithFileContents(args));
    } else if (command == "quit") {
        PostMessageA(frame, WM_CLOSE, 0, 0);
    } else if (command == "kill") {
        Kill(frame);
    } else {
        const std::string text = Ask(frame, args);
        fwrite(text.data(), 1, text.size(), stdout);
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    _setmode(_fileno(stdout), _O_BINARY);
    std::vector<std::string> args(argv + 1, argv + argc);
    try {
        return Run(args);
    } catch (const std::exception& e) {
        Die(e.what());
    }
}
