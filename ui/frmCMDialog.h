// frmCMDialog: the folder picker. Drives, the folder tree of the chosen
// drive, the "aol.exe" files of the chosen folder, and the chosen path; used
// to point the program at the AOL folder.
#pragma once

#include <string>

#include "Form.h"
#include "modZunBtns.h"

class frmCMDialog : public Form {
public:
    frmCMDialog();
    ~frmCMDialog() override;

    HWND Drive1 = nullptr, Dir1 = nullptr, File1 = nullptr, txtPath = nullptr, lblPath = nullptr;
    ZunButton Command1, Command2;

    // The folder shown in Dir1 (no trailing backslash except at a root).
    const std::string& Folder() const { return folder_; }
    void ChangeFolder(const std::string& folder);
    // Returns false (and leaves everything) when the drive is not ready.
    bool ChangeDrive(const std::string& drive);
    std::string PathText() const;

    void Command1_Click();
    void Command2_Click();

protected:
    void OnLoad() override;
    void OnCommand(int id, int code, HWND control) override;

private:
    void FillDrives();
    void FillFolders();
    void FillFiles();

    std::string folder_;
};
