// Chat commands typed as "/" + word, the advertisement, and moving a full
// chat line into the multiline window.
#include <windows.h>

#include "ChatHooks.h"
#include "ChatSession.h"
#include "ChatText.h"
#include "ErrorTrap.h"
#include "Options.h"
#include "modAOLFunctions.h"
#include "modFindChild.h"
#include "modMsgBox.h"
#include "modRegKeys.h"
#include "modWin32API.h"

namespace {

// AOL's rich text commands that together leave the chat input empty.
constexpr WPARAM kSelectAll = 20005;
constexpr WPARAM kClear = 20004;

}  // namespace

void ChatSession::ActivateCommand(const std::string& command)
{
    const CommandScope running(*this);
    ErrorTrap trap("frmChatTools", "ActivateCommand");
    switch (CommandFor(command)) {
    case ChatCommand::Help:
        trap.Run([&] { OpenProgramWindow({ProgramWindow::Help, kHelpContentsTopic}); });
        break;
    case ChatCommand::Advertise:
        trap.Run([&] { Advertise(); });
        break;
    case ChatCommand::Updates:
        trap.Run([&] { OpenProgramWindow({ProgramWindow::VersionCheck, ""}); });
        break;
    case ChatCommand::Show:
        trap.Run([&] { panel_.ShowPanel(); });
        break;
    case ChatCommand::Hide:
        trap.Run([&] { panel_.HidePanel(); });
        break;
    case ChatCommand::FadeOn:
        Options.FaderOn = true;
        trap.Run([&] { WriteSetting(Setting::FaderOn, "True"); });
        trap.Run([&] { panel_.ShowPanel(); });
        trap.Run([&] { Pause(100); });
        trap.Run([&] { panel_.FadeOn(); });
        break;
    case ChatCommand::FadeOff:
        Options.FaderOn = false;
        trap.Run([&] { WriteSetting(Setting::FaderOn, "False"); });
        trap.Run([&] { panel_.FadeOff(); });
        // Outside a chat room the panel has nothing to stand beside.
        if (!sbcChatEdit.Window()) trap.Run([&] { panel_.HidePanel(); });
        break;
    case ChatCommand::Options:
        trap.Run([&] { OpenProgramWindow({ProgramWindow::Options, ""}); });
        break;
    case ChatCommand::Multiline:
        trap.Run([&] { EnableMultiline(sbcChatEdit.Window(), 0, 0); });
        trap.Run([&] { OpenProgramWindow({ProgramWindow::MultilineInsert, ""}); });
        break;
    case ChatCommand::Keyword:
        trap.Run([&] { RunAOLKeyword(command); });
        break;
    }
}

void ChatSession::Advertise()
{
    ErrorTrap trap("frmChatTools", "Advertise");
    bool online = false;
    trap.Run([&] { online = IsAOLOnline(false); });
    if (!online) return;
    HWND room = nullptr;
    trap.Run([&] { room = FindChatRoom(AOLMDIClient, "AOL Child"); });
    if (!room) {
        ShowMsg("~B~CRNo valid chat room found!~B~CN~N ~NYou must be in a chat room to use this "
                "feature!",
                64);
        return;
    }
    const std::vector<std::string> lines = AdvertLines();
    // The lines carry their own markup: the fader stays out of the way
    // (in memory only, the stored setting is left alone).
    if (Options.FaderOn) {
        Options.FaderOn = false;
        AdvertFaderWasOn = true;
    }
    for (const std::string& line : lines) {
        trap.Run([&] { TextToChat(line, 1); });
        trap.Run([&] {
            ShowChatInput(FindChildByClass(room, "RICHCNTL", 2));
            panel_.KeepInFront();
        });
        trap.Run([&] { Pause(1000); });
    }
    if (AdvertFaderWasOn) {
        AdvertFaderWasOn = false;
        Options.FaderOn = true;
    }
}

void ChatSession::EnableMultiline(HWND inputBox, int character, long lineLength)
{
    ErrorTrap trap("frmChatTools", "EnableMultiline");
    std::string text;
    trap.Run([&] {
        if (!inputBox) return;
        std::string buffer(static_cast<size_t>(lineLength) + 1, '\0');
        const LRESULT got = SendMessageA(inputBox, WM_GETTEXT, buffer.size(),
                                         reinterpret_cast<LPARAM>(&buffer[0]));
        text.assign(buffer.data(), got > 0 ? static_cast<size_t>(got) : 0);
    });
    if (character != 0) text += static_cast<char>(character);
    bool opened = false;
    trap.Run([&] { opened = OpenProgramWindow({ProgramWindow::Multiline, text}); });
    // The line now lives in the multiline window; without one it stays put.
    if (!opened || !inputBox) return;
    trap.Run([&] {
        SendMessageA(inputBox, WM_COMMAND, kSelectAll, 0);
        SendMessageA(inputBox, WM_COMMAND, kClear, 0);
    });
}
