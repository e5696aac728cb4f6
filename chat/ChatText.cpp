// The chat fader's fixed words and decisions: command words, sent-line
// decisions, the full-line rule, the advertisement and the menu commands.
#include "ChatText.h"

#include <cctype>

namespace {

struct CommandEntry {
    const char* word;
    ChatCommand command;
};

// Compared in this order; the first exact match wins.
const CommandEntry kCommands[] = {
    {"help", ChatCommand::Help},        {"adv", ChatCommand::Advertise},
    {"advertise", ChatCommand::Advertise}, {"updates", ChatCommand::Updates},
    {"update", ChatCommand::Updates},   {"show", ChatCommand::Show},
    {"hide", ChatCommand::Hide},        {"fadeon", ChatCommand::FadeOn},
    {"fadeoff", ChatCommand::FadeOff},  {"options", ChatCommand::Options},
    {"opt", ChatCommand::Options},      {"multiline", ChatCommand::Multiline},
};

struct MenuEntryId {
    long id;
    MenuCommand command;
};

const MenuEntryId kMenuCommands[] = {
    {60000, MenuCommand::ControlPanel}, {60001, MenuCommand::Options},
    {60002, MenuCommand::Advertise},    {60003, MenuCommand::Wizard},
    {60004, MenuCommand::About},        {60005, MenuCommand::Exit},
    {60006, MenuCommand::Updates},      {62000, MenuCommand::HelpContents},
    {62001, MenuCommand::HelpSearch},   {62002, MenuCommand::OnlineSupport},
};

// One coloured piece of the advertisement's wave line.
struct WavePiece {
    const char* color;  // six lower-case hex digits, red first
    const char* text;   // ANSI bytes
};

// Green through yellow, orange and red to dark blue, the bold black slogan in
// the middle, then back in mirror order. \x98 is the small tilde, \xA8 the
// diaeresis, \xB0 the degree sign and \xBA the masculine ordinal.
const WavePiece kWave[] = {
    {"33e460", "\x98"}, {"66df48", "\xA8"}, {"99db30", "\xA8"}, {"ccd618", "\xA8"},
    {"ffd200", "\xA8"}, {"fcba00", "\x98"}, {"f9a200", "'"},    {"f68a00", "'"},
    {"f37200", "\xB0"}, {"f05a00", "\xBA"}, {"dc4400", "^"},    {"c82d00", "v"},
    {"b41600", "^"},    {"a00000", "^"},    {"78001a", "v"},    {"500034", "^"},
    {"28004f", "~"},    {"000069", "*"},    {"000000", "<B>I'm using Prismo!"},
    {"200054", "</B>*"}, {"40003f", "~"},   {"60002a", "^"},    {"800015", "v"},
    {"a00000", "^"},    {"b01200", "^"},    {"c02400", "v"},    {"d03600", "^"},
    {"e04800", "\xBA"}, {"f05a00", "\xB0"}, {"f47800", "'"},    {"f89600", "'"},
    {"fbb400", "\x98"}, {"ffd200", "\xA8"}, {"bfd81e", "\xA8"}, {"80dd3c", "\xA8"},
    {"40e25a", "\xA8"}, {"00e878", "\x98"},
};

bool IsNeverFullLineChar(int ch)
{
    return ch == 8 || ch == 9 || ch == 10 || ch == 13;
}

}  // namespace

std::string CommandWord(const std::string& text)
{
    std::string word;
    for (char c : text)
        if (c != ' ') word += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return word;
}

ChatCommand CommandFor(const std::string& text)
{
    const std::string word = CommandWord(text);
    for (const CommandEntry& entry : kCommands)
        if (word == entry.word) return entry.command;
    return ChatCommand::Keyword;
}

std::string TrimBlanks(const std::string& text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool IsSlashChat(const std::string& line)
{
    return !line.empty() && line[0] == '/' && line.find('/', 1) != std::string::npos &&
           line.find("http://", 1) == std::string::npos;
}

SendAction DecideEnter(const std::string& line, bool useChatKW, bool faderOn)
{
    if (TrimBlanks(line).empty()) return SendAction::PassOn;
    if (line[0] == '/' && useChatKW) return IsSlashChat(line) ? SendAction::PassOn : SendAction::Command;
    return faderOn ? SendAction::Fade : SendAction::PassOn;
}

SendAction DecideSendClick(const std::string& line, bool faderOn)
{
    if (TrimBlanks(line).empty()) return SendAction::PassOn;
    if (line[0] == '/') return IsSlashChat(line) ? SendAction::PassOn : SendAction::Command;
    return faderOn ? SendAction::Fade : SendAction::PassOn;
}

bool IsFullLine(long length, int ch, bool faderOn, std::int32_t charsInLine)
{
    const long full = faderOn ? static_cast<std::int16_t>(charsInLine) : kFullLineFaderOff;
    return length == full && !IsNeverFullLineChar(ch);
}

std::vector<std::string> AdvertLines()
{
    std::string wave = "</B></I></U>";
    for (const WavePiece& piece : kWave)
        wave += std::string("<FONT COLOR=#") + piece.color + ">" + piece.text;
    wave += "<FONT COLOR=#000000>";
    const std::string mail = Maker::EMail;
    return {
        wave,
        "<I>A cool tool to spice up your AOL 4.0 chat!</I>",
        " \xA0",
        "For more information, E-Mail <A HREF=mailto:" + mail + "?subject=Prismo_Info>" + mail +
            "</A>",
        std::string("Or visit the <A HREF=") + Maker::WebSite + ">Zun Software</A> website!</HTML>",
    };
}

MenuCommand MenuCommandFor(long id)
{
    for (const MenuEntryId& entry : kMenuCommands)
        if (entry.id == id) return entry.command;
    return MenuCommand::None;
}

MenuHookAction DecideMenuMessage(MenuHookMessage message, std::uintptr_t commandId, bool aolClosing)
{
    MenuHookAction action;
    if (message == MenuHookMessage::Close) {
        if (aolClosing) return action;
        action.swallow = action.post = true;
        action.value = kCloseBoxEvent;
    } else if (message == MenuHookMessage::Command) {
        action.post = true;
        if (commandId == static_cast<std::uintptr_t>(kAOLExitCommand)) {
            action.swallow = action.setClosing = true;
            action.value = kExitCommandEvent;
        } else {
            action.value = static_cast<long>(commandId);
        }
    }
    return action;
}

bool IsClosingEvent(long value)
{
    return value == kCloseBoxEvent || value == kExitCommandEvent;
}

std::string OnlineSupportKeyword()
{
    return std::string(Maker::WebSite) + "/support.html";
}

WhileBusy ChatCommandWhileBusy(ChatCommand command, bool advertising)
{
    const bool faderSwitch = command == ChatCommand::FadeOn || command == ChatCommand::FadeOff;
    return advertising && faderSwitch ? WhileBusy::RunNow : WhileBusy::Ignore;
}

WhileBusy MenuCommandWhileBusy(MenuCommand command)
{
    if (command == MenuCommand::ControlPanel) return WhileBusy::RunNow;
    return command == MenuCommand::Exit ? WhileBusy::HoldUntilDone : WhileBusy::Ignore;
}

bool FaderAfterAdvert(bool wasOn, const std::string& storedBefore, const std::string& storedAfter)
{
    return storedAfter != storedBefore ? storedAfter == "True" : wasOn;
}
