// The Import/Export wizard under Wine, driven through its real controls, its
// input box and the real open-file dialog, on the prefix's test drives
// (A: a floppy, E: removable, C: the hard disk): the round trip of the
// shipped schemes, every message, hostile scheme files and names, Cancel in
// the middle of a copy, and every row of the file-error table through a
// substituted set of file statements.
#include <gtest/gtest.h>

#include <set>

#include "ErrorTrap.h"
#include "WizardDriver.h"

namespace {

// File statements that fail on cue: `failing` names the statement, `number`
// the error, `times` how often before it succeeds. Everything is recorded
// and otherwise done for real.
class FailingFiles : public WizardFiles {
public:
    std::string failing;
    int number = 0, times = 1;
    std::vector<std::string> calls;

    void MakeFolder(const std::string& folder) override { Do("MakeFolder", [&] { Real().MakeFolder(folder); }); }
    void WriteMarker(const std::string& path) override { Do("WriteMarker", [&] { Real().WriteMarker(path); }); }
    std::vector<std::string> Search(const std::string& folder) override
    {
        std::vector<std::string> found;
        Do("Search", [&] { found = Real().Search(folder); });
        return found;
    }
    void ImportOne(const std::string& folder, const std::string& name) override
    {
        Do("ImportOne", [&] { Real().ImportOne(folder, name); });
    }

private:
    WizardFiles& Real() { return real_; }
    template <class F>
    void Do(const std::string& statement, F real)
    {
        calls.push_back(statement);
        if (statement == failing && times > 0) {
            --times;
            throw RuntimeError(number, "planted");
        }
        real();
    }
    WizardFiles& real_ = TheWizardFiles();  // made before it is put in their place
};

// Records the common error report and answers it.
class Reports : public ErrorReporter {
public:
    Reports() { SetErrorReporter(this); }
    ~Reports() override { SetErrorReporter(nullptr); }
    int Report(const ErrorReport& report) override
    {
        seen.push_back(report.procedure + " " + report.number);
        return answer;
    }
    void Abort() override {}
    std::vector<std::string> seen;
    int answer = AnswerIgnore;
};

class WizardTest : public WizardDriver {};

TEST_F(WizardTest, ShippedSchemesGoToTheFloppyAndComeBackIntoAFreshKey)
{
    const std::map<std::string, SchemeTexts> original = StoredSchemes();
    ASSERT_FALSE(original.empty());
    Answers answers;
    frmWizard& wizard = Open();
    EXPECT_EQ(Text(IDC_WZ_LABEL1), "Welcome to Prismo's Import/Export Wizard!");
    EXPECT_EQ(Text(IDC_WZ_OPTIMPORT), "Import existing Prismo schemes?");
    EXPECT_FALSE(Enabled(IDC_WZ_BACK));
    Press(IDC_WZ_NEXT);
    Press(IDC_WZ_OPTEXPORT);
    Press(IDC_WZ_NEXT);
    ASSERT_TRUE(OnPage(IDC_WZ_LBLDRIVE));
    EXPECT_EQ(Text(IDC_WZ_LBLDRIVE),
              "Please select one of the following removable drives to Export your Fade Scheme setting to.");
    const std::vector<std::string> drives = DriveCaptions();
    for (const char* caption :
         {"( A:\\ ) Floppy Drive (recommended)", "( C:\\ ) Hard Disk (not recommended)", "( E:\\ ) Removable Drive"})
        EXPECT_NE(std::find(drives.begin(), drives.end(), caption), drives.end()) << caption;
    // More drives than choices: the first seven in letter order, Z: left out.
    ASSERT_EQ(drives.size(), 7u);
    for (size_t i = 1; i < drives.size(); ++i) EXPECT_LT(drives[i - 1][2], drives[i][2]) << drives[i];
    EXPECT_LT(drives.back()[2], 'Z');
    EXPECT_FALSE(Enabled(IDC_WZ_SUBFOLDER));
    Press(IDC_WZ_NEXT);  // no drive yet
    Press(IDC_WZ_BACK);
    Press(IDC_WZ_NEXT);
    EXPECT_EQ(DriveCaptions(), drives) << "going back and on again does not fill the drives twice";

    ChooseDrive("( A:\\ ) Floppy Drive (recommended)");
    EXPECT_EQ(Text(IDC_WZ_LBLPATH), kFloppy);
    EXPECT_EQ(wizard.driveRoot, kFloppy);
    answers.inputBoxAnswer = "\\Prismo Schemes";
    Press(IDC_WZ_SUBFOLDER);
    ASSERT_TRUE(PumpUntil([&] { return Text(IDC_WZ_LBLPATH) == "a:\\Prismo Schemes\\"; }, 20000));
    Press(IDC_WZ_NEXT);
    EXPECT_EQ(Text(IDC_WZ_LBLFROM), "You are about to Export the following Prismo Fade Schemes:");
    EXPECT_EQ(Listed(), SettingSubkeys(Section::Schemes));
    Press(IDC_WZ_NEXT);
    EXPECT_EQ(Text(IDC_WZ_LBLSAVETO), "a:\\prismo schemes\\");
    EXPECT_EQ(Text(IDC_WZ_LBLDRVTYPE), "Floppy Drive");
    EXPECT_EQ(Text(IDC_WZ_LBLMSG), ExportAdvice("Floppy Drive", kFloppy));
    ASSERT_TRUE(Copy());
    EXPECT_EQ(Text(IDC_WZ_LABEL9), "Export Complete!");
    EXPECT_TRUE(Enabled(IDC_WZ_FINISH));
    EXPECT_FALSE(Enabled(IDC_WZ_NEXT) || Enabled(IDC_WZ_BACK) || Enabled(IDC_WZ_CANCEL));
    EXPECT_EQ(answers.messages,
              (std::vector<std::string>{WizardText::ChooseOption, WizardText::SelectDrive}));

    const std::string folder = "a:\\Prismo Schemes\\";
    std::vector<std::string> expectedFiles{"importfde.key"};
    for (const auto& [name, scheme] : original) {
        EXPECT_EQ(ReadFile(folder + name + ".fde"), FormatSchemeFile(scheme)) << name;
        expectedFiles.push_back(name + ".fde");
    }
    EXPECT_EQ(ReadFile(folder + "importfde.key"), kMarkerText);
    std::vector<std::string> files = TestEnv::FilesIn(folder);
    std::sort(files.begin(), files.end());
    std::sort(expectedFiles.begin(), expectedFiles.end());
    EXPECT_EQ(files, expectedFiles);
    Press(IDC_WZ_FINISH);
    EXPECT_EQ(Wizard(), nullptr);

    // Another machine: a fresh key, the marker found through the open dialog.
    TestEnv::ResetProgramKey();
    answers.messages.clear();
    Open();
    Press(IDC_WZ_OPTIMPORT);
    Press(IDC_WZ_NEXT);
    EXPECT_EQ(Text(IDC_WZ_LABEL15), "IMPORTFDE.KEY path:");
    Press(IDC_WZ_NEXT);  // no marker located yet
    answers.openFile = folder + "importfde.key";
    Press(IDC_WZ_LOCATEKEY);
    ASSERT_TRUE(PumpUntil([&] { return !Text(IDC_WZ_LBLIMPORT).empty(); }, 20000));
    EXPECT_EQ(_stricmp(Text(IDC_WZ_LBLIMPORT).c_str(), folder.c_str()), 0) << Text(IDC_WZ_LBLIMPORT);
    EXPECT_NE(GetWindowLongA(Wizard()->hwnd(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0) << "on top again";
    Press(IDC_WZ_NEXT);
    EXPECT_EQ(Text(IDC_WZ_LBLFROM), "You are about to Import the following Fadae Schemes from this location:");
    EXPECT_EQ(Listed().size(), original.size());
    Press(IDC_WZ_NEXT);
    EXPECT_EQ(Text(IDC_WZ_LBLACTION), "Prismo is ready to Import your settings!");
    EXPECT_FALSE(Shown(IDC_WZ_LABEL8));
    ASSERT_TRUE(Copy());
    EXPECT_EQ(Text(IDC_WZ_LABEL9), "Import Complete!");
    EXPECT_EQ(answers.messages, std::vector<std::string>{WizardText::LocateKey});

    const std::map<std::string, SchemeTexts> restored = StoredSchemes();
    ASSERT_EQ(restored.size(), original.size());
    for (const auto& [name, scheme] : original) {
        // What comes back is what the file said: a missing colour as "0", a missing style as "False".
        const SchemeTexts expected = ParseSchemeFile(FormatSchemeFile(scheme));
        EXPECT_TRUE(restored.count(name) && Same(restored.at(name), expected)) << name;
    }
}

TEST_F(WizardTest, EachPageSaysWhatItShouldAndTheAdviceFitsTheDrive)
{
    Answers answers;
    Open();
    const std::pair<int, const char*> welcome[] = {
        {IDC_WZ_LABEL2, "This wizard will allow you to save either your Prismo Fade Schemes or restore already saved "
                        "Fade Schemes to your exisiting version of Prismo!"},
        {IDC_WZ_LABEL4, "This option will restore your saved Fade Schemes to your existing copy of Prismo from a "
                        "diskette or zip drive (if available)."},
        {IDC_WZ_OPTEXPORT, "Export existing Prismo schemes?"},
        {IDC_WZ_LABEL3, "This option will backup your exisiting Fade Schemes to either a diskette or zip drive (if "
                        "available)."},
        {IDC_WZ_LABEL12, "Please select the location to Import your saved Fade Scheme settings from."},
        {IDC_WZ_LOCATEKEY, "Locate IMPORTFDE.KEY"},
        {IDC_WZ_LABEL5, "Exporting Fade Scheme settings to:"},
        {IDC_WZ_SUBFOLDER, "Add Sub-folder"},
        {IDC_WZ_LABEL8, "Drive Type:"},
        {IDC_WZ_FRAME, "Overall Progress"},
        {IDC_WZ_CANCELPROGRESS, "Cancel"},
    };
    for (const auto& [id, text] : welcome) EXPECT_EQ(Text(id), text) << id;
    EXPECT_NE(Text(IDC_WZ_LABEL13).find("it includes a file entitled IMPORTFDE.KEY.  The Import Wizard"),
              std::string::npos);
    EXPECT_NE(Text(IDC_WZ_LABEL14).find("click the \"Locate IMPORTFDE.KEY\" button below."), std::string::npos);
    for (const auto& [id, text] : std::vector<std::pair<int, const char*>>{
             {IDC_WZ_BACK, "<- Back"}, {IDC_WZ_NEXT, "Next ->"}, {IDC_WZ_FINISH, "Finish"}, {IDC_WZ_CANCEL, "Cancel"}})
        EXPECT_EQ(Text(id), text);
    Wizard()->Unload();

    for (const char* drive : {"a:\\", "c:\\", "e:\\"}) {
        ExportUpToConfirmation(DriveCaption(std::string(1, static_cast<char>(drive[0] - 32)) + ":\\",
                                            drive[0] == 'c' ? kDriveFixed : kDriveRemovable));
        const std::string kind = Text(IDC_WZ_LBLDRVTYPE);
        EXPECT_EQ(Text(IDC_WZ_LBLSAVETO), drive);
        EXPECT_EQ(Text(IDC_WZ_LBLMSG), ExportAdvice(kind, drive)) << kind;
        EXPECT_FALSE(Text(IDC_WZ_LBLMSG).empty()) << kind;
        Wizard()->Unload();
    }
    EXPECT_TRUE(answers.messages.empty());
}

TEST_F(WizardTest, NoSchemesKeyIsToldAndLeavesTheListEmpty)
{
    TestEnv::DeleteSection(Section::Schemes);
    Answers answers;
    ExportUpToConfirmation("( C:\\ ) Hard Disk (not recommended)");
    EXPECT_TRUE(Listed().empty());
    EXPECT_EQ(answers.messages, std::vector<std::string>{WizardText::NoSchemesKey});
}

TEST_F(WizardTest, HostileFilesImportAsTheirLinesSayAndTheMediumIsOnlyRead)
{
    const std::string folder = "c:\\wizard\\";
    std::string binary(4096, '\0');
    for (size_t i = 0; i < binary.size(); ++i) binary[i] = static_cast<char>(i * 7);
    const std::map<std::string, std::string> files{
        {"Binary.fde", binary + "\r\nOne=5\r\n" + binary},
        {"Long.fde", "Two=" + std::string(5000, '9') + "\r\nThree=3\r\n"},
        {"Letters.fde", "One=abc\r\n"},
        {"Caps.fde", "FADENUMBER=2\r\nONE=255\r\nBOLD=True\r\n"},
        {"NoEquals.fde", "nothing here\r\n[Colors]\r\n"},
        {"old.fdebak", "One=1\r\n"},
    };
    for (const std::string& marker : {std::string(), binary, std::string(1 << 20, 'x')}) {
        TestEnv::ResetProgramKey();
        TestEnv::CleanFolder(folder);
        TestEnv::PutFile(folder + "importfde.key", marker);
        for (const auto& [name, bytes] : files) TestEnv::PutFile(folder + name, bytes);
        // Write-protected as a diskette's tab makes it.
        for (const std::string& name : TestEnv::FilesIn(folder))
            SetFileAttributesA((folder + name).c_str(), FILE_ATTRIBUTE_READONLY);

        Answers answers;
        ImportUpToConfirmation(answers, folder);
        std::vector<std::string> listed = Listed();
        std::sort(listed.begin(), listed.end());
        EXPECT_EQ(listed, (std::vector<std::string>{"Binary", "Caps", "Letters", "Long", "NoEquals"}));
        ASSERT_TRUE(Copy());
        EXPECT_TRUE(answers.messages.empty());
        Wizard()->Unload();

        for (const auto& [name, bytes] : files) {
            EXPECT_EQ(ReadFile(folder + name), bytes) << name << " untouched";
            if (!IsSchemeFileName(name)) continue;
            const std::string scheme = name.substr(0, name.size() - 4);
            EXPECT_TRUE(Same(ReadScheme(Registry(), scheme), ParseSchemeFile(bytes))) << scheme;
        }
        EXPECT_FALSE(TestEnv::SectionExists("Schemes\\old"));
        EXPECT_FALSE(TestEnv::SectionExists("Schemes\\NoEquals"));
        EXPECT_EQ(TestEnv::FilesIn(folder).size(), files.size() + 1) << "nothing added to the medium";
        for (const std::string& name : TestEnv::FilesIn(folder))
            SetFileAttributesA((folder + name).c_str(), FILE_ATTRIBUTE_NORMAL);
    }
}

TEST_F(WizardTest, NamesThatCannotBeFilesAreLeftOutAndNamedInOneMessage)
{
    const std::vector<std::string> unfit{"a:b", "why?", "<x>", "con", "trail.", "a/b", "../up"};
    for (const std::string& name : unfit) AddScheme(name, "1");
    Answers answers;
    ExportToWizardFolder(answers);
    const std::vector<std::string> listed = Listed();
    ASSERT_TRUE(Copy());
    const std::vector<std::string> skipped = UnfitFileNames(listed, "c:\\wizard\\");
    EXPECT_EQ(skipped.size(), unfit.size());
    EXPECT_EQ(answers.messages, std::vector<std::string>{UnexportedNamesMessage(skipped)});
    std::set<std::string> expected{"importfde.key"};
    for (const std::string& name : listed)
        if (FitsAsFileName(name, "c:\\wizard\\")) expected.insert(name + ".fde");
    const std::vector<std::string> written = TestEnv::FilesIn("c:\\wizard");
    EXPECT_EQ(std::set<std::string>(written.begin(), written.end()), expected);
    for (const char* outside : {"c:\\up.fde", "c:\\wizard\\a\\b.fde", "c:\\b.fde", "c:\\wizard\\a"})
        EXPECT_FALSE(FileExists(outside)) << outside;
}

TEST_F(WizardTest, CancelKeepsWhatIsDoneWritesNoMarkerAndLetsTheUserGoOn)
{
    TestEnv::DeleteSection(Section::Schemes);
    for (int i = 0; i < 30; ++i) AddScheme("Scheme " + std::to_string(100 + i), std::to_string(i));
    Answers answers;
    ExportToWizardFolder(answers);
    answers.onTick = [&] {
        if (Wizard() && Wizard()->prgStatus.Value() >= 30) SendMessageA(Control(IDC_WZ_CANCELPROGRESS), BM_CLICK, 0, 0);
    };
    EXPECT_FALSE(Copy());
    answers.onTick = nullptr;
    EXPECT_EQ(TextOf(Control(IDC_WZ_PRGSTATUS)), "Export Canceled");
    EXPECT_TRUE(Enabled(IDC_WZ_NEXT) && Enabled(IDC_WZ_BACK) && Enabled(IDC_WZ_CANCEL));
    const size_t written = TestEnv::FilesIn("c:\\wizard").size();
    EXPECT_GE(written, 9u);
    EXPECT_LT(written, 30u);
    EXPECT_FALSE(FileExists("c:\\wizard\\importfde.key"));

    // Next again runs the whole export; then an import cancelled keeps the scheme in hand.
    ASSERT_TRUE(Copy());
    Wizard()->Unload();
    TestEnv::DeleteSection(Section::Schemes);
    ImportUpToConfirmation(answers, "c:\\wizard\\");
    std::string inHand;
    answers.onTick = [&] {
        if (!Wizard() || Wizard()->prgStatus.Value() < 30 || !inHand.empty()) return;
        inHand = TextOf(Control(IDC_WZ_PRGSTATUS)).substr(8);  // after "Copying "
        SendMessageA(Control(IDC_WZ_CANCELPROGRESS), BM_CLICK, 0, 0);
    };
    EXPECT_FALSE(Copy());
    EXPECT_EQ(TextOf(Control(IDC_WZ_PRGSTATUS)), "Import Canceled");
    ASSERT_FALSE(inHand.empty());
    const std::vector<std::string> imported = SettingSubkeys(Section::Schemes);
    EXPECT_NE(std::find(imported.begin(), imported.end(), inHand), imported.end()) << "the scheme in hand is finished";
    EXPECT_LT(imported.size(), 30u);
}

// The prefix's media as the Unix side sees them: a drive letter is a link
// to a folder there, and a missing folder is a drive without a disk.
std::string MediaFolder(const std::string& name)
{
    const char* prefix = std::getenv("WINEPREFIX");
    return prefix ? std::string("Z:") + prefix + "/media/" + name : "";
}

TEST_F(WizardTest, ADriveWithoutADiskAsksForOneAndGoesOnOnceItIsIn)
{
    const std::string disk = MediaFolder("b");
    ASSERT_FALSE(disk.empty());
    RemoveDirectoryA(disk.c_str());
    Answers answers;
    answers.press = [&](const std::string&) {
        CreateDirectoryA(disk.c_str(), nullptr);  // the user inserts a diskette, then presses OK
        return 0;
    };
    ExportUpToConfirmation("( B:\\ ) Floppy Drive (recommended)");
    EXPECT_TRUE(Copy());
    EXPECT_EQ(answers.messages, std::vector<std::string>{FailureFor(71, ModeExport).message});
    EXPECT_EQ(ReadFile("b:\\importfde.key"), kMarkerText);
    EXPECT_EQ(TestEnv::FilesIn("b:\\").size(), SettingSubkeys(Section::Schemes).size() + 1);
    TestEnv::RemoveFolder(disk);
}

TEST_F(WizardTest, AFullDiskIsToldAndTheExportEndsUnfinished)
{
    // test-media.sh links the marker and the scheme file of "Full" in e:\full to /dev/full.
    ASSERT_TRUE(DirExists("e:\\full\\"));
    TestEnv::DeleteSection(Section::Schemes);
    AddScheme("Full", "255");
    Answers answers;
    ExportUpToConfirmation(answers, "( E:\\ ) Removable Drive", "full");
    EXPECT_FALSE(Copy());
    EXPECT_EQ(answers.messages, std::vector<std::string>{FailureFor(61, ModeExport).message});
    EXPECT_FALSE(Shown(IDC_WZ_LABEL9));
    EXPECT_EQ(TextOf(Control(IDC_WZ_PRGSTATUS)), "Export Canceled");
}

// Every row of the error table, in an export and in an import, planted in
// the statement that reaches it.
TEST_F(WizardTest, EachFileErrorIsAnsweredAsTheTableSays)
{
    struct Row {
        int mode;
        const char* statement;
        int number;
        int press;          // the button pressed on an Abort/Retry/Ignore question
        bool finished;      // reached the last page
        size_t calls;       // of the failing statement
        const char* report; // the common report, when it is asked
    };
    const Row rows[] = {
        {ModeExport, "MakeFolder", 5, 0, true, 1, ""},
        {ModeExport, "WriteMarker", 53, 0, true, 1, ""},
        {ModeExport, "MakeFolder", 52, 0, true, 1, "DoBackUp 52"},
        {ModeExport, "WriteMarker", 58, 0, true, 1, "DoBackUp 58"},
        {ModeExport, "WriteMarker", 57, kRetry, true, 2, ""},  // written the second time
        {ModeExport, "WriteMarker", 75, kAbort, false, 1, ""},
        {ModeExport, "MakeFolder", 70, kIgnore, true, 1, ""},
        {ModeExport, "WriteMarker", 61, 0, false, 1, ""},
        {ModeExport, "WriteMarker", 71, 0, true, 2, ""},
        {ModeExport, "WriteMarker", 13, 0, true, 1, "DoBackUp 13"},
        {ModeImport, "Search", 76, 0, true, 1, ""},
        {ModeImport, "Search", 5, 0, true, 1, ""},
        {ModeImport, "ImportOne", 53, 0, true, 3, ""},
        {ModeImport, "ImportOne", 75, kAbort, false, 1, ""},
        {ModeImport, "ImportOne", 58, 0, true, 3, ""},
        {ModeImport, "ImportOne", 52, kRetry, true, 4, ""},
        {ModeImport, "Search", 57, kAbort, false, 1, ""},
        {ModeImport, "ImportOne", 61, 0, true, 3, "DoRestore 61"},
        {ModeImport, "ImportOne", 70, kIgnore, true, 3, ""},
        {ModeImport, "Search", 71, 0, true, 2, ""},
        {ModeImport, "ImportOne", 6, 0, true, 3, "DoRestore 6"},
    };
    TestEnv::DeleteSection(Section::Schemes);
    for (const char* name : {"One", "Two", "Three"}) AddScheme(name, "1");
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.statement) + " " + std::to_string(row.number));
        TestEnv::CleanFolder("c:\\wizard");
        if (row.mode == ModeImport) {
            for (const char* name : {"One", "Two", "Three"}) WriteSchemeFile(name, "c:\\wizard\\");
            TestEnv::PutFile("c:\\wizard\\importfde.key", kMarkerText);
        }
        Answers answers;
        answers.press = [&](const std::string&) { return row.press; };
        Reports reports;
        FailingFiles files;
        files.failing = row.statement;
        files.number = row.number;
        if (row.mode == ModeExport) {
            TestEnv::RemoveFolder("c:\\wizard");
            ExportToWizardFolder(answers);
        } else {
            ImportUpToConfirmation(answers, "c:\\wizard\\");
        }
        SetWizardFiles(&files);
        EXPECT_EQ(Copy(), row.finished);
        SetWizardFiles(nullptr);
        const size_t calls = static_cast<size_t>(std::count(files.calls.begin(), files.calls.end(), row.statement));
        std::string all;
        for (const std::string& call : files.calls) all += call + " ";
        EXPECT_EQ(calls, row.calls) << all << Text(IDC_WZ_LBLSAVETO) << " " << Wizard()->subFolder;
        EXPECT_EQ(reports.seen.empty() ? "" : reports.seen[0], row.report);
        const WizardFailure failure = FailureFor(row.number, row.mode);
        if (!failure.message.empty()) {
            EXPECT_EQ(answers.messages, std::vector<std::string>{failure.message});
        }
        if (!row.finished) {
            EXPECT_EQ(TextOf(Control(IDC_WZ_PRGSTATUS)), row.mode == ModeExport ? "Export Canceled" : "Import Canceled");
        }
        Wizard()->Unload();
    }
}

}  // namespace

