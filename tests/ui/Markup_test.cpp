// The markup tokeniser, the word wrapping and growing of the message area
// (on a fake area with fixed-width letters), and the style decoding.
#include <gtest/gtest.h>

#include "Markup.h"

namespace {

std::string Describe(const std::vector<MarkupPiece>& pieces)
{
    std::string out;
    for (const MarkupPiece& p : pieces) {
        if (p.lineBreak) {
            out += "|";
            continue;
        }
        out += "[";
        if (p.style.bold) out += "b";
        if (p.style.italic) out += "i";
        if (p.style.underline) out += "u";
        if (p.style.color == 0x0000FF) out += "R";
        if (p.style.color == 0x00FF00) out += "G";
        if (p.style.color == 0xFF0000) out += "B";
        out += ":" + p.text + "]";
    }
    return out;
}

// Letters 6 pixels wide (7 in bold), lines 13 high; records what is printed.
class FakeArea : public MarkupSurface {
public:
    FakeArea(int width, int height) : width_(width), height_(height) {}
    void Clear() override { printed.clear(); }
    void SetStyle(const TextStyle& style) override { bold_ = style.bold; }
    int TextWidth(const std::string& text) override { return static_cast<int>(text.size()) * (bold_ ? 7 : 6); }
    int LineHeight() override { return 13; }
    void Print(int x, int y, const std::string& text) override
    {
        printed.push_back(std::to_string(x) + "," + std::to_string(y) + ":" + text);
    }
    int Width() const override { return width_; }
    int Height() const override { return height_; }
    void Grow(int pixels) override
    {
        grows.push_back(pixels);
        height_ = pixels + 2;  // 30 twips at 15 twips a pixel
    }
    std::vector<std::string> printed;
    std::vector<int> grows;

private:
    int width_, height_;
    bool bold_ = false;
};

}  // namespace

TEST(TokeniseMarkup, CodesSwitchStylesWhereTheyStandInEitherCase)
{
    EXPECT_EQ(Describe(TokeniseMarkup("You must be in a ~B~CRchat room~B~CN to use this feature!")),
              "[:You must be in a ][bR:chat room][: to use this feature!]");
    EXPECT_EQ(Describe(TokeniseMarkup("You must be in a ~b~crchat room~b~cn to use this feature!")),
              "[:You must be in a ][bR:chat room][: to use this feature!]");
    EXPECT_EQ(Describe(TokeniseMarkup("~I~Ua~Ib~U~CGc~CBd")), "[iu:a][u:b][G:c][B:d]");
}

TEST(TokeniseMarkup, UnknownCodesAndAFinalTildeChangeNothingAndPrintNothing)
{
    EXPECT_EQ(Describe(TokeniseMarkup("a~Qb~CXc~~d~")), "[:a][:b][:c][:d]");
    EXPECT_EQ(Describe(TokeniseMarkup("~CRa~CZb")), "[R:a][R:b]") << "an unknown colour keeps the colour";
    EXPECT_EQ(Describe(TokeniseMarkup("end~C")), "[:end]");
    EXPECT_EQ(Describe(TokeniseMarkup("   padded  ~N ~Nnext  ")), "[:padded  ]|[: ]|[:next]");
    EXPECT_TRUE(TokeniseMarkup("").empty());
}

TEST(NextWord, KeepsALeadingBlankWithItsWord)
{
    EXPECT_EQ(NextWord("one two"), "one ");
    EXPECT_EQ(NextWord(" two three"), " two ");
    EXPECT_EQ(NextWord("last"), "last");
    EXPECT_EQ(NextWord(" "), " ");
}

TEST(RenderMarkup, WrapsWordByWordAndBlankLinesPrintNothing)
{
    FakeArea area(51 + 60 + 2, 200);  // room for ten letters
    RenderMarkup(area, "aaaa bbbb cccc~N ~Ndd");
    EXPECT_EQ(area.printed, (std::vector<std::string>{"51,6:aaaa ", "81,6:bbbb ", "51,19:cccc", "51,45:dd"}));
    EXPECT_TRUE(area.grows.empty());
}

TEST(RenderMarkup, AWordWiderThanTheAreaRunsPastOnItsOwnLine)
{
    FakeArea area(51 + 30 + 2, 200);
    RenderMarkup(area, "ab abcdefghij cd");
    EXPECT_EQ(area.printed, (std::vector<std::string>{"51,6:ab ", "51,19:abcdefghij ", "51,32:cd"}));
}

TEST(RenderMarkup, GrowsTheAreaBeforeALineWouldRunPastItsBottom)
{
    FakeArea area(200, 40);
    RenderMarkup(area, "one~Ntwo~Nthree~Nfour~Nfive");
    // Line tops 6, 19, 32, 45, 58: a break grows the area when the line
    // after the next would not fit, so each grown area holds two more lines.
    EXPECT_EQ(area.grows, (std::vector<int>{19 + 26 + 12, 45 + 26 + 12}));
    EXPECT_EQ(area.printed.back(), "51,58:five");
    EXPECT_LE(58 + 13, area.Height());
}

TEST(RenderMarkup, MeasuresEachRunInItsOwnStyle)
{
    FakeArea area(51 + 70 + 2, 200);
    RenderMarkup(area, "~Bbold~B more words");
    EXPECT_EQ(area.printed, (std::vector<std::string>{"51,6:bold", "79,6: more ", "51,19:words"}));
}

TEST(DecodeMsgStyle, SubtractsFromTheTop)
{
    MsgStyle s = DecodeMsgStyle(68, true);
    EXPECT_EQ(s.buttons, 4);
    EXPECT_EQ(s.icon, 64);
    EXPECT_EQ(s.firstInTab, 0);
    EXPECT_FALSE(s.modeless);

    s = DecodeMsgStyle(324, true);
    EXPECT_EQ(s.firstInTab, 1);
    EXPECT_EQ(s.buttons, 4);

    s = DecodeMsgStyle(512 + 32 + 3, true);
    EXPECT_EQ(s.firstInTab, 0);
    EXPECT_EQ(s.icon, 32);
    EXPECT_EQ(s.buttons, 3);

    s = DecodeMsgStyle(4160, false);
    EXPECT_TRUE(s.modeless);
    EXPECT_EQ(s.icon, 64);
    EXPECT_EQ(s.buttons, 0);

    // ShowMsg reads no button or focus values: 256 + 4 is not a button set.
    s = DecodeMsgStyle(256 + 4 + 16, false);
    EXPECT_EQ(s.buttons, 0);
    EXPECT_EQ(s.firstInTab, 0);
}

TEST(ButtonSet, LastButtonIsCommandZeroAndAnswersFollowTheCaptions)
{
    const auto yesNoCancel = ButtonSet(3);
    ASSERT_EQ(yesNoCancel.size(), 3u);
    EXPECT_EQ(yesNoCancel[0].caption, "&Yes");
    EXPECT_EQ(yesNoCancel[0].answer, 6);
    EXPECT_EQ(yesNoCancel[2].caption, "Cancel");
    EXPECT_EQ(yesNoCancel[2].answer, 2);
    EXPECT_EQ(ButtonSet(2)[1].answer, 4);
    EXPECT_EQ(ButtonSet(5)[0].caption, "&Retry");
    EXPECT_EQ(ButtonSet(0).size(), 1u);
    EXPECT_EQ(ButtonSet(1)[1].caption, "Cancel");
}
