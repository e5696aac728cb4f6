// Mail windows as the e-mail fader and the scheme mailer drive them: the
// marks of a mail window, the editor's commands through the real clipboard
// with the "AOLMAIL" format, and the attachment dialogs.
#include "SimSearch.h"

#include <gtest/gtest.h>

namespace {

// A window of the test's own that owns the clipboard while it writes.
class ClipboardOwner {
public:
    ClipboardOwner() { hwnd_ = CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr); }
    ~ClipboardOwner() { DestroyWindow(hwnd_); }
    ClipboardOwner(const ClipboardOwner&) = delete;
    ClipboardOwner& operator=(const ClipboardOwner&) = delete;

    void Put(UINT format, const std::string& text) {
        HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, text.size() + 1);
        memcpy(GlobalLock(block), text.data(), text.size());
        GlobalUnlock(block);
        ASSERT_TRUE(OpenClipboard(hwnd_));
        EmptyClipboard();
        SetClipboardData(format, block);
        CloseClipboard();
    }
    std::string Get(UINT format) {
        std::string text;
        if (!OpenClipboard(hwnd_)) return "<clipboard busy>";
        if (HANDLE data = GetClipboardData(format)) {
            text = static_cast<const char*>(GlobalLock(data));
            GlobalUnlock(data);
        }
        CloseClipboard();
        return text;
    }

private:
    HWND hwnd_ = nullptr;
};

HWND OpenMail(const SimAOL& sim, const char* caption) {
    EXPECT_EQ(Ctl({"open-mail"}).status, 0);
    return ChildByCaption(sim.Mdi(), caption);
}

TEST(SimMail, WindowCarriesTheMarksPrismoLooksFor) {
    SimAOL sim(4, {"--window", "Re: your fade", "--window", "Fwd: schemes", "--window",
                       "Global Message Board Preferences"});
    HWND mail = OpenMail(sim, "Write Mail");
    ASSERT_NE(mail, nullptr);
    EXPECT_NE(FindWindowExA(mail, nullptr, "_AOL_Checkbox", nullptr), nullptr);
    EXPECT_NE(FindWindowExA(mail, nullptr, "_AOL_FontCombo", nullptr), nullptr);
    HWND later = nullptr;
    for (HWND w = GetWindow(mail, GW_CHILD); w; w = GetWindow(w, GW_HWNDNEXT)) {
        char text[100] = "";
        GetWindowTextA(w, text, sizeof text);
        if (std::string(text).rfind("Send Later", 0) == 0) later = w;
    }
    EXPECT_NE(later, nullptr);
    EXPECT_EQ(FindChatRoom(sim.Mdi()), nullptr) << "a mail window is no chat room";

    HWND subject = NthChildOfClass(mail, "_AOL_EDIT", 3);
    ASSERT_NE(subject, nullptr);
    SendMessageA(subject, WM_SETTEXT, 0, (LPARAM) "Cool Fade");
    EXPECT_EQ(CtlLines({"mail-subject"}), std::vector<std::string>{"Cool Fade"});

    EXPECT_NE(FindWindowExA(ChildByCaption(sim.Mdi(), "Global Message Board Preferences"), nullptr, "RICHCNTL", nullptr),
              nullptr);
}

// aolsimctl's mail commands aimed at `window` ("" for the top compose window).
std::vector<std::string> At(const std::string& window, std::vector<std::string> args) {
    if (!window.empty()) args.insert(args.begin() + 1, {"--window", window});
    return args;
}

// Copy, paste of plain text and of AOLMAIL, and undo in an editor, through
// the real clipboard; each command's time is kept in order.
void CheckEditorCommands(HWND body, const std::string& window = "") {
    ASSERT_NE(body, nullptr);
    const UINT aolMail = RegisterClipboardFormatA("AOLMAIL");
    ClipboardOwner clipboard;

    SendMessageA(body, WM_SETTEXT, 0, (LPARAM) "Hello world, again");
    ASSERT_EQ(Ctl(At(window, {"mail-select", "6", "0"})).status, 0);
    clipboard.Put(CF_TEXT, "stale");
    SendMessageA(body, WM_COMMAND, 20002, 0);
    EXPECT_EQ(clipboard.Get(CF_TEXT), "stale") << "nothing highlighted: the clipboard stays as it was";
    ASSERT_EQ(Ctl(At(window, {"mail-select", "6", "5"})).status, 0);
    SendMessageA(body, WM_COMMAND, 20002, 0);
    EXPECT_EQ(clipboard.Get(CF_TEXT), "world");

    clipboard.Put(aolMail, "<FONT COLOR=\"#FF0000\">r<FONT COLOR=\"#0000FF\"><B>b</B><sup>u</sup>");
    SendMessageA(body, WM_COMMAND, 20003, 0);
    EXPECT_EQ(WindowText(body), "Hello rbu, again") << "the tags are interpreted, not pasted";
    EXPECT_EQ(CtlLines(At(window, {"mail-body"})),
              std::vector<std::string>{"Hello <FONT COLOR=\"#FF0000\">r<FONT COLOR=\"#0000FF\"><B>b</B><SUP>u</SUP>"
                                       "<FONT COLOR=\"#000000\">, again"});

    SendMessageA(body, WM_COMMAND, 20000, 0);
    EXPECT_EQ(WindowText(body), "Hello world, again");
    EXPECT_EQ(CtlLines(At(window, {"mail-body"})), std::vector<std::string>{"Hello world, again"});

    // Only plain text on the clipboard: pasted as it stands.
    ASSERT_EQ(Ctl(At(window, {"mail-select", "0", "5"})).status, 0);
    clipboard.Put(CF_TEXT, "<B>Hi</B>");
    SendMessageA(body, WM_COMMAND, 20003, 0);
    EXPECT_EQ(WindowText(body), "<B>Hi</B> world, again");
    SendMessageA(body, WM_CHAR, '!', 1);
    EXPECT_EQ(WindowText(body), "<B>Hi</B>! world, again") << "typing goes on after the pasted text";

    // A CR and an LF with tags between them break the line once, as CR LF does.
    ASSERT_EQ(Ctl(At(window, {"mail-select", "0", "-1"})).status, 0);
    clipboard.Put(aolMail, "a\r<B>\nb</B>\r\nc\nd<BR>e");
    SendMessageA(body, WM_COMMAND, 20003, 0);
    EXPECT_EQ(CtlLines(At(window, {"mail-body"})), std::vector<std::string>{"a<BR><B>b<BR></B>c<BR>d<BR>e"});

    std::vector<std::string> ids;
    for (const std::string& line : CtlLines(At(window, {"editor-times"}))) {
        unsigned long start = 0, end = 0;
        char id[16] = "";
        ASSERT_EQ(sscanf(line.c_str(), "%15[^\t]\t%lu\t%lu", id, &start, &end), 3) << line;
        EXPECT_LE(start, end) << line;
        ids.push_back(id);
    }
    EXPECT_EQ(ids, (std::vector<std::string>{"WM_SETTEXT", "20002", "20002", "20003", "20000", "20003", "20003"}));
}

// AOL answers and forwards mail in the same compose window as Write Mail:
// the same children in the same order, the subject as caption, and the same
// editor commands through the clipboard.
TEST(SimMail, RepliesAndForwardsAreFullComposeWindows) {
    SimAOL sim(5, {"--mail"});
    const std::vector<std::string> compose = CtlLines({"children"});
    for (const char* caption : {"Re: your fade", "Fwd: schemes"}) {
        SCOPED_TRACE(caption);
        ASSERT_EQ(Ctl({"open-window", caption}).status, 0);
        std::vector<std::string> children = CtlLines({"children"});
        ASSERT_EQ(children.size(), compose.size());
        EXPECT_EQ(children[2], std::string("_AOL_EDIT\t") + caption) << "the subject field";
        children[2] = compose[2];
        EXPECT_EQ(children, compose);

        HWND reply = ChildByCaption(sim.Mdi(), caption);
        HWND body = FindWindowExA(reply, nullptr, "RICHCNTL", nullptr);
        ASSERT_NE(body, nullptr);
        EXPECT_EQ(std::stoull(Ctl({"hwnd", "mail-body"}).out, nullptr, 16), (unsigned long long)(UINT_PTR)body)
            << "the mail commands act on the top compose window";
        CheckEditorCommands(body);
    }
}

TEST(SimMail, EditorCommandsGoThroughTheClipboard) {
    SimAOL sim(4, {"--mail"});
    HWND mail = ChildByCaption(sim.Mdi(), "Write Mail");
    ASSERT_NE(mail, nullptr);
    CheckEditorCommands(FindWindowExA(mail, nullptr, "RICHCNTL", nullptr));
}

// The message board window under the mail, reached by its caption; a text
// longer than a command line goes in from a file.
TEST(SimMail, BoardWindowTakesTheSameEditorCommands) {
    const char* board = "Global Message Board Preferences";
    SimAOL sim(4, {"--window", board, "--mail"});
    CheckEditorCommands(FindWindowExA(ChildByCaption(sim.Mdi(), board), nullptr, "RICHCNTL", nullptr), board);

    std::string text;
    for (int i = 0; text.size() < 32000; ++i) text += "line " + std::to_string(i) + " of a long signature ";
    const std::string file = TempPath("long.txt");
    WriteFileText(file, text);
    ASSERT_EQ(Ctl({"mail-text", "--window", board, "--file", file}).status, 0);
    EXPECT_EQ(CtlLines({"mail-body", "--window", board}), std::vector<std::string>{text});
    EXPECT_EQ(CtlLines({"mail-body"}), std::vector<std::string>{""}) << "the mail under it is untouched";
    EXPECT_NE(Ctl({"mail-body", "--window", "No Such Window"}).status, 0);
}

// AOL's clipboard as a fader sees it: each format on its own, and an
// absent format told apart from an empty one.
TEST(SimMail, ClipboardCommandsKeepTheFormatsApart) {
    SimAOL sim(4, {});
    ASSERT_EQ(Ctl({"clipboard-set", "aolmail", "<B>bold</B>"}).status, 0);
    EXPECT_EQ(Ctl({"clipboard", "aolmail"}).out, "<B>bold</B>");
    EXPECT_EQ(Ctl({"clipboard", "text"}).status, 1) << "setting one format empties the others";
    ASSERT_EQ(Ctl({"clipboard-set", "text", ""}).status, 0);
    const CtlResult empty = Ctl({"clipboard", "text"});
    EXPECT_EQ(empty.status, 0);
    EXPECT_EQ(empty.out, "");
    EXPECT_EQ(Ctl({"clipboard", "aolmail"}).status, 1);
    EXPECT_NE(Ctl({"clipboard", "bitmap"}).status, 0);
}

// A 30,000-character fade of six colours (about 900 KB of AOL HTML) pasted
// in one go reads back tag for tag.
TEST(SimMail, LongFadeRoundTrips) {
    SimAOL sim(4, {"--mail"});
    const char* colors[] = {"FF0000", "FF8000", "FFFF00", "00FF00", "0000FF", "8000FF"};
    std::string fade;
    for (int i = 0; i < 30000; ++i) {
        fade += std::string("<FONT COLOR=\"#") + colors[(i / 5000 + i) % 6] + "\">";
        fade += (char)('a' + i % 26);
    }
    ClipboardOwner().Put(RegisterClipboardFormatA("AOLMAIL"), fade);
    SendMessageA(sim.Handle("mail-body"), WM_COMMAND, 20003, 0);
    EXPECT_EQ(CtlLines({"mail-body"}), std::vector<std::string>{fade});
}

// Clicks through Attachments > Attach > file dialog > Open > OK as the
// scheme mailer does, for one file.
void AttachThroughDialogs(HWND mail, int attachIndex, const char* dialogCaption, const std::string& file) {
    HWND attachIcon = NthChildOfClass(mail, "_AOL_ICON", attachIndex);
    ASSERT_NE(attachIcon, nullptr);
    EXPECT_TRUE(IsWindowVisible(attachIcon));
    EXPECT_EQ(NthChildOfClass(mail, "_AOL_ICON", attachIndex + 3), nullptr) << "the attach icon moved";
    Click(attachIcon);
    HWND modal = WaitTopLevel("_AOL_MODAL", "Attachments");
    ASSERT_NE(modal, nullptr);
    Click(NthChildOfClass(modal, "_AOL_ICON", 1));
    HWND dialog = WaitTopLevel("#32770", dialogCaption);
    ASSERT_NE(dialog, nullptr) << dialogCaption;
    HWND edit = FindWindowExA(dialog, nullptr, "Edit", nullptr);
    ASSERT_NE(edit, nullptr);
    SendMessageA(edit, WM_SETTEXT, 0, (LPARAM)file.c_str());
    HWND open = FindWindowExA(dialog, nullptr, nullptr, "&Open");
    ASSERT_NE(open, nullptr);
    Click(open);
    PumpUntil([&] { return !IsWindow(dialog); }, 5000);
    EXPECT_FALSE(IsWindow(dialog));
    Click(NthChildOfClass(modal, "_AOL_ICON", 3));
    PumpUntil([&] { return !IsWindow(modal); }, 5000);
    EXPECT_FALSE(IsWindow(modal));
}

TEST(SimMail, AttachmentDialogsPerVersionAndEdition) {
    struct Case {
        int version;
        const char* edition;
        int attachIndex;
        const char* dialog;
    };
    for (const Case& c : {Case{4, "us", 13, "Attach"}, Case{5, "uk", 14, "Open"}}) {
        SCOPED_TRACE(c.version);
        const std::string log = TempPath("attach.log");
        const std::string file = TempPath("Cool Fade.fde");
        WriteFileText(file, "Fade Number=2\r\nOne=255\r\n");
        SimAOL sim(c.version, {"--edition", c.edition, "--mail", "--log", log});
        HWND mail = ChildByCaption(sim.Mdi(), "Write Mail");
        ASSERT_NE(mail, nullptr);
        AttachThroughDialogs(mail, c.attachIndex, c.dialog, file);
        EXPECT_EQ(CtlLines({"mail-attachments"}),
                  std::vector<std::string>{file + "\tFade Number=2\\r\\nOne=255\\r\\n"});
        EXPECT_NE(ReadFileText(log).find("attach\t" + file + "\tFade Number=2\\r\\n"), std::string::npos);
        EXPECT_TRUE(IsWindowEnabled(sim.Frame())) << "AOL stays usable after the dialog";
    }
}

}  // namespace

namespace {

// The log's send-mail lines, split at their TABs.
std::vector<std::vector<std::string>> SentMails(const std::string& log) {
    std::vector<std::vector<std::string>> mails;
    std::size_t at = 0;
    const std::string text = ReadFileText(log);
    while (at < text.size()) {
        std::size_t end = text.find('\n', at);
        if (end == std::string::npos) end = text.size();
        const std::string line = text.substr(at, end - at);
        at = end + 1;
        if (line.rfind("send-mail\t", 0) != 0) continue;
        std::vector<std::string> fields;
        for (std::size_t from = 0;;) {
            const std::size_t tab = line.find('\t', from);
            fields.push_back(line.substr(from, tab == std::string::npos ? std::string::npos : tab - from));
            if (tab == std::string::npos) break;
            from = tab + 1;
        }
        mails.push_back(fields);
    }
    return mails;
}

// Send Now and Send Later take the mail away as AOL does; the log names
// the files that went with it. A compose window opened under a caption of
// its own is Write Mail in all but its caption.
TEST(SimMail, SendingClosesTheMailAndNamesItsAttachments) {
    const std::string log = TempPath("send.log");
    const std::string first = TempPath("One.fde"), second = TempPath("Two.fde");
    WriteFileText(first, "1");
    WriteFileText(second, "2");
    SimAOL sim(5, {"--mail", "--log", log});
    const std::vector<std::string> compose = CtlLines({"children"});
    HWND mail = ChildByCaption(sim.Mdi(), "Write Mail");
    AttachThroughDialogs(mail, 14, "Attach", first);
    AttachThroughDialogs(mail, 14, "Attach", second);
    CtlLines({"mail-subject", "Schemes"});
    ASSERT_EQ(Ctl({"mail-text", "two fades"}).status, 0);
    ASSERT_EQ(Ctl({"mail-send", "now"}).status, 0);
    EXPECT_FALSE(IsWindow(mail)) << "mail-send returns once the mail has gone";
    EXPECT_EQ(SentMails(log),
              (std::vector<std::vector<std::string>>{{"send-mail", "Send Now", "Schemes", "two fades", first + "|" + second}}));

    ASSERT_EQ(Ctl({"open-mail", "Fade of the day"}).status, 0);
    HWND other = ChildByCaption(sim.Mdi(), "Fade of the day");
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(CtlLines({"children"}), compose);
    Click(NthChildOfClass(other, "_AOL_ICON", 16));  // Send Later, as Prismo clicks it
    PumpUntil([&] { return !IsWindow(other); }, 10000);
    EXPECT_FALSE(IsWindow(other));
    const auto mails = SentMails(log);
    ASSERT_EQ(mails.size(), 2u);
    EXPECT_EQ(mails[1], (std::vector<std::string>{"send-mail", "Send Later", "", "", ""}));
}

}  // namespace
