// Long fades, where the engine writes one tag per run of one colour instead of
// working out every character: the runs must end exactly where the rounded
// colour changes, ties to even included.
#include "modFade.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

std::string Tag(int red, int green, int blue)
{
    static const char kDigits[] = "0123456789ABCDEF";
    std::string text = "<FONT COLOR=#";
    for (int v : {red, green, blue}) {
        text += kDigits[v >> 4];
        text += kDigits[v & 15];
    }
    if (text == "<FONT COLOR=#FFFFFF") text = "<FONT COLOR=#FBFBFB";
    return text + ">";
}

TEST(LongFade, RunsEndWhereHalvesRoundToEven)
{
    // Red 0 to 3 over 12 characters: 0.25, 0.5, 0.75, 1, 1.25, 1.5, ... 2.5, 2.75, 3.
    const std::string a = "<FONT COLOR=#000000>", b = "<FONT COLOR=#010000>", c = "<FONT COLOR=#020000>",
                      d = "<FONT COLOR=#030000>";
    EXPECT_EQ(MakeFade("abcdefghijkl", 0, 0, 0, 0, 0, 3, false),
              a + "a" + a + "b" + b + "c" + b + "d" + b + "e" + c + "f" + c + "g" + c + "h" + c + "i" + c + "j" +
                  d + "k" + d + "l");
    // Falling, with spaces using up steps: blue 3 to 0 over 12 (2.75, 2.5, 2.25, ... 0.5, 0.25, 0).
    const std::string e = "<FONT COLOR=#000003>", f = "<FONT COLOR=#000002>", g = "<FONT COLOR=#000001>",
                      h = "<FONT COLOR=#000000>";
    EXPECT_EQ(MakeFade("ab  efghij l", 3, 0, 0, 0, 0, 0, false),
              e + "a" + f + "b" + "  " + f + "e" + f + "f" + g + "g" + g + "h" + g + "i" + h + "j" + " " + h + "l");
}

// The arithmetic character by character, as a segment is defined.
std::string Reference(const std::string& text, int r0, int r1, int g0, int g1, int b0, int b1)
{
    const double n = static_cast<double>(text.size());
    std::string out;
    for (std::size_t i = 1; i <= text.size(); ++i) {
        const char ch = text[i - 1];
        if (ch != ' ') {
            auto at = [&](int from, int to) {
                return static_cast<int>(std::lrint(from + (to - from) / n * static_cast<double>(i)));
            };
            out += Tag(at(r0, r1), at(g0, g1), at(b0, b1));
        }
        out += ch;
    }
    return out;
}

TEST(LongFade, LongSegmentsMatchTheCharacterByCharacterArithmetic)
{
    unsigned seed = 99;
    auto next = [&seed](unsigned bound) {
        seed = seed * 1103515245u + 12345u;
        return static_cast<int>((seed >> 8) % bound);
    };
    for (int round = 0; round < 60; ++round) {
        std::string text(static_cast<std::size_t>(500 + next(6000)), 'x');
        for (char& ch : text)
            if (next(5) == 0) ch = ' ';
        const int small = next(3) == 0;  // close colours give long runs
        int c[6];
        for (int& v : c) v = small ? 250 + next(6) : next(256);
        if (round % 7 == 0) c[0] = c[2] = c[4] = 255;  // white at the start
        ASSERT_EQ(MakeFade(text, c[4], c[5], c[2], c[3], c[0], c[1], false),
                  Reference(text, c[0], c[1], c[2], c[3], c[4], c[5]))
            << "round " << round;
    }
}

}  // namespace
