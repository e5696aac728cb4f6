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

// A command asked for while another one, an advertisement or a watcher tick
// is under way is ignored: it would otherwise run inside that one's wait and
// mix its work with it (a second advertisement between the lines of the
// first). The fader's On and Off are the exception during an advertisement:
// the user's choice is carried out and outlasts the advertisement.
void ChatSession::ActivateCommand(const std::string& command)
{
    const ChatCommand which = CommandFor(command);
    if (Busy()) {
        if (ChatCommandWhileBusy(which, Advertising) == WhileBusy::RunNow) {
            ErrorTrap trap("frmChatTools", "ActivateCommand");
            SwitchFader(which == ChatCommand::FadeOn, trap);
        }
        return;
    }
    RunOneThing(false, [&] {
        ErrorTrap trap("frmChatTools", "ActivateCommand");
        switch (which) {
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
        case ChatCommand::FadeOff:
            SwitchFader(which == ChatCommand::FadeOn, trap);
            break;
        case ChatCommand::Options:
            trap.Run([&] { OpenProgramWindow({ProgramWindow::Options, ""}); });
            break;
        case ChatCommand::Multiline:
            trap.Run([&] { EnableMultiline(sbcChatEdit.Window(), false); });
            trap.Run([&] { OpenProgramWindow({ProgramWindow::MultilineInsert, ""}); });
            break;
        case ChatCommand::Keyword:
            trap.Run([&] { RunAOLKeyword(command); });
            break;
        }
    });
}

void ChatSession::SwitchFader(bool on, ErrorTrap& trap)
{
    Options.FaderOn = on;
    trap.Run([&] { WriteSetting(Setting::FaderOn, on ? "True" : "False"); });
    if (on) {
        trap.Run([&] { panel_.ShowPanel(); });
        trap.Run([&] { Pause(100); });
        trap.Run([&] { panel_.FadeOn(); });
        return;
    }
    trap.Run([&] { panel_.FadeOff(); });
    // Outside a chat room the panel has nothing to stand beside.
    if (!sbcChatEdit.Window()) trap.Run([&] { panel_.HidePanel(); });
}

bool ChatSession::RunAlone(const std::function<void()>& work)
{
    if (Busy()) return false;
    RunOneThing(false, work);
    return true;
}

void ChatSession::RunOneThing(bool tick, const std::function<void()>& work)
{
    if (Busy()) return;
    if (tick) {
        const FlagUp ticking(ticking_);
        work();
    } else {
        const CommandScope running(*this);
        work();
    }
    RunHeldEnd();
}

void ChatSession::RunHeldEnd()
{
    const HeldEnd end = heldEnd_;
    heldEnd_ = HeldEnd::None;
    if (end == HeldEnd::CloseWithAOL) CloseWithAOL();
    if (end == HeldEnd::Exit) RunMenuCommand(MenuCommand::Exit);
}

// AOL waits for nothing here: its close was swallowed and is sent again at
// the end. While something runs, that ends first (an advertisement stops at
// once), so nothing of the program is left to act on a closed AOL.
void ChatSession::CloseWithAOL()
{
    if (Busy()) {
        heldEnd_ = HeldEnd::CloseWithAOL;
        return;
    }
    RunOneThing(false, [&] { UnhookPrismo(); });
}

bool ChatSession::Leaving() const
{
    return heldEnd_ != HeldEnd::None || AOLClosing || !Running() || !AOLWindow || !IsWindow(AOLWindow);
}

bool ChatSession::AdvertMustStop(HWND room) const
{
    if (Leaving() || !IsWindow(room)) return true;
    // Another room in front would get the remaining lines.
    return FindChatRoom(AOLMDIClient, "AOL Child") != room;
}

namespace {

// Pauses `ms` (servicing events), ending early once `stop` says so.
void PauseUnless(DWORD ms, const std::function<bool()>& stop)
{
    const DWORD start = GetTickCount();
    for (DWORD elapsed = 0; elapsed < ms && !stop(); elapsed = GetTickCount() - start)
        Pause(ms - elapsed < 50 ? ms - elapsed : 50);
}

}  // namespace

// The advertisement stops without a word when its room, AOL or the program
// goes: a message per remaining line about a chat room that closed with AOL
// would only stand in the way of AOL's close.
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
    // On or Off chosen meanwhile (stored, as the panel and the commands do)
    // wins over putting the fader back as it was.
    std::string chosenBefore;
    trap.Run([&] { chosenBefore = ReadSetting(Setting::FaderOn); });
    AdvertFaderWasOn = Options.FaderOn;
    const FlagUp advertising(Advertising);
    for (const std::string& line : lines) {
        if (AdvertMustStop(room)) break;
        // The lines carry their own markup: the fader stays out of their way
        // (in memory only), also when it was switched on since the last line.
        Options.FaderOn = false;
        if (!trap.Run([&] { TextToChat(line, 1); })) break;
        trap.Run([&] {
            ShowChatInput(FindChildByClass(room, "RICHCNTL", 2));
            panel_.KeepInFront();
        });
        trap.Run([&] { PauseUnless(1000, [&] { return AdvertMustStop(room); }); });
    }
    std::string chosenAfter = chosenBefore;
    trap.Run([&] { chosenAfter = ReadSetting(Setting::FaderOn); });
    Options.FaderOn = FaderAfterAdvert(AdvertFaderWasOn, chosenBefore, chosenAfter);
    AdvertFaderWasOn = false;
}

// Runs once AOL has finished with the key that filled the line, so the whole
// line moves, however many keys came after that one. The input ends empty.
void ChatSession::EnableMultiline(HWND inputBox, bool fullLine)
{
    ErrorTrap trap("frmChatTools", "EnableMultiline");
    if (fullLine && inputBox) {
        catching_ = Catching::Moving;
        caught_.clear();
    }
    std::string line;
    trap.Run([&] {
        if (!inputBox) return;
        line = ReadChatLine(inputBox);
        SendMessageA(inputBox, WM_COMMAND, kSelectAll, 0);
        SendMessageA(inputBox, WM_COMMAND, kClear, 0);
    });
    bool opened = false;
    trap.Run([&] { opened = OpenProgramWindow({ProgramWindow::Multiline, line}); });
    if (opened) {
        if (catching_ == Catching::Moving) catching_ = Catching::Typing;
        trap.Run([&] { TypeCaught(); });
        return;
    }
    // Without the window, the line and what followed it go back where they were.
    catching_ = Catching::No;
    const std::string back = line + caught_;
    caught_.clear();
    trap.Run([&] {
        if (inputBox && !back.empty()) SendMessageA(inputBox, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(back.c_str()));
    });
}
