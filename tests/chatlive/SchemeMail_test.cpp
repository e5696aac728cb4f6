// Mailing Fade Schemes live: prismo.exe beside the AOL simulator under Wine.
// The E-Mail Fades dialog drives AOL's own mail, Attachments and file
// windows; what reaches AOL (the files, the subject, the pasted body) is what
// the program's own composing code makes of the stored schemes, and every
// window AOL fails to show ends the run with its own message.
#include "ChatLiveFixture.h"

#include <algorithm>
#include <cctype>
#include <set>

#include "EMailText.h"
#include "ProgramInfo.h"
#include "SchemeText.h"
#include "Schemes.h"
#include "modRegKeys.h"

namespace ChatLive {
namespace {

// The fields of a log line's rest, split at tabs.
std::vector<std::string> Fields(const std::string& rest)
{
    std::vector<std::string> fields;
    size_t start = 0;
    for (size_t end; (end = rest.find('\t', start)) != std::string::npos; start = end + 1)
        fields.push_back(rest.substr(start, end - start));
    fields.push_back(rest.substr(start));
    return fields;
}

// `text` ends with `tail`, letters of either case alike (file names are).
bool EndsWithAnyCase(const std::string& text, const std::string& tail)
{
    if (text.size() < tail.size()) return false;
    return std::equal(tail.begin(), tail.end(), text.end() - static_cast<long>(tail.size()), [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
    });
}

class SchemeMailTest : public ChatLiveTest {
protected:
    // AOL `version` with `options` and a fresh log, then Prismo beside it.
    void Begin(const std::string& version, const std::string& options)
    {
        TempFile("scheme-mail-aol.log");
        StartBeside(version, options + " --log \"" + log_ + "\"");
    }
    void End()
    {
        prismo_.Kill();
        sim_.Stop();
        EndEveryAOL();
    }
    // The panel's E-Mail button pressed; the E-Mail Fades dialog once shown.
    HWND OpenMailer()
    {
        Press(panel_, IDC_CT_EMAIL);
        return WindowHolding(IDC_EM_SCHEMES, 10000);
    }
    HWND List(HWND dialog) { return GetDlgItem(dialog, IDC_EM_SCHEMES); }
    std::vector<std::string> Listed(HWND dialog)
    {
        std::vector<std::string> names;
        const LRESULT count = SendMessageA(List(dialog), LB_GETCOUNT, 0, 0);
        // Read as wide text: from another process Wine hands LB_GETTEXT back
        // in UTF-16 even to an ANSI caller.
        for (LRESULT i = 0; i < count; ++i) {
            wchar_t wide[512] = L"";
            SendMessageW(List(dialog), LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(wide));
            char name[1024] = "";
            WideCharToMultiByte(CP_ACP, 0, wide, -1, name, sizeof name, nullptr, nullptr);
            names.push_back(name);
        }
        return names;
    }
    // Selects exactly `names` as the user would; returns them in list order.
    std::vector<std::string> Select(HWND dialog, const std::set<std::string>& names)
    {
        std::vector<std::string> chosen;
        const std::vector<std::string> listed = Listed(dialog);
        for (size_t i = 0; i < listed.size(); ++i) {
            const bool on = names.count(listed[i]) > 0;
            SendMessageA(List(dialog), LB_SETSEL, on, static_cast<LPARAM>(i));
            if (on) chosen.push_back(listed[i]);
        }
        return chosen;
    }
    // E-Mail pressed; true once the run has ended as a finished one does,
    // its dialog gone.
    bool Mail(HWND dialog, DWORD ms = 60000)
    {
        Press(dialog, IDC_EM_EMAIL);
        return PumpUntil([&] { return !IsWindow(dialog); }, ms) &&
               PumpUntil([&] { return !CommandRunning(prismo_.Id()); }, 10000);
    }
    // The body the program composes for `names` from `sender`.
    std::string Body(const std::vector<std::string>& names, const std::string& sender, bool sample = true)
    {
        std::vector<MailedScheme> schemes;
        for (const std::string& name : names) schemes.push_back({name, MakeEMailFade(Registry(), name)});
        return SchemeMailBody(schemes, sender, VersionText(), sample);
    }
    // The log's `attach` line is the scheme file `name` from the outgoing folder, as written.
    void ExpectAttached(const std::string& line, const std::string& name)
    {
        const std::vector<std::string> fields = Fields(line);
        ASSERT_EQ(fields.size(), 2u) << line;
        EXPECT_TRUE(EndsWithAnyCase(fields[0], "\\outgoing\\" + name + ".fde")) << fields[0];
        EXPECT_EQ(fields[1], Escaped(FormatSchemeFile(ReadScheme(Registry(), name))));
    }
    std::vector<std::string> Logged(const std::string& event) { return ChatLive::Logged(log_, event); }
    size_t Times(const std::string& event, const std::string& what)
    {
        const std::vector<std::string> all = Logged(event);
        return static_cast<size_t>(std::count(all.begin(), all.end(), what));
    }
    size_t MailWindows()
    {
        size_t count = 0;
        for (const std::string& line : Lines(sim_.Ctl("windows"))) count += line.rfind("mail\t", 0) == 0;
        return count;
    }
    std::string Subject() { return sim_.Ctl("mail-subject"); }

    const std::string log_ = TempFile("scheme-mail-aol.log");
};

TEST_F(SchemeMailTest, SignedOnTheChosenSchemesGoAttachedWithTheirSamples)
{
    // A scheme stored without a fade number: its sample is only its style tags.
    SetOption("Schemes\\Plain Bold", "Bold", "True");
    Begin("40", "--signed-on \"Zun Tester\" --mail");
    HWND dialog = OpenMailer();
    ASSERT_TRUE(dialog);
    const std::vector<std::string> listed = Listed(dialog);
    EXPECT_EQ(listed, SettingSubkeys("Schemes")) << "every stored scheme, in the registry's order";
    ASSERT_EQ(listed.size(), 5u);

    Select(dialog, {"Fire"});
    ASSERT_TRUE(Mail(dialog));
    const std::vector<std::string> attached = Logged("attach");
    ASSERT_EQ(attached.size(), 1u);
    ExpectAttached(attached[0], "Fire");
    EXPECT_EQ(Subject(), "A \"Prismo\" Fade Scheme from Zun Tester\n");
    const std::string body = Body({"Fire"}, "Zun Tester");
    EXPECT_EQ(Logged("paste-aolmail"), std::vector<std::string>{Escaped(body)});
    EXPECT_EQ(MailWindows(), 1u) << "the mail already open is the one written";
    EXPECT_EQ(Clipboard("aolmail"), body) << "the body goes in through AOL's clipboard";
    EXPECT_TRUE(Logged("send-mail").empty()) << "left for the user to send";

    // Sent as it stands: the subject, the body as AOL shows it, the one file.
    sim_.Ctl("mail-send now");
    const std::vector<std::string> sent = Logged("send-mail");
    ASSERT_EQ(sent.size(), 1u);
    const std::vector<std::string> fields = Fields(sent[0]);
    ASSERT_EQ(fields.size(), 4u) << sent[0];
    EXPECT_EQ(fields[0], "Send Now");
    EXPECT_EQ(fields[1], "A \"Prismo\" Fade Scheme from Zun Tester");
    for (const char* part : {"<B><U>Fire<BR>", "Zun Tester", "Directions for installing:"})
        EXPECT_NE(fields[2].find(part), std::string::npos) << part;
    EXPECT_EQ(fields[3], Fields(attached[0])[0]);
    ASSERT_TRUE(PumpUntil([&] { return MailWindows() == 0; }, 10000));

    // Three schemes: a new mail opened, a "zip" of them in the list's order.
    dialog = OpenMailer();
    ASSERT_TRUE(dialog);
    const std::vector<std::string> three = Select(dialog, {"Sunset", "Plain Bold", "Cool Fade"});
    ASSERT_EQ(three.size(), 3u);
    ASSERT_TRUE(Mail(dialog));
    EXPECT_EQ(MailWindows(), 1u);
    const std::vector<std::string> more = Logged("attach");
    ASSERT_EQ(more.size(), 4u);
    for (size_t i = 0; i < 3; ++i) ExpectAttached(more[i + 1], three[i]);
    EXPECT_EQ(Subject(), SchemeMailSubject(3, "Zun Tester") + "\n");
    EXPECT_EQ(Subject().rfind("Zip of ", 0), 0u);
    const std::string zip = Body(three, "Zun Tester");
    ASSERT_EQ(Logged("paste-aolmail").size(), 2u);
    EXPECT_EQ(Logged("paste-aolmail")[1], Escaped(zip));
    EXPECT_NE(zip.find("\r3\r"), std::string::npos) << "the count";
    EXPECT_NE(zip.find("<B></B>"), std::string::npos) << "the empty sample keeps its bold";

    // None chosen: an empty zip; Attachments opened and closed, nothing attached.
    dialog = OpenMailer();
    ASSERT_TRUE(dialog);
    Select(dialog, {});
    ASSERT_TRUE(Mail(dialog));
    EXPECT_EQ(Logged("attach").size(), 4u);
    EXPECT_EQ(Times("open", "Attachments"), 3u);
    EXPECT_EQ(Times("close", "Attachments"), 3u);
    EXPECT_EQ(Subject(), SchemeMailSubject(0, "Zun Tester") + "\n");
    ASSERT_EQ(Logged("paste-aolmail").size(), 3u);
    EXPECT_EQ(Logged("paste-aolmail")[2], Escaped(Body({}, "Zun Tester")));
    EXPECT_EQ(MailWindows(), 1u) << "the open mail is used again";
}

TEST_F(SchemeMailTest, TheAliasAndNoSamples)
{
    SetOption("EMail", "Use Alias", "True");
    SetOption("EMail", "Alias Name", "Fader Kim");
    SetOption("EMail", "Show EMail Sample", "False");
    Begin("40", "--signed-on \"Zun Tester\"");
    HWND dialog = OpenMailer();
    ASSERT_TRUE(dialog);
    Select(dialog, {"Ocean"});
    ASSERT_TRUE(Mail(dialog));
    EXPECT_EQ(Subject(), SchemeMailSubject(1, "Fader Kim") + "\n");
    const std::vector<std::string> pasted = Logged("paste-aolmail");
    ASSERT_EQ(pasted.size(), 1u);
    EXPECT_EQ(pasted[0], Escaped(Body({"Ocean"}, "Fader Kim", false)));
    EXPECT_EQ(pasted[0].find("This is a sample"), std::string::npos);
    EXPECT_EQ(pasted[0].find("Zun Tester"), std::string::npos);
    ASSERT_EQ(Logged("attach").size(), 1u);
}

// Each edition's own mail caption, attach icon and file dialog.
TEST_F(SchemeMailTest, EveryEditionAttachesAndComposes)
{
    struct Edition {
        const char *version, *edition, *mail;
    };
    for (const Edition& e : {Edition{"50", "uk", "Write Mail"}, Edition{"40", "ca", "Write Mail"},
                             Edition{"40", "au", "Write e-mail"}}) {
        SCOPED_TRACE(e.edition);
        Begin(e.version, std::string("--signed-on \"Zun Tester\" --edition ") + e.edition);
        HWND dialog = OpenMailer();
        ASSERT_TRUE(dialog);
        Select(dialog, {"Cool Fade"});
        ASSERT_TRUE(Mail(dialog));
        EXPECT_EQ(Lines(sim_.Ctl("windows"))[0], std::string("mail\t") + e.mail);
        const std::vector<std::string> attached = Logged("attach");
        ASSERT_EQ(attached.size(), 1u);
        ExpectAttached(attached[0], "Cool Fade");
        EXPECT_EQ(Subject(), SchemeMailSubject(1, "Zun Tester") + "\n");
        EXPECT_EQ(Logged("paste-aolmail"), std::vector<std::string>{Escaped(Body({"Cool Fade"}, "Zun Tester"))});
        End();
    }
}

TEST_F(SchemeMailTest, SignedOffTheSenderIsTheSignOnSelection)
{
    Begin("40", "--screen-names \"Zun Tester,Kim Lee,Guest\" --select \"Kim Lee\"");
    HWND dialog = OpenMailer();
    ASSERT_TRUE(dialog);
    Select(dialog, {"Ocean"});
    ASSERT_TRUE(Mail(dialog));
    EXPECT_EQ(Subject(), SchemeMailSubject(1, "Kim Lee") + "\n");
    EXPECT_EQ(Logged("paste-aolmail"), std::vector<std::string>{Escaped(Body({"Ocean"}, "Kim Lee"))});
    EXPECT_EQ(Logged("attach").size(), 1u);

    // The name is looked up again on the next run; with the Sign On screen
    // closed it is nowhere to be read: the mail goes from no one, and the
    // program stays.
    HWND signOn = FindWindowExA(sim_.Mdi(), nullptr, nullptr, "Sign On");
    ASSERT_TRUE(signOn) << sim_.Ctl("windows");
    PostMessageA(signOn, WM_CLOSE, 0, 0);
    ASSERT_TRUE(PumpUntil([&] { return !IsWindow(signOn); }, 10000));
    ASSERT_EQ(sim_.Ctl("windows").find("signon"), std::string::npos) << sim_.Ctl("windows");
    dialog = OpenMailer();
    ASSERT_TRUE(dialog);
    Select(dialog, {"Sunset"});
    ASSERT_TRUE(Mail(dialog, 120000)) << "the Sign On screen is waited for, then the run goes on";
    EXPECT_EQ(Subject(), SchemeMailSubject(1, "") + "\n");
    ASSERT_EQ(Logged("paste-aolmail").size(), 2u);
    EXPECT_EQ(Logged("paste-aolmail")[1], Escaped(Body({"Sunset"}, "")));
    EXPECT_EQ(WindowWithChild(prismo_.Id(), IDC_MSG_AREA), nullptr) << "no word of it";
    EXPECT_EQ(prismo_.Wait(0), -1) << "a mailing run never ends the program";
    End();

    // An attach icon that cannot be seen: the mail goes without attachments.
    Begin("40", "--signed-on \"Zun Tester\" --attach-icon hidden --mail");
    dialog = OpenMailer();
    ASSERT_TRUE(dialog);
    Select(dialog, {"Sunset"});
    ASSERT_TRUE(Mail(dialog));
    EXPECT_EQ(Subject(), SchemeMailSubject(1, "Zun Tester") + "\n");
    EXPECT_EQ(Logged("paste-aolmail"), std::vector<std::string>{Escaped(Body({"Sunset"}, "Zun Tester"))});
    EXPECT_EQ(Times("open", "Attachments"), 0u);
    EXPECT_TRUE(Logged("attach").empty());
}

// Every window AOL fails to show ends the run with its one message; the
// dialog stays hidden and nothing is pasted.
TEST_F(SchemeMailTest, EachMissingWindowHasItsMessage)
{
    struct Fault {
        const char *fault, *message;
    };
    for (const Fault& f : {Fault{"no-mail", SchemeMailText::NoMailWindow},
                           Fault{"no-attachments", SchemeMailText::NoAttachmentsWindow},
                           Fault{"no-attach-button", SchemeMailText::NoAttachButton},
                           Fault{"no-file-dialog", SchemeMailText::NoFileDialog},
                           Fault{"no-file-field", SchemeMailText::NoFileField},
                           Fault{"no-open-button", SchemeMailText::NoOpenButton}}) {
        SCOPED_TRACE(f.fault);
        Begin("40", std::string("--signed-on \"Zun Tester\" --mail-fault ") + f.fault +
                        (std::string(f.fault) == "no-mail" ? "" : " --mail"));
        HWND dialog = OpenMailer();
        ASSERT_TRUE(dialog);
        Select(dialog, {"Cool Fade"});
        Press(dialog, IDC_EM_EMAIL);
        EXPECT_EQ(Message(60000), f.message);
        EXPECT_TRUE(PumpUntil([&] { return !CommandRunning(prismo_.Id()); }, 10000));
        EXPECT_TRUE(IsWindow(dialog) && !IsWindowVisible(dialog)) << "the dialog stays hidden";
        EXPECT_TRUE(Logged("paste-aolmail").empty());
        EXPECT_TRUE(Logged("attach").empty());
        End();
    }
}

TEST_F(SchemeMailTest, RefusedBeforeAOLIsTouchedAndEndedWithAOL)
{
    const auto storeUnfit = [] {
        for (const char* name : {"CON", "a:b"}) SetOption(std::string("Schemes\\") + name, "Fade Number", "2");
    };
    storeUnfit();
    Begin("40", "--signed-on \"Zun Tester\" --mail");

    // The "Schemes" key gone: said when the dialog loads, and nothing listed.
    TestEnv::DeleteSection("Schemes");
    Press(panel_, IDC_CT_EMAIL);
    EXPECT_EQ(Message(), kNoSchemesKeyMessage);
    HWND dialog = OpenMailer();
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(Listed(dialog).empty());
    Press(dialog, IDC_EM_EXIT);
    ASSERT_TRUE(PumpUntil([&] { return !IsWindow(dialog); }, 10000));

    // Names that cannot be files: one message naming them, before AOL is touched.
    TestEnv::InstallShippedSchemes();
    storeUnfit();
    dialog = OpenMailer();
    ASSERT_TRUE(dialog);
    const std::string windows = sim_.Ctl("windows");
    const std::vector<std::string> chosen = Select(dialog, {"CON", "Cool Fade", "a:b"});
    ASSERT_EQ(chosen.size(), 3u);
    Press(dialog, IDC_EM_EMAIL);
    std::vector<std::string> unfit = chosen;
    unfit.erase(std::remove(unfit.begin(), unfit.end(), "Cool Fade"), unfit.end());
    EXPECT_EQ(Message(), UnfitNamesMessage(unfit));
    EXPECT_TRUE(PumpUntil([&] { return !CommandRunning(prismo_.Id()); }, 10000));
    EXPECT_TRUE(IsWindowVisible(dialog)) << "the dialog stays for another choice";
    EXPECT_EQ(sim_.Ctl("windows"), windows);
    EXPECT_EQ(Times("open", "Attachments"), 0u);
    EXPECT_EQ(WindowWithChild(prismo_.Id(), IDC_MSG_AREA), nullptr) << "one message only";

    // AOL closed while its Attachments window is open: both end, without a word.
    Select(dialog, {"Cool Fade"});
    Press(dialog, IDC_EM_EMAIL);
    ASSERT_TRUE(PumpUntil([&] { return Times("open", "Attachments") == 1; }, 20000));
    sim_.Ctl("quit");
    EXPECT_EQ(prismo_.Wait(30000), 0) << "Prismo ends with AOL";
    EXPECT_TRUE(sim_.WaitExit(15000));
    EXPECT_TRUE(Logged("paste-aolmail").empty());
}

}  // namespace
}  // namespace ChatLive
