// Measures what the hook costs a person typing into AOL's chat input: the
// same keys are posted to the simulator's input unhooked and through the
// hook (with a handler that lets every key pass), alternating blocks in one
// run, and the times per key and their ratio are printed.
// Run under Wine from the build's tests/aol folder: wine hook_bench.exe
#include <windows.h>

#include <cstdio>

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
    sim.Stop();
    return 0;
}
