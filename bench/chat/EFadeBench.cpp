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
    // Prismo's part of one Apply Fade on `highlight`: press to wait window
    // gone, less the 500 ms pause, less AOL's editor time; -1 on failure.
    const auto ownPart = [&](const std::string& highlight, const char* what) {
        sim.Ctl("mail-text --file \"" + TempFile("efade-bench.txt", highlight) + "\"");
        sim.Ctl("mail-select 0 -1");
        const unsigned long aolBefore = EditorMs(sim);
        const DWORD pressed = GetTickCount();
        PostMessageA(bar, WM_COMMAND, MAKEWPARAM(IDC_EF_FADE, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(bar, IDC_EF_FADE)));
        if (!WaitClosely([&] { return WindowWithChild(prismo.Id(), IDC_FM_MSG) != nullptr; }, 60000) ||
            !WaitClosely([&] { return WindowWithChild(prismo.Id(), IDC_FM_MSG) == nullptr; }, 120000))
            return -1.0;
        const DWORD total = GetTickCount() - pressed;
        const unsigned long aol = EditorMs(sim) - aolBefore;
        const double own = static_cast<double>(total) - 500.0 - static_cast<double>(aol);
        std::printf("  %-34s %5lu ms in all, AOL's editor %4lu ms, Prismo's own part %5.1f ms\n", what,
                    static_cast<unsigned long>(total), aol, own);
        return own;
    };
    std::printf("Apply Fade, six colours, wavy (the engine makes %zu bytes of AOL HTML of 30,000 characters)\n",
                fadedSize);
    std::printf("  fade engine alone, 30,000 characters: %.1f ms\n", engine);
    const double first = ownPart(text, "30,000 characters (loads the wait window):");
    const double own = ownPart(text, "30,000 characters:");
    const double small = ownPart(text.substr(0, 30), "30 characters:");
    if (first < 0 || own < 0 || small < 0) return Fail("a fade never ended");
    std::printf("  Prismo's own part, 30,000 characters: %.1f ms = %.2f x the engine alone (limit 3)\n", own,
                own / engine);
    std::printf("  of which grows with the text (30,000 less 30 characters): %.1f ms = %.2f x the engine\n",
                own - small, (own - small) / engine);
    prismo.Kill();
    sim.Stop();
    return own <= 3 * engine ? 0 : 1;
}
