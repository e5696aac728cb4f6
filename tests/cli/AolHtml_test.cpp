// The AOL HTML reader: what a person sees of a received chat line.
#include "AolHtml.h"

#include <gtest/gtest.h>

namespace {

std::string Shown(const std::vector<AolRun>& runs)
{
    std::string text;
    for (const AolRun& r : runs) text += r.text;
    return text;
}

TEST(AolHtml, FadedLineShowsEachCharacterInItsColour)
{
    const auto runs = ReadAolHtml("<FONT COLOR=#D4002A>H<FONT COLOR=#AA0055>i <FONT COLOR=#5500AA>a");
    ASSERT_EQ(runs.size(), 3u);
    EXPECT_EQ(runs[0].text, "H");
    EXPECT_EQ(runs[0].color, 0x2A00D4);  // stored as 0x00BBGGRR
    EXPECT_EQ(runs[1].text, "i ");
    EXPECT_EQ(runs[1].color, 0x5500AA);
    EXPECT_EQ(runs[2].text, "a");
    EXPECT_EQ(runs[2].color, 0xAA0055);
}

TEST(AolHtml, StylesAndWaveInAnyCase)
{
    const auto runs = ReadAolHtml("<u><I><b><font color=#00ff00>a<sup>b</SUP>c<sub>d</sub>e</B></i></U>f");
    ASSERT_EQ(runs.size(), 6u);
    EXPECT_EQ(Shown(runs), "abcdef");
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(runs[i].bold && runs[i].italic && runs[i].underline) << i;
        EXPECT_EQ(runs[i].color, 0x00FF00) << i;
    }
    EXPECT_EQ(runs[1].baseline, 1);
    EXPECT_EQ(runs[2].baseline, 0);
    EXPECT_EQ(runs[3].baseline, -1);
    EXPECT_EQ(runs[4].baseline, 0);
    EXPECT_FALSE(runs[5].bold || runs[5].italic || runs[5].underline);
    EXPECT_EQ(runs[5].color, 0x00FF00);  // FONT stays open
}

TEST(AolHtml, FontAttributesBesidesColourAndClosingFont)
{
    // As a scheme e-mail writes them: other attributes, doubled blanks, quotes.
    auto runs = ReadAolHtml("<FONT COLOR=#0000ff FONT  SIZE=2 PTSIZE=8>x<Font Size=3 face=\"Arial\">y"
                            "</FONT>z</FONT>w<FONT color='#FF0000'>v");
    ASSERT_EQ(runs.size(), 3u);
    EXPECT_EQ(runs[0].text, "xyz");  // a FONT without COLOR keeps the colour
    EXPECT_EQ(runs[0].color, 0xFF0000);
    EXPECT_EQ(runs[1].text, "w");    // all fonts closed: black again
    EXPECT_EQ(runs[1].color, 0);
    EXPECT_EQ(runs[2].color, 0x0000FF);

    runs = ReadAolHtml("<FONT COLOR=#12345>a<FONT COLOR=#GG0000>b");
    ASSERT_EQ(runs.size(), 1u);      // unreadable colours change nothing
    EXPECT_EQ(runs[0].color, 0);
}

TEST(AolHtml, OtherTagsAreDroppedAndTagLikeTextIsATag)
{
    EXPECT_EQ(Shown(ReadAolHtml("<HTML><P ALIGN=LEFT>a<BR>b<A HREF=\"x\">c</A><!-- n --></P></HTML>")),
              "abc");
    // What the sender typed as "<b>" arrives unescaped and turns bold on.
    const auto runs = ReadAolHtml("x<b>y");
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_TRUE(runs[1].bold);
    EXPECT_EQ(runs[1].text, "y");
}

TEST(AolHtml, LessThanThatStartsNoTagIsText)
{
    EXPECT_EQ(Shown(ReadAolHtml("a < b <3 <= </ x")), "a < b <3 <= </ x");
    EXPECT_EQ(Shown(ReadAolHtml("see <b and <i")), "see <b and <i");  // never closed
    EXPECT_EQ(Shown(ReadAolHtml("<")), "<");
    EXPECT_EQ(Shown(ReadAolHtml("a<<FONT COLOR=#FF0000><b")), "a<<b");
    EXPECT_TRUE(ReadAolHtml("").empty());
    EXPECT_TRUE(ReadAolHtml("<B></B>").empty());
}

}  // namespace
