// How fast the fade engine turns chat text into AOL HTML: output bytes per
// second against memcpy of the same number of bytes, and cost per character
// at three text lengths to show that it grows linearly.
#include "modFade.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

namespace {

// Chat-like text: words of 1 to 9 letters and the odd punctuation, spaces between.
std::string SampleText(std::size_t length)
{
    std::string text;
    text.reserve(length);
    unsigned seed = 12345;
    while (text.size() < length) {
        seed = seed * 1103515245u + 12345u;
        const std::size_t word = 1 + (seed >> 16) % 9;
        for (std::size_t i = 0; i < word && text.size() < length; ++i)
            text += static_cast<char>("etaoinshrdlucmfwypvbgkq!?<>&"[(seed >> (i + 3)) % 28]);
        if (text.size() < length) text += ' ';
    }
    return text;
}

struct Case {
    const char* name;
    int colors;
    bool solid, wavy;
};

const Case kCases[] = {
    {"two", 2, false, false},        {"six", 6, false, false},
    {"two/solid", 2, true, false},   {"six/solid", 6, true, false},
    {"two/wavy", 2, false, true},    {"six/wavy", 6, false, true},
    {"six/solid/wavy", 6, true, true},
};

void UseFade(const Case& c)
{
    static const ColorValue kColors[6] = {0xFF901E, 0xD1CE00, 0xEE687B, 0xD355BA, 0xB469FF, 0x0000FF};
    Options.FadeNumber = static_cast<std::int16_t>(c.colors);
    for (int i = 0; i < 6; ++i) Options.Colors[i] = kColors[i];
    Options.SolidFade = c.solid;
    Options.Wavy = c.wavy;
    Options.Bold = Options.Italic = Options.ULine = false;
    WavePhase = 0;
}

std::size_t FadedSize(const Case& c, const std::string& text)
{
    UseFade(c);
    std::string copy = text;
    return FadeEngine(copy).size();
}

void FadeText(benchmark::State& state, Case c, const std::string* text)
{
    UseFade(c);
    std::size_t out = 0;
    for (auto _ : state) {
        std::string line = *text;
        out = FadeEngine(line).size();
        benchmark::DoNotOptimize(line.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * out));
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * text->size()));
}

void CopyBytes(benchmark::State& state, std::size_t bytes)
{
    std::vector<char> from(bytes, 'x'), to(bytes);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), bytes);
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}

// Keeps each run's rates so that the ratios can be printed at the end.
class RateReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
            const auto bytes = run.counters.find("bytes_per_second");
            const auto items = run.counters.find("items_per_second");
            if (bytes != run.counters.end()) bytesPerSecond[run.run_name.str()] = bytes->second.value;
            if (items != run.counters.end()) itemsPerSecond[run.run_name.str()] = items->second.value;
        }
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> bytesPerSecond, itemsPerSecond;
};

}  // namespace

int main(int argc, char** argv)
{
    static const std::string text30k = SampleText(30000);
    static const std::string lengths[3] = {SampleText(3000), text30k, SampleText(300000)};

    for (const Case& c : kCases) {
        benchmark::RegisterBenchmark((std::string("FadeEngine/30000/") + c.name).c_str(), FadeText, c, &text30k);
        benchmark::RegisterBenchmark((std::string("memcpy/") + c.name).c_str(), CopyBytes, FadedSize(c, text30k));
    }
    for (const std::string& t : lengths)
        benchmark::RegisterBenchmark(("FadeEngine/length/" + std::to_string(t.size())).c_str(), FadeText,
                                     kCases[0], &t);

    benchmark::Initialize(&argc, argv);
    RateReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    std::printf("\nFadeEngine on 30,000 characters, output rate as a share of memcpy's rate:\n");
    for (const Case& c : kCases) {
        const auto fade = reporter.bytesPerSecond.find(std::string("FadeEngine/30000/") + c.name);
        const auto copy = reporter.bytesPerSecond.find(std::string("memcpy/") + c.name);
        if (fade == reporter.bytesPerSecond.end() || copy == reporter.bytesPerSecond.end()) continue;
        std::printf("  %-16s %8.1f MB/s vs %8.1f MB/s  = %5.1f%%  (%zu output bytes)\n", c.name,
                    fade->second / 1e6, copy->second / 1e6, 100.0 * fade->second / copy->second,
                    FadedSize(c, text30k));
    }
    std::printf("\nCost per character by text length (two-colour gradient):\n");
    double first = 0;
    for (const std::string& t : lengths) {
        const auto items = reporter.itemsPerSecond.find("FadeEngine/length/" + std::to_string(t.size()));
        if (items == reporter.itemsPerSecond.end()) continue;
        const double ns = 1e9 / items->second;
        if (first == 0) first = ns;
        std::printf("  %7zu characters: %6.2f ns per character (x%.2f of the shortest)\n", t.size(), ns,
                    ns / first);
    }
    benchmark::Shutdown();
    return 0;
}
