// Measures what the hook costs a person typing into AOL's chat input: the
// same keys are posted to the simulator's input unhooked and through the
// hook (with a handler that lets every key pass), alternating blocks in one
// run, and the times per key and their ratio are printed. Then what a hung
// program costs AOL: the first key held up to the hook's timeout, and the
// keys after it, which the hook passes on without asking.
// Run under Wine from the build's tests/aol folder: wine hook_bench.exe
#include <windows.h>

#include <cstdio>
#include <string>

#include "SimHarness.h"
#include "SubClass.h"

namespace {
const int kKeysPerLine = 40;
const int kLinesPerBlock = 25;

// Posts the keys of kLinesPerBlock lines and waits until the input holds
// each line; returns the milliseconds taken.
DWORD TypeBlock(HWND input)
{
    const DWORD start = GetTickCount();
    for (int line = 0; line < kLinesPerBlock; ++line) {
        SendMessageA(input, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(""));
        for (int k = 0; k < kKeysPerLine; ++k) PostMessageA(input, WM_CHAR, 'a' + k % 26, 1);
        if (!PumpUntil([&] { return SendMessageA(input, WM_GETTEXTLENGTH, 0, 0) >= kKeysPerLine; },
                       20000)) {
            std::printf("the input did not fill up\n");
            return 0;
        }
    }
    return GetTickCount() - start;
}

// Milliseconds until the input holds one more character after `key` is posted.
DWORD TypeOne(HWND input, char key)
{
    const LRESULT before = SendMessageA(input, WM_GETTEXTLENGTH, 0, 0);
    const DWORD start = GetTickCount();
    PostMessageA(input, WM_CHAR, static_cast<WPARAM>(key), 1);
    PumpUntil([&] { return SendMessageA(input, WM_GETTEXTLENGTH, 0, 0) > before; }, 20000);
    return GetTickCount() - start;
}

// The hooks held by sbcholder.exe, which hangs: AOL waits once, then not again.
void HungProgram(SimAOL& sim, HWND input)
{
    auto hex = [](HWND w) {
        char text[32];
        std::snprintf(text, sizeof text, "%llx", static_cast<unsigned long long>(reinterpret_cast<ULONG_PTR>(w)));
        return std::string(text);
    };
    HANDLE ready = CreateEventA(nullptr, TRUE, FALSE, "PrismoSbcHolderReady");
    ResetEvent(ready);
    TestProcess holder("\"" + TestFolder() + "..\\hook\\sbcholder.exe\" hang " + hex(input) + " " +
                       hex(sim.Handle("send")) + " " + hex(sim.Frame()));
    if (WaitForSingleObject(ready, 15000) != WAIT_OBJECT_0) {
        std::printf("the hook holder did not start\n");
        CloseHandle(ready);
        return;
    }
    SendMessageA(input, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(""));
    const DWORD first = TypeOne(input, 'a');
    DWORD rest = 0;
    for (int k = 0; k < kKeysPerLine; ++k) rest += TypeOne(input, 'b');
    std::printf("program hung: first key %lu ms (the hook's timeout), then %.1f ms per key\n",
                static_cast<unsigned long>(first), static_cast<double>(rest) / kKeysPerLine);
    CloseHandle(ready);
}
}  // namespace

int main()
{
    SimAOL sim;
    if (!sim.Start("40", "--room Bench")) {
        std::printf("could not start the simulator in %s\n", SimFolder().c_str());
        return 1;
    }
    HWND input = sim.Handle("input");
    SubClass chatEdit;
    long handled = 0;
    chatEdit.WndMessageX = [&](HWND, UINT, WPARAM, LPARAM, LRESULT&, bool&) { ++handled; };

    DWORD plain = 0, hooked = 0;
    TypeBlock(input);  // warm-up
    for (int round = 0; round < 4; ++round) {
        plain += TypeBlock(input);
        if (!chatEdit.Attach(input, {WM_CHAR})) {
            std::printf("could not hook the chat input\n");
            return 1;
        }
        hooked += TypeBlock(input);
        chatEdit.Attach(nullptr, {});
    }
    const double keys = 4.0 * kLinesPerBlock * kKeysPerLine;
    std::printf("keys typed each way:   %.0f (handler saw %ld)\n", keys, handled);
    std::printf("unhooked:  %6lu ms  %8.1f us per key\n", static_cast<unsigned long>(plain),
                1000.0 * plain / keys);
    std::printf("hooked:    %6lu ms  %8.1f us per key\n", static_cast<unsigned long>(hooked),
                1000.0 * hooked / keys);
    if (plain) std::printf("ratio hooked/unhooked: %.2f\n", static_cast<double>(hooked) / plain);
    HungProgram(sim, input);
    sim.Stop();
    return 0;
}
