// How the multiline sender keeps its pace and what it costs, measured in one
// run beside the AOL simulator: ten lines with a burst of 1.5 s timed by the
// room itself (when the first went, the gaps, the whole), the program's CPU
// time meanwhile, and fifty faded lines sent by the multiline window against
// fifty sent one by one with Enter through the chat hook. Prints the figures.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "ChatLive.h"
#include "resource.h"

using namespace ChatLive;

namespace {

double Seconds(const FILETIME& t) { return (static_cast<double>(t.dwHighDateTime) * 4294967296.0 + t.dwLowDateTime) / 1e7; }

// User and kernel time the process has used so far, in seconds.
double CpuSeconds(HANDLE process)
{
    FILETIME created, ended, kernel, user;
    if (!GetProcessTimes(process, &created, &ended, &kernel, &user)) return 0;
    return Seconds(kernel) + Seconds(user);
}

std::vector<unsigned long> PostTimes(SimAOL& sim)
{
    std::vector<unsigned long> times;
    for (const std::string& line : Lines(sim.Ctl("post-times"))) times.push_back(std::strtoul(line.c_str(), nullptr, 10));
    return times;
}

class Bench {
public:
    bool Start()
    {
        if (!sim_.Start("40", "--signed-on \"Zun Tester\" --room \"Town Square\"")) return Fail("the simulator did not start");
        if (!prismo_.Start("\"" + Prismo() + "\"")) return Fail("prismo.exe did not start");
        PumpUntil([&] { return WindowWithChild(prismo_.Id(), IDC_CT_PREVIEW, false) != nullptr; }, 60000);
        if (!PumpUntil([&] { return sim_.Ctl("subclassed").find("input\tsubclassed\n") != std::string::npos; }, 20000))
            return Fail("prismo.exe never hooked the chat room");
        process_ = OpenProcess(PROCESS_QUERY_INFORMATION | SYNCHRONIZE, FALSE, prismo_.Id());
        return true;
    }
    ~Bench()
    {
        if (process_) CloseHandle(process_);
    }

    // Opens the window by "/multiline", puts `text` in and presses Send;
    // returns the tick count of the press, 0 on failure.
    DWORD PressSend(const std::string& text)
    {
        HWND input = sim_.Handle("input");
        SendMessageA(input, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("/multiline"));
        PostMessageA(input, WM_CHAR, 13, 0);
        if (!PumpUntil([&] { return (window_ = WindowWithChild(prismo_.Id(), IDC_ML_CHAT)) != nullptr; }, 15000))
            return 0;
        SendMessageA(GetDlgItem(window_, IDC_ML_CHAT), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
        const DWORD pressed = GetTickCount();
        PostMessageA(window_, WM_COMMAND, MAKEWPARAM(IDC_ML_SEND, BN_CLICKED), 0);
        return pressed;
    }
    // True once the window has gone and the program says its send is over.
    bool SendOver()
    {
        return PumpUntil([&] { return !IsWindow(window_) || !IsWindowVisible(window_); }, 300000) &&
               PumpUntil([&] { return !CommandRunning(prismo_.Id()); }, 30000);
    }
    // Milliseconds for `count` faded lines sent one by one with Enter, each
    // until the room has it.
    double HookSends(int count, const std::string& line)
    {
        HWND input = sim_.Handle("input");
        HWND transcript = FindWindowExA(GetParent(input), nullptr, "RICHCNTL", nullptr);
        const DWORD start = GetTickCount();
        for (int i = 0; i < count; ++i) {
            SendMessageA(input, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(line.c_str()));
            const LRESULT before = SendMessageA(transcript, WM_GETTEXTLENGTH, 0, 0);
            PostMessageA(input, WM_CHAR, 13, 0);
            PumpUntil([&] { return SendMessageA(transcript, WM_GETTEXTLENGTH, 0, 0) != before; }, 10000);
        }
        return GetTickCount() - start;
    }
    bool Fail(const char* why)
    {
        std::fprintf(stderr, "%s\n", why);
        return false;
    }

    SimAOL sim_;
    TestProcess prismo_;
    HANDLE process_ = nullptr;
    HWND window_ = nullptr;
};

std::string LinesOf(int count, const std::string& line)
{
    std::string text;
    for (int i = 0; i < count; ++i) text += line + "\r\n";
    return text;
}

int Paced()
{
    Bench bench;
    if (!bench.Start()) return 1;
    const int count = 10;
    const double burst = 1500;
    const size_t before = PostTimes(bench.sim_).size();
    const double cpuBefore = CpuSeconds(bench.process_);
    const DWORD pressed = bench.PressSend(LinesOf(count, "a line paced by the burst"));
    if (!pressed || !bench.SendOver()) return bench.Fail("the paced send never ended") ? 0 : 1;
    const DWORD over = GetTickCount();
    const double cpu = CpuSeconds(bench.process_) - cpuBefore;
    const std::vector<unsigned long> all = PostTimes(bench.sim_);
    if (all.size() != before + count) {
        std::fprintf(stderr, "the room got %zu lines, not %d\n", all.size() - before, count);
        return 1;
    }
    std::vector<double> gaps;
    for (size_t i = before + 1; i < all.size(); ++i) gaps.push_back(static_cast<double>(all[i] - all[i - 1]));
    std::vector<double> sorted = gaps;
    std::sort(sorted.begin(), sorted.end());
    double worst = 0;
    for (double gap : gaps) worst = std::max(worst, std::abs(gap - burst));
    const double first = static_cast<double>(all[before] - pressed);
    const double total = static_cast<double>(all.back() - pressed);
    std::printf("%d lines, burst 1.5 s: first line %.0f ms after Send (at least 1500)\n", count, first);
    std::printf("  gaps: shortest %.0f ms, median %.0f ms, longest %.0f ms; worst deviation from 1500 ms: %.0f ms\n",
                sorted.front(), sorted[sorted.size() / 2], sorted.back(), worst);
    std::printf("  Send to last line %.0f ms = %.3f x (10 x 1.5 s)\n", total, total / (count * burst));
    const double wall = static_cast<double>(over - pressed) / 1000;
    std::printf("  prismo.exe CPU during the send: %.3f s of %.3f s wall = %.1f%%\n", cpu, wall, 100 * cpu / wall);
    return 0;
}

int BackToBack()
{
    SetOption("Multiline", "Multiline Burst", "0");
    Bench bench;
    if (!bench.Start()) return 1;
    const int count = 50;
    const std::string line = "fifty faded lines, one after another, as fast as AOL";
    bench.HookSends(5, line);  // warm up
    const size_t before = PostTimes(bench.sim_).size();
    const DWORD pressed = bench.PressSend(LinesOf(count, line));
    if (!pressed || !bench.SendOver()) return bench.Fail("the burst-0 send never ended") ? 0 : 1;
    const std::vector<unsigned long> all = PostTimes(bench.sim_);
    if (all.size() != before + count) {
        std::fprintf(stderr, "the room got %zu lines, not %d\n", all.size() - before, count);
        return 1;
    }
    const double multiline = static_cast<double>(all.back() - pressed);
    const double hooked = bench.HookSends(count, line);
    std::printf("%d faded lines, burst 0: multiline window %.0f ms (%.1f ms a line), Enter through the hook "
                "%.0f ms (%.1f ms a line); ratio %.2f\n",
                count, multiline, multiline / count, hooked, hooked / count, multiline / (hooked > 0 ? hooked : 1));
    return 0;
}

}  // namespace

int main()
{
    EndEveryAOL();
    FreshSettings(SimFolder() + "aol40");
    SetOption("Multiline", "Multiline Burst", "1.5");
    if (const int failed = Paced()) return failed;
    EndEveryAOL();
    return BackToBack();
}
