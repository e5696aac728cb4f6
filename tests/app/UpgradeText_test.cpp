// The upgrade check's decisions that do not need Windows: the split of a
// version text, its parts as numbers, the comparison, the trimming of what a
// server sends, and WinInet's error texts.
#include "UpgradeText.h"

#include <gtest/gtest.h>

#include "ErrorTrap.h"

namespace {

// The run-time error number a call raises; 0 when it raises none.
template <class Call>
int Raised(Call call)
{
    try {
        call();
    } catch (const RuntimeError& e) {
        return e.number;
    }
    return 0;
}

}  // namespace

TEST(UpgradeText, SplitAtTheFirstTwoDots)
{
    const VersionParts full = SplitVersion("2.0.10");
    EXPECT_EQ(full.major, "2");
    EXPECT_EQ(full.minor, "0");
    EXPECT_EQ(full.revision, "10");
    // Everything after the second dot belongs to the revision.
    EXPECT_EQ(SplitVersion("1.2.3.4").revision, "3.4");
    const VersionParts two = SplitVersion("3.1");
    EXPECT_EQ(two.major, "3");
    EXPECT_EQ(two.minor, "1");
    EXPECT_EQ(two.revision, "");
    EXPECT_EQ(SplitVersion("404").major, "404");
    EXPECT_EQ(SplitVersion("404").minor, "");
    EXPECT_EQ(SplitVersion("..").major, "");
}

TEST(UpgradeText, PartsAreSixteenBitNumbersOrRaise)
{
    EXPECT_EQ(VersionPartValue("0"), 0);
    EXPECT_EQ(VersionPartValue(" 32767 "), 32767);
    EXPECT_EQ(VersionPartValue("-32768"), -32768);
    EXPECT_EQ(VersionPartValue("007"), 7);
    for (const char* past : {"32768", "-32769", "99999", "123456789012345678901234567890"})
        EXPECT_EQ(Raised([&] { VersionPartValue(past); }), Err::Overflow) << past;
    for (const char* notNumber : {"", " ", "x", "1x", "-", "1 2", "3.4", "\r"})
        EXPECT_EQ(Raised([&] { VersionPartValue(notNumber); }), Err::TypeMismatch) << '"' << notNumber << '"';
}

TEST(UpgradeText, TheFirstDifferingPartDecidesAsANumber)
{
    EXPECT_EQ(CompareVersions("2.0.9", "2.1.0"), UpgradeVerdict::Newer);
    EXPECT_EQ(CompareVersions("2.0.9", "2.0.10"), UpgradeVerdict::Newer) << "10 is more than 9, as numbers";
    EXPECT_EQ(CompareVersions("2.0.9", "2.0.9"), UpgradeVerdict::Same);
    EXPECT_EQ(CompareVersions("2.0.9", "2.00.09"), UpgradeVerdict::Same);
    EXPECT_EQ(CompareVersions("2.0.9", "2.0.8"), UpgradeVerdict::Older);
    EXPECT_EQ(CompareVersions("2.9.9", "3.0.0"), UpgradeVerdict::Newer) << "the major part first";
    EXPECT_EQ(CompareVersions("3.0.0", "2.9.9"), UpgradeVerdict::Older);
    EXPECT_EQ(CompareVersions("1.5.0", "1.4.99"), UpgradeVerdict::Older) << "the minor part before the revision";
}

TEST(UpgradeText, APostedTextThatIsNoVersionRaises)
{
    EXPECT_EQ(Raised([] { CompareVersions("2.0.9", "2.1"); }), Err::TypeMismatch) << "one dot, no revision";
    EXPECT_EQ(Raised([] { CompareVersions("2.0.9", "1.x.y"); }), Err::TypeMismatch);
    EXPECT_EQ(Raised([] { CompareVersions("2.0.9", "<html>.</html>.x"); }), Err::TypeMismatch);
    EXPECT_EQ(Raised([] { CompareVersions("2.0.9", "99999.0.0"); }), Err::Overflow);
    EXPECT_EQ(Raised([] { CompareVersions("2.0.9", "1.2.3.4"); }), Err::TypeMismatch);
    // A large body is judged like any other text, without reading it number by number.
    std::string huge(8 << 20, '7');
    huge[1] = huge[3] = '.';
    EXPECT_EQ(Raised([&] { CompareVersions("2.0.9", huge); }), Err::Overflow);
}

TEST(UpgradeText, BlanksAndLineEndsAroundThePostedTextGo)
{
    EXPECT_EQ(TrimPosted("2.1.0\r\n"), "2.1.0");
    EXPECT_EQ(TrimPosted(" \t2.1.0 \n\n"), "2.1.0");
    EXPECT_EQ(TrimPosted("2. 1\r\n.0"), "2. 1\r\n.0") << "only around it";
    EXPECT_EQ(TrimPosted("\r\n \t"), "");
}

TEST(UpgradeText, WinInetErrorTextsKeepTheirTrailingBlanks)
{
    EXPECT_EQ(TranslateErrorCode(12001), "No more handles could be generated at this time");
    EXPECT_EQ(TranslateErrorCode(12002), "The request has timed out.");
    EXPECT_EQ(TranslateErrorCode(12011), "The request option can not be set, only queried. ");
    EXPECT_EQ(TranslateErrorCode(12016), "The requested operation is invalid. ");
    EXPECT_EQ(TranslateErrorCode(12023), "Direct network access cannot be made at this time. ");
    EXPECT_EQ(TranslateErrorCode(12029), "The attempt to connect to the server failed.");
    EXPECT_EQ(TranslateErrorCode(12031), "The connection with the server has been reset.");
    EXPECT_EQ(TranslateErrorCode(12036), "The request failed because the handle already exists.");
    for (long other : {0L, 12000L, 12032L, 12035L, 12037L, 2L})
        EXPECT_EQ(TranslateErrorCode(other), "Error details not available.") << other;
}
