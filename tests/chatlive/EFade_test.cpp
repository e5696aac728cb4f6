// The e-mail fader live: prismo.exe beside the AOL simulator under Wine. The
// toolbar follows the mails being written; Apply Fade puts into the mail
// exactly what prismo-fade makes of the highlight and gives the clipboard back.
#include "ChatLiveFixture.h"

namespace ChatLive {
namespace {

class EFadeTest : public ChatLiveTest {
protected:
    void StartWithMail(const std::string& options = "--mail")
    {
        SetOption("E-Fade", "ShowEFToolbar", "True");
        Start(options + " --log \"" + log_ + "\"");
    }
    HWND Toolbar(DWORD ms = 10000) { return WindowHolding(IDC_EF_FADE, ms); }
    // The watcher has looked at AOL twice since now: what it shows, it shows.
    void TwoTicks()
    {
        const long ticks = WatcherTicks(prismo_.Id());
        ASSERT_TRUE(PumpUntil([&] { return WatcherTicks(prismo_.Id()) >= ticks + 2; }, 10000));
    }
    // Apply Fade pressed; true once the fade has run to its end.
    bool ApplyFade(HWND bar)
    {
        Press(bar, IDC_EF_FADE);
        return PumpUntil([&] { return CommandRunning(prismo_.Id()); }, 5000) &&
               PumpUntil([&] { return !CommandRunning(prismo_.Id()); }, 30000);
    }
    // The texts the simulator logged as pasted in the "AOLMAIL" format.
    std::vector<std::string> Pasted() { return Logged(log_, "paste-aolmail"); }

    const std::string log_ = TempFile("efade-aol.log");
};

TEST_F(EFadeTest, TheToolbarFollowsEveryKindOfMailBeingWritten)
{
    StartWithMail("");
    TwoTicks();
    EXPECT_FALSE(Toolbar(0)) << "no mail, no toolbar";
    const RECT screen = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    for (const std::string open : {"open-mail", "open-window \"Re: hello\"", "open-mail \"Draft to Kim\"",
                                    "open-window \"Global Message Board Preferences\""}) {
        SCOPED_TRACE(open);
        sim_.Ctl(open);
        TwoTicks();
        HWND bar = Toolbar(0);
        ASSERT_TRUE(bar) << "up by the watcher's second tick";
        RECT r;
        GetWindowRect(bar, &r);
        EXPECT_NEAR((r.left + r.right) / 2, screen.right / 2, 2) << "centred while no place is stored";
        EXPECT_TRUE(GetWindowLongA(bar, GWL_EXSTYLE) & WS_EX_TOPMOST);
        EXPECT_EQ(reinterpret_cast<HWND>(GetWindowLongPtrA(bar, GWLP_HWNDPARENT)), sim_.Frame()) << "owned by AOL";
        // Gone with the mail, sent or closed.
        if (open == "open-mail")
            sim_.Ctl("mail-send now");
        else
            SendMessageA(GetTopWindow(sim_.Mdi()), WM_CLOSE, 0, 0);
        TwoTicks();
        EXPECT_FALSE(Toolbar(0));
    }
}

TEST_F(EFadeTest, ClosedByTheUserOrSwitchedOffItStaysAway)
{
    StartWithMail();
    HWND bar = Toolbar();
    ASSERT_TRUE(bar);
    Press(bar, IDC_EF_EXIT);
    TwoTicks();
    EXPECT_FALSE(Toolbar(0)) << "until that mail goes";
    sim_.Ctl("mail-send later");
    TwoTicks();
    sim_.Ctl("open-mail");
    bar = Toolbar();
    ASSERT_TRUE(bar) << "back with the next mail";

    // Dragged, its place is stored and used the next time.
    RECT before, moved;
    GetWindowRect(bar, &before);
    DragBy(bar, GetDlgItem(bar, IDC_EF_LABEL1), 120, -90);
    ASSERT_TRUE(PumpUntil([&] { return !Option("E-Fade", "Left").empty(); }, 15000)) << "never stored";
    GetWindowRect(bar, &moved);
    EXPECT_NEAR(moved.left, before.left + 120, 2);
    EXPECT_EQ(Option("E-Fade", "Top"), std::to_string(moved.top * 15));
    EXPECT_EQ(Option("E-Fade", "Left"), std::to_string(moved.left * 15));
    sim_.Ctl("mail-send now");
    TwoTicks();
    sim_.Ctl("open-mail");
    bar = Toolbar();
    ASSERT_TRUE(bar);
    RECT again;
    GetWindowRect(bar, &again);
    EXPECT_EQ(again.left, moved.left);
    EXPECT_EQ(again.top, moved.top);

    prismo_.Kill();
    SetOption("E-Fade", "ShowEFToolbar", "False");
    ASSERT_TRUE(prismo_.Start("\"" + Prismo() + "\""));
    ASSERT_TRUE(Hooked(false));
    TwoTicks();
    EXPECT_FALSE(Toolbar(0)) << "ShowEFToolbar off";
}

TEST_F(EFadeTest, ApplyFadePastesTheFadeAndGivesTheClipboardBack)
{
    StartWithMail();
    HWND bar = Toolbar();
    ASSERT_TRUE(bar);
    sim_.Ctl("clipboard-set aolmail \"<B>kept</B>\"");
    sim_.Ctl("mail-text \"hello world\"");
    const std::string plain = sim_.Ctl("mail-body");
    sim_.Ctl("mail-select 0 5");
    Press(bar, IDC_EF_FADE);
    EXPECT_TRUE(PumpUntil([&] { return WindowWithChild(prismo_.Id(), IDC_FM_MSG) != nullptr; }, 5000))
        << "the wait window is up meanwhile";
    ASSERT_TRUE(PumpUntil([&] { return !CommandRunning(prismo_.Id()) && !Pasted().empty(); }, 15000));
    EXPECT_EQ(Pasted(), std::vector<std::string>{Escaped(FadedByCli("Cool Fade", "hello"))});
    EXPECT_FALSE(WindowWithChild(prismo_.Id(), IDC_FM_MSG)) << "the wait window goes";
    EXPECT_EQ(Clipboard("aolmail"), "<B>kept</B>");
    EXPECT_EQ(Clipboard("text"), "(none)") << "only the AOLMAIL text comes back";
    EXPECT_NE(sim_.Ctl("mail-body"), plain);
    Press(bar, IDC_EF_UNDO);
    EXPECT_TRUE(PumpUntil([&] { return sim_.Ctl("mail-body") == plain; }, 5000)) << "Undo";

    // Nothing on the clipboard before: an empty AOLMAIL text after. Two
    // presses at once fade once; a two-line highlight stays two lines.
    sim_.Ctl("mail-text --file \"" + TempFile("two-lines.txt", "first line\r\nsecond") + "\"");
    sim_.Ctl("clipboard-set text \"\"");
    sim_.Ctl("mail-select 0 -1");
    Press(bar, IDC_EF_FADE);
    ASSERT_TRUE(ApplyFade(bar));
    PumpFor(200);
    ASSERT_EQ(Pasted().size(), 2u) << "the second press came while the first fade ran";
    EXPECT_EQ(Clipboard("aolmail"), "");
    const std::string body = sim_.Ctl("mail-body");
    size_t breaks = 0;
    for (size_t at = 0; (at = body.find("<BR>", at)) != std::string::npos; ++at) ++breaks;
    EXPECT_EQ(breaks, 1u) << body;

    // With a chat room on top, the mail the watcher remembered is faded; a
    // reply on top is faded itself.
    sim_.Ctl("open-room \"Town Square\"");
    sim_.Ctl("mail-select 0 5");
    ASSERT_TRUE(ApplyFade(bar));
    ASSERT_EQ(Pasted().size(), 3u);
    sim_.Ctl("open-window \"Re: hello\"");
    sim_.Ctl("mail-text --window \"Re: hello\" \"thanks!\"");
    sim_.Ctl("mail-select --window \"Re: hello\" 0 6");
    ASSERT_TRUE(ApplyFade(bar));
    ASSERT_EQ(Pasted().size(), 4u);
    EXPECT_EQ(Pasted()[3], Escaped(FadedByCli("Cool Fade", "thanks")));
    EXPECT_NE(sim_.Ctl("mail-body --window \"Re: hello\"").find("!"), std::string::npos) << "only the highlight";
}

TEST_F(EFadeTest, ARefusalChangesNothing)
{
    StartWithMail();
    HWND bar = Toolbar();
    ASSERT_TRUE(bar);
    sim_.Ctl("clipboard-set text \"the user's own\"");
    sim_.Ctl("mail-text \"   x\"");
    const std::string body = sim_.Ctl("mail-body");
    for (const char* selection : {"mail-select 0 3", "mail-select 0 0"}) {
        SCOPED_TRACE(selection);
        sim_.Ctl(selection);
        Press(bar, IDC_EF_FADE);
        EXPECT_NE(Message().find("No text found!"), std::string::npos);
        EXPECT_EQ(Clipboard("text"), "the user's own") << "the emptied clipboard is put back";
    }
    const std::string longest(30000, 'x');
    sim_.Ctl("mail-text --file \"" + TempFile("too-long.txt", longest + "y") + "\"");
    sim_.Ctl("mail-select 0 -1");
    Press(bar, IDC_EF_FADE);
    EXPECT_NE(Message().find("Message too long!"), std::string::npos);
    EXPECT_EQ(Clipboard("text"), "the user's own");
    EXPECT_TRUE(Pasted().empty());

    sim_.Ctl("mail-select 0 30000");
    ASSERT_TRUE(ApplyFade(bar));
    EXPECT_EQ(Pasted().size(), 1u) << "exactly 30,000 characters are faded";
}

TEST_F(EFadeTest, AOLClosingOrVanishingDuringThePauseLeavesTheMail)
{
    for (const char* end : {"quit", "kill"}) {
        SCOPED_TRACE(end);
        StartWithMail();
        HWND bar = Toolbar();
        ASSERT_TRUE(bar);
        sim_.Ctl("mail-text \"fade me\"");
        sim_.Ctl("mail-select 0 -1");
        Press(bar, IDC_EF_FADE);
        ASSERT_TRUE(PumpUntil([&] { return WindowWithChild(prismo_.Id(), IDC_FM_MSG) != nullptr; }, 5000));
        sim_.Ctl(end);
        EXPECT_EQ(prismo_.Wait(20000), 0) << "Prismo ends with AOL";
        EXPECT_TRUE(Pasted().empty());
        sim_.Stop();
        EndEveryAOL();
    }
}

}  // namespace
}  // namespace ChatLive
