// The fade preview strip's geometry and colours: which part of the strip
// each pair of neighbouring colours fills, and the column-by-column blend
// painted on any DrawSurface. Portable, so the strip is tested natively.
#pragma once

#include <vector>

#include "Options.h"
#include "modFade.h"

// One part of the band: colour k blends into colour k + 1 from x = from to
// x = to (both ends painted).
struct PreviewRange {
    double from;
    double to;
};

// The parts of a strip `scaleWidth` units wide for 2 to 6 colours, left to
// right; none for any other count. The outer parts mirror each other and a
// width that does not divide evenly leaves its spare units in the inner ones.
std::vector<PreviewRange> PreviewRanges(int colors, double scaleWidth);

// Paints one part: a vertical line per unit from x = from while x <= to, in
// the running blend of the start and end components (true colours, no white
// substitution). A part whose ends coincide is painted in its start colour.
void FadeVertical(DrawSurface& target, float startRed, float startGreen, float startBlue,
                  float endRed, float endGreen, float endBlue, double from, double to);

// The band for two to six colours, each pair of neighbours over its range.
void Fade2Preview(DrawSurface& target, const ColorValue& c1, const ColorValue& c2);
void Fade3Preview(DrawSurface& target, const ColorValue& c1, const ColorValue& c2, const ColorValue& c3);
void Fade4Preview(DrawSurface& target, const ColorValue& c1, const ColorValue& c2, const ColorValue& c3,
                  const ColorValue& c4);
void Fade5Preview(DrawSurface& target, const ColorValue& c1, const ColorValue& c2, const ColorValue& c3,
                  const ColorValue& c4, const ColorValue& c5);
void Fade6Preview(DrawSurface& target, const ColorValue& c1, const ColorValue& c2, const ColorValue& c3,
                  const ColorValue& c4, const ColorValue& c5, const ColorValue& c6);

// The whole band for `colors` colours (1 to 6, taken from the front of
// `palette`). One colour fills the strip; any other count paints nothing.
// Returns false when nothing was painted.
bool PaintPreview(DrawSurface& target, int colors, const ColorValue* palette);
