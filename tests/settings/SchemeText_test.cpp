// Scheme-file lines and files, the catalogue and the number conversions the
// stored settings go through.
#include "Catalog.h"
#include "Convert.h"
#include "SchemeText.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <cctype>
#include <set>

namespace {

std::string Lower(std::string s)
{
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

TEST(SchemeLine, KeysMatchInAnyCaseAndKeepTheirSpelling)
{
    auto upper = ParseSchemeText("ONE=255");
    ASSERT_TRUE(upper);
    EXPECT_EQ(upper->name, "ONE");
    EXPECT_EQ(upper->value, "255");

    auto number = ParseSchemeText("FADENUMBER=3");
    ASSERT_TRUE(number);
    EXPECT_EQ(number->name, "Fade Number");

    auto style = ParseSchemeText("uLiNe=True");
    ASSERT_TRUE(style);
    EXPECT_EQ(style->name, "uLiNe");
}

TEST(SchemeLine, ValueIsEverythingAfterTheFirstEqualsUntrimmed)
{
    auto line = ParseSchemeText("Two=12=34");
    ASSERT_TRUE(line);
    EXPECT_EQ(line->name, "Two");
    EXPECT_EQ(line->value, "12=34");
    EXPECT_EQ(ParseSchemeText("Three= 7 ")->value, " 7 ");
    EXPECT_EQ(ParseSchemeText("Four=")->value, "");
}

TEST(SchemeLine, LinesWithoutASchemeKeyStoreNothing)
{
    for (const char* line : {"[Colors]", "", "One 255", "Fade Number=5", "SolidFade=True", " One=1", "One =1",
                             "Default=Cool Fade", "=5", "Seven=1"})
        EXPECT_FALSE(ParseSchemeText(line)) << line;
}

TEST(SchemeFile, SplitsOnEveryKindOfLineEnd)
{
    using Lines = std::vector<std::string>;
    EXPECT_EQ(SplitSchemeLines("a\r\nb\rc\nd"), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(SplitSchemeLines("a\r\n\r\nb\r\n"), (Lines{"a", "", "b"}));
    EXPECT_EQ(SplitSchemeLines("\n\r"), (Lines{"", ""}));
    EXPECT_EQ(SplitSchemeLines(""), Lines{});
}

// A file read a piece at a time gives the same lines as read whole, whatever
// the piece size, even with a CR LF cut between two pieces; a line longer
// than the limit is passed over whole and the next one is read again.
TEST(SchemeFile, PiecesGiveTheSameLinesAndOverlongLinesArePassedOver)
{
    using Lines = std::vector<std::string>;
    const std::string text = "One=1\r\nTwo=2\rThree=3\n\r\nSix=6";
    for (std::size_t piece = 1; piece <= text.size(); ++piece) {
        Lines got;
        auto keep = [&got](const std::string& line) { got.push_back(line); };
        SchemeLineSplitter splitter;
        for (std::size_t at = 0; at < text.size(); at += piece)
            splitter.Add(text.data() + at, std::min(piece, text.size() - at), keep);
        splitter.Finish(keep);
        EXPECT_EQ(got, SplitSchemeLines(text)) << piece;
        EXPECT_EQ(got, (Lines{"One=1", "Two=2", "Three=3", "", "Six=6"})) << piece;
    }
    const std::string longest(kSchemeLineLimit, 'x');
    EXPECT_EQ(SplitSchemeLines("One=" + std::string(kSchemeLineLimit, '7') + "\nTwo=2\n" + longest + "\n" +
                               longest + "y"),
              (Lines{"Two=2", longest}));
}

TEST(SchemeFile, OnlyLongNamesEndingInFdeAreSchemeFiles)
{
    for (const char* name : {"Cool.fde", "LOUD.FDE", "x.Fde", ".fde", "a.b.fde"}) EXPECT_TRUE(IsSchemeFileName(name)) << name;
    for (const char* name : {"x.fdex", "x.fde.txt", "fde", "x.fd", "xfde", ""}) EXPECT_FALSE(IsSchemeFileName(name)) << name;
}

TEST(SchemeFile, WrittenInTheFixedOrderWithCrLf)
{
    SchemeTexts s;
    s.fadeNumber = "3";
    s.colors[0] = "255";
    s.colors[1] = "-16777216";
    s.colors[2] = "65280";
    s.bold = "True";
    s.wavy = "False";
    s.italic = "True";
    EXPECT_EQ(FormatSchemeFile(s),
              "[Options]\r\nFadeNumber=3\r\n\r\n"
              "[Colors]\r\nOne=255\r\nTwo=-16777216\r\nThree=65280\r\nFour=0\r\nFive=0\r\nSix=0\r\n\r\n"
              "[Style]\r\nWavy=False\r\nBold=True\r\nItalic=True\r\nULine=False\r\n");
}

TEST(SchemeFile, UnreadableColoursAndStylesAreWrittenAsZeroAndFalse)
{
    SchemeTexts s;
    s.fadeNumber = "x";  // written as it stands
    s.colors[0] = "red";
    s.colors[1] = " 42 ";
    s.colors[2] = "99999999999";
    s.wavy = "maybe";
    s.bold = " ";
    const std::string text = FormatSchemeFile(s);
    EXPECT_NE(text.find("FadeNumber=x\r\n"), std::string::npos);
    EXPECT_NE(text.find("One=0\r\nTwo=42\r\nThree=0\r\n"), std::string::npos);
    EXPECT_NE(text.find("Wavy=False\r\nBold=False\r\n"), std::string::npos);
}

TEST(SchemeFile, LaterLinesWinAndHeadersMeanNothing)
{
    SchemeTexts s = ParseSchemeFile("[Style]\nOne=1\r\n[Colors]\rone=2\r\nBOLD=True\nFadeNumber=2");
    EXPECT_EQ(s.colors[0], "2");
    EXPECT_EQ(s.bold, "True");
    EXPECT_EQ(s.fadeNumber, "2");
}

TEST(Catalog, NamesEverySettingOnce)
{
    std::set<std::string> seen;
    for (std::size_t i = 0; i < kCatalogSize; ++i) {
        const std::string key = Lower(std::string(kCatalog[i].section) + "\\" + kCatalog[i].name);
        EXPECT_TRUE(seen.insert(key).second) << key;
    }
    EXPECT_EQ(SchemeSection("Cool Fade"), "Schemes\\Cool Fade");
    EXPECT_EQ(std::string(kSettingsRoot), "Software\\Zun Software\\Prismo\\");
}

TEST(Convert, WholeTrimmedTextMustBeANumber)
{
    EXPECT_EQ(ToLong(" -42 "), -42);
    EXPECT_EQ(ToLong("2147483647"), 2147483647);
    EXPECT_FALSE(ToLong("2147483648"));
    EXPECT_FALSE(ToLong("12abc"));
    EXPECT_FALSE(ToLong("1 2"));
    EXPECT_FALSE(ToLong("-"));
    EXPECT_FALSE(ToInteger("40000"));
    EXPECT_EQ(ToDouble("1,5", ','), 1.5);
    EXPECT_FALSE(ToDouble("1.5", ','));
    EXPECT_FALSE(ToDouble("1.2.3"));
    EXPECT_EQ(ToBool("TRUE"), true);
    EXPECT_EQ(ToBool("0"), false);
    EXPECT_FALSE(ToBool("yes"));
}

}  // namespace
