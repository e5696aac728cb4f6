// The fade engine: plain text to AOL HTML where every visible character
// carries its own colour, fading between (or taking turns among) the colours
// of the working fade.
#pragma once

#include "Options.h"

#include <cstdint>
#include <string>
#include <vector>

// Places the wavy tags; gradient fades set it to 2, solid fades carry it on.
extern std::int16_t WavePhase;

// Six upper-case hex digits of a colour value (blue pair first), zero-padded.
std::string RGBtoHEX(ColorValue color);

struct ColorComponents {
    std::int32_t red = 0, green = 0, blue = 0;
};

// Components read back from RGBtoHEX's text, as every fade builder reads them.
ColorComponents SplitColor(ColorValue color);

// "RRGGBB" for a font tag, with pure white written as "FBFBFB".
std::string HtmlColorText(std::int32_t red, std::int32_t green, std::int32_t blue);

// "<FONT COLOR=#RRGGBB>" for a stored colour.
std::string FontTag(ColorValue color);

// The single entry point: replaces text by its faded form and returns it,
// reading the working fade from Options.
std::string& FadeEngine(std::string& text);

std::string FadeByColor2(ColorValue c1, ColorValue c2, const std::string& text, bool wavy);
std::string FadeByColor3(ColorValue c1, ColorValue c2, ColorValue c3, const std::string& text, bool wavy);
std::string FadeByColor4(ColorValue c1, ColorValue c2, ColorValue c3, ColorValue c4,
                         const std::string& text, bool wavy);
std::string FadeByColor5(ColorValue c1, ColorValue c2, ColorValue c3, ColorValue c4, ColorValue c5,
                         const std::string& text, bool wavy);
std::string FadeByColor6(ColorValue c1, ColorValue c2, ColorValue c3, ColorValue c4, ColorValue c5,
                         ColorValue c6, const std::string& text, bool wavy);

// One segment, fading from the start to the end components.
std::string MakeFade(const std::string& text, std::int32_t blueStart, std::int32_t blueEnd,
                     std::int32_t greenStart, std::int32_t greenEnd, std::int32_t redStart,
                     std::int32_t redEnd, bool wavy);

std::string MakeOneSolidFade(const std::string& text, ColorValue c1, bool wavy);
std::string MakeTwoSolidFade(const std::string& text, ColorValue c1, ColorValue c2, bool wavy);
std::string MakeThreeSolidFade(const std::string& text, ColorValue c1, ColorValue c2, ColorValue c3,
                               bool wavy);
std::string MakeFourSolidFade(const std::string& text, ColorValue c1, ColorValue c2, ColorValue c3,
                              ColorValue c4, bool wavy);
std::string MakeFiveSolidFade(const std::string& text, ColorValue c1, ColorValue c2, ColorValue c3,
                              ColorValue c4, ColorValue c5, bool wavy);
std::string MakeSixSolidFade(const std::string& text, ColorValue c1, ColorValue c2, ColorValue c3,
                             ColorValue c4, ColorValue c5, ColorValue c6, bool wavy);

// Segment lengths of a gradient over `colors` colours for a text of `length`
// characters, as dealing the characters out like cards gives them.
std::vector<std::size_t> SegmentLengths(std::size_t length, int colors);

// A surface that Gradient and the preview strip paint on, in its own units.
class DrawSurface {
public:
    virtual ~DrawSurface() = default;
    virtual double ScaleWidth() const = 0;
    virtual double ScaleHeight() const = 0;
    virtual void Line(double x1, double y1, double x2, double y2, ColorValue color) = 0;
};

// Paints a vertical two-colour band: one line per scale unit, top to bottom.
void Gradient(DrawSurface& target, ColorValue topColor, ColorValue bottomColor);
