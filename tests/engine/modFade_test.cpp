// The fade engine against the worked examples and rounding cases; every
// expected string is written out by hand.
#include "modFade.h"

#include <gtest/gtest.h>

namespace {

constexpr ColorValue kRed = 255;
constexpr ColorValue kBlue = 16711680;
constexpr ColorValue kWhite = 16777215;
constexpr ColorValue kGreen = 65280;

class FadeTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        Options = OptionsRecord{};
        WavePhase = 0;
    }
    static void Working(int number, std::initializer_list<ColorValue> colors)
    {
        Options.FadeNumber = static_cast<std::int16_t>(number);
        std::size_t i = 0;
        for (ColorValue c : colors) Options.Colors[i++] = c;
    }
    static std::string Fade(std::string text) { return FadeEngine(text); }
};

TEST_F(FadeTest, ColourTextAndTags)
{
    EXPECT_EQ(RGBtoHEX(0), "000000");
    EXPECT_EQ(RGBtoHEX(255), "0000FF");
    EXPECT_EQ(RGBtoHEX(65280), "00FF00");
    EXPECT_EQ(RGBtoHEX(16777215), "FFFFFF");
    EXPECT_EQ(RGBtoHEX(0xABC), "000ABC");
    EXPECT_EQ(RGBtoHEX(-2147483633), "8000000F");  // a system colour keeps all its digits
    EXPECT_EQ(FontTag(kRed), "<FONT COLOR=#FF0000>");
    EXPECT_EQ(FontTag(kBlue), "<FONT COLOR=#0000FF>");
    EXPECT_EQ(FontTag(kWhite), "<FONT COLOR=#FBFBFB>");
    EXPECT_EQ(FontTag(16777214), "<FONT COLOR=#FEFFFF>");
    EXPECT_EQ(FontTag(0xFEFFFF), "<FONT COLOR=#FFFFFE>");
}

TEST_F(FadeTest, WaveStepFromPhaseTwoAndItsCounting)
{
    WavePhase = 2;
    EXPECT_EQ(MakeOneSolidFade("abcde", kRed, true),
              "<FONT COLOR=#FF0000></sup>a<sub>b</sub>c<sup>d</sup>e");
    EXPECT_EQ(WavePhase, 3);
    // Off, the phase still moves on for every visible character, not for spaces.
    WavePhase = 2;
    MakeOneSolidFade("a b", kRed, false);
    EXPECT_EQ(WavePhase, 4);
}

TEST_F(FadeTest, TwoColourWorkedExample)
{
    const std::string plain = "<FONT COLOR=#D4002A>H<FONT COLOR=#AA0055>i <FONT COLOR=#5500AA>a"
                              "<FONT COLOR=#2A00D4>l<FONT COLOR=#0000FF>l";
    EXPECT_EQ(FadeByColor2(kRed, kBlue, "Hi all", false), plain);

    Working(2, {kRed, kBlue});
    Options.Wavy = true;
    Options.Bold = true;
    EXPECT_EQ(Fade("Hi all"),
              "<B><FONT COLOR=#D4002A></sup>H<FONT COLOR=#AA0055><sub>i <FONT COLOR=#5500AA></sub>a"
              "<FONT COLOR=#2A00D4><sup>l<FONT COLOR=#0000FF></sup>l</B>");
}

TEST_F(FadeTest, ThreeColoursRoundHalvesToEvenAndSubstituteWhite)
{
    EXPECT_EQ(FadeByColor3(kBlue, kWhite, kRed, "Hello", false),
              "<FONT COLOR=#8080FF>H<FONT COLOR=#FBFBFB>e<FONT COLOR=#FFAAAA>l"
              "<FONT COLOR=#FF5555>l<FONT COLOR=#FF0000>o");
    // One character: the first segment is empty, the character shows colour 3.
    EXPECT_EQ(FadeByColor3(kRed, kGreen, kBlue, "x", false), "<FONT COLOR=#0000FF>x");
    EXPECT_EQ(FadeByColor2(kRed, kBlue, "x", false), "<FONT COLOR=#0000FF>x");
}

TEST_F(FadeTest, SegmentsAreDealtLikeCards)
{
    using L = std::vector<std::size_t>;
    EXPECT_EQ(SegmentLengths(1, 3), (L{0, 1}));
    EXPECT_EQ(SegmentLengths(3, 3), (L{2, 1}));
    EXPECT_EQ(SegmentLengths(5, 3), (L{2, 3}));
    EXPECT_EQ(SegmentLengths(7, 3), (L{4, 3}));
    EXPECT_EQ(SegmentLengths(9, 3), (L{4, 5}));
    EXPECT_EQ(SegmentLengths(4, 4), (L{2, 1, 1}));
    EXPECT_EQ(SegmentLengths(5, 4), (L{2, 2, 1}));
    EXPECT_EQ(SegmentLengths(10, 4), (L{4, 3, 3}));
    EXPECT_EQ(SegmentLengths(11, 4), (L{4, 4, 3}));
    EXPECT_EQ(SegmentLengths(12, 6), (L{3, 3, 2, 2, 2}));
    EXPECT_EQ(SegmentLengths(2, 4), (L{1, 1, 0}));
}

TEST_F(FadeTest, FourColoursOverTwoCharactersNeverReachTheLast)
{
    // Segments 1, 1, 0: the characters end on colours 2 and 3.
    EXPECT_EQ(FadeByColor4(kRed, kGreen, kBlue, kWhite, "ab", false),
              "<FONT COLOR=#00FF00>a<FONT COLOR=#0000FF>b");
}

TEST_F(FadeTest, SixColoursCarryTheWaveAcrossSegments)
{
    // 12 characters over six colours: 3+3+2+2+2, one wave from phase 2.
    std::string out = FadeByColor6(kRed, kRed, kRed, kRed, kRed, kRed, "abcdefghijkl", true);
    EXPECT_EQ(out,
              "<FONT COLOR=#FF0000></sup>a<FONT COLOR=#FF0000><sub>b<FONT COLOR=#FF0000></sub>c"
              "<FONT COLOR=#FF0000><sup>d<FONT COLOR=#FF0000></sup>e<FONT COLOR=#FF0000><sub>f"
              "<FONT COLOR=#FF0000></sub>g<FONT COLOR=#FF0000><sup>h<FONT COLOR=#FF0000></sup>i"
              "<FONT COLOR=#FF0000><sub>j<FONT COLOR=#FF0000></sub>k<FONT COLOR=#FF0000><sup>l");
}

TEST_F(FadeTest, NothingIsEscaped)
{
    EXPECT_EQ(FadeByColor2(0, 0, "a<b", false),
              "<FONT COLOR=#000000>a<FONT COLOR=#000000><<FONT COLOR=#000000>b");
}

TEST_F(FadeTest, MakeFadeTakesBlueGreenRedPairs)
{
    // From black to (red 10, green 20, blue 40) over two characters.
    EXPECT_EQ(MakeFade("ab", 0, 40, 0, 20, 0, 10, false), "<FONT COLOR=#050A14>a<FONT COLOR=#0A1428>b");
    EXPECT_EQ(MakeFade("", 0, 40, 0, 20, 0, 10, false), "");
}

TEST_F(FadeTest, SolidFadesTakeTurns)
{
    EXPECT_EQ(MakeThreeSolidFade("Hi all", kRed, kWhite, kBlue, false),
              "<FONT COLOR=#FF0000>H<FONT COLOR=#FBFBFB>i <FONT COLOR=#0000FF>a<FONT COLOR=#FF0000>l"
              "<FONT COLOR=#FBFBFB>l");
    EXPECT_EQ(MakeOneSolidFade("Hi all", kRed, false), "<FONT COLOR=#FF0000>Hi all");
    EXPECT_EQ(MakeOneSolidFade("", kRed, false), "<FONT COLOR=#FF0000>");
    EXPECT_EQ(MakeTwoSolidFade("a b c", kRed, kBlue, false),
              "<FONT COLOR=#FF0000>a <FONT COLOR=#0000FF>b <FONT COLOR=#FF0000>c");
    EXPECT_EQ(MakeSixSolidFade("abcdefg", 1, 2, 3, 4, 5, 6, false),
              "<FONT COLOR=#010000>a<FONT COLOR=#020000>b<FONT COLOR=#030000>c<FONT COLOR=#040000>d"
              "<FONT COLOR=#050000>e<FONT COLOR=#060000>f<FONT COLOR=#010000>g");
}

TEST_F(FadeTest, SolidFadesContinueTheWave)
{
    WavePhase = 4;
    EXPECT_EQ(MakeTwoSolidFade("abc", kRed, kBlue, true),
              "<FONT COLOR=#FF0000></sub>a<FONT COLOR=#0000FF><sup>b<FONT COLOR=#FF0000></sup>c");
    // Right after start the first wavy character gets no tag.
    WavePhase = 0;
    EXPECT_EQ(MakeOneSolidFade("ab", kRed, true), "<FONT COLOR=#FF0000>a<sup>b");
}

TEST_F(FadeTest, EngineDispatchAndStyleWrapping)
{
    Working(2, {kRed, kBlue});
    EXPECT_EQ(Fade(""), "");
    Options.Bold = Options.Italic = Options.ULine = true;
    EXPECT_EQ(Fade(""), "");
    EXPECT_EQ(Fade("   "), "<U><I><B>   </B></I></U>");

    Working(1, {kRed});
    EXPECT_EQ(Fade(""), "<U><I><B><FONT COLOR=#FF0000></B></I></U>");
    Options.Bold = Options.Italic = Options.ULine = false;
    EXPECT_EQ(Fade("   "), "<FONT COLOR=#FF0000>   ");
    Options.SolidFade = true;
    EXPECT_EQ(Fade("ok"), "<FONT COLOR=#FF0000>ok");

    Working(0, {});
    Options.Italic = true;
    EXPECT_EQ(Fade("as is"), "<I>as is</I>");
    Working(7, {});
    EXPECT_EQ(Fade("as is"), "<I>as is</I>");

    Options.Italic = false;
    Options.SolidFade = true;
    Working(6, {1, 2, 3, 4, 5, 6});
    EXPECT_EQ(Fade("abcdefg"),
              "<FONT COLOR=#010000>a<FONT COLOR=#020000>b<FONT COLOR=#030000>c<FONT COLOR=#040000>d"
              "<FONT COLOR=#050000>e<FONT COLOR=#060000>f<FONT COLOR=#010000>g");
}

TEST_F(FadeTest, EngineGradientsOverThreeAndFourColours)
{
    // Five characters over three colours split 2 + 3 (2.5 rounds to 2).
    Working(3, {kRed, kGreen, kBlue});
    Options.Bold = true;
    EXPECT_EQ(Fade("abcde"),
              "<B><FONT COLOR=#808000>a<FONT COLOR=#00FF00>b<FONT COLOR=#00AA55>c"
              "<FONT COLOR=#0055AA>d<FONT COLOR=#0000FF>e</B>");

    // Four colours deal 2 + 2 + 1; the wave starts over at its level step
    // whatever an earlier fade left, and white is written as FBFBFB.
    Options = OptionsRecord{};
    Working(4, {kRed, kGreen, kBlue, kWhite});
    Options.Wavy = true;
    WavePhase = 4;
    EXPECT_EQ(Fade("abcde"),
              "<FONT COLOR=#808000></sup>a<FONT COLOR=#00FF00><sub>b<FONT COLOR=#008080></sub>c"
              "<FONT COLOR=#0000FF><sup>d<FONT COLOR=#FBFBFB></sup>e");
    EXPECT_EQ(WavePhase, 3);
}

TEST_F(FadeTest, EngineSolidFadesOverTwoFourAndFiveColours)
{
    Options.SolidFade = true;
    Working(2, {kRed, kBlue});
    Options.Italic = true;
    Options.Wavy = true;
    WavePhase = 4;  // a solid fade goes on with the wave where it stood
    EXPECT_EQ(Fade("a b"), "<I><FONT COLOR=#FF0000></sub>a <FONT COLOR=#0000FF><sup>b</I>");
    EXPECT_EQ(WavePhase, 2);

    Options = OptionsRecord{};
    Options.SolidFade = true;
    Working(4, {1, 2, 3, 4});
    EXPECT_EQ(Fade("abcde"),
              "<FONT COLOR=#010000>a<FONT COLOR=#020000>b<FONT COLOR=#030000>c<FONT COLOR=#040000>d"
              "<FONT COLOR=#010000>e");

    Working(5, {kRed, kGreen, kBlue, kWhite, 0});
    Options.ULine = true;
    EXPECT_EQ(Fade("ab cdef"),
              "<U><FONT COLOR=#FF0000>a<FONT COLOR=#00FF00>b <FONT COLOR=#0000FF>c"
              "<FONT COLOR=#FBFBFB>d<FONT COLOR=#000000>e<FONT COLOR=#FF0000>f</U>");
    EXPECT_EQ(Fade("x"), "<U><FONT COLOR=#FF0000>x</U>") << "every line starts again at colour 1";
}

TEST_F(FadeTest, GradientDrawsOneLinePerUnit)
{
    struct Recorder : DrawSurface {
        double w, h;
        std::vector<std::pair<double, ColorValue>> lines;
        Recorder(double w_, double h_) : w(w_), h(h_) {}
        double ScaleWidth() const override { return w; }
        double ScaleHeight() const override { return h; }
        void Line(double, double y1, double, double, ColorValue c) override { lines.push_back({y1, c}); }
    };
    Recorder strip(50, 100);
    Gradient(strip, kRed, kBlue);
    ASSERT_EQ(strip.lines.size(), 101u);
    EXPECT_EQ(strip.lines.front().second, kRed);
    EXPECT_EQ(strip.lines.back().second, kBlue);
    Recorder flat(50, 0);
    Gradient(flat, kRed, kBlue);
    EXPECT_TRUE(flat.lines.empty());
}

}  // namespace
