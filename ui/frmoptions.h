// frmoptions: the options dialog. Every change the user makes here is put
// into Options and written to the registry at once; there is no OK or Apply.
// The alias alone waits for Exit.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "Form.h"
#include "modZunBtns.h"

class frmoptions : public Form {
public:
    // `reloadControlPanel` rebuilds the control panel so that a changed
    // colour mode shows on it.
    explicit frmoptions(std::function<void()> reloadControlPanel);
    ~frmoptions() override;

    // True while the dialog fills its controls: the handlers then write nothing.
    bool Loading = false;

    ZunButton cmdSetColors, cmdHelp, cmdExit;

    // Paints the dialog in the current colour mode, and with `rebuildPanel`
    // rebuilds the control panel too.
    void Recolor(bool rebuildPanel);

    void chkMultiline_Click();
    void chkAlias_Click();
    void cboBurstSecs_Click();
    void cboLines_Click();
    void optUI_Click(int mode);  // 0 optUIStd, 1 optUIEnh, 2 optUIUser
    void cmdSetColors_Click();
    void cmdHelp_Click();
    void cmdExit_Click();

protected:
    void OnLoad() override;
    void OnCommand(int id, int code, HWND control) override;

private:
    bool Checked(int id) const;
    void SetChecked(int id, bool on);
    void CheckBox_Click(int id);
    void EnableMultilineControls(bool on);
    void FillList(int id, const std::vector<std::string>& entries, int selected);

    std::function<void()> reloadControlPanel_;
    friend bool ShowOptions(std::function<void()> reloadControlPanel);
};

// Opens the options dialog, or brings it forward when it is already open.
bool ShowOptions(std::function<void()> reloadControlPanel);
// The dialog while it is open; nullptr otherwise.
frmoptions* OptionsDialog();
