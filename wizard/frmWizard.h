// frmWizard: the Import/Export wizard. It backs every stored Fade Scheme up
// to a diskette or another drive, as scheme files beside a marker file, and
// restores the schemes from such a folder on this or another machine.
#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "ErrorTrap.h"
#include "Form.h"
#include "GdiObjects.h"
#include "WizardText.h"
#include "modZunBtns.h"

class frmWizard : public Form {
public:
    frmWizard();
    ~frmWizard() override;

    // The pages, exactly one shown at a time.
    enum Page { fraOne, fraTwo, fraImport, fraThree, fraFour, fraBackup, fraFinish, kPages };

    int mode = ModeNone;        // ModeExport or ModeImport, as last chosen on the first page
    std::string driveRoot;      // the export drive's root in lower case: "a:\"
    std::string subFolder;      // added to the export path, ending in "\"; "" when none
    bool cancelRequested = false;
    long filesDone = 0;
    int filesTotal = 0;

    ZunButton cmdBack, cmdNext, cmdFinish, cmdCancel, cmdHelp, cmdSubFolder, cmdLocateKey, cmdCancelProgress;
    ProgressBar prgStatus;

    void cmdNext_Click();
    void cmdBack_Click();
    void cmdFinish_Click();
    void cmdCancel_Click();
    void cmdCancelProgress_Click();
    void cmdHelp_Click();
    void cmdSubFolder_Click();
    void cmdLocateKey_Click();
    void optDrive_Click(int index);  // optOne (0) to optSeven (6)

protected:
    void OnLoad() override;
    void OnCommand(int id, int code, HWND control) override;
    void OnClose() override;

private:
    void MakePages();
    void Recolor();
    HWND Control(int id) const;
    std::string Text(int id) const;
    void SetText(int id, const std::string& text);
    void ShowPage(Page page);
    void Enable(ZunButton& button, bool on);

    void GetSchemesText(int copyMode);
    std::vector<std::string> ListedSchemes() const;
    void ExportSettings();
    void ImportSettings();
    void FilesToCopy(int copyMode);
    void FillConfirmation();
    void StartCopy();
    void DoBackUp(const std::string& folder, const std::string& root);
    void DoRestore(const std::string& folder, const std::string& root);
    void ShowFinish(const char* label9, const char* label10, const char* label11);
    void MoveProgressBar();
    void ResetBar();

    bool Step(ErrorTrap& trap, const std::function<void()>& statement);
    bool Handled(const std::function<void()>& statement);
    bool Going() const;

    std::array<HWND, kPages> pages_{};
    Page page_ = fraOne;
    std::array<std::string, kDriveChoices> optTag_;  // "USED" once a drive fills the choice
    GdiFont boldFont_;
    bool copying_ = false;
    bool closeAfterCopy_ = false;
};

// Opens the wizard, or brings it forward when it is already open.
bool ShowWizard();
// The wizard while it is open; nullptr otherwise.
frmWizard* Wizard();
