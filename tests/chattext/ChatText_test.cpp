// The chat fader's decisions without any window: command words, what a sent
// line becomes, the full-line rule, the advertisement bytes and the AOL menu
// hook's choices.
#include <gtest/gtest.h>

#include <set>

#include "ChatText.h"

TEST(ChatCommandWords, CaseAndBlanksDoNotCountButOtherCharactersDo)
{
    EXPECT_EQ(CommandFor("fadeon"), ChatCommand::FadeOn);
    EXPECT_EQ(CommandFor("FADEON"), ChatCommand::FadeOn);
    EXPECT_EQ(CommandFor(" Fade On "), ChatCommand::FadeOn);
    EXPECT_EQ(CommandFor("fade  off"), ChatCommand::FadeOff);
    EXPECT_EQ(CommandFor("fade-on"), ChatCommand::Keyword);
    EXPECT_EQ(CommandFor("fadeon!"), ChatCommand::Keyword);
    EXPECT_EQ(CommandFor("fade\ton"), ChatCommand::Keyword);  // only spaces go
    EXPECT_EQ(CommandFor(""), ChatCommand::Keyword);
}

TEST(ChatCommandWords, EveryWordAndItsAlias)
{
    EXPECT_EQ(CommandFor("help"), ChatCommand::Help);
    EXPECT_EQ(CommandFor("adv"), ChatCommand::Advertise);
    EXPECT_EQ(CommandFor("Advertise"), ChatCommand::Advertise);
    EXPECT_EQ(CommandFor("update"), ChatCommand::Updates);
    EXPECT_EQ(CommandFor("updates"), ChatCommand::Updates);
    EXPECT_EQ(CommandFor("show"), ChatCommand::Show);
    EXPECT_EQ(CommandFor("hide"), ChatCommand::Hide);
    EXPECT_EQ(CommandFor("opt"), ChatCommand::Options);
    EXPECT_EQ(CommandFor("options"), ChatCommand::Options);
    EXPECT_EQ(CommandFor("Multi Line"), ChatCommand::Multiline);
    // Words are matched whole, never by prefix.
    EXPECT_EQ(CommandFor("ad"), ChatCommand::Keyword);
    EXPECT_EQ(CommandFor("helpme"), ChatCommand::Keyword);
}

TEST(SentLine, EnterDecisions)
{
    // Blank lines are never touched.
    EXPECT_EQ(DecideEnter("", true, true), SendAction::PassOn);
    EXPECT_EQ(DecideEnter("    ", true, true), SendAction::PassOn);
    // Commands with "Use Chat KW" on, faded chat with it off.
    EXPECT_EQ(DecideEnter("/help", true, true), SendAction::Command);
    EXPECT_EQ(DecideEnter("/help", false, true), SendAction::Fade);
    EXPECT_EQ(DecideEnter("/help", false, false), SendAction::PassOn);
    // A further slash makes it chat, which is never faded ...
    EXPECT_EQ(DecideEnter("/a/b", true, true), SendAction::PassOn);
    // ... unless it is a web address.
    EXPECT_EQ(DecideEnter("/http://www.aol.com/x", true, true), SendAction::Command);
    EXPECT_EQ(DecideEnter("/go http://x", true, false), SendAction::Command);
    // A leading blank means it is not a command.
    EXPECT_EQ(DecideEnter(" /help", true, true), SendAction::Fade);
    EXPECT_EQ(DecideEnter("hello", true, true), SendAction::Fade);
    EXPECT_EQ(DecideEnter("hello", true, false), SendAction::PassOn);
}

TEST(SentLine, SendIconIgnoresUseChatKW)
{
    EXPECT_EQ(DecideSendClick("/help", true), SendAction::Command);
    EXPECT_EQ(DecideSendClick("/help", false), SendAction::Command);
    EXPECT_EQ(DecideSendClick("/a/b", true), SendAction::PassOn);
    EXPECT_EQ(DecideSendClick("  ", true), SendAction::PassOn);
    EXPECT_EQ(DecideSendClick("hi", true), SendAction::Fade);
    EXPECT_EQ(DecideSendClick("hi", false), SendAction::PassOn);
}

TEST(SentLine, SlashChatNeedsAFurtherSlashAfterTheFirst)
{
    EXPECT_FALSE(IsSlashChat("/"));
    EXPECT_FALSE(IsSlashChat("/ab"));
    EXPECT_TRUE(IsSlashChat("//"));
    EXPECT_TRUE(IsSlashChat("/a/b"));
    EXPECT_FALSE(IsSlashChat("a/b/c"));
    EXPECT_FALSE(IsSlashChat("/see http://x/y"));
    // "http://" counts only from the second character on.
    EXPECT_TRUE(IsSlashChat("/a/http:/"));
}

TEST(FullLine, LimitFollowsTheFaderAndIsAnEquality)
{
    EXPECT_TRUE(IsFullLine(85, 'x', false, 60));
    EXPECT_FALSE(IsFullLine(84, 'x', false, 60));
    EXPECT_FALSE(IsFullLine(86, 'x', false, 60));  // pasted past the limit
    EXPECT_TRUE(IsFullLine(60, 'x', true, 60));
    EXPECT_FALSE(IsFullLine(85, 'x', true, 60));
    EXPECT_TRUE(IsFullLine(40, ' ', true, 40));
    for (int ch : {8, 9, 10, 13}) EXPECT_FALSE(IsFullLine(85, ch, false, 60)) << ch;
    // "Chars In Line" is compared as 16 bits.
    EXPECT_TRUE(IsFullLine(10, 'x', true, 65536 + 10));
}

TEST(Advertisement, FiveLinesWithTheirOwnMarkup)
{
    const std::vector<std::string> lines = AdvertLines();
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[1], "<I>A cool tool to spice up your AOL 4.0 chat!</I>");
    EXPECT_EQ(lines[2], std::string(" \xA0"));
    const std::string mail = Maker::EMail;
    EXPECT_EQ(lines[3], "For more information, E-Mail <A HREF=mailto:" + mail +
                            "?subject=Prismo_Info>" + mail + "</A>");
    EXPECT_EQ(lines[4].rfind("Or visit the <A HREF=http://", 0), 0u);
    EXPECT_NE(lines[4].find(">Zun Software</A> website!</HTML>"), std::string::npos);
}

// Splits the wave line into (colour, text) pieces at its font tags.
static std::vector<std::pair<std::string, std::string>> WavePieces(const std::string& line)
{
    std::vector<std::pair<std::string, std::string>> pieces;
    const std::string tag = "<FONT COLOR=#";
    for (size_t at = line.find(tag); at != std::string::npos;) {
        const std::string color = line.substr(at + tag.size(), 6);
        const size_t textStart = at + tag.size() + 7;
        const size_t next = line.find(tag, textStart);
        pieces.emplace_back(color, line.substr(textStart, next - textStart));
        at = next;
    }
    return pieces;
}

TEST(Advertisement, WaveLineIsTheMirroredWaveInAnsiBytes)
{
    const std::string wave = AdvertLines()[0];
    ASSERT_EQ(wave.rfind("</B></I></U><FONT COLOR=#", 0), 0u);
    const auto pieces = WavePieces(wave);
    ASSERT_EQ(pieces.size(), 38u);  // 37 coloured pieces and the closing tag
    EXPECT_EQ(pieces.back(), std::make_pair(std::string("000000"), std::string()));
    EXPECT_EQ(pieces[18].second, "<B>I'm using Prismo!");
    EXPECT_EQ(pieces[19].second, "</B>*");
    const std::set<char> allowedHigh = {'\x98', '\xA8', '\xB0', '\xBA'};
    for (const auto& piece : pieces) {
        EXPECT_EQ(piece.first.find_first_not_of("0123456789abcdef"), std::string::npos)
            << piece.first;
        for (char c : piece.second)
            if (static_cast<unsigned char>(c) >= 0x80) {
                EXPECT_TRUE(allowedHigh.count(c)) << int(c);
            }
    }
    // The two halves around the slogan carry the same characters mirrored
    // (pieces 1..18 against 37..20, the "*" beside the slogan counted once).
    for (int i = 0; i < 17; ++i) EXPECT_EQ(pieces[i].second, pieces[36 - i].second) << i;
    EXPECT_EQ(pieces[0].second, "\x98");
    EXPECT_EQ(pieces[0].first, "33e460");
    EXPECT_EQ(pieces[36].first, "00e878");
}

TEST(MenuHook, CloseAndExitAreHeldBackUntilThePanelHasUnhooked)
{
    MenuHookAction close = DecideMenuMessage(0x0010, 0, false);
    EXPECT_TRUE(close.swallow);
    EXPECT_TRUE(close.post);
    EXPECT_TRUE(IsClosingEvent(close.value));
    EXPECT_FALSE(close.setClosing);

    // Once AOL's exit command was seen, the next close goes straight through.
    MenuHookAction again = DecideMenuMessage(0x0010, 0, true);
    EXPECT_FALSE(again.swallow);
    EXPECT_FALSE(again.post);

    MenuHookAction exitCommand = DecideMenuMessage(0x0111, 8207, false);
    EXPECT_TRUE(exitCommand.swallow);
    EXPECT_TRUE(exitCommand.setClosing);
    EXPECT_TRUE(IsClosingEvent(exitCommand.value));
}

TEST(MenuHook, OtherCommandsPassAndComeBackAsTheirId)
{
    for (long id : {60000L, 60005L, 62002L, 20004L}) {
        MenuHookAction action = DecideMenuMessage(0x0111, static_cast<std::uintptr_t>(id), false);
        EXPECT_FALSE(action.swallow);
        EXPECT_TRUE(action.post);
        EXPECT_EQ(action.value, id);
        EXPECT_FALSE(IsClosingEvent(action.value));
    }
    EXPECT_FALSE(DecideMenuMessage(0x0100, 13, false).post);
    EXPECT_EQ(MenuCommandFor(60005), MenuCommand::Exit);
    EXPECT_EQ(MenuCommandFor(60006), MenuCommand::Updates);
    EXPECT_EQ(MenuCommandFor(62001), MenuCommand::HelpSearch);
    EXPECT_EQ(MenuCommandFor(8207), MenuCommand::None);
    EXPECT_EQ(MenuCommandFor(60007), MenuCommand::None);
    EXPECT_EQ(OnlineSupportKeyword(), std::string(Maker::WebSite) + "/support.html");
}
