// The multiline sender's decisions without any window: the line limit, what
// each wrapped line becomes, the progress value, the narrowing of the
// wrapping box, and what a text file gives the window.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "MultilineText.h"

TEST(MultilineDecisions, LimitPaceLinesAndProgress)
{
    EXPECT_EQ(MultilineLimit(true, 60), 60);
    EXPECT_EQ(MultilineLimit(true, 65546), 10);  // "Chars In Line" counts as 16 bits
    EXPECT_EQ(MultilineLimit(true, 65535), -1);
    EXPECT_EQ(MultilineLimit(false, 60), 84);

    EXPECT_EQ(BurstDelay(1.5f), 1500u);
    EXPECT_EQ(BurstDelay(0.0f), 0u);
    EXPECT_EQ(BurstDelay(-2.0f), 0u);
    EXPECT_EQ(BurstDelay(std::nanf("")), 0u);
    EXPECT_EQ(BurstDelay(std::numeric_limits<float>::infinity()), 86400000u);

    EXPECT_FALSE(ChatLineFor("").has_value());  // skipped, and no wait for it
    for (const char* alone : {"\r", "\n", " "}) EXPECT_EQ(ChatLineFor(alone).value(), "\xA0") << int(alone[0]);
    EXPECT_EQ(ChatLineFor("  ").value(), "  ");
    EXPECT_EQ(ChatLineFor("\r\n").value(), "\r\n");

    EXPECT_EQ(MultilineProgress(0, 3), 0);
    EXPECT_EQ(MultilineProgress(2, 3), 66);  // the whole part, not rounded
    EXPECT_EQ(MultilineProgress(99999, 100000), 99);
    EXPECT_EQ(MultilineProgress(0, 0), 0);
}

namespace {

// A box of `chars` characters per twip-thousand: each pass wraps `total`
// characters into lines of at most width / 1000 * perThousand.
struct FakeBox {
    long total;
    long perThousand;
    std::vector<long> widths;  // every width asked for, in order
    std::vector<long> operator()(long width)
    {
        widths.push_back(width);
        const long perLine = std::max(1L, width / 1000 * perThousand);
        std::vector<long> lengths;
        for (long left = total; left > 0; left -= perLine) lengths.push_back(std::min(left, perLine));
        return lengths;
    }
};

}  // namespace

TEST(MultilineFitting, NarrowsUntilEveryLineFitsOrTheMinimumIsReached)
{
    FakeBox box{200, 10, {}};  // 9000 twips: lines of 90
    EXPECT_EQ(FitWidth(9000, kMinimumWrapWidth, 84, std::ref(box)), 8000);
    EXPECT_EQ(box.widths, (std::vector<long>{9000, 8000}));

    FakeBox fits{200, 10, {}};
    EXPECT_EQ(FitWidth(9000, kMinimumWrapWidth, 90, std::ref(fits)), 9000);

    // A limit no width meets stops at the minimum instead of going on for ever.
    for (long limit : {0L, 5L, -1L}) {
        FakeBox tiny{200, 10, {}};
        EXPECT_EQ(FitWidth(9000, kMinimumWrapWidth, limit, std::ref(tiny)), 1000) << limit;
        EXPECT_EQ(tiny.widths.size(), 9u);
    }
    // Each pass looks at all the lines again: an over-long line after the
    // first pass's count (the narrowing adds lines) is still found.
    int pass = 0;
    const WrappedLengths growing = [&](long) {
        ++pass;
        return pass == 1 ? std::vector<long>{90} : pass == 2 ? std::vector<long>{50, 95} : std::vector<long>{50, 40, 5};
    };
    EXPECT_EQ(FitWidth(9000, kMinimumWrapWidth, 60, growing), 7000);
}

TEST(MultilineText, FilesAndFullLines)
{
    EXPECT_EQ(MultilineFileText("one\ntwo\r\nthree\n").value(), "one\r\ntwo\r\nthree\r\n");
    EXPECT_EQ(MultilineFileText(std::string("before\0after", 12)).value(), "before");
    EXPECT_EQ(MultilineFileText("").value(), "");
    EXPECT_EQ(MultilineFileText(std::string(kMultilineMaxText, 'x'))->size(), kMultilineMaxText);
    EXPECT_FALSE(MultilineFileText(std::string(kMultilineMaxText + 1, 'x')).has_value());
    // A file within the limit whose line ends grow past it is refused too.
    EXPECT_FALSE(MultilineFileText(std::string(kMultilineMaxText - 1, 'x') + "\n").has_value());

    EXPECT_EQ(AddFullLine("", "typed line"), "typed line");
    EXPECT_EQ(AddFullLine("kept", "typed line"), "kept\r\ntyped line");
    EXPECT_EQ(AddFullLine("kept\r\n", "typed line"), "kept\r\ntyped line");
    EXPECT_EQ(AddFullLine("kept", ""), "kept");
}
