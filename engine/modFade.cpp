// The fade engine: colour text and tags, gradient fades, solid fades.
#include "modFade.h"

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

// Writes "<FONT COLOR=#RRGGBB>" at p and returns the end. The components are
// 0 to 255 wherever the builders call this (split pairs, or values between two).
char* WriteFontTag(char* p, std::int32_t red, std::int32_t green, std::int32_t blue)
{
    std::memcpy(p, kFontOpen, kFontOpenLength);
    p += kFontOpenLength;
    if (red == 255 && green == 255 && blue == 255) {
        std::memcpy(p, "FBFBFB", 6);
        p += 6;
    } else {
        for (std::int32_t v : {red, green, blue}) {
            *p++ = kHexDigits[(v >> 4) & 15];
            *p++ = kHexDigits[v & 15];
        }
    }
    *p++ = '>';
    return p;
}

// The wave step, once for every non-space character, before the character.
char* WriteWaveStep(char* p, bool wavy)
{
    if (WavePhase == 5) WavePhase = 1;
    if (wavy) {
        static const char* const kTags[] = {"", "<sup>", "</sup>", "<sub>", "</sub>"};
        if (WavePhase >= 1 && WavePhase <= 4) {
            const char* tag = kTags[WavePhase];
            std::size_t length = std::strlen(tag);
            std::memcpy(p, tag, length);
            p += length;
        }
    }
    ++WavePhase;
    return p;
}

// Appends one gradient segment to out.
void AppendFade(std::string& out, const char* text, std::size_t n, ColorComponents from,
                ColorComponents to, bool wavy)
{
    if (n == 0) return;
    std::size_t start = out.size();
    out.resize(start + n * (kFontTagLength + kLongestWaveTag + 1));
    char* p = out.data() + start;
    // The step is (end - start) / n, worked out once; each value is
    // start + step * i, rounded.
    const double stepRed = static_cast<double>(to.red - from.red) / static_cast<double>(n);
    const double stepGreen = static_cast<double>(to.green - from.green) / static_cast<double>(n);
    const double stepBlue = static_cast<double>(to.blue - from.blue) / static_cast<double>(n);
    for (std::size_t i = 1; i <= n; ++i) {
        char c = text[i - 1];
        if (c != ' ') {
            const double di = static_cast<double>(i);
            p = WriteFontTag(p, RoundHalfEven(from.red + stepRed * di),
                             RoundHalfEven(from.green + stepGreen * di),
                             RoundHalfEven(from.blue + stepBlue * di));
            p = WriteWaveStep(p, wavy);
        }
        *p++ = c;
    }
    out.resize(static_cast<std::size_t>(p - out.data()));
}

std::string FadeByColors(std::initializer_list<ColorValue> colors, const std::string& text, bool wavy)
{
    std::vector<ColorComponents> parts;
    for (ColorValue c : colors) parts.push_back(SplitColor(c));
    WavePhase = 2;
    std::string out;
    out.reserve(text.size() * (kFontTagLength + 2));
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
    std::vector<ColorComponents> parts;
    for (ColorValue c : colors) parts.push_back(SplitColor(c));
    std::string out;
    out.resize(text.size() * (kFontTagLength + kLongestWaveTag + 1));
    char* p = out.data();
    std::size_t index = 0;  // the colour taking its turn, counted from 0
    for (char c : text) {
        if (c != ' ') {
            if (index == parts.size()) index = 0;
            const ColorComponents& part = parts[index++];
            p = WriteFontTag(p, part.red, part.green, part.blue);
            p = WriteWaveStep(p, wavy);
        }
        *p++ = c;
    }
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
    out.resize(kFontTagLength + text.size() * (kLongestWaveTag + 1));
    char* p = WriteFontTag(out.data(), part.red, part.green, part.blue);
    for (char c : text) {
        if (c != ' ') p = WriteWaveStep(p, wavy);
        *p++ = c;
    }
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
