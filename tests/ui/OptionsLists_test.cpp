// The options dialog's lists and the line delay's stored text: what the
// dialog selects for a stored value, and that what it stores reads back
// through the loading in the user's locale.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>

#include "Convert.h"
#include "OptionsLists.h"

namespace {

TEST(OptionsLists, EveryLineDelayIsStoredShortAndFoundAgainInEitherLocale)
{
    const auto& choices = BurstChoices();
    ASSERT_EQ(choices.size(), 13u);
    for (std::size_t i = 0; i < choices.size(); ++i) {
        const float burst = BurstOfChoice(choices[i]);
        if (i > 0) {
            EXPECT_GT(burst, BurstOfChoice(choices[i - 1])) << choices[i] << " out of order";
        }
        for (char separator : {'.', ','}) {
            // Stored with the user's separator, loaded with it, the dialog reopens on the same entry.
            const std::string stored = BurstText(burst, separator);
            const auto loaded = ToDouble(stored, separator);
            ASSERT_TRUE(loaded) << stored;
            EXPECT_EQ(BurstIndex(static_cast<float>(*loaded)), static_cast<int>(i)) << stored;
            EXPECT_LE(stored.size(), choices[i].size()) << stored;
        }
    }
    EXPECT_EQ(BurstText(1.5f, '.'), "1.5");
    EXPECT_EQ(BurstText(0.1f, ','), "0,1");
    EXPECT_EQ(BurstText(2.0f, ','), "2");
    EXPECT_EQ(BurstText(1.3f, '.'), "1.3");
}

TEST(OptionsLists, AValueNotInTheListSelectsNothing)
{
    EXPECT_EQ(BurstIndex(1.3f), -1);  // edited by hand
    EXPECT_EQ(BurstIndex(0.0f), -1);
    const auto& lines = LineChoices();
    ASSERT_EQ(lines.size(), 73u);
    EXPECT_EQ(lines.front(), "20");
    EXPECT_EQ(lines.back(), "92");
    EXPECT_EQ(LinesIndex(60), 40);
    EXPECT_EQ(LinesIndex(19), -1);
    EXPECT_EQ(LinesIndex(93), -1);
}

// A comma locale in the C runtime (where one is installed) must change
// neither how the fixed entries are read nor the separator asked for.
TEST(OptionsLists, ACommaLocaleChangesOnlyTheSeparatorAskedFor)
{
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    const bool comma = std::setlocale(LC_NUMERIC, "de_DE.UTF-8") || std::setlocale(LC_NUMERIC, "German");
    char probe[16] = {};
    std::snprintf(probe, sizeof probe, "%.1f", 1.5);
    const float fromEntry = BurstOfChoice("1.50");
    const std::string dot = BurstText(1.5f, '.'), commaText = BurstText(1.5f, ',');
    std::setlocale(LC_NUMERIC, before.c_str());
    if (!comma || std::string(probe) != "1,5") GTEST_SKIP() << "no comma locale installed here";
    EXPECT_EQ(fromEntry, 1.5f);
    EXPECT_EQ(dot, "1.5");
    EXPECT_EQ(commaText, "1,5");
}

}  // namespace
