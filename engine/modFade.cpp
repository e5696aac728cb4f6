// The fade engine: colour text and tags, gradient fades, solid fades.
#include "modFade.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstring>

std::int16_t WavePhase = 0;

namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";
constexpr char kFontOpen[] = "<FONT COLOR=#";
constexpr std::size_t kFontOpenLength = sizeof kFontOpen - 1;
constexpr std::size_t kFontTagLength = kFontOpenLength + 7;  // six digits and ">"
constexpr std::size_t kLongestWaveTag = 6;                    // "</sup>"

// Fade arithmetic rounds halves to the even neighbour, which is what the
// default floating-point rounding mode does.
std::int32_t RoundHalfEven(double value)
{
    return static_cast<std::int32_t>(std::lrint(value));
}

// The same rounding without a library call, for the colour steps of a fade
// (values far below 2^51). Adding and taking away 1.5 * 2^52 leaves a double
// rounded to a whole number in the current (nearest, ties to even) mode; that
// needs arithmetic done in double precision, so builds that evaluate in x87
// extended precision keep the library call.
inline std::int32_t RoundStep(double value)
{
#if defined(FLT_EVAL_METHOD) && FLT_EVAL_METHOD == 0
    constexpr double kShift = 6755399441055744.0;
    return static_cast<std::int32_t>((value + kShift) - kShift);
#else
    return RoundHalfEven(value);
#endif
}

int HexValue(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return 0;
}

int HexPair(const std::string& hex, std::size_t at)
{
    return HexValue(hex[at]) * 16 + HexValue(hex[at + 1]);
}

// The most one character can take in a fade: its tag, a wave tag, itself.
constexpr std::size_t CharacterRoom(bool wavy) { return kFontTagLength + (wavy ? kLongestWaveTag : 0) + 1; }

// Two upper-case hex digits for every byte value.
struct HexPairs {
    char digits[256][2];
    constexpr HexPairs() : digits()
    {
        for (int v = 0; v < 256; ++v) {
            digits[v][0] = kHexDigits[v >> 4];
            digits[v][1] = kHexDigits[v & 15];
        }
    }
};
constexpr HexPairs kHexPairs;

// "<FONT COLOR=#RRGGBB>" for components 0 to 255 (only their low byte
// counts), pure white written as FBFBFB.
inline char* WriteTagFast(char* p, std::int32_t red, std::int32_t green, std::int32_t blue)
{
    std::memcpy(p, kFontOpen, kFontOpenLength);
    if (red == 255 && green == 255 && blue == 255) {
        std::memcpy(p + kFontOpenLength, "FBFBFB", 6);
    } else {
        std::memcpy(p + kFontOpenLength, kHexPairs.digits[red & 255], 2);
        std::memcpy(p + kFontOpenLength + 2, kHexPairs.digits[green & 255], 2);
        std::memcpy(p + kFontOpenLength + 4, kHexPairs.digits[blue & 255], 2);
    }
    p[kFontTagLength - 1] = '>';
    return p + kFontTagLength;
}

// The wave step on a phase kept in a local while a builder runs; the
// builders store it back into WavePhase when they are done.
inline char* WaveStep(char* p, std::int16_t& phase, bool wavy)
{
    if (phase == 5) phase = 1;
    if (wavy && phase >= 1 && phase <= 4) {
        static const char kTags[5][7] = {"", "<sup>", "</sup>", "<sub>", "</sub>"};
        static const std::size_t kLengths[5] = {0, 5, 6, 5, 6};
        std::memcpy(p, kTags[phase], 6);  // room for the longest is always there
        p += kLengths[phase];
    }
    ++phase;
    return p;
}

// One colour component along a gradient segment: its value at character i
// (counted from 1) is start + step * i, rounded.
struct ComponentSteps {
    double from = 0, step = 0;

    std::int32_t At(std::size_t i) const { return RoundStep(from + step * static_cast<double>(i)); }
};

ComponentSteps Steps(std::int32_t from, std::int32_t to, std::size_t n)
{
    return {static_cast<double>(from), static_cast<double>(to - from) / static_cast<double>(n)};
}

// The last character, from i on, whose component still has the value v that
// it has at i. A component only ever moves one way along a segment, so the
// characters of one value form a single run.
std::size_t LastWithValue(const ComponentSteps& c, std::size_t i, std::size_t n, std::int32_t v)
{
    if (c.step == 0) return n;
    // Guess where it crosses to its next value, and keep the guess when the
    // values on both sides of it confirm it.
    const double edge = (v + (c.step > 0 ? 0.5 : -0.5) - c.from) / c.step;
    if (edge >= static_cast<double>(i)) {
        const std::size_t end = edge >= static_cast<double>(n) ? n : static_cast<std::size_t>(edge);
        if (c.At(end) == v && (end == n || c.At(end + 1) != v)) return end;
    }
    // Otherwise gallop ahead, then halve the gap.
    std::size_t same = i, differs = n + 1, jump = 1;
    while (same + jump <= n) {
        if (c.At(same + jump) != v) {
            differs = same + jump;
            break;
        }
        same += jump;
        jump *= 2;
    }
    while (differs - same > 1) {
        const std::size_t mid = same + (differs - same) / 2;
        if (c.At(mid) == v) same = mid;
        else differs = mid;
    }
    return same;
}

// A long segment changes colour only every few characters: each component
// is followed from one change to its next, and the tag is written once per
// run of one colour and copied for each character of the run.
char* WriteRuns(char* p, const char* text, std::size_t n, const ComponentSteps (&steps)[3],
                std::int16_t& phase, bool wavy)
{
    std::int32_t value[3];
    std::size_t last[3];
    for (int k = 0; k < 3; ++k) {
        value[k] = steps[k].At(1);
        last[k] = LastWithValue(steps[k], 1, n, value[k]);
    }
    char tag[kFontTagLength];
    for (std::size_t i = 1; i <= n;) {
        const std::size_t end = std::min({last[0], last[1], last[2]});
        WriteTagFast(tag, value[0], value[1], value[2]);
        for (; i <= end; ++i) {
            const char ch = text[i - 1];
            if (ch != ' ') {
                std::memcpy(p, tag, kFontTagLength);
                p = WaveStep(p + kFontTagLength, phase, wavy);
            }
            *p++ = ch;
        }
        for (int k = 0; k < 3 && i <= n; ++k) {
            if (last[k] != end) continue;
            value[k] = steps[k].At(i);
            last[k] = LastWithValue(steps[k], i, n, value[k]);
        }
    }
    return p;
}

// A short segment changes colour at nearly every character: the colours are
// worked out a block at a time (a loop the compiler can vectorise), then the
// block is written.
char* WriteBlocks(char* p, const char* text, std::size_t n, const ComponentSteps (&steps)[3],
                  std::int16_t& phase, bool wavy)
{
    constexpr std::size_t kBlock = 256;
    std::int32_t red[kBlock], green[kBlock], blue[kBlock];
    for (std::size_t first = 1; first <= n; first += kBlock) {
        const std::size_t count = n - first + 1 < kBlock ? n - first + 1 : kBlock;
        for (std::size_t k = 0; k < count; ++k) {
            const double di = static_cast<double>(first + k);
            red[k] = RoundStep(steps[0].from + steps[0].step * di);
            green[k] = RoundStep(steps[1].from + steps[1].step * di);
            blue[k] = RoundStep(steps[2].from + steps[2].step * di);
        }
        for (std::size_t k = 0; k < count; ++k) {
            const char c = text[first + k - 1];
            if (c != ' ') {
                p = WriteTagFast(p, red[k], green[k], blue[k]);
                p = WaveStep(p, phase, wavy);
            }
            *p++ = c;
        }
    }
    return p;
}

int Distance(std::int32_t a, std::int32_t b) { return a > b ? a - b : b - a; }

// Appends one gradient segment to out.
void AppendFade(std::string& out, const char* text, std::size_t n, ColorComponents from,
                ColorComponents to, bool wavy)
{
    if (n == 0) return;
    std::size_t start = out.size();
    out.resize(start + n * CharacterRoom(wavy) + kLongestWaveTag);
    char* p = out.data() + start;
    const ComponentSteps steps[3] = {Steps(from.red, to.red, n), Steps(from.green, to.green, n),
                                     Steps(from.blue, to.blue, n)};
    std::int16_t phase = WavePhase;
    const int widest = std::max({Distance(from.red, to.red), Distance(from.green, to.green),
                                 Distance(from.blue, to.blue)});
    // Runs pay off once they average a few characters.
    if (n >= 4 * static_cast<std::size_t>(widest)) p = WriteRuns(p, text, n, steps, phase, wavy);
    else p = WriteBlocks(p, text, n, steps, phase, wavy);
    WavePhase = phase;
    out.resize(static_cast<std::size_t>(p - out.data()));
}

std::string FadeByColors(std::initializer_list<ColorValue> colors, const std::string& text, bool wavy)
{
    std::vector<ColorComponents> parts;
    for (ColorValue c : colors) parts.push_back(SplitColor(c));
    WavePhase = 2;
    std::string out;
    out.reserve(text.size() * CharacterRoom(wavy) + kLongestWaveTag);
    std::size_t at = 0;
    std::vector<std::size_t> lengths = SegmentLengths(text.size(), static_cast<int>(parts.size()));
    for (std::size_t k = 0; k < lengths.size(); ++k) {
        AppendFade(out, text.data() + at, lengths[k], parts[k], parts[k + 1], wavy);
        at += lengths[k];
    }
    return out;
}

std::string SolidFade(const std::string& text, std::initializer_list<ColorValue> colors, bool wavy)
{
    // Each colour's tag is written once here and copied for every character.
    char tags[6][kFontTagLength];
    std::size_t count = 0;
    for (ColorValue c : colors) {
        const ColorComponents part = SplitColor(c);
        WriteTagFast(tags[count++], part.red, part.green, part.blue);
    }
    std::string out;
    out.resize(text.size() * CharacterRoom(wavy) + kLongestWaveTag);
    char* p = out.data();
    std::int16_t phase = WavePhase;
    std::size_t index = 0;  // the colour taking its turn, counted from 0
    for (char c : text) {
        if (c != ' ') {
            if (index == count) index = 0;
            std::memcpy(p, tags[index++], kFontTagLength);
            p = WaveStep(p + kFontTagLength, phase, wavy);
        }
        *p++ = c;
    }
    WavePhase = phase;
    out.resize(static_cast<std::size_t>(p - out.data()));
    return out;
}

void Wrap(std::string& text, const char* open, const char* close)
{
    text.insert(0, open);
    text.append(close);
}

}  // namespace

std::string RGBtoHEX(ColorValue color)
{
    char digits[16];
    std::snprintf(digits, sizeof digits, "%X", static_cast<std::uint32_t>(color));
    std::string hex = digits;
    if (hex.size() < 6) hex.insert(0, 6 - hex.size(), '0');
    return hex;
}

ColorComponents SplitColor(ColorValue color)
{
    const std::string hex = RGBtoHEX(color);
    ColorComponents c;
    c.blue = HexPair(hex, 0);
    c.green = HexPair(hex, 2);
    c.red = HexPair(hex, 4);
    return c;
}

std::string HtmlColorText(std::int32_t red, std::int32_t green, std::int32_t blue)
{
    // The components enter in swapped places, so the hex text reads red first.
    std::string text = RGBtoHEX(blue + green * 256 + red * 65536);
    return text == "FFFFFF" ? std::string("FBFBFB") : text;
}

std::string FontTag(ColorValue color)
{
    ColorComponents c = SplitColor(color);
    return "<FONT COLOR=#" + HtmlColorText(c.red, c.green, c.blue) + ">";
}

std::vector<std::size_t> SegmentLengths(std::size_t length, int colors)
{
    if (colors < 2) return {};
    if (colors == 2) return {length};
    if (colors == 3) {
        auto first = static_cast<std::size_t>(RoundHalfEven(static_cast<double>(length) / 2.0));
        return {first, length - first};
    }
    // Dealt like cards: the first (length mod segments) segments get one more.
    const std::size_t segments = static_cast<std::size_t>(colors - 1);
    std::vector<std::size_t> lengths(segments, length / segments);
    for (std::size_t k = 0; k < length % segments; ++k) ++lengths[k];
    return lengths;
}

std::string MakeFade(const std::string& text, std::int32_t blueStart, std::int32_t blueEnd,
                     std::int32_t greenStart, std::int32_t greenEnd, std::int32_t redStart,
                     std::int32_t redEnd, bool wavy)
{
    std::string out;
    AppendFade(out, text.data(), text.size(), {redStart, greenStart, blueStart},
               {redEnd, greenEnd, blueEnd}, wavy);
    return out;
}

std::string FadeByColor2(ColorValue c1, ColorValue c2, const std::string& text, bool wavy)
{
    return FadeByColors({c1, c2}, text, wavy);
}

std::string FadeByColor3(ColorValue c1, ColorValue c2, ColorValue c3, const std::string& text, bool wavy)
{
    return FadeByColors({c1, c2, c3}, text, wavy);
}

std::string FadeByColor4(ColorValue c1, ColorValue c2, ColorValue c3, ColorValue c4,
                         const std::string& text, bool wavy)
{
    return FadeByColors({c1, c2, c3, c4}, text, wavy);
}

std::string FadeByColor5(ColorValue c1, ColorValue c2, ColorValue c3, ColorValue c4, ColorValue c5,
                         const std::string& text, bool wavy)
{
    return FadeByColors({c1, c2, c3, c4, c5}, text, wavy);
}

std::string FadeByColor6(ColorValue c1, ColorValue c2, ColorValue c3, ColorValue c4, ColorValue c5,
                         ColorValue c6, const std::string& text, bool wavy)
{
    return FadeByColors({c1, c2, c3, c4, c5, c6}, text, wavy);
}

std::string MakeOneSolidFade(const std::string& text, ColorValue c1, bool wavy)
{
    // A single colour is one font tag in front of the whole text.
    const ColorComponents part = SplitColor(c1);
    std::string out;
    out.resize(kFontTagLength + text.size() * (kLongestWaveTag + 1) + kLongestWaveTag);
    char* p = WriteTagFast(out.data(), part.red, part.green, part.blue);
    std::int16_t phase = WavePhase;
    for (char c : text) {
        if (c != ' ') p = WaveStep(p, phase, wavy);
        *p++ = c;
    }
    WavePhase = phase;
    out.resize(static_cast<std::size_t>(p - out.data()));
    return out;
}

std::string MakeTwoSolidFade(const std::string& text, ColorValue c1, ColorValue c2, bool wavy)
{
    return SolidFade(text, {c1, c2}, wavy);
}

std::string MakeThreeSolidFade(const std::string& text, ColorValue c1, ColorValue c2, ColorValue c3,
                               bool wavy)
{
    return SolidFade(text, {c1, c2, c3}, wavy);
}

std::string MakeFourSolidFade(const std::string& text, ColorValue c1, ColorValue c2, ColorValue c3,
                              ColorValue c4, bool wavy)
{
    return SolidFade(text, {c1, c2, c3, c4}, wavy);
}

std::string MakeFiveSolidFade(const std::string& text, ColorValue c1, ColorValue c2, ColorValue c3,
                              ColorValue c4, ColorValue c5, bool wavy)
{
    return SolidFade(text, {c1, c2, c3, c4, c5}, wavy);
}

std::string MakeSixSolidFade(const std::string& text, ColorValue c1, ColorValue c2, ColorValue c3,
                             ColorValue c4, ColorValue c5, ColorValue c6, bool wavy)
{
    return SolidFade(text, {c1, c2, c3, c4, c5, c6}, wavy);
}

std::string& FadeEngine(std::string& text)
{
    const auto& c = Options.Colors;
    const bool wavy = Options.Wavy;
    if (Options.SolidFade) {
        switch (Options.FadeNumber) {
        case 1: text = MakeOneSolidFade(text, c[0], wavy); break;
        case 2: text = MakeTwoSolidFade(text, c[0], c[1], wavy); break;
        case 3: text = MakeThreeSolidFade(text, c[0], c[1], c[2], wavy); break;
        case 4: text = MakeFourSolidFade(text, c[0], c[1], c[2], c[3], wavy); break;
        case 5: text = MakeFiveSolidFade(text, c[0], c[1], c[2], c[3], c[4], wavy); break;
        case 6: text = MakeSixSolidFade(text, c[0], c[1], c[2], c[3], c[4], c[5], wavy); break;
        default: break;
        }
    } else {
        switch (Options.FadeNumber) {
        case 1: text = MakeOneSolidFade(text, c[0], wavy); break;
        case 2: text = FadeByColor2(c[0], c[1], text, wavy); break;
        case 3: text = FadeByColor3(c[0], c[1], c[2], text, wavy); break;
        case 4: text = FadeByColor4(c[0], c[1], c[2], c[3], text, wavy); break;
        case 5: text = FadeByColor5(c[0], c[1], c[2], c[3], c[4], text, wavy); break;
        case 6: text = FadeByColor6(c[0], c[1], c[2], c[3], c[4], c[5], text, wavy); break;
        default: break;
        }
    }
    if (!text.empty()) {
        if (Options.Bold) Wrap(text, "<B>", "</B>");
        if (Options.Italic) Wrap(text, "<I>", "</I>");
        if (Options.ULine) Wrap(text, "<U>", "</U>");
    }
    return text;
}

void Gradient(DrawSurface& target, ColorValue topColor, ColorValue bottomColor)
{
    const double width = target.ScaleWidth();
    const double height = target.ScaleHeight();
    if (height <= 0) return;  // no increments to speak of: draw nothing
    auto component = [](ColorValue c, int shift) { return static_cast<double>((c >> shift) & 255); };
    double red = component(topColor, 0), green = component(topColor, 8), blue = component(topColor, 16);
    const double stepRed = (component(bottomColor, 0) - red) / height;
    const double stepGreen = (component(bottomColor, 8) - green) / height;
    const double stepBlue = (component(bottomColor, 16) - blue) / height;
    for (double y = 0; y <= height; y += 1) {
        ColorValue color = RoundHalfEven(red) + RoundHalfEven(green) * 256 + RoundHalfEven(blue) * 65536;
        target.Line(0, y, width, y, color);
        red += stepRed;
        green += stepGreen;
        blue += stepBlue;
    }
}
