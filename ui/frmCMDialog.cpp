// frmCMDialog: choosing a folder, in particular AOL's program folder.
#include "frmCMDialog.h"

#include <algorithm>
#include <cstring>
#include <cctype>
#include <vector>

#include "ErrorTrap.h"
#include "FindHandle.h"
#include "modFileOp.h"
#include "modMsgBox.h"
#include "resource.h"

namespace {

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

std::string WithSlash(const std::string& folder)
{
    return !folder.empty() && folder.back() == '\\' ? folder : folder + "\\";
}

// "C:\A\B" -> "C:\", "C:\A", "C:\A\B": the folders from the root down.
std::vector<std::string> Ancestors(const std::string& folder)
{
    std::vector<std::string> chain;
    if (folder.size() < 2) return chain;
    chain.push_back(folder.substr(0, 2) + "\\");
    for (std::size_t at = 3; at <= folder.size(); ++at)
        if (at == folder.size() || folder[at] == '\\') {
            if (at > 3) chain.push_back(folder.substr(0, at));
        }
    return chain;
}

std::vector<std::string> SubFolders(const std::string& folder)
{
    std::vector<std::string> names;
    WIN32_FIND_DATAA data;
    FindHandle search(WithSlash(folder) + "*", data);
    if (!search) return names;
    do {
        const std::string name = data.cFileName;
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && name != "." && name != "..") names.push_back(name);
    } while (search.Next(data));
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) { return Lower(a) < Lower(b); });
    return names;
}

}  // namespace

frmCMDialog::frmCMDialog() : Form("frmCMDialog", IDD_CMDIALOG) {}

frmCMDialog::~frmCMDialog() { Unload(); }

void frmCMDialog::OnLoad()
{
    InitForm(*this);
    Drive1 = Item(IDC_CM_DRIVE1);
    Dir1 = Item(IDC_CM_DIR1);
    File1 = Item(IDC_CM_FILE1);
    txtPath = Item(IDC_CM_TXTPATH);
    lblPath = Item(IDC_CM_LBLPATH);
    Command1.Attach(Item(IDC_CM_COMMAND1));
    Command2.Attach(Item(IDC_CM_COMMAND2));
    SetButtonColor(Command1);
    SetButtonColor(Command2);
    DrawFormEdge(*this);
    FillDrives();
    ChangeFolder("C:\\");
    SetWindowTextA(txtPath, "c:\\");
}

void frmCMDialog::FillDrives()
{
    char drives[512] = "";
    GetLogicalDriveStringsA(sizeof drives, drives);
    SendMessageA(Drive1, CB_RESETCONTENT, 0, 0);
    for (const char* d = drives; *d; d += std::strlen(d) + 1) {
        const std::string entry = Lower(std::string(d, 2));
        SendMessageA(Drive1, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    }
}

bool frmCMDialog::ChangeDrive(const std::string& drive)
{
    std::string root = drive.substr(0, 2) + "\\";
    root[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(root[0])));
    const UINT oldMode = SetErrorMode(SEM_FAILCRITICALERRORS);
    DWORD sectors, bytes, free, total;
    const bool ready = GetDiskFreeSpaceA(root.c_str(), &sectors, &bytes, &free, &total) ||
                       GetLastError() != ERROR_NOT_READY;
    SetErrorMode(oldMode);
    if (!ready) {
        MessageBoxA(hwnd(), "There is no disk present in the disk drive", "Prismo", MB_ICONSTOP);
        // The drive list goes back to the drive of the folder shown.
        const std::string current = Lower(folder_.substr(0, 2));
        SendMessageA(Drive1, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(current.c_str()));
        return false;
    }
    ChangeFolder(root);
    return true;
}

void frmCMDialog::ChangeFolder(const std::string& folder)
{
    folder_ = folder.size() > 3 && folder.back() == '\\' ? folder.substr(0, folder.size() - 1) : folder;
    const std::string drive = Lower(folder_.substr(0, 2));
    SendMessageA(Drive1, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(drive.c_str()));
    FillFolders();
    FillFiles();
    const std::string shown = folder_ + " ";
    SetWindowTextA(lblPath, shown.c_str());
    SetWindowTextA(txtPath, folder_.c_str());
}

// The folder tree: the chosen folder's ancestors, the folder itself, then its
// subfolders, each indented one step deeper; an item's data is its index
// into paths_ of the same list.
void frmCMDialog::FillFolders()
{
    SendMessageA(Dir1, LB_RESETCONTENT, 0, 0);
    const std::vector<std::string> chain = Ancestors(folder_);
    int depth = 0;
    auto add = [&](const std::string& caption, int indent, bool current) {
        const std::string line = std::string(indent * 2, ' ') + caption;
        const LRESULT at = SendMessageA(Dir1, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
        if (current) SendMessageA(Dir1, LB_SETCURSEL, static_cast<WPARAM>(at), 0);
    };
    for (const std::string& step : chain) {
        const std::size_t slash = step.find_last_of('\\', step.size() - 2);
        const std::string caption = step.size() <= 3 ? step : step.substr(slash + 1);
        add(caption, depth++, step == folder_ || (step.size() == 3 && folder_.size() <= 3));
    }
    for (const std::string& name : SubFolders(folder_)) add(name, depth, false);
}

void frmCMDialog::FillFiles()
{
    SendMessageA(File1, LB_RESETCONTENT, 0, 0);
    for (const std::string& name : FileNames(WithSlash(folder_) + "aol.exe")) {
        const std::string shown = Lower(name);
        SendMessageA(File1, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(shown.c_str()));
    }
    EnableWindow(Command1.hwnd(), SendMessageA(File1, LB_GETCOUNT, 0, 0) > 0);
}

std::string frmCMDialog::PathText() const
{
    char text[MAX_PATH + 1] = "";
    GetWindowTextA(txtPath, text, sizeof text);
    return text;
}

void frmCMDialog::Command1_Click()
{
    ErrorTrap trap("frmCMDialog", "cmdExit_Click");
    trap.Run([&] {
        char caption[128] = "";
        GetWindowTextA(hwnd(), caption, sizeof caption);
        if (std::string(caption) == "Select AOL Directory") {
            const std::string path = PathText();
            if (path == "C:\\" || !FileExists(WithSlash(path) + "aol.exe")) {
                ShowMsg("~B~CRAOL.EXE not found!~B~CN~N ~NThis is not a valid AOL directory.~N ~NPlease choose a "
                        "directory that conatins the ~B~CBAOL.EXE~B~CN file.",
                        16);
                return;
            }
        }
        Hide();
    });
}

void frmCMDialog::Command2_Click()
{
    SetWindowTextA(txtPath, "");
    Hide();
}

void frmCMDialog::OnCommand(int id, int code, HWND)
{
    switch (id) {
    case IDC_CM_DRIVE1:
        if (code == CBN_SELCHANGE) {
            char drive[8] = "";
            const LRESULT at = SendMessageA(Drive1, CB_GETCURSEL, 0, 0);
            if (at != CB_ERR) SendMessageA(Drive1, CB_GETLBTEXT, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(drive));
            if (*drive) ChangeDrive(drive);
        }
        return;
    case IDC_CM_DIR1:
        if (code == LBN_DBLCLK) {
            // The clicked line's depth says how much of the path it keeps.
            const LRESULT at = SendMessageA(Dir1, LB_GETCURSEL, 0, 0);
            const std::vector<std::string> chain = Ancestors(folder_);
            if (at == LB_ERR) return;
            if (static_cast<std::size_t>(at) < chain.size()) {
                ChangeFolder(chain[at]);
            } else {
                char line[MAX_PATH] = "";
                SendMessageA(Dir1, LB_GETTEXT, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(line));
                std::string name = line;
                name.erase(0, name.find_first_not_of(' '));
                ChangeFolder(WithSlash(folder_) + name);
            }
        }
        return;
    case IDC_CM_FILE1:
        if (code == LBN_DBLCLK) Command1_Click();
        return;
    case IDC_CM_COMMAND1:
        if (code == BN_CLICKED) Command1_Click();
        return;
    case IDC_CM_COMMAND2:
    case IDCANCEL:
        if (code == BN_CLICKED) Command2_Click();
        return;
    default:
        return;
    }
}
