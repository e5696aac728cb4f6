// The common error report: what failed, where, and Abort, Retry or Ignore.
#include <array>

#include "ErrorTrap.h"
#include "ProgramInfo.h"
#include "frmMsg.h"
#include "resource.h"

namespace {

class frmErrorReport : public Form {
public:
    explicit frmErrorReport(const ErrorReport& report) : Form("frmErrorReport", IDD_ERRORREPORT), report_(report) {}
    ~frmErrorReport() override { Unload(); }
    // Closed with the close box or Alt+F4 the report answers none of its
    // buttons, and the trap then leaves the procedure.
    int Answer = 0;

protected:
    void OnLoad() override
    {
        InitForm(*this);
        const std::string version = report_.version.empty() ? VersionText() : report_.version;
        SetCaption(report_.title + " - " + version);
        SendDlgItemMessageA(hwnd(), IDC_ERR_ICON, STM_SETICON,
                            reinterpret_cast<WPARAM>(LoadIconA(nullptr, MAKEINTRESOURCEA(32513))), 0);
        heading_.reset(CreateFontA(-MulDiv(8, 96, 72), 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, ANSI_CHARSET,
                                   OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                   DEFAULT_PITCH | FF_SWISS, "MS Sans Serif"));
        SendDlgItemMessageA(hwnd(), IDC_ERR_HEADING, WM_SETFONT, reinterpret_cast<WPARAM>(heading_.get()), FALSE);
        SetDlgItemTextA(hwnd(), IDC_ERR_HEADING,
                        ("An unexpected error has occurred in " + report_.title + ".").c_str());
        const std::string details = "Version: " + version + "\r\nModule: " + report_.module + "\r\nProcedure: " +
                                    report_.procedure + "\r\nLine: " + std::to_string(report_.line) +
                                    "\r\nError number: " + report_.number + "\r\nDescription: " + report_.description;
        SetDlgItemTextA(hwnd(), IDC_ERR_DETAILS, details.c_str());
        for (int i = 0; i < 3; ++i) {
            buttons_[i].Attach(Item(IDC_ERR_ABORT + i));
            SetButtonColor(buttons_[i]);
        }
        DrawFormEdge(*this);
    }

    void OnCommand(int id, int code, HWND) override
    {
        if (code != BN_CLICKED || id < IDC_ERR_ABORT || id > IDC_ERR_IGNORE) return;
        Answer = AnswerAbort + (id - IDC_ERR_ABORT);
        Hide();
    }

private:
    ErrorReport report_;
    std::array<ZunButton, 3> buttons_;
    GdiFont heading_;
};

}  // namespace

int ShowErrorReport(const ErrorReport& report)
{
    frmErrorReport form(report);
    if (!form.Load()) return AnswerIgnore;
    MessageBeep(MB_ICONHAND);
    form.Show();
    SetFocus(form.Item(IDC_ERR_IGNORE));
    WaitWhileShown(form, true);
    return form.Answer;
}

namespace {

// The program's reporter: the dialog, and Abort ends the program.
class DialogReporter : public ErrorReporter {
public:
    void (*EndProgram)() = nullptr;
    int Report(const ErrorReport& report) override { return ShowErrorReport(report); }
    void Abort() override
    {
        if (EndProgram) EndProgram();
        UnloadAllForms();
        ExitProcess(0);
    }
};

}  // namespace

void InstallErrorReport(void (*endProgram)())
{
    static DialogReporter reporter;
    reporter.EndProgram = endProgram;
    SetErrorVersionText(VersionText());
    SetErrorReporter(&reporter);
}
