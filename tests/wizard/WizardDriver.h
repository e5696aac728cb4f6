// Drives the Import/Export wizard in this process through its real
// controls, its input box and the real open-file dialog, for the Wine tests.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "Catalog.h"
#include "SchemeFiles.h"
#include "SchemeText.h"
#include "Schemes.h"
#include "TestProcess.h"
#include "WineRegistry.h"
#include "WizardFiles.h"
#include "WizardPages.h"
#include "frmWizard.h"
#include "modFileOp.h"
#include "modRegKeys.h"
#include "resource.h"

inline const std::string kFloppy = "a:\\";
// The message box's buttons for Abort, Retry and Ignore, from the right.
inline constexpr int kIgnore = 0, kRetry = 1, kAbort = 2;

inline std::string TextOf(HWND window)
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

// A fresh program key with the shipped schemes, and the wizard driven the
// way a user drives it.
class WizardDriver : public ::testing::Test {
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
    HWND Control(int id) { return WizardControl(Wizard()->hwnd(), id); }
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
    // The same into `subFolder` of that drive, added through the input box.
    void ExportUpToConfirmation(Answers& answers, const std::string& caption, const std::string& subFolder)
    {
        ExportUpToConfirmation(caption);
        Press(IDC_WZ_BACK);
        Press(IDC_WZ_BACK);
        answers.inputBoxAnswer = subFolder;
        Press(IDC_WZ_SUBFOLDER);
        PumpUntil([&] { return Text(IDC_WZ_LBLPATH) == Wizard()->driveRoot + subFolder + "\\"; }, 20000);
        Press(IDC_WZ_NEXT);
        Press(IDC_WZ_NEXT);
    }
    // Into the hard disk's folder "wizard".
    void ExportToWizardFolder(Answers& answers)
    {
        ExportUpToConfirmation(answers, "( C:\\ ) Hard Disk (not recommended)", "wizard");
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

inline bool Same(const SchemeTexts& a, const SchemeTexts& b)
{
    for (int i = 0; i < 6; ++i)
        if (a.colors[i] != b.colors[i]) return false;
    return a.fadeNumber == b.fadeNumber && a.wavy == b.wavy && a.bold == b.bold && a.italic == b.italic &&
           a.uline == b.uline;
}

