// The text rules behind AOL window finding, session facts and the AOL menu.
#include <gtest/gtest.h>

#include <string>

#include "AOLText.h"

TEST(CaptionSearch, PatternsMatchAsTheCaptionSearchNeeds)
{
    EXPECT_TRUE(LikeMatch("town square", "town*"));
    EXPECT_TRUE(LikeMatch("room 42", "room ##"));
    EXPECT_FALSE(LikeMatch("room 4x", "room ##"));
    EXPECT_TRUE(LikeMatch("abc", "a?c"));
    EXPECT_FALSE(LikeMatch("ac", "a?c"));
    EXPECT_TRUE(LikeMatch("b1", "[abc]#"));
    EXPECT_TRUE(LikeMatch("m", "[a-z]"));
    EXPECT_FALSE(LikeMatch("a", "[!abc]"));
    EXPECT_TRUE(LikeMatch("d", "[!abc]"));
    EXPECT_TRUE(LikeMatch("a*b", "a[*]b"));
    EXPECT_FALSE(LikeMatch("abc", "ab"));
    EXPECT_TRUE(LikeMatch("", "*"));
}

TEST(CaptionSearch, TitleIsACaseBlindPrefixOnTheFirst99Characters)
{
    EXPECT_TRUE(CaptionMatchesTitle("Welcome, Zun Tester!", "Welcome,"));
    EXPECT_FALSE(CaptionMatchesTitle("Welcome", "Welcome,"));
    EXPECT_TRUE(CaptionMatchesTitle("WRITE MAIL", "write mail"));
    EXPECT_TRUE(CaptionMatchesTitle("  Sign On  ", "Sign On"));
    const std::string long100 = std::string(99, 'a') + "b";
    EXPECT_FALSE(CaptionMatchesTitle(long100, std::string(99, 'a') + "b"));
    EXPECT_TRUE(CaptionMatchesTitle(long100, std::string(99, 'a')));
}

TEST(SessionFacts, WelcomeCaptionGivesTheScreenNameWithInnerBlanks)
{
    EXPECT_EQ(ScreenNameFromWelcome("Welcome, Zun  Tester!"), "Zun  Tester");
    EXPECT_EQ(ScreenNameFromWelcome("Welcome, Ann"), "Ann");
    EXPECT_EQ(ScreenNameFromWelcome("Welcome"), "");
}

TEST(SessionFacts, VersionsAndProgramPaths)
{
    EXPECT_EQ(MapAOLVersion("4.0"), "4");
    EXPECT_EQ(MapAOLVersion("3.0"), "3");
    EXPECT_EQ(MapAOLVersion("5.0"), "5");
    EXPECT_EQ(MapAOLVersion("6.0"), "");
    EXPECT_TRUE(IsWAOLPath("C:\\America Online 4.0\\waol.EXE"));
    EXPECT_FALSE(IsWAOLPath("C:\\AOL30\\AOL.EXE"));
    EXPECT_EQ(AOLFolderOf("C:\\America Online 4.0\\WAOL.exe"), "C:\\America Online 4.0");
}

TEST(SessionFacts, SignOnSlotsStopBeforeGuestAndTakeTheSelection)
{
    const char bytes[16] = {' ', 'A', 'n', 'n', ' ', 0, 'x', 'y'};
    EXPECT_EQ(SignOnNameFromBytes(bytes, 16), "Ann");
    EXPECT_EQ(SignOnNameFromBytes("NoNulAtAllHere!!", 16), "NoNulAtAllHere!!");
    const auto slots = SignOnSlots({"A", "B", "C", "D", "E", "F"}, 5);
    EXPECT_EQ(slots[4], "E");
    EXPECT_EQ(slots[5], "F");
    const auto guest = SignOnSlots({"A", "B"}, 3);  // the selection is past the names read
    EXPECT_EQ(guest[1], "B");
    EXPECT_EQ(guest[5], "");
}

TEST(SessionFacts, SignedOnTheAccountIsTheListReadElseTheNameSignedOn)
{
    using Slots = std::vector<std::string>;
    EXPECT_EQ(AccountSlots({"Master", "B", "C", "D", "E", "F", "G"}, "B"), (Slots{"Master", "B", "C", "D", "E", "F"}));
    EXPECT_EQ(AccountSlots({"Master"}, "Other"), (Slots{"Master", "", "", "", "", ""}));
    EXPECT_EQ(AccountSlots({}, "Ann Lee"), (Slots{"Ann Lee", "", "", "", "", ""}));
}

TEST(SessionFacts, AOLIsStartedFromAFolderWithBlanksAndTakesTheKeywordWhole)
{
    EXPECT_EQ(QuotedProgram("C:\\America Online 4.0\\waol.exe"), "\"C:\\America Online 4.0\\waol.exe\"");
    EXPECT_EQ(KeywordCommandLine("C:\\America Online 4.0", "People Connection"),
              "\"C:\\America Online 4.0\\waol.exe\" -sPeople Connection");
}

// A bar dump of `menus` AOL menus; with `maximised`, framed by a document
// window's system menu and its three buttons as Windows adds them.
std::string BarDump(int menus, bool maximised)
{
    std::string dump = maximised ? "0\t-1\t\n1\t61728\t&Restore\n" : "";
    for (int i = 0; i < menus; ++i) dump += "0\t-1\tMenu" + std::to_string(i + 1) + "\n";
    if (maximised) dump += "0\t61472\t\n0\t61728\t\n0\t61536\t\n";
    return dump;
}

TEST(AOLMenu, ProgramMenuGoesAfterAOLsLastSixthOrSeventhMenuMaximisedOrNot)
{
    // AOL's menus before ours: 5 -> 5, 6 -> 6, 7 -> 7, 8 -> 7.
    const int before[] = {-1, 5, 6, 7, 7};
    for (int menus = 4; menus <= 8; ++menus) {
        const int expected = before[menus - 4];
        EXPECT_EQ(ProgramMenuPosition(ParseMenuDump(BarDump(menus, false))), expected) << menus;
        // The system menu shifts everything by one; the buttons stay behind us.
        EXPECT_EQ(ProgramMenuPosition(ParseMenuDump(BarDump(menus, true))), expected < 0 ? -1 : expected + 1)
            << menus << " maximised";
        EXPECT_EQ(MenuBarCount(ParseMenuDump(BarDump(menus, true))), menus);
    }
}

TEST(AOLMenu, DumpIsSearchedByCaptionIgnoringCaseButNotAmpersands)
{
    const std::string dump =
        "0\t-1\t&File\n1\t8207\tE&xit\n0\t-1\t&Sign Off\n1\t8240\tSwitch Scree&n Name\n"
        "0\t-1\t&Help\n1\t8250\t&About AOL\n0\t-1\tA\n0\t-1\tB\n0\t-1\t Prism&o \n";
    const auto entries = ParseMenuDump(dump);
    EXPECT_EQ(MenuBarCount(entries), 6);
    const MenuEntry* found = FindMenuCaption(entries, "switch scree&n name");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->id, 8240);
    EXPECT_EQ(FindMenuCaption(entries, "About AOL"), nullptr);
    EXPECT_EQ(FindMenuCaption(entries, "&About AOL Canada"), nullptr);
    EXPECT_EQ(FindMenuCaption(entries, "&File"), nullptr);  // a menu, not an item
    EXPECT_EQ(ProgramMenuIndex(entries), 5);
    // An item is looked for in its own menu only.
    const MenuEntry* signOff = FindMenuItem(entries, "&SIGN OFF", "switch scree&n name");
    ASSERT_NE(signOff, nullptr);
    EXPECT_EQ(signOff->id, 8240);
    EXPECT_EQ(FindMenuItem(entries, "&Help", "Switch Scree&n Name"), nullptr);
    EXPECT_EQ(FindMenuItem(entries, "&Sign Off", "&Sign Off"), nullptr);
    EXPECT_EQ(ProgramMenuIndex(ParseMenuDump("0\t-1\tPrism&o\n")), -1);  // before position 5
    EXPECT_EQ(ProgramMenuIndex(ParseMenuDump(
                  "0\t-1\ta\n0\t-1\tb\n0\t-1\tc\n0\t-1\td\n0\t-1\te\n0\t-1\tprism&o\n")),
              -1);  // case counts
}

TEST(AOLMenu, ProgramMenuDescriptionHoldsEveryCommandInOrder)
{
    const std::string menu = ProgramMenuDescription();
    size_t at = 0;
    for (const char* id : {"60000", "60001", "60002", "60003", "62000", "62001", "62002", "60006",
                           "60004", "60005"}) {
        const size_t next = menu.find(std::string("I\t") + id + "\t", at);
        ASSERT_NE(next, std::string::npos) << id;
        at = next;
    }
    EXPECT_EQ(menu.rfind("P\tPrism&o\n", 0), 0u);
}
