// The wizard on a real small disk, M:, that scripts/private-medium mounts for
// this program alone: 16 KiB that fill after four scheme files, or a
// write-protected diskette holding a backup. Run through
// tests/wizard/medium-tests.sh, which picks the suite for the disk it made.
#include "WizardDriver.h"

namespace {

const std::string kDisk = "( M:\\ ) Removable Drive";

class FullMedium : public WizardDriver {};
class ReadOnlyMedium : public WizardDriver {};

TEST_F(FullMedium, TheMarkerThatDoesNotFitIsToldAsAFullDisk)
{
    TestEnv::DeleteSection(Section::Schemes);
    for (int i = 0; i < 10; ++i) AddScheme("Scheme " + std::to_string(i), std::to_string(i));
    Answers answers;
    ExportUpToConfirmation(kDisk);
    EXPECT_EQ(Text(IDC_WZ_LBLDRVTYPE), "Removable Drive");
    EXPECT_FALSE(Copy());
    EXPECT_EQ(answers.messages, std::vector<std::string>{FailureFor(61, ModeExport).message});
    EXPECT_EQ(TextOf(Control(IDC_WZ_PRGSTATUS)), "Export Canceled");
    EXPECT_FALSE(Shown(IDC_WZ_LABEL9));
    EXPECT_FALSE(FileExists("m:\\importfde.key")) << "a marker cut short is taken away";
}

TEST_F(ReadOnlyMedium, ABackupImportsAndAnExportIsToldTheDiskIsWriteProtected)
{
    TestEnv::ResetProgramKey();
    Answers answers;
    ImportUpToConfirmation(answers, "m:\\");
    const std::vector<std::string> listed = Listed();
    ASSERT_FALSE(listed.empty());
    EXPECT_TRUE(Copy());
    EXPECT_TRUE(answers.messages.empty());
    for (const std::string& name : listed)
        EXPECT_TRUE(Same(ReadScheme(Registry(), name), ParseSchemeFile(ReadFile("m:\\" + name + ".fde")))) << name;
    Wizard()->Unload();

    // Wine reports a write-protected disk as access denied (75), where
    // Windows 98 says write-protected (70); either asks Abort, Retry, Ignore.
    answers.press = [](const std::string&) { return kAbort; };
    ExportUpToConfirmation(kDisk);
    EXPECT_FALSE(Copy());
    EXPECT_EQ(answers.messages, std::vector<std::string>{FailureFor(75, ModeExport).message});
    EXPECT_EQ(TextOf(Control(IDC_WZ_PRGSTATUS)), "Export Canceled");
}

}  // namespace
