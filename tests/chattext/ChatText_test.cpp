// The chat fader's decisions without any window: command words, what a sent
// line becomes, the full-line rule, the advertisement bytes and the AOL menu
// hook's choices.
#include <gtest/gtest.h>

#include "AdvertText.h"
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

TEST(Advertisement, FiveLinesByteForByte)
{
    const std::vector<std::string> expected = ExpectedAdvert();
    const std::vector<std::string> lines = AdvertLines();
    ASSERT_EQ(lines.size(), expected.size());
    for (size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(lines[i], expected[i]) << "line " << i + 1;
}

// While an advertisement runs, the user's On or Off acts and outlasts it;
// nothing else typed as a command does, and nothing at all during other work.
TEST(WhileBusy, OnlyTheFaderSwitchesActDuringAnAdvertisement)
{
    for (ChatCommand command : {ChatCommand::FadeOn, ChatCommand::FadeOff}) {
        EXPECT_EQ(ChatCommandWhileBusy(command, true), WhileBusy::RunNow);
        EXPECT_EQ(ChatCommandWhileBusy(command, false), WhileBusy::Ignore);
    }
    for (ChatCommand command : {ChatCommand::Advertise, ChatCommand::Help, ChatCommand::Multiline,
                                ChatCommand::Keyword, ChatCommand::Show})
        EXPECT_EQ(ChatCommandWhileBusy(command, true), WhileBusy::Ignore);

    // Off before, "True" stored meanwhile: on. On before, "False" stored: off.
    EXPECT_TRUE(FaderAfterAdvert(false, "False", "True"));
    EXPECT_FALSE(FaderAfterAdvert(true, "True", "False"));
    // Nothing chosen (or the same choice again): as it was.
    EXPECT_TRUE(FaderAfterAdvert(true, "True", "True"));
    EXPECT_FALSE(FaderAfterAdvert(false, "False", "False"));
    EXPECT_TRUE(FaderAfterAdvert(true, "", ""));
}

TEST(WhileBusy, MenuExitIsHeldThePanelComesTheRestAreDropped)
{
    EXPECT_EQ(MenuCommandWhileBusy(MenuCommand::Exit), WhileBusy::HoldUntilDone);
    EXPECT_EQ(MenuCommandWhileBusy(MenuCommand::ControlPanel), WhileBusy::RunNow);
    for (MenuCommand command : {MenuCommand::Advertise, MenuCommand::Options, MenuCommand::About,
                                MenuCommand::HelpContents, MenuCommand::OnlineSupport})
        EXPECT_EQ(MenuCommandWhileBusy(command), WhileBusy::Ignore);
}

TEST(MenuHook, CloseAndExitAreHeldBackUntilThePanelHasUnhooked)
{
    MenuHookAction close = DecideMenuMessage(MenuHookMessage::Close, 0, false);
    EXPECT_TRUE(close.swallow);
    EXPECT_TRUE(close.post);
    EXPECT_TRUE(IsClosingEvent(close.value));
    EXPECT_FALSE(close.setClosing);

    // Once AOL's exit command was seen, the next close goes straight through.
    MenuHookAction again = DecideMenuMessage(MenuHookMessage::Close, 0, true);
    EXPECT_FALSE(again.swallow);
    EXPECT_FALSE(again.post);

    MenuHookAction exitCommand = DecideMenuMessage(MenuHookMessage::Command, 8207, false);
    EXPECT_TRUE(exitCommand.swallow);
    EXPECT_TRUE(exitCommand.setClosing);
    EXPECT_TRUE(IsClosingEvent(exitCommand.value));
}

TEST(MenuHook, OtherCommandsPassAndComeBackAsTheirId)
{
    // 16 and 273 are ordinary ids too: no command id is ever taken for AOL closing.
    for (long id : {60000L, 60005L, 62002L, 20004L, 16L, 273L}) {
        MenuHookAction action = DecideMenuMessage(MenuHookMessage::Command, static_cast<std::uintptr_t>(id), false);
        EXPECT_FALSE(action.swallow);
        EXPECT_TRUE(action.post);
        EXPECT_EQ(action.value, id);
        EXPECT_FALSE(IsClosingEvent(action.value));
    }
    EXPECT_FALSE(DecideMenuMessage(MenuHookMessage::Other, 13, false).post);
    EXPECT_EQ(MenuCommandFor(60005), MenuCommand::Exit);
    EXPECT_EQ(MenuCommandFor(60006), MenuCommand::Updates);
    EXPECT_EQ(MenuCommandFor(62001), MenuCommand::HelpSearch);
    EXPECT_EQ(MenuCommandFor(8207), MenuCommand::None);
    EXPECT_EQ(MenuCommandFor(60007), MenuCommand::None);
    EXPECT_EQ(OnlineSupportKeyword(), std::string(Maker::WebSite) + "/support.html");
}
