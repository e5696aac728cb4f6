// What Apply Fade costs, measured in one run beside the AOL simulator: a
// 30,000-character highlight faded in six colours, wavy. The fade engine
// alone (in this process), then Apply Fade from the press to the wait window
// gone, with the time AOL's editor spent on the copy and the paste (as the
// simulator's editor-times tell it). Prismo's own part is the whole less the
// 500 ms pause less AOL's time. Prints the figures.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "ChatLive.h"
#include "Options.h"
#include "modFade.h"
#include "resource.h"

using namespace ChatLive;

namespace {

const ColorValue kColors[6] = {255, 33023, 65535, 65280, 16711680, 8388736};

std::string Highlight()
{
    std::string text;
    const std::string words = "the quick brown fox jumps over the lazy dog ";
    while (text.size() < 30000) text += words;
    text.resize(30000);
    return text;
}

// The engine alone: the best of five runs, in milliseconds.
double EngineMs(const std::string& text, size_t& fadedSize)
{
    Options.FadeNumber = 6;
    for (int i = 0; i < 6; ++i) Options.Colors[static_cast<size_t>(i)] = kColors[i];
    Options.Wavy = true;
    LARGE_INTEGER frequency, start, end;
    QueryPerformanceFrequency(&frequency);
    double best = 1e9;
    for (int run = 0; run < 5; ++run) {
        std::string faded = text;
        QueryPerformanceCounter(&start);
        FadeEngine(faded);
        QueryPerformanceCounter(&end);
        fadedSize = faded.size();
        best = std::min(best, 1000.0 * static_cast<double>(end.QuadPart - start.QuadPart) / frequency.QuadPart);
    }
    return best;
}

// AOL's editor time for the copy (20002) and the paste (20003), in ms.
unsigned long EditorMs(SimAOL& sim)
{
    unsigned long total = 0;
    for (const std::string& line : Lines(sim.Ctl("editor-times"))) {
        const std::string id = line.substr(0, line.find('\t'));
        if (id != "20002" && id != "20003") continue;
        char* rest = nullptr;
        const unsigned long start = std::strtoul(line.c_str() + id.size() + 1, &rest, 10);
        const unsigned long end = std::strtoul(rest, nullptr, 10);
        total += end - start;
    }
    return total;
}

// Waits for `done`, looking every millisecond: the end of a fade is timed
// closer than the tests' pace of looking allows.
template <class Done>
bool WaitClosely(Done done, DWORD ms)
{
    const DWORD start = GetTickCount();
    while (!done()) {
        if (GetTickCount() - start > ms) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_ALLINPUT);
    }
    return true;
}

int Fail(const char* why)
{
    std::printf("efade benchmark failed: %s\n", why);
    return 1;
}

}  // namespace

int main()
{
    EndEveryAOL();
    FreshSettings(SimFolder() + "aol40");
    SetOption("E-Fade", "ShowEFToolbar", "True");
    SetOption("Colors", "Fade Number", "6");
    const char* names[6] = {"One", "Two", "Three", "Four", "Five", "Six"};
    for (int i = 0; i < 6; ++i) SetOption("Colors", names[i], std::to_string(kColors[i]));
    SetOption("Style", "Wavy", "True");

    const std::string text = Highlight();
    size_t fadedSize = 0;
    const double engine = EngineMs(text, fadedSize);

    SimAOL sim;
    TestProcess prismo;
    if (!sim.Start("40", "--signed-on \"Zun Tester\" --mail")) return Fail("the simulator did not start");
    if (!prismo.Start("\"" + Prismo() + "\"")) return Fail("prismo.exe did not start");
    HWND bar = nullptr;
    if (!PumpUntil([&] { return (bar = WindowWithChild(prismo.Id(), IDC_EF_FADE)) != nullptr; }, 60000))
        return Fail("the toolbar never came");
    // Twice: the first press also loads the wait window.
    DWORD total = 0;
    unsigned long aol = 0;
    for (int press = 0; press < 2; ++press) {
        sim.Ctl("mail-text --file \"" + TempFile("efade-bench.txt", text) + "\"");
        sim.Ctl("mail-select 0 -1");
        const unsigned long aolBefore = EditorMs(sim);
        const DWORD pressed = GetTickCount();
        PostMessageA(bar, WM_COMMAND, MAKEWPARAM(IDC_EF_FADE, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(bar, IDC_EF_FADE)));
        if (!WaitClosely([&] { return WindowWithChild(prismo.Id(), IDC_FM_MSG) != nullptr; }, 60000))
            return Fail("the wait window never came");
        if (!WaitClosely([&] { return WindowWithChild(prismo.Id(), IDC_FM_MSG) == nullptr; }, 120000))
            return Fail("the wait window never went");
        total = GetTickCount() - pressed;
        aol = EditorMs(sim) - aolBefore;
        std::printf("  press %d: %lu ms from press to wait window gone, AOL's editor %lu ms\n", press + 1,
                    static_cast<unsigned long>(total), aol);
    }
    const double own = static_cast<double>(total) - 500.0 - static_cast<double>(aol);

    std::printf("30,000 characters, six colours, wavy: %zu bytes of AOL HTML; the mail's body now %zu bytes\n",
                fadedSize, sim.Ctl("mail-body").size());
    std::printf("  fade engine alone:                 %8.1f ms\n", engine);
    std::printf("  Apply Fade (second press):         %8lu ms\n", static_cast<unsigned long>(total));
    std::printf("  AOL's editor (copy and paste):     %8lu ms\n", aol);
    std::printf("  Prismo's own part (- 500 ms pause): %7.1f ms = %.2f x the engine alone (limit 3)\n", own,
                own / engine);
    prismo.Kill();
    sim.Stop();
    return own <= 3 * engine ? 0 : 1;
}
