// ShowMsg and AskMsg: every message of the program, through frmMsg.
#include "modMsgBox.h"

#include "frmMsg.h"

namespace {

int ShowMessage(const std::string& message, const MsgStyle& style)
{
    frmMsg form;
    if (!form.Load()) return 0;
    form.Prepare(message, style);
    form.Show();
    form.FocusFirstButton();
    WaitWhileShown(form, !style.modeless);
    const std::string answer = form.Tag;
    form.Unload();
    return answer.empty() ? 0 : std::stoi(answer);
}

}  // namespace

void ShowMsg(const std::string& message, long style) { ShowMessage(message, DecodeMsgStyle(style, false)); }

int AskMsg(const std::string& message, long style) { return ShowMessage(message, DecodeMsgStyle(style, true)); }
