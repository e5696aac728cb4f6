// The preview strip's range table and column blend.
#include "PreviewRanges.h"

#include <cmath>

namespace {

double RoundEven(double value)
{
    return std::nearbyint(value);  // the default rounding mode: halves to even
}

struct Components {
    float red, green, blue;
};

Components Split(ColorValue color)
{
    const auto c = static_cast<long>(color);
    return {static_cast<float>(c % 256), static_cast<float>((c / 256) % 256),
            static_cast<float>((c / 65536) % 256)};
}

}  // namespace

std::vector<PreviewRange> PreviewRanges(int colors, double W)
{
    const long w = static_cast<long>(RoundEven(W));
    switch (colors) {
    case 2:
        return {{0, W}};
    case 3:
        return {{0, double(w / 2)}, {double(w / 2), W}};
    case 4:
        return {{0, double(w / 3)}, {double(w / 3), W - w / 3}, {W - w / 3, W}};
    case 5:
        return {{0, double(w / 4)}, {double(w / 4), double(w / 2)}, {double(w / 2), W - w / 4},
                {W - w / 4, W}};
    case 6: {
        const double fifth = double(w / 5);
        return {{0, fifth}, {fifth, 2 * fifth}, {2 * fifth, 3 * fifth}, {3 * fifth, W - fifth},
                {W - fifth, W}};
    }
    default:
        return {};
    }
}

void FadeVertical(DrawSurface& target, float startRed, float startGreen, float startBlue,
                  float endRed, float endGreen, float endBlue, double from, double to)
{
    const double height = target.ScaleHeight();
    const double span = to - from;
    // Both ends in one column: no increment to speak of, paint the start colour.
    const float stepRed = span != 0 ? static_cast<float>((endRed - startRed) / span) : 0.0f;
    const float stepGreen = span != 0 ? static_cast<float>((endGreen - startGreen) / span) : 0.0f;
    const float stepBlue = span != 0 ? static_cast<float>((endBlue - startBlue) / span) : 0.0f;
    float red = startRed, green = startGreen, blue = startBlue;
    for (double x = from; x <= to; x += 1) {
        const auto color = static_cast<ColorValue>(RoundEven(red) + RoundEven(green) * 256 +
                                                   RoundEven(blue) * 65536);
        target.Line(x, 0, x, height, color);
        red += stepRed;
        green += stepGreen;
        blue += stepBlue;
    }
}

namespace {

// Colour k blends into colour k + 1 over the k-th range of the table.
void FadeAcross(DrawSurface& target, const ColorValue* colours, int count)
{
    const std::vector<PreviewRange> ranges = PreviewRanges(count, target.ScaleWidth());
    for (std::size_t k = 0; k < ranges.size(); ++k) {
        const Components a = Split(colours[k]), b = Split(colours[k + 1]);
        FadeVertical(target, a.red, a.green, a.blue, b.red, b.green, b.blue, ranges[k].from, ranges[k].to);
    }
}

}  // namespace

void Fade2Preview(DrawSurface& target, const ColorValue& c1, const ColorValue& c2)
{
    const ColorValue colours[] = {c1, c2};
    FadeAcross(target, colours, 2);
}

void Fade3Preview(DrawSurface& target, const ColorValue& c1, const ColorValue& c2, const ColorValue& c3)
{
    const ColorValue colours[] = {c1, c2, c3};
    FadeAcross(target, colours, 3);
}

void Fade4Preview(DrawSurface& target, const ColorValue& c1, const ColorValue& c2, const ColorValue& c3,
                  const ColorValue& c4)
{
    const ColorValue colours[] = {c1, c2, c3, c4};
    FadeAcross(target, colours, 4);
}

void Fade5Preview(DrawSurface& target, const ColorValue& c1, const ColorValue& c2, const ColorValue& c3,
                  const ColorValue& c4, const ColorValue& c5)
{
    const ColorValue colours[] = {c1, c2, c3, c4, c5};
    FadeAcross(target, colours, 5);
}

void Fade6Preview(DrawSurface& target, const ColorValue& c1, const ColorValue& c2, const ColorValue& c3,
                  const ColorValue& c4, const ColorValue& c5, const ColorValue& c6)
{
    const ColorValue colours[] = {c1, c2, c3, c4, c5, c6};
    FadeAcross(target, colours, 6);
}

bool PaintPreview(DrawSurface& target, int colors, const ColorValue* c)
{
    switch (colors) {
    case 1: {
        const double width = target.ScaleWidth(), height = target.ScaleHeight();
        for (double x = 0; x <= width; x += 1) target.Line(x, 0, x, height, c[0]);
        return true;
    }
    case 2: Fade2Preview(target, c[0], c[1]); return true;
    case 3: Fade3Preview(target, c[0], c[1], c[2]); return true;
    case 4: Fade4Preview(target, c[0], c[1], c[2], c[3]); return true;
    case 5: Fade5Preview(target, c[0], c[1], c[2], c[3], c[4]); return true;
    case 6: Fade6Preview(target, c[0], c[1], c[2], c[3], c[4], c[5]); return true;
    default: return false;
    }
}
