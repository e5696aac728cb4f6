// The program's input box.
#include "InputBox.h"

#include "Form.h"
#include "modZunBtns.h"
#include "resource.h"

namespace {

class frmInputBox : public Form {
public:
    frmInputBox() : Form("frmInputBox", IDD_INPUTBOX) {}
    ~frmInputBox() override { Unload(); }

    std::string Answer;
    bool Confirmed = false;

    void Prepare(const std::string& prompt, const std::string& title, const std::string& text)
    {
        SetCaption(title);
        SetDlgItemTextA(hwnd(), IDC_IB_PROMPT, prompt.c_str());
        SetDlgItemTextA(hwnd(), IDC_IB_TEXT, text.c_str());
        SendDlgItemMessageA(hwnd(), IDC_IB_TEXT, EM_SETSEL, 0, -1);
    }

protected:
    void OnLoad() override
    {
        InitForm(*this);
        cmdOK_.Attach(Item(IDC_IB_OK));
        cmdCancel_.Attach(Item(IDC_IB_CANCEL));
        SetButtonColor(cmdOK_);
        SetButtonColor(cmdCancel_);
    }

    void OnCommand(int id, int code, HWND) override
    {
        if (code != BN_CLICKED) return;
        if (id == IDC_IB_OK || id == IDOK) {
            char text[1024] = "";
            GetDlgItemTextA(hwnd(), IDC_IB_TEXT, text, sizeof text);
            Answer = text;
            Confirmed = true;
            Hide();
        } else if (id == IDC_IB_CANCEL || id == IDCANCEL) {
            Hide();
        }
    }

    bool OnQueryUnload() override
    {
        Hide();  // closing the box is Cancel
        return true;
    }

private:
    ZunButton cmdOK_, cmdCancel_;
};

}  // namespace

std::string InputBox(const std::string& prompt, const std::string& title, const std::string& defaultText,
                     HWND owner)
{
    frmInputBox box;
    if (!box.Load()) return "";
    if (owner) SetWindowLongPtrA(box.hwnd(), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
    box.Prepare(prompt, title, defaultText);
    box.Show();
    SetFocus(GetDlgItem(box.hwnd(), IDC_IB_TEXT));
    WaitWhileShown(box, true);
    return box.Confirmed ? box.Answer : "";
}
