// The options dialog's lists and the line delay's stored text: what the
// dialog selects for a stored value, and that what it stores reads back
// through the loading in the user's locale.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <set>

#include "Convert.h"
#include "OptionsLists.h"

namespace {

TEST(OptionsLists, EveryLineDelayEntryIsFoundAgainFromWhatItStores)
{
    const auto& choices = BurstChoices();
    ASSERT_EQ(choices.size(), 13u);
    std::set<float> seen;
    for (std::size_t i = 0; i < choices.size(); ++i) {
        const float burst = BurstOfChoice(choices[i]);
        EXPECT_TRUE(seen.insert(burst).second) << choices[i] << " repeats an entry";
        if (i > 0) {
            EXPECT_GT(burst, BurstOfChoice(choices[i - 1])) << choices[i] << " out of order";
        }
        for (char separator : {'.', ','}) {
            // Stored with the user's separator, loaded with it, the dialog reopens on the same entry.
            const std::string stored = BurstText(burst, separator);
            const auto loaded = ToDouble(stored, separator);
            ASSERT_TRUE(loaded) << stored;
            EXPECT_EQ(BurstIndex(static_cast<float>(*loaded)), static_cast<int>(i)) << stored;
        }
    }
    EXPECT_EQ(BurstOfChoice("0.10"), 0.1f);
    EXPECT_EQ(BurstOfChoice("3"), 3.0f);
}

TEST(OptionsLists, TheDelayIsStoredAsItsShortestText)
{
    EXPECT_EQ(BurstText(1.5f, '.'), "1.5");
    EXPECT_EQ(BurstText(1.5f, ','), "1,5");
    EXPECT_EQ(BurstText(0.1f, '.'), "0.1");
    EXPECT_EQ(BurstText(0.25f, ','), "0,25");
    EXPECT_EQ(BurstText(2.0f, ','), "2");
    EXPECT_EQ(BurstText(1.3f, '.'), "1.3");
}

TEST(OptionsLists, AValueNotInTheListSelectsNothing)
{
    EXPECT_EQ(BurstIndex(1.5f), 6);
    EXPECT_EQ(BurstIndex(1.3f), -1);   // edited by hand
    EXPECT_EQ(BurstIndex(0.0f), -1);
    EXPECT_EQ(LinesIndex(20), 0);
    EXPECT_EQ(LinesIndex(60), 40);
    EXPECT_EQ(LinesIndex(92), 72);
    EXPECT_EQ(LinesIndex(19), -1);
    EXPECT_EQ(LinesIndex(93), -1);
    const auto& lines = LineChoices();
    ASSERT_EQ(lines.size(), 73u);
    EXPECT_EQ(lines.front(), "20");
    EXPECT_EQ(lines.back(), "92");
}

// A comma locale in the C runtime (where one is installed) must not change
// how the fixed entries are read nor the separator the caller asked for.
TEST(OptionsLists, ACommaLocaleChangesOnlyTheSeparatorAskedFor)
{
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    const bool comma = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") || std::setlocale(LC_NUMERIC, "German");
    char probe[16] = {};
    std::snprintf(probe, sizeof probe, "%.1f", 1.5);
    if (!comma || std::string(probe) != "1,5") {
        std::setlocale(LC_NUMERIC, before.c_str());
        GTEST_SKIP() << "no comma locale installed here";
    }
    const float fromEntry = BurstOfChoice("1.50");
    const std::string dot = BurstText(1.5f, '.'), commaText = BurstText(1.5f, ',');
    const int index = BurstIndex(1.25f);
    std::setlocale(LC_NUMERIC, before.c_str());
    EXPECT_EQ(fromEntry, 1.5f);
    EXPECT_EQ(dot, "1.5");
    EXPECT_EQ(commaText, "1,5");
    EXPECT_EQ(index, 5);
}

}  // namespace
