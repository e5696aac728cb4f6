// The wizard's decisions natively: drive captions both ways, the sub-folder
// typed, the advice per drive kind, the progress arithmetic, and the table
// of what each file error does to an export and to an import.
#include <gtest/gtest.h>

#include "WizardText.h"

TEST(WizardDrives, CaptionsSayWhatKindOfDriveAndParseBack)
{
    struct Case {
        const char* root;
        int type;
        const char* caption;
        const char* kind;
    };
    const Case cases[] = {
        {"A:\\", kDriveRemovable, "( A:\\ ) Floppy Drive (recommended)", "Floppy Drive"},
        {"B:\\", kDriveFixed, "( B:\\ ) Floppy Drive (recommended)", "Floppy Drive"},
        {"C:\\", kDriveRemovable, "( C:\\ ) Hard Disk (not recommended)", "Hard Disk"},
        {"E:\\", kDriveRemovable, "( E:\\ ) Removable Drive", "Removable Drive"},
        {"Z:\\", kDriveFixed, "( Z:\\ ) Hard Disk (not recommended)", "Hard Disk"},
    };
    for (const Case& c : cases) {
        const std::string caption = DriveCaption(c.root, c.type);
        EXPECT_EQ(caption, c.caption);
        EXPECT_EQ(GetDriveFormat(caption), c.kind);
        EXPECT_EQ(TrimDriveLetter(caption), std::string(1, static_cast<char>(c.root[0] + 32)) + ":\\");
    }
    EXPECT_TRUE(OfferedDrive(kDriveRemovable) && OfferedDrive(kDriveFixed));
    for (int other : {0, 1, 4, 5, 6}) EXPECT_FALSE(OfferedDrive(other)) << other;
    // Captions that are not the wizard's own give nothing rather than a wrong drive.
    EXPECT_EQ(GetDriveFormat("no parenthesis"), "");
    EXPECT_EQ(TrimDriveLetter("( "), "");
}

TEST(WizardSubFolder, OneLeadingBackslashGoesATrailingOneComes)
{
    EXPECT_EQ(SubFolderOf("\\Prismo Schemes"), "Prismo Schemes\\");
    EXPECT_EQ(SubFolderOf("Prismo Schemes\\"), "Prismo Schemes\\");
    EXPECT_EQ(SubFolderOf("\\\\two"), "\\two\\");
    EXPECT_EQ(SubFolderOf("a\\b"), "a\\b\\");
    EXPECT_EQ(SubFolderOf("\\"), "") << "a lone backslash is no sub-folder";
    EXPECT_FALSE(SubFolderOf("").has_value()) << "an empty answer changes nothing";
}

TEST(WizardTexts, AdviceNamesTheDriveInCapitalsAndTheCopyExplainsItself)
{
    EXPECT_EQ(ExportAdvice("Floppy Drive", "a:\\"),
              "Please insert a floppy diskette into the Floppy Drive \"A:\\\" and click \"Next\" to continue.");
    EXPECT_EQ(ExportAdvice("Removable Drive", "e:\\"),
              "Please insert the appropriate storage media (i.e. - Disk, Tape, etc.) into Removable Drive \"E:\\\" "
              "and click \"Next\" to continue.");
    EXPECT_EQ(ExportAdvice("Hard Disk", "c:\\").find("It is not recommended"), 0u);
    EXPECT_EQ(ExportAdvice("Hard Disk", "c:\\").find("C:"), std::string::npos);
    EXPECT_EQ(ExportAdvice("Tape", "t:\\"), "");

    EXPECT_NE(FilesToCopyText(ModeExport).find("will NOT back up the Prismo program itself"), std::string::npos);
    EXPECT_EQ(FilesToCopyText(ModeImport).substr(FilesToCopyText(ModeImport).size() - 4), "\r\n\r\n");
    const std::string skipped = UnexportedNamesMessage({"a:b", "tab\there"});
    EXPECT_NE(skipped.find("\"a:b\"~N\"tab^Ihere\"~N"), std::string::npos);
}

TEST(WizardProgress, AdvancesByOneSchemeNeverPastTheTotal)
{
    long done = 0;
    std::vector<int> seen;
    for (int i = 0; i < 4; ++i) {
        const WizardProgress p = MoveProgress(done, 3);
        done = p.done;
        seen.push_back(p.percent);
    }
    EXPECT_EQ(seen, (std::vector<int>{33, 66, 100, 100}));
    EXPECT_EQ(done, 3);
    EXPECT_EQ(MoveProgress(0, 7).percent, 14) << "the integer part, not rounded";
    EXPECT_EQ(MoveProgress(0, 0).percent, 100) << "an empty list cannot divide by nothing";
    EXPECT_EQ(MoveProgress(41, 50).percent, 84);
}

TEST(WizardFailures, EachErrorHasItsAnswerInAnExportAndInAnImport)
{
    using A = FailureAction;
    struct Row {
        int number;
        A exporting, importing;
    };
    const Row rows[] = {
        {5, A::Ignore, A::Ignore},
        {53, A::Ignore, A::Ignore},
        {76, A::Ignore, A::Ignore},
        {58, A::Report, A::Ignore},
        {52, A::Report, A::AbortRetryIgnore},
        {57, A::AbortRetryIgnore, A::AbortRetryIgnore},
        {75, A::AbortRetryIgnore, A::AbortRetryIgnore},
        {61, A::TellAndEnd, A::Report},
        {70, A::AbortRetryIgnore, A::AbortRetryIgnore},
        {71, A::TellAndRepeat, A::TellAndRepeat},
        {13, A::Report, A::Report},
        {0, A::Report, A::Report},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FailureFor(row.number, ModeExport).action, row.exporting) << row.number;
        EXPECT_EQ(FailureFor(row.number, ModeImport).action, row.importing) << row.number;
    }
    EXPECT_EQ(FailureFor(52, ModeImport).message, FailureFor(57, ModeImport).message);
    EXPECT_EQ(FailureFor(57, ModeExport).style, 18) << "Abort, Retry, Ignore with the critical icon";
    EXPECT_NE(FailureFor(71, ModeExport).message, FailureFor(71, ModeImport).message);
}
