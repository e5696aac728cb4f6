// The multiline window live beside the AOL simulator: when a full chat line
// moves into it, what its Send posts into the room line by line, its Insert
// button with the platform's file dialog, the ways a send ends early, and
// where the window stands. Every wait is on a window, a room line or the
// program's own answer.
#include <gtest/gtest.h>

#include <algorithm>

#include "ChatLiveFixture.h"

using namespace ChatLive;

namespace {

constexpr int kOpenFileName = 0x480;  // the file dialog's file name edit (old style)
constexpr int kOpenFileCombo = 0x47c;  // and its combo box (Explorer style)

// Whole words of `text`, split at blanks, line ends and no-break spaces.
std::vector<std::string> Words(const std::string& text)
{
    std::vector<std::string> words;
    std::string word;
    for (char c : text + " ") {
        if (c == ' ' || c == '\r' || c == '\n' || c == '\xA0') {
            if (!word.empty()) words.push_back(word);
            word.clear();
        } else {
            word += c;
        }
    }
    return words;
}

std::string Joined(const std::vector<std::string>& lines)
{
    std::string all;
    for (const std::string& line : lines) all += line + "\n";
    return all;
}

// Ordinary prose of about `length` characters, ending on a whole word.
std::string Prose(size_t length)
{
    static const char* const words[] = {"the", "quick", "brown", "fox", "jumps", "over", "a", "lazy",
                                        "dog", "while", "prismo", "fades", "every", "chat", "line"};
    std::string text;
    for (size_t i = 0; text.size() < length; ++i) text += std::string(text.empty() ? "" : " ") + words[(i * 7) % 15];
    return text;
}

// The text of a faded line with its markup taken out.
std::string Unmarked(const std::string& line)
{
    std::string plain;
    bool inTag = false;
    for (char c : line) {
        if (c == '<') inTag = true;
        else if (c == '>') inTag = false;
        else if (!inTag) plain += c;
    }
    return plain;
}

class MultilineTest : public ChatLiveTest {
protected:
    void SetUp() override
    {
        ChatLiveTest::SetUp();
        DeleteFileA(log_.c_str());
        Burst("0");
    }
    void Burst(const std::string& seconds) { SetOption("Multiline", "Multiline Burst", seconds); }
    void StartLogged(const std::string& rooms = "--room \"Town Square\"")
    {
        Start(rooms + " --log \"" + log_ + "\"");
    }

    // The program's multiline window once it is on view; null if it never comes.
    HWND Window(DWORD ms = 10000) { return WindowHolding(IDC_ML_CHAT, ms); }
    HWND OpenByCommand()
    {
        EXPECT_EQ(Send("/multiline"), "");
        return Window();
    }
    std::string Text(HWND ml) { return WindowText(GetDlgItem(ml, IDC_ML_CHAT)); }
    void SetText(HWND ml, const std::string& text)
    {
        SendMessageA(GetDlgItem(ml, IDC_ML_CHAT), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    // True once the window has gone and the program has finished sending.
    bool Closed(HWND ml, DWORD ms = 120000)
    {
        return PumpUntil([&] { return !IsWindow(ml) || !IsWindowVisible(ml); }, ms) &&
               PumpUntil([&] { return !CommandRunning(prismo_.Id()); }, ms);
    }
    // The room's new lines after `text` was sent from a fresh window.
    std::vector<std::string> SendText(const std::string& text)
    {
        const size_t before = Posted();
        HWND ml = OpenByCommand();
        EXPECT_TRUE(ml);
        SetText(ml, text);
        Press(ml, IDC_ML_SEND);
        EXPECT_TRUE(Closed(ml));
        return PostedSince(before);
    }
    // Everything the program had been asked before now has run: its watcher
    // ticks only once nothing else waits in its queue.
    bool Settled()
    {
        const long ticks = WatcherTicks(prismo_.Id());
        return PumpUntil([&] { return WatcherTicks(prismo_.Id()) > ticks + 1; }, 10000);
    }
    // The chat input hook is back: a typed line goes out faded, the input on view.
    void ExpectHookBack(const std::string& line)
    {
        ASSERT_TRUE(Hooked());
        EXPECT_EQ(Send(line), Faded(line));
        EXPECT_EQ(Input(), "\nvisible\n");
    }
    HWND MessageShown() { return WindowWithChild(prismo_.Id(), IDC_MSG_AREA); }
    // Every line the simulator logged as posted to a room: "ROOM\tTEXT".
    std::vector<std::string> LoggedPosts()
    {
        std::vector<std::string> posts;
        for (const std::string& line : Lines(ReadTextFile(log_))) {
            if (line.rfind("post\t", 0) != 0) continue;
            const size_t room = line.find('\t') + 1, name = line.find('\t', room), text = line.find('\t', name + 1);
            posts.push_back(line.substr(room, name - room) + "\t" + line.substr(text + 1));
        }
        return posts;
    }

    const std::string log_ = TempFile("multiline-aol.log");
};

// No line longer than `limit`; every word arrives whole and in order.
void ExpectWrapped(const std::string& text, const std::vector<std::string>& lines, size_t limit)
{
    for (const std::string& line : lines) EXPECT_LE(line.size(), limit) << line;
    EXPECT_EQ(Words(Joined(lines)), Words(text)) << Joined(lines);
}

TEST_F(MultilineTest, AFullChatLineMovesIntoTheWindow)
{
    SetOption("Multiline", "Chars In Line", "60");
    Start();
    // Fader on: the 61st character opens the window with all 61; then 70
    // more typed at once into a full line all follow them, in order.
    const std::string full(60, 'a');
    sim_.Ctl("type " + full);
    sim_.Ctl("type b");
    HWND ml = Window();
    ASSERT_TRUE(ml) << "61 characters typed";
    EXPECT_EQ(Text(ml), full + "b");
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(ml, IDC_ML_INSERT)));
    GUITHREADINFO gui = {};
    gui.cbSize = sizeof gui;
    ASSERT_TRUE(GetGUIThreadInfo(GetWindowThreadProcessId(ml, nullptr), &gui));
    EXPECT_EQ(gui.hwndFocus, GetDlgItem(ml, IDC_ML_CHAT));
    EXPECT_EQ(Input(), "\nvisible\n");
    Press(ml, IDC_ML_CLOSE);
    ASSERT_TRUE(Closed(ml));
    EXPECT_EQ(Posted(), 0u) << "Close sends nothing";

    std::string burst;
    for (int i = 0; i < 70; ++i) burst += static_cast<char>('c' + i % 20);
    sim_.Ctl("type " + full);
    sim_.Ctl("type " + burst);
    ml = Window();
    ASSERT_TRUE(ml);
    EXPECT_TRUE(PumpUntil([&] { return Text(ml) == full + burst; }, 10000)) << Text(ml);
    Press(ml, IDC_ML_CLOSE);
    ASSERT_TRUE(Closed(ml));

    // Keys that add no character, and a line already past the limit, never open it.
    for (const char* key : {"backspace", "tab", "ctrl-enter"}) {
        SendMessageA(sim_.Handle("input"), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(full.c_str()));
        sim_.Ctl(std::string("key ") + key);
        ASSERT_TRUE(Settled());
        EXPECT_FALSE(Window(0)) << key;
    }
    const std::string longer(90, 'l');
    SendMessageA(sim_.Handle("input"), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(longer.c_str()));
    sim_.Ctl("type m");
    ASSERT_TRUE(Settled());
    EXPECT_FALSE(Window(0)) << "a 91st character";
    SendMessageA(sim_.Handle("input"), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(full.c_str()));
    EXPECT_EQ(Send(""), Faded(full)) << "Enter on a full line sends it";
    EXPECT_FALSE(Window(0));

    // "/multiline" opens it empty, with Insert.
    ml = OpenByCommand();
    ASSERT_TRUE(ml);
    EXPECT_EQ(Text(ml), "");
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(ml, IDC_ML_INSERT)));
    Press(ml, IDC_ML_CLOSE);
    ASSERT_TRUE(Closed(ml));
}

TEST_F(MultilineTest, TheFullLengthFollowsTheFaderAndTheOption)
{
    // Fader off: the 86th character opens it. "Use Multiline" off: never.
    for (bool useMultiline : {true, false}) {
        SetOption("", "Fader On", "False");
        SetOption("Multiline", "Use Multiline", useMultiline ? "True" : "False");
        Start();
        sim_.Ctl("type " + std::string(85, 'a'));
        ASSERT_TRUE(Settled());
        EXPECT_FALSE(Window(0)) << "85 characters fit";
        sim_.Ctl("type b");
        HWND ml = Window(useMultiline ? 10000 : 0);
        if (useMultiline) {
            ASSERT_TRUE(ml) << "the 86th character";
            EXPECT_EQ(Text(ml), std::string(85, 'a') + "b");
        } else {
            ASSERT_TRUE(Settled());
            EXPECT_FALSE(Window(0));
            EXPECT_EQ(Input(), std::string(85, 'a') + "b\nvisible\n");
        }
        TearDown();
        SetUp();
    }
}

TEST_F(MultilineTest, SendPostsTheTextLineByLineAndGivesTheHookBack)
{
    Start();
    // Fader on, "Chars In Line" 60 by default: each line is what prismo-fade
    // makes of a piece of at most 60 characters.
    const std::string prose = Prose(200);
    std::vector<std::string> pieces;
    for (const std::string& line : SendText(prose)) {
        pieces.push_back(Unmarked(line));
        EXPECT_LE(pieces.back().size(), 60u) << line;
        EXPECT_EQ(line + "\n", Faded(pieces.back()));
    }
    ExpectWrapped(prose, pieces, 60);
    ExpectHookBack("faded again");

    // Fader off: plain lines of at most 84, broken between words, not cut
    // short; a line of its own just over the limit is broken too.
    Send("/fadeoff");
    ASSERT_TRUE(Stored("Fader On", "False"));
    const std::string text = prose + "\r\n" + Prose(85);
    const std::vector<std::string> lines = SendText(text);
    ExpectWrapped(text, lines, 84);
    EXPECT_LE(lines.size(), 6u) << Joined(lines);
    // A blank line is skipped; a line of one space goes out as a no-break space.
    EXPECT_EQ(Joined(SendText("first\r\n\r\n \r\nlast")), "first\n\xA0\nlast\n");

    // Enter in the text sends at once and closes the window.
    const size_t before = Posted();
    HWND ml = OpenByCommand();
    ASSERT_TRUE(ml);
    SetText(ml, "sent by Enter");
    PostMessageA(GetDlgItem(ml, IDC_ML_CHAT), WM_CHAR, 13, 0);
    ASSERT_TRUE(Closed(ml));
    EXPECT_EQ(Joined(PostedSince(before)), "sent by Enter\n");
    Send("/fadeon");
    ASSERT_TRUE(Stored("Fader On", "True"));
    ExpectHookBack("after Enter");
}

TEST_F(MultilineTest, InsertReadsATextFile)
{
    Start();
    HWND ml = OpenByCommand();
    ASSERT_TRUE(ml);
    // Picks `path` in the file dialog that Insert opens, or cancels it.
    const auto insert = [&](const std::string& path) {
        Press(ml, IDC_ML_INSERT);
        HWND dlg = nullptr;
        PumpUntil([&] {
            return (dlg = WindowWithChild(prismo_.Id(), kOpenFileCombo)) ||
                   (dlg = WindowWithChild(prismo_.Id(), kOpenFileName));
        }, 15000);
        ASSERT_TRUE(dlg) << "no file dialog";
        if (!path.empty()) {
            for (int id : {kOpenFileCombo, kOpenFileName}) SetDlgItemTextA(dlg, id, path.c_str());
        }
        Press(dlg, path.empty() ? IDCANCEL : IDOK);
        ASSERT_TRUE(PumpUntil([&] { return !IsWindow(dlg); }, 15000));
    };
    SetText(ml, "typed first");
    insert(TempFile("lines.txt", "one\ntwo\nthree"));
    EXPECT_TRUE(PumpUntil([&] { return Text(ml) == "one\r\ntwo\r\nthree"; }, 5000)) << Text(ml);
    insert("");
    ASSERT_TRUE(Settled());
    EXPECT_EQ(Text(ml), "one\r\ntwo\r\nthree") << "Cancel keeps the text";
    insert(TempFile("cut.log", std::string("before\0after", 12)));
    EXPECT_TRUE(PumpUntil([&] { return Text(ml) == "before"; }, 5000)) << Text(ml);

    // A file longer than the window holds: one message, the text unchanged.
    insert(TempFile("long.txt", std::string(60001, 'x')));
    HWND box = nullptr;
    ASSERT_TRUE(PumpUntil([&] { return (box = MessageShown()) != nullptr; }, 15000));
    Press(box, IDC_MSG_CMD0);
    ASSERT_TRUE(PumpUntil([&] { return !IsWindow(box) || !IsWindowVisible(box); }, 10000));
    EXPECT_EQ(Text(ml), "before");

    // 30,000 characters go out whole, in order, no line over the limit.
    Send("/fadeoff");
    ASSERT_TRUE(Stored("Fader On", "False"));
    const std::string prose = Prose(30000);
    insert(TempFile("prose.wri", prose));
    ASSERT_TRUE(PumpUntil([&] { return Text(ml).size() == prose.size(); }, 10000));
    const size_t before = Posted();
    Press(ml, IDC_ML_SEND);
    ASSERT_TRUE(Closed(ml, 600000));
    ExpectWrapped(prose, PostedSince(before), 84);
}

TEST_F(MultilineTest, OddOptionsStillSendEverything)
{
    // However short the limit, every character arrives, in order; "Chars In
    // Line" is taken as 16 bits, so 65546 wraps as 10 does. (A full line
    // would move "/multiline" itself into the window: not here.)
    const std::string prose = Prose(100);
    std::string all = prose;
    all.erase(std::remove(all.begin(), all.end(), ' '), all.end());
    std::vector<std::string> asTen;
    for (const std::string chars : {"0", "5", "10", "65546"}) {
        SetOption("Multiline", "Chars In Line", chars);
        SetOption("Multiline", "Use Multiline", "False");
        Start();
        std::vector<std::string> pieces;
        std::string sent;
        for (const std::string& line : SendText(prose)) {
            pieces.push_back(Unmarked(line));
            sent += pieces.back();
        }
        sent.erase(std::remove(sent.begin(), sent.end(), ' '), sent.end());
        EXPECT_EQ(sent, all) << chars;
        if (chars == "10") {
            asTen = pieces;
            EXPECT_GT(pieces.size(), 3u) << Joined(pieces);
        }
        if (chars == "65546") {
            EXPECT_EQ(pieces, asTen);
        }
        TearDown();
        SetUp();
    }
    // An empty text posts nothing and gives the hook back.
    Start();
    EXPECT_TRUE(SendText("").empty());
    ExpectHookBack("after nothing");
}

// Ten short lines, paced by a burst of 1 s.
class MultilineEndsTest : public MultilineTest {
protected:
    // Sends ten lines; returns the window once the room has two of them.
    HWND SendTenAndWaitForTwo()
    {
        std::string text;
        for (int i = 1; i <= 10; ++i) text += "line " + std::to_string(i) + "\r\n";
        before_ = Posted();
        HWND ml = OpenByCommand();
        if (!ml) return nullptr;
        SetText(ml, text);
        Press(ml, IDC_ML_SEND);
        if (!PumpUntil([&] { return Posted() >= before_ + 2; }, 30000)) return nullptr;
        return ml;
    }
    size_t before_ = 0;
};

TEST_F(MultilineEndsTest, AOLClosingOrVanishingMidSendEndsPrismoQuietly)
{
    for (bool quit : {true, false}) {
        Burst("1");
        SetOption("", "Fader On", "False");
        StartLogged();
        ASSERT_TRUE(SendTenAndWaitForTwo());
        const size_t sent = Posted();
        sim_.Ctl(quit ? "quit" : "kill");
        HWND box = nullptr;
        PumpUntil([&] { return (box = MessageShown()) != nullptr || prismo_.Wait(0) != -1; }, 30000);
        EXPECT_EQ(box, nullptr) << quit << ": " << WindowText(box);
        EXPECT_EQ(prismo_.Wait(20000), 0) << quit;
        EXPECT_TRUE(sim_.WaitExit(10000)) << quit;
        EXPECT_EQ(LoggedPosts().size(), sent) << quit << ": no line after AOL went\n" << Joined(LoggedPosts());
        TearDown();
        SetUp();
    }
}

TEST_F(MultilineEndsTest, CloseRoomChangeAndAdvertiseMidSend)
{
    Burst("1");
    StartLogged("--room \"Lobby\" --room \"Town Square\"");
    // Close: the line under way may still go, then nothing; the hook comes back.
    HWND ml = SendTenAndWaitForTwo();
    ASSERT_TRUE(ml);
    size_t sent = Posted();
    Press(ml, IDC_ML_CLOSE);
    ASSERT_TRUE(Closed(ml));
    ASSERT_TRUE(Settled());
    EXPECT_LE(Posted(), sent + 1);
    EXPECT_EQ(MessageShown(), nullptr);
    ExpectHookBack("after Close");

    // Advertise from the menu while a send runs: ignored.
    ml = SendTenAndWaitForTwo();
    ASSERT_TRUE(ml);
    PostMessageA(sim_.Frame(), WM_COMMAND, 60002, 0);
    ASSERT_TRUE(Closed(ml));
    ASSERT_TRUE(Settled());
    std::vector<std::string> ten;
    for (int i = 1; i <= 10; ++i) ten.push_back(FadedByCli("Cool Fade", "line " + std::to_string(i)));
    EXPECT_EQ(PostedSince(before_), ten);

    // The room closed with another open: one message, no further line in
    // either room, the hook on the other room by the next tick. Then the
    // last room closed: one message again.
    for (const char* left : {"Lobby", ""}) {
        ml = SendTenAndWaitForTwo();
        ASSERT_TRUE(ml) << left;
        const size_t posts = LoggedPosts().size();
        sim_.Ctl("close-room");
        HWND box = nullptr;
        ASSERT_TRUE(PumpUntil([&] { return (box = MessageShown()) != nullptr; }, 15000)) << left;
        Press(box, IDC_MSG_CMD0);
        ASSERT_TRUE(Closed(ml));
        ASSERT_TRUE(Settled());
        EXPECT_EQ(MessageShown(), nullptr) << left << ": one message only";
        const std::vector<std::string> logged = LoggedPosts();
        EXPECT_LE(logged.size(), posts + 1) << Joined(logged);
        for (size_t i = posts; i < logged.size(); ++i) EXPECT_EQ(logged[i].rfind("Lobby\t", 0), std::string::npos);
        if (*left) {
            ExpectHookBack("in the Lobby");
            EXPECT_EQ(LoggedPosts().back(), "Lobby\t" + FadedByCli("Cool Fade", "in the Lobby"));
        }
    }
}

TEST_F(MultilineTest, TheWindowKeepsItsPlaceOnTheScreen)
{
    Start();
    const RECT screen = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    // Absent a stored place: centred.
    HWND ml = OpenByCommand();
    ASSERT_TRUE(ml);
    RECT r;
    GetWindowRect(ml, &r);
    EXPECT_NEAR((r.left + r.right) / 2, screen.right / 2, 2);
    EXPECT_NEAR((r.top + r.bottom) / 2, screen.bottom / 2, 2);
    EXPECT_TRUE(GetWindowLongA(ml, GWL_EXSTYLE) & WS_EX_TOPMOST);

    // Dragged by the progress bar: the new place is stored in twips.
    DragBy(ml, GetDlgItem(ml, IDC_ML_PROGRESS), -100, -80);
    ASSERT_TRUE(PumpUntil([&] { return !Option("ChatExtPos", "Left").empty(); }, 15000)) << "never stored";
    RECT moved;
    GetWindowRect(ml, &moved);
    EXPECT_NEAR(moved.left, r.left - 100, 2);
    EXPECT_NEAR(moved.top, r.top - 80, 2);
    EXPECT_EQ(Option("ChatExtPos", "Left"), std::to_string(moved.left * 15));
    EXPECT_EQ(Option("ChatExtPos", "Top"), std::to_string(moved.top * 15));
    Press(ml, IDC_ML_CLOSE);
    ASSERT_TRUE(Closed(ml));
    ml = OpenByCommand();
    ASSERT_TRUE(ml);
    GetWindowRect(ml, &r);
    EXPECT_EQ(r.left, moved.left) << "used the next time";
    EXPECT_EQ(r.top, moved.top);
    Press(ml, IDC_ML_CLOSE);
    ASSERT_TRUE(Closed(ml));

    // A stored place off the screen is pulled back onto it.
    for (const char* place : {"99999", "-99999"}) {
        SetOption("ChatExtPos", "Left", place);
        SetOption("ChatExtPos", "Top", place);
        ml = OpenByCommand();
        ASSERT_TRUE(ml);
        GetWindowRect(ml, &r);
        EXPECT_TRUE(r.left >= 0 && r.top >= 0 && r.right <= screen.right && r.bottom <= screen.bottom)
            << place << ": " << r.left << "," << r.top << "," << r.right << "," << r.bottom;
        Press(ml, IDC_ML_CLOSE);
        ASSERT_TRUE(Closed(ml));
    }
}

}  // namespace
