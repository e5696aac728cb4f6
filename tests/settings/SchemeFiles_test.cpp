// Scheme files on real files and the real registry: the file format, import
// and export round trips, the shipped schemes, and the automatic import of
// files arriving through AOL.
#include "AOLState.h"
#include "ErrorTrap.h"
#include "SchemeFiles.h"
#include "Schemes.h"
#include "WineRegistry.h"
#include "modFileOp.h"
#include "modRegKeys.h"

#include <gtest/gtest.h>

namespace {

class SchemeFilesTest : public ::testing::Test, public ErrorReporter {
protected:
    void SetUp() override
    {
        TestEnv::ResetProgramKey();
        work = ProgramFolder() + "\\schemefiles-test";
        TestEnv::CleanFolder(work);
        TestEnv::CleanFolder(ProgramFolder() + "\\incoming");
        SetErrorReporter(this);
    }
    int Report(const ErrorReport& r) override
    {
        reports.push_back(r);
        return AnswerIgnore;
    }
    void Abort() override {}
    void TearDown() override
    {
        SetErrorReporter(nullptr);
        AOLPath.clear();
        TestEnv::RemoveFolder(work);
        TestEnv::RemoveFolder(ProgramFolder() + "\\incoming");
        for (const std::string& file : FileNames(ProgramFolder() + "\\*.fde")) Kill(ProgramFolder() + "\\" + file);
        TestEnv::ResetProgramKey();
    }

    // The values stored under "Schemes\" + name, by name.
    static std::map<std::string, std::string> Stored(const std::string& name)
    {
        std::map<std::string, std::string> values;
        const std::string prefix = SchemeSection(name) + "|";
        for (const auto& [key, value] : TestEnv::ProgramTree())
            if (key.rfind(prefix, 0) == 0) values[key.substr(prefix.size())] = value.second.c_str();
        return values;
    }

    std::string work;
    std::vector<ErrorReport> reports;
};

TEST_F(SchemeFilesTest, WrittenFileIsTheExactFormat)
{
    const std::string section = SchemeSection("Mixed Up");
    WriteSetting(section, "Fade Number", "3");
    WriteSetting(section, "One", "255");
    WriteSetting(section, "Two", "-5");
    WriteSetting(section, "Four", "green");
    WriteSetting(section, "Wavy", "True");
    WriteSetting(section, "Italic", "sometimes");
    WriteSetting(section, "ULine", "False");
    TestEnv::PutFile(work + "\\Mixed Up.fde", std::string(500, 'x'));  // replaced, not appended to

    WriteSchemeFile("Mixed Up", work + "\\");
    EXPECT_EQ(ReadFile(work + "\\Mixed Up.fde"),
              "[Options]\r\nFadeNumber=3\r\n\r\n"
              "[Colors]\r\nOne=255\r\nTwo=-5\r\nThree=0\r\nFour=0\r\nFive=0\r\nSix=0\r\n\r\n"
              "[Style]\r\nWavy=True\r\nBold=False\r\nItalic=False\r\nULine=False\r\n");
}

TEST_F(SchemeFilesTest, ExportThenImportElsewhereGivesTheSameScheme)
{
    TestEnv::InstallShippedSchemes();
    const auto shipped = Stored("Cool Fade");
    ASSERT_EQ(shipped.size(), 11u);
    WriteSetting(SchemeSection("Sparse"), "Fade Number", "2");
    WriteSetting(SchemeSection("Sparse"), "One", "255");
    WriteSetting(SchemeSection("Sparse"), "Two", "65280");
    WriteSchemeFile("Cool Fade", work + "\\");
    WriteSchemeFile("Sparse", work + "\\");

    TestEnv::ResetProgramKey();  // another machine
    UpdateFadeReg(work + "\\", "Cool Fade");
    UpdateFadeReg(work + "\\", "Sparse");
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(Stored("Cool Fade"), shipped);
    const auto sparse = Stored("Sparse");
    EXPECT_EQ(sparse.at("One"), "255");
    EXPECT_EQ(sparse.at("Three"), "0");
    EXPECT_EQ(sparse.at("Six"), "0");
    EXPECT_EQ(sparse.at("Wavy"), "False");
    EXPECT_EQ(sparse.at("ULine"), "False");
    EXPECT_TRUE(FileExists(work + "\\Sparse.fde"));  // the import keeps the file
}

TEST_F(SchemeFilesTest, InstallerRegistryFormMatchesTheShippedFiles)
{
    TestEnv::InstallShippedSchemes();
    const auto installed = TestEnv::ProgramTree();
    TestEnv::ResetProgramKey();
    std::vector<std::string> files = FileNames(TestEnv::ShippedSchemesFolder() + "*.fde");
    ASSERT_GE(files.size(), 1u);
    for (const std::string& file : files) {
        FileCopy(TestEnv::ShippedSchemesFolder() + file, work + "\\" + file);
        UpdateFadeReg(work + "\\", file.substr(0, file.size() - 4));
    }
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(TestEnv::ProgramTree(), installed);
    EXPECT_EQ(Stored("Cool Fade").at("Fade Number"), "5");
}

TEST_F(SchemeFilesTest, ImportFollowsTheLineRules)
{
    TestEnv::PutFile(work + "\\Caps.fde", "[OPTIONS]\r\nFADENUMBER=2\r\nONE=255\r\nBOLD=True\r\nTwo=1=2\r\n");
    TestEnv::PutFile(work + "\\Bare.fde", "[Options]\r\nno equals here\r\n\r\n");
    WriteSetting(SchemeSection("Over"), "One", "1");
    WriteSetting(SchemeSection("Over"), "Six", "6");
    WriteSetting(SchemeSection("Over"), "Italic", "True");
    TestEnv::PutFile(work + "\\Over.fde", "One=100\nItalic=False\n");

    for (const char* name : {"Caps", "Bare", "Over"}) UpdateFadeReg(work + "\\", name);
    EXPECT_TRUE(reports.empty());

    SchemeTexts caps = ReadScheme(Registry(), "Caps");
    EXPECT_EQ(caps.fadeNumber, "2");
    EXPECT_EQ(caps.colors[0], "255");
    EXPECT_EQ(caps.bold, "True");
    EXPECT_EQ(caps.colors[1], "1=2");
    EXPECT_FALSE(TestEnv::SectionExists("Schemes\\Bare"));

    auto over = Stored("Over");
    EXPECT_EQ(over.at("One"), "100");
    EXPECT_EQ(over.at("Italic"), "False");
    EXPECT_EQ(over.at("Six"), "6");
}

TEST_F(SchemeFilesTest, ImportReadsOnlyAndLeavesAnUnopenableFileToItsCaller)
{
    const auto numberOf = [&](const std::string& folder) {
        try {
            UpdateFadeReg(folder, "Nobody");
        } catch (const RuntimeError& e) {
            return e.number;
        }
        return 0;
    };
    EXPECT_EQ(numberOf(work + "\\"), Err::FileNotFound);
    EXPECT_FALSE(FileExists(work + "\\Nobody.fde")) << "a backup is never written to";
    EXPECT_EQ(numberOf(work + "\\missing\\"), Err::PathNotFound);
    EXPECT_TRUE(reports.empty());
    EXPECT_FALSE(TestEnv::SectionExists("Schemes\\Nobody"));

    // A file that is read-only, as on a write-protected disk, imports all the same.
    TestEnv::PutFile(work + "\\Locked.fde", "One=7\r\n");
    SetFileAttributesA((work + "\\Locked.fde").c_str(), FILE_ATTRIBUTE_READONLY);
    UpdateFadeReg(work + "\\", "Locked");
    SetFileAttributesA((work + "\\Locked.fde").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(ReadScheme(Registry(), "Locked").colors[0], "7");
}

TEST_F(SchemeFilesTest, AutomaticImportCollectsImportsAndDeletes)
{
    const std::string aol = work + "\\AOL";
    const std::string download = aol + "\\download";
    const std::string incoming = IncomingFolder();
    TestEnv::CleanFolder(aol);
    TestEnv::CleanFolder(download);
    AOLPath = aol;
    TestEnv::PutFile(aol + "\\FromAOL.fde", "One=1\r\n");
    TestEnv::PutFile(incoming + "FromAOL.fde", "One=999\r\nTwo=2\r\n");  // replaced by the arriving file
    TestEnv::PutFile(download + "\\Downloaded.fde", "FadeNumber=4\r\n");
    TestEnv::PutFile(download + "\\Blank.fde", "nothing to see\r\n");
    TestEnv::PutFile(download + "\\readme.txt", "not a scheme");
    // Only the long name counts: on FAT "*.fde" also finds these through their short names.
    TestEnv::PutFile(download + "\\Later.fdex", "One=5\r\n");
    TestEnv::PutFile(download + "\\LOUD.FDE", "Two=7\r\n");
    TestEnv::PutFile(ProgramFolder() + "\\Beside.fde", "Wavy=True\r\n");
    TestEnv::PutFile(incoming + "Waiting.fde", "Six=6\r\n");

    std::vector<std::string> statuses;
    UpdateFadeSchemes(incoming, [&](const std::string& text) { statuses.push_back(text); });

    EXPECT_EQ(statuses, std::vector<std::string>{"Updating Fade Schemes"});
    EXPECT_EQ(Stored("FromAOL"), (std::map<std::string, std::string>{{"One", "1"}}));
    EXPECT_EQ(ReadSetting(SchemeSection("Downloaded"), "Fade Number"), "4");
    EXPECT_EQ(ReadSetting(SchemeSection("Beside"), "Wavy"), "True");
    EXPECT_EQ(ReadSetting(SchemeSection("Waiting"), "Six"), "6");
    EXPECT_FALSE(TestEnv::SectionExists("Schemes\\Blank"));
    EXPECT_TRUE(FileNames(aol + "\\*.fde").empty());
    // Wine's search, like FAT's, finds "Later.fdex" for "*.fde": it alone stays.
    EXPECT_EQ(FileNames(download + "\\*.fde"), std::vector<std::string>{"Later.fdex"});
    EXPECT_TRUE(FileNames(ProgramFolder() + "\\*.fde").empty());
    EXPECT_TRUE(FileNames(incoming + "*.fde").empty());
    EXPECT_TRUE(FileExists(download + "\\readme.txt"));
    EXPECT_TRUE(FileExists(download + "\\Later.fdex"));
    EXPECT_FALSE(TestEnv::SectionExists("Schemes\\Later.fdex"));
    EXPECT_EQ(ReadSetting(SchemeSection("LOUD"), "Two"), "7");
    EXPECT_TRUE(reports.empty());
}

TEST_F(SchemeFilesTest, AFileThatCannotBeMovedStaysWhereItIs)
{
    const std::string source = work + "\\Held.fde";
    TestEnv::PutFile(source, "One=5\r\n");
    // No "\incoming\" folder to copy into: the file must not be lost.
    TestEnv::RemoveFolder(ProgramFolder() + "\\incoming");
    MoveSchemeFiles(work + "\\");
    EXPECT_EQ(ReadFile(source), "One=5\r\n");

    TestEnv::CleanFolder(ProgramFolder() + "\\incoming");
    MoveSchemeFiles(work + "\\");
    EXPECT_FALSE(FileExists(source));
    EXPECT_EQ(ReadFile(IncomingFolder() + "Held.fde"), "One=5\r\n");
}

}  // namespace
