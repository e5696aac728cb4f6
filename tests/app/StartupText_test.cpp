// Start-up's decisions that do not need Windows: Tunebox detection, the
// exact "CHANGEAOL" command, the edition named in the loading window.
#include "StartupText.h"

#include <gtest/gtest.h>

TEST(StartupText, TuneboxFoundInAnyLetterCaseAnywhereInThePath)
{
    EXPECT_TRUE(IsTuneboxPath("C:\\PROGRAM FILES\\TUNEBOX\\TUNEBOX32.EXE"));
    EXPECT_TRUE(IsTuneboxPath("tunebox32.exe"));
    EXPECT_TRUE(IsTuneboxPath("c:\\x\\TuneBox32.Exe"));
    EXPECT_FALSE(IsTuneboxPath("C:\\Tunebox\\tunebox.exe"));
    EXPECT_FALSE(IsTuneboxPath("tunebox32.ex"));
}

TEST(StartupText, ChangeAOLOnlyAsTheWholeCommandLine)
{
    EXPECT_TRUE(IsChangeAOLCommand("CHANGEAOL"));
    EXPECT_FALSE(IsChangeAOLCommand("changeaol"));
    EXPECT_FALSE(IsChangeAOLCommand(" CHANGEAOL"));
    EXPECT_FALSE(IsChangeAOLCommand("CHANGEAOL x"));
    EXPECT_FALSE(IsChangeAOLCommand(""));
}

TEST(StartupText, EditionNamedByTheFirstFlagInOrderUKCanadaAustralia)
{
    EXPECT_EQ(VersionDeterminedText("4", false, false, false), "AOL Version 4.0 US Determined");
    EXPECT_EQ(VersionDeterminedText("5", true, true, false), "AOL Version 5.0 UK Determined");
    EXPECT_EQ(VersionDeterminedText("4", false, true, true), "AOL Version 4.0 Canada Determined");
    EXPECT_EQ(VersionDeterminedText("4", false, false, true), "AOL Version 4.0 Australia Determined");
}

TEST(StartupText, OnlyNamesFromTheSignOnListNameTheMaster)
{
    EXPECT_EQ(ScreenNameStatusText("Ann Lee", true), "Master Screen Name: Ann Lee");
    EXPECT_EQ(ScreenNameStatusText("", true), "Master Screen Name: ");
    EXPECT_EQ(ScreenNameStatusText("Ann Lee", false), "Signed On As: Ann Lee");
    EXPECT_EQ(ScreenNameStatusText("", false), "Screen Name Unknown");
}

TEST(StartupText, MessagesCarryTheirParticulars)
{
    EXPECT_NE(MissingRuntimeFileText("prismosbc.dll").find("~Bprismosbc.dll~B is missing"), std::string::npos);
    EXPECT_EQ(WrongAOLVersionText("3").rfind("~B~CRAOL Version 3.0 detected!~B~CN", 0), 0u);
    // The folder is named upper-cased, whatever the user picked.
    EXPECT_NE(NextStartText("c:\\aol 4.0").find("~B~CBC:\\AOL 4.0~B~CN directory."), std::string::npos);
}
