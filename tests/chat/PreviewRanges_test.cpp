// The preview strip's bands: which columns each pair of colours fills and
// the colour every column ends up with.
#include "PreviewRanges.h"

#include <gtest/gtest.h>

#include <map>

namespace {

// Remembers the last colour drawn in each column, as the screen would.
class ColumnRecorder : public DrawSurface {
public:
    ColumnRecorder(double width, double height) : width_(width), height_(height) {}
    double ScaleWidth() const override { return width_; }
    double ScaleHeight() const override { return height_; }
    void Line(double x1, double y1, double x2, double y2, ColorValue color) override
    {
        EXPECT_EQ(x1, x2) << "the band is drawn in vertical lines";
        EXPECT_EQ(y1, 0);
        EXPECT_EQ(y2, height_);
        columns[static_cast<int>(x1)] = color;
        ++lines;
    }
    std::map<int, ColorValue> columns;
    int lines = 0;

private:
    double width_, height_;
};

ColorValue RGBv(int r, int g, int b) { return r + g * 256 + b * 65536; }

std::vector<std::pair<double, double>> Pairs(const std::vector<PreviewRange>& ranges)
{
    std::vector<std::pair<double, double>> out;
    for (const PreviewRange& r : ranges) out.emplace_back(r.from, r.to);
    return out;
}

using P = std::vector<std::pair<double, double>>;

TEST(PreviewRanges, TableForEachColourCount)
{
    EXPECT_EQ(Pairs(PreviewRanges(2, 100)), (P{{0, 100}}));
    EXPECT_EQ(Pairs(PreviewRanges(3, 101)), (P{{0, 50}, {50, 101}}));
    EXPECT_EQ(Pairs(PreviewRanges(4, 100)), (P{{0, 33}, {33, 67}, {67, 100}}));
    EXPECT_EQ(Pairs(PreviewRanges(5, 101)), (P{{0, 25}, {25, 50}, {50, 76}, {76, 101}}));
    EXPECT_EQ(Pairs(PreviewRanges(6, 100)), (P{{0, 20}, {20, 40}, {40, 60}, {60, 80}, {80, 100}}));
    // The outer ranges mirror each other; the spare units go inside.
    EXPECT_EQ(Pairs(PreviewRanges(6, 104)), (P{{0, 20}, {20, 40}, {40, 60}, {60, 84}, {84, 104}}));
    EXPECT_TRUE(PreviewRanges(1, 100).empty());
    EXPECT_TRUE(PreviewRanges(7, 100).empty());
    EXPECT_TRUE(PreviewRanges(0, 100).empty());
}

TEST(PreviewRanges, FractionalWidthRoundsHalvesToEvenForTheDivisions)
{
    // w = 100 for 100.5 (half to even), 102 for 101.5; the last range ends at W itself.
    EXPECT_EQ(Pairs(PreviewRanges(3, 100.5)), (P{{0, 50}, {50, 100.5}}));
    EXPECT_EQ(Pairs(PreviewRanges(3, 101.5)), (P{{0, 51}, {51, 101.5}}));
}

TEST(PreviewPaint, TwoColoursRunFromFirstToLastColumn)
{
    ColumnRecorder strip(100, 20);
    const ColorValue colours[] = {RGBv(0, 0, 0), RGBv(200, 100, 50)};
    ASSERT_TRUE(PaintPreview(strip, 2, colours));
    EXPECT_EQ(strip.lines, 101);
    EXPECT_EQ(strip.columns.size(), 101u);
    EXPECT_EQ(strip.columns[0], colours[0]);
    EXPECT_EQ(strip.columns[100], colours[1]);
    EXPECT_EQ(strip.columns[50], RGBv(100, 50, 25));
    // Pure white stays white in the strip: no substitution as in font tags.
    ColumnRecorder white(10, 5);
    const ColorValue toWhite[] = {0xFFFFFF, 0xFFFFFF};
    PaintPreview(white, 2, toWhite);
    EXPECT_EQ(white.columns[5], 0xFFFFFF);
}

TEST(PreviewPaint, SharedBoundaryColumnTakesTheLaterRangesStart)
{
    ColumnRecorder strip(100, 10);
    const ColorValue red = RGBv(255, 0, 0), green = RGBv(0, 255, 0), blue = RGBv(0, 0, 255), grey = RGBv(9, 9, 9);
    const ColorValue colours[] = {red, green, blue, grey};
    PaintPreview(strip, 4, colours);
    EXPECT_EQ(strip.lines, 34 + 35 + 34);  // 0..33, 33..67, 67..100
    EXPECT_EQ(strip.columns[0], red);
    EXPECT_EQ(strip.columns[33], green);
    EXPECT_EQ(strip.columns[67], blue);
    EXPECT_EQ(strip.columns[100], grey);
    EXPECT_EQ(strip.columns.size(), 101u);
}

TEST(PreviewPaint, ColumnColoursRoundHalvesToEven)
{
    // One unit of red over two columns: the middle column is 0.5, which rounds to 0;
    // three units over two columns: 1.5 rounds to 2.
    ColumnRecorder a(2, 4), b(2, 4);
    const ColorValue one[] = {RGBv(0, 0, 0), RGBv(1, 0, 0)};
    const ColorValue three[] = {RGBv(0, 0, 0), RGBv(3, 0, 0)};
    PaintPreview(a, 2, one);
    PaintPreview(b, 2, three);
    EXPECT_EQ(a.columns[1], RGBv(0, 0, 0));
    EXPECT_EQ(b.columns[1], RGBv(2, 0, 0));
}

TEST(PreviewPaint, OneColourFillsAndOddCountsPaintNothing)
{
    ColumnRecorder strip(30, 8);
    const ColorValue colours[] = {RGBv(1, 2, 3), 0, 0, 0, 0, 0, 0};
    ASSERT_TRUE(PaintPreview(strip, 1, colours));
    for (int x = 0; x < 30; ++x) EXPECT_EQ(strip.columns[x], colours[0]) << x;
    ColumnRecorder none(30, 8);
    EXPECT_FALSE(PaintPreview(none, 0, colours));
    EXPECT_FALSE(PaintPreview(none, 7, colours));
    EXPECT_EQ(none.lines, 0);
}

TEST(PreviewPaint, RangeWithCoincidingEndsTakesItsStartColour)
{
    ColumnRecorder strip(0, 8);
    FadeVertical(strip, 10, 20, 30, 200, 200, 200, 0, 0);
    ASSERT_EQ(strip.lines, 1);
    EXPECT_EQ(strip.columns[0], RGBv(10, 20, 30));
}

}  // namespace
