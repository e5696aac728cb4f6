// Loading the Options record: defaults, the four interpretation rules, and
// what a number that does not convert does to the load. Runs over an
// in-memory store so each rule can be set up exactly.
#include "Catalog.h"
#include "ErrorTrap.h"
#include "MemoryStore.h"
#include "Options.h"
#include "OptionsLoad.h"
#include "modRegKeys.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace {

class OptionsLoadTest : public ::testing::Test, public ErrorReporter {
protected:
    void SetUp() override
    {
        MemoryStore::Clear();
        Options = OptionsRecord{};
        reports.clear();
        aborted = false;
        answer = AnswerIgnore;
        SetErrorReporter(this);
    }
    void TearDown() override { SetErrorReporter(nullptr); }
    int Report(const ErrorReport& r) override
    {
        reports.push_back(r);
        if (onReport) onReport();
        return answer;
    }
    void Abort() override { aborted = true; }

    std::vector<ErrorReport> reports;
    bool aborted = false;
    int answer = AnswerIgnore;
    std::function<void()> onReport;
};

TEST_F(OptionsLoadTest, FreshInstallationGivesTheDefaults)
{
    LoadOptionsWith(MemoryStore::Store(), '.');
    LoadUserColors(MemoryStore::Store());
    EXPECT_TRUE(reports.empty());
    EXPECT_TRUE(Options.FaderOn);
    EXPECT_EQ(Options.FadeNumber, 5);
    for (ColorValue c : Options.Colors) EXPECT_EQ(c, 0);
    EXPECT_FALSE(Options.Bold || Options.Italic || Options.ULine || Options.Wavy || Options.SolidFade);
    EXPECT_EQ(Options.DefaultScheme, "Cool Fade");
    EXPECT_FLOAT_EQ(Options.MultilineBurst, 1.5f);
    EXPECT_EQ(Options.CharsInLine, 60);
    EXPECT_TRUE(Options.UseChatKW && Options.ShowFadePanelWithChat && Options.UseMultiline &&
                Options.ShowEMailSample && Options.ShowEFToolbar);
    EXPECT_FALSE(Options.UseAlias);
    EXPECT_EQ(Options.AliasName, "");
    EXPECT_EQ(Options.WindowColor, static_cast<ColorValue>(0x8000000F));
    EXPECT_EQ(Options.ButtonForecolor, 11365632);
    EXPECT_EQ(Options.ButtonHighlight, 16757388);
    EXPECT_EQ(Options.ButtonText, 16777215);
}

TEST_F(OptionsLoadTest, StoredValuesAreLoaded)
{
    WriteSetting(Setting::FaderOn, "False");
    WriteSetting(Setting::DefaultScheme, "Ocean");
    WriteSetting(Setting::FadeNumber, "3");
    WriteSetting(Setting::Colors[0], "255");
    WriteSetting(Setting::Colors[5], "-1");
    WriteSetting(Setting::Bold, "True");
    WriteSetting(Setting::SolidFade, "True");
    WriteSetting(Setting::UseChatKW, "False");
    WriteSetting(Setting::MultilineBurst, "2.25");
    WriteSetting(Setting::CharsInLine, " 80 ");
    WriteSetting(Setting::AliasName, "Zun");
    LoadOptionsWith(MemoryStore::Store(), '.');
    EXPECT_TRUE(reports.empty());
    EXPECT_FALSE(Options.FaderOn);
    EXPECT_EQ(Options.DefaultScheme, "Ocean");
    EXPECT_EQ(Options.FadeNumber, 3);
    EXPECT_EQ(Options.Colors[0], 255);
    EXPECT_EQ(Options.Colors[5], -1);
    EXPECT_TRUE(Options.Bold);
    EXPECT_TRUE(Options.SolidFade);
    EXPECT_FALSE(Options.UseChatKW);
    EXPECT_FLOAT_EQ(Options.MultilineBurst, 2.25f);
    EXPECT_EQ(Options.CharsInLine, 80);
    EXPECT_EQ(Options.AliasName, "Zun");
}

TEST_F(OptionsLoadTest, BooleansCompareExactlyAndUnknownTextsChangeNothing)
{
    // Lower case is not "False": the field keeps the value it had.
    WriteSetting(Setting::FaderOn, "false");
    WriteSetting(Setting::SolidFade, "TRUE");
    WriteSetting(Setting::Italic, "1");
    WriteSetting(Setting::UseChatKW, "true");
    Options.Italic = true;
    LoadOptionsWith(MemoryStore::Store(), '.');
    EXPECT_FALSE(Options.FaderOn);
    EXPECT_FALSE(Options.UseChatKW);
    EXPECT_FALSE(Options.SolidFade);
    EXPECT_TRUE(Options.Italic);

    // One space is what the store keeps for an empty text; it is not empty.
    Options = OptionsRecord{};
    WriteSetting(Setting::ShowEFToolbar, " ");
    WriteSetting(Setting::Wavy, " ");
    Options.Wavy = true;
    LoadOptionsWith(MemoryStore::Store(), '.');
    EXPECT_FALSE(Options.ShowEFToolbar);
    EXPECT_TRUE(Options.Wavy);
}

TEST_F(OptionsLoadTest, TextsAreTakenAsRead)
{
    WriteSetting(Setting::AliasName, "");  // stored as one space
    WriteSetting(Setting::DefaultScheme, "");
    LoadOptionsWith(MemoryStore::Store(), '.');
    EXPECT_EQ(Options.AliasName, " ");
    EXPECT_EQ(Options.DefaultScheme, " ");
}

TEST_F(OptionsLoadTest, BurstFollowsTheUsersDecimalSeparator)
{
    WriteSetting(Setting::MultilineBurst, "0,75");
    LoadOptionsWith(MemoryStore::Store(), ',');
    EXPECT_TRUE(reports.empty());
    EXPECT_FLOAT_EQ(Options.MultilineBurst, 0.75f);

    LoadOptionsWith(MemoryStore::Store(), '.');
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_EQ(reports[0].number, "13");
}

TEST_F(OptionsLoadTest, NumberThatDoesNotConvertIsReportedAndIgnoreGoesOn)
{
    WriteSetting(Setting::FadeNumber, "five");
    WriteSetting(Setting::Colors[0], "255");
    WriteSetting(Setting::CharsInLine, "70000000000");
    WriteSetting(Setting::SolidFade, "True");
    Options.FadeNumber = 2;
    LoadOptionsWith(MemoryStore::Store(), '.');
    ASSERT_EQ(reports.size(), 2u);
    EXPECT_EQ(reports[0].module, "modPrismo");
    EXPECT_EQ(reports[0].procedure, "LoadOptions");
    EXPECT_EQ(reports[0].number, "13");
    EXPECT_EQ(Options.FadeNumber, 2);  // unchanged
    EXPECT_EQ(Options.Colors[0], 255);
    EXPECT_EQ(Options.CharsInLine, 0);
    EXPECT_TRUE(Options.SolidFade);  // the last value is still read
}

TEST_F(OptionsLoadTest, AbortStopsTheLoadWhereItFailed)
{
    WriteSetting(Setting::Bold, "True");
    WriteSetting(Setting::FadeNumber, "x");
    WriteSetting(Setting::Colors[0], "255");
    answer = AnswerAbort;
    LoadOptionsWith(MemoryStore::Store(), '.');
    EXPECT_TRUE(aborted);
    EXPECT_EQ(reports.size(), 1u);
    EXPECT_TRUE(Options.Bold);         // read before the failure
    EXPECT_EQ(Options.Colors[0], 0);   // never read
    EXPECT_TRUE(Options.FaderOn);      // the first value read
    EXPECT_FALSE(Options.UseChatKW);   // one of the last, never read
}

TEST_F(OptionsLoadTest, RetryReadsTheValueAgain)
{
    WriteSetting(Setting::FadeNumber, "6x");
    answer = AnswerRetry;
    onReport = [] { WriteSetting(Setting::FadeNumber, "6"); };
    LoadOptionsWith(MemoryStore::Store(), '.');
    EXPECT_EQ(reports.size(), 1u);
    EXPECT_EQ(Options.FadeNumber, 6);
}

TEST_F(OptionsLoadTest, UserColoursAreTrimmedAndMustBeNumbers)
{
    WriteSetting(Setting::WindowColor, "");  // one space: the default
    WriteSetting(Setting::ButtonForecolor, "  255 ");
    WriteSetting(Setting::ButtonHighlight, "-2147483633");
    LoadUserColors(MemoryStore::Store());
    EXPECT_EQ(Options.WindowColor, static_cast<ColorValue>(0x8000000F));
    EXPECT_EQ(Options.ButtonForecolor, 255);
    EXPECT_EQ(Options.ButtonHighlight, -2147483633);
    EXPECT_EQ(Options.ButtonText, 16777215);

    WriteSetting(Setting::ButtonText, "white");
    try {
        LoadUserColors(MemoryStore::Store());
        FAIL() << "a colour that is not a number must raise";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number, Err::TypeMismatch);
    }
    EXPECT_TRUE(reports.empty());  // start-up handles it, not the report
}

}  // namespace
