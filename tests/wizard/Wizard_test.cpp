// The Import/Export wizard under Wine, driven through its real controls, its
// input box and the real open-file dialog, on the prefix's test drives
// (A: a floppy, E: removable, C: the hard disk): the round trip of the
// shipped schemes, every message, hostile scheme files and names, Cancel in
// the middle of a copy, and every row of the file-error table through a
// substituted set of file statements.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "Catalog.h"
#include "ErrorTrap.h"
#include "SchemeFiles.h"
#include "SchemeText.h"
#include "Schemes.h"
#include "TestProcess.h"
#include "WineRegistry.h"
#include "WizardFiles.h"
#include "frmWizard.h"
#include "modFileOp.h"
#include "modRegKeys.h"
#include "resource.h"

namespace {

const std::string kFloppy = "a:\\";
// The message box's buttons for Abort, Retry and Ignore, from the right.
constexpr int kIgnore = 0, kRetry = 1, kAbort = 2;

std::string TextOf(HWND window)
{
    char text[4096] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}

// Answers whatever the wizard asks while its copy holds the thread: each
// message box (recorded, then pressed by `press`, button 0 by default), the
// input box and the open-file dialog.
class Answers {
public:
    Answers() { timer_ = SetTimer(nullptr, 0, 30, Tick); current_ = this; }
    ~Answers()
    {
        KillTimer(nullptr, timer_);
        current_ = nullptr;
    }
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;

    std::vector<std::string> messages;
    std::function<int(const std::string&)> press = [](const std::string&) { return 0; };
    std::string inputBoxAnswer;     // typed into the input box; "\x1b" cancels it
    std::string openFile;           // typed into the open dialog; "" cancels it
    std::function<void()> onTick;   // anything else a test does while the copy runs

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD)
    {
        if (current_) current_->Step();
    }
    void Step()
    {
        if (onTick) onTick();
        if (HWND box = WindowWithChild(GetCurrentProcessId(), IDC_MSG_AREA)) {
            if (box == lastBox_) return;  // pressed; waiting for it to go
            lastBox_ = box;
            const std::string text = TextOf(GetDlgItem(box, IDC_MSG_AREA));
            messages.push_back(text);
            PostMessageA(GetDlgItem(box, IDC_MSG_CMD0 + press(text)), BM_CLICK, 0, 0);
            return;
        }
        lastBox_ = nullptr;
        if (HWND input = WindowWithChild(GetCurrentProcessId(), IDC_IB_TEXT)) {
            const bool cancel = inputBoxAnswer == "\x1b";
            if (!cancel) SetDlgItemTextA(input, IDC_IB_TEXT, inputBoxAnswer.c_str());
            PostMessageA(GetDlgItem(input, cancel ? IDC_IB_CANCEL : IDC_IB_OK), BM_CLICK, 0, 0);
            return;
        }
        HWND open = FindWindowA("#32770", "Open");
        if (open && IsWindowVisible(open)) {
            if (openFile.empty()) return (void)PostMessageA(GetDlgItem(open, IDCANCEL), BM_CLICK, 0, 0);
            for (int id : {0x47c, 0x480}) SetDlgItemTextA(open, id, openFile.c_str());
            PostMessageA(GetDlgItem(open, IDOK), BM_CLICK, 0, 0);
        }
    }
    inline static Answers* current_ = nullptr;
    UINT_PTR timer_ = 0;
    HWND lastBox_ = nullptr;
};

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

class WizardTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        TestEnv::ResetProgramKey();
        TestEnv::InstallShippedSchemes();
        for (const char* folder : {"a:\\Prismo Schemes", "c:\\wizard"}) TestEnv::RemoveFolder(folder);
        TestEnv::CleanFolder("c:\\wizard");
    }
    void TearDown() override
    {
        if (Wizard()) Wizard()->Unload();
        SetWizardFiles(nullptr);
    }

    frmWizard& Open()
    {
        EXPECT_TRUE(ShowWizard());
        return *Wizard();
    }
    HWND Control(int id)
    {
        for (HWND page = GetWindow(Wizard()->hwnd(), GW_CHILD); page; page = GetWindow(page, GW_HWNDNEXT))
            if (HWND control = GetDlgItem(page, id)) return control;
        return GetDlgItem(Wizard()->hwnd(), id);
    }
    std::string Text(int id) { return TextOf(Control(id)); }
    bool Shown(int id) { return IsWindowVisible(Control(id)) != 0; }
    bool Enabled(int id) { return IsWindowEnabled(Control(id)) != 0; }
    // A click as the mouse gives it, taken once the wizard has done with it
    // (a copy runs inside its click).
    void Press(int id)
    {
        PostMessageA(Control(id), BM_CLICK, 0, 0);
        PumpFor(50);
    }
    // The wizard's page now showing, by a control only that page has.
    bool OnPage(int id) { return PumpUntil([&] { return Wizard() && Shown(id); }, 20000); }
    std::vector<std::string> Listed()
    {
        std::vector<std::string> names;
        HWND list = Control(IDC_WZ_LSTSCHEMES);
        for (LRESULT i = 0; i < SendMessageA(list, LB_GETCOUNT, 0, 0); ++i) {
            char name[1024] = "";
            SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(name));
            names.push_back(name);
        }
        return names;
    }
    std::vector<std::string> DriveCaptions()
    {
        std::vector<std::string> captions;
        for (int i = 0; i < kDriveChoices; ++i)
            if (Shown(IDC_WZ_OPTONE + i)) captions.push_back(Text(IDC_WZ_OPTONE + i));
        return captions;
    }
    void ChooseDrive(const std::string& caption)
    {
        for (int i = 0; i < kDriveChoices; ++i)
            if (Text(IDC_WZ_OPTONE + i) == caption) return Press(IDC_WZ_OPTONE + i);
        ADD_FAILURE() << "no drive " << caption;
    }
    // From the first page to the confirmation of an export to `caption`.
    void ExportUpToConfirmation(const std::string& caption)
    {
        Open();
        Press(IDC_WZ_OPTEXPORT);
        Press(IDC_WZ_NEXT);
        ChooseDrive(caption);
        Press(IDC_WZ_NEXT);
        Press(IDC_WZ_NEXT);
    }
    // The same into the hard disk's folder "wizard", added as a sub-folder.
    void ExportToWizardFolder()
    {
        ExportUpToConfirmation("( C:\\ ) Hard Disk (not recommended)");
        Press(IDC_WZ_BACK);
        Press(IDC_WZ_BACK);
        Press(IDC_WZ_SUBFOLDER);
        PumpUntil([&] { return Text(IDC_WZ_LBLPATH) == "c:\\wizard\\"; }, 20000);
        Press(IDC_WZ_NEXT);
        Press(IDC_WZ_NEXT);
    }
    // From the first page to the confirmation of an import from the marker's folder.
    void ImportUpToConfirmation(Answers& answers, const std::string& folder)
    {
        Open();
        Press(IDC_WZ_OPTIMPORT);
        Press(IDC_WZ_NEXT);
        answers.openFile = folder + "importfde.key";
        Press(IDC_WZ_LOCATEKEY);
        PumpUntil([&] { return !Text(IDC_WZ_LBLIMPORT).empty(); }, 20000);
        Press(IDC_WZ_NEXT);
        Press(IDC_WZ_NEXT);
    }
    // Next on the confirmation page: the copy, until it has finished or given up.
    bool Copy()
    {
        Press(IDC_WZ_NEXT);
        return PumpUntil([&] { return Shown(IDC_WZ_LABEL9) || Enabled(IDC_WZ_NEXT); }, 60000) &&
               Shown(IDC_WZ_LABEL9);
    }
    static std::map<std::string, SchemeTexts> StoredSchemes()
    {
        std::map<std::string, SchemeTexts> schemes;
        for (const std::string& name : SettingSubkeys(Section::Schemes)) schemes[name] = ReadScheme(Registry(), name);
        return schemes;
    }
    static void AddScheme(const std::string& name, const std::string& one)
    {
        WriteSetting(SchemeSection(name), "Fade Number", "1");
        WriteSetting(SchemeSection(name), "One", one);
    }
};

bool Same(const SchemeTexts& a, const SchemeTexts& b)
{
    for (int i = 0; i < 6; ++i)
        if (a.colors[i] != b.colors[i]) return false;
    return a.fadeNumber == b.fadeNumber && a.wavy == b.wavy && a.bold == b.bold && a.italic == b.italic &&
           a.uline == b.uline;
}

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

TEST_F(WizardTest, NoSchemesKeyAndAMarkerNeverLocatedAreTold)
{
    TestEnv::DeleteSection(Section::Schemes);
    Answers answers;
    ExportUpToConfirmation("( C:\\ ) Hard Disk (not recommended)");
    EXPECT_TRUE(Listed().empty());
    EXPECT_EQ(answers.messages, std::vector<std::string>{WizardText::NoSchemesKey});
    EXPECT_EQ(Text(IDC_WZ_LBLMSG), ExportAdvice("Hard Disk", "c:\\"));
    Wizard()->Unload();

    // Scheme files without a marker: the dialog finds nothing to choose, so Next insists.
    TestEnv::PutFile("c:\\wizard\\Lone.fde", "One=1\r\n");
    answers.messages.clear();
    Open();
    Press(IDC_WZ_OPTIMPORT);
    Press(IDC_WZ_NEXT);
    answers.openFile = "";
    Press(IDC_WZ_LOCATEKEY);
    Press(IDC_WZ_NEXT);
    EXPECT_TRUE(PumpUntil([&] { return answers.messages.size() == 1; }, 20000));
    EXPECT_EQ(answers.messages, std::vector<std::string>{WizardText::LocateKey});
    EXPECT_TRUE(Shown(IDC_WZ_LOCATEKEY));
    EXPECT_FALSE(TestEnv::SectionExists("Schemes\\Lone"));
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
    answers.inputBoxAnswer = "wizard";
    ExportToWizardFolder();
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
    answers.inputBoxAnswer = "wizard";
    ExportToWizardFolder();
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
    answers.inputBoxAnswer = "full";
    ExportUpToConfirmation("( E:\\ ) Removable Drive");
    Press(IDC_WZ_BACK);
    Press(IDC_WZ_BACK);
    Press(IDC_WZ_SUBFOLDER);
    PumpUntil([&] { return Text(IDC_WZ_LBLPATH) == "e:\\full\\"; }, 20000);
    Press(IDC_WZ_NEXT);
    Press(IDC_WZ_NEXT);
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
        answers.inputBoxAnswer = "wizard";
        answers.press = [&](const std::string&) { return row.press; };
        Reports reports;
        FailingFiles files;
        files.failing = row.statement;
        files.number = row.number;
        if (row.mode == ModeExport) {
            TestEnv::RemoveFolder("c:\\wizard");
            ExportToWizardFolder();
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
