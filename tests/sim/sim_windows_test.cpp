// Chat rooms as Prismo finds and drives them: child order, sending with Enter
// and with the send icon, the hidden input, the emptying commands, several
// rooms, and typing through the input's message queue.
#include "SimSearch.h"

#include <gtest/gtest.h>

namespace {

struct RoomParts {
    HWND room = nullptr, transcript = nullptr, input = nullptr, send = nullptr;
};

// The room and its controls located exactly as Prismo's watcher does it.
RoomParts LocateRoom(const SimAOL& sim, bool uk) {
    RoomParts parts;
    parts.room = FindChatRoom(sim.Mdi());
    if (!parts.room) return parts;
    parts.transcript = FindWindowExA(parts.room, nullptr, "RICHCNTL", nullptr);
    parts.input = FindWindowExA(parts.room, parts.transcript, "RICHCNTL", nullptr);
    parts.send = GetWindow(parts.input, GW_HWNDNEXT);
    if (uk) parts.send = GetWindow(parts.send, GW_HWNDNEXT);
    return parts;
}

TEST(SimChatRoom, ChildOrderIsWhatPrismoSearches) {
    for (const char* edition : {"us", "uk"}) {
        SCOPED_TRACE(edition);
        const bool uk = std::string(edition) == "uk";
        SimAOL sim(4, {"--edition", edition, "--room", "Town Square"});
        const RoomParts parts = LocateRoom(sim, uk);
        ASSERT_NE(parts.room, nullptr) << "no window qualifies as a chat room";
        ASSERT_NE(parts.input, nullptr);
        EXPECT_EQ(ClassName(parts.send), "_AOL_ICON");
        EXPECT_EQ(WindowText(parts.send), "");
        // Directly behind the input in the US edition, one window later in the UK.
        EXPECT_EQ(ClassName(GetWindow(parts.input, GW_HWNDNEXT)), uk ? "_AOL_STATIC" : "_AOL_ICON");
        // The first icon of the room has a caption: only "after the combo box" finds the send icon.
        EXPECT_NE(WindowText(FindWindowExA(parts.room, nullptr, "_AOL_ICON", nullptr)), "");
        HWND combo = FindWindowExA(parts.room, nullptr, "_AOL_COMBOBOX", nullptr);
        EXPECT_EQ(NextChildOfClass(parts.room, combo, "_AOL_ICON"), parts.send);
        EXPECT_EQ(ClassName(parts.room), "AOL Child");
        EXPECT_EQ(GetParent(parts.room), sim.Mdi());
    }
}

TEST(SimChatRoom, EnterAndSendIconPostAndEmptyTheInput) {
    const std::string log = TempPath("post.log");
    SimAOL sim(4, {"--room", "Lobby", "--screen-names", "Zun Fan,Guest", "--log", log});
    const RoomParts parts = LocateRoom(sim, false);
    ASSERT_NE(parts.input, nullptr);

    const std::string faded = "<FONT COLOR=#FF0000>h<FONT COLOR=#00FF00>i</B> &amp; \xE9";
    SendMessageA(parts.input, WM_SETTEXT, 0, (LPARAM)faded.c_str());
    SendMessageA(parts.input, WM_CHAR, 13, 0);
    EXPECT_EQ(WindowText(parts.input), "");

    SendMessageA(parts.input, WM_SETTEXT, 0, (LPARAM) "by icon");
    SendMessageA(parts.send, WM_LBUTTONUP, 0, 0);  // an up without a down is no click
    EXPECT_EQ(WindowText(parts.input), "by icon");
    SendMessageA(parts.send, WM_LBUTTONDOWN, 0, 0);
    EXPECT_EQ(WindowText(parts.input), "by icon") << "the icon sends on button-up, not button-down";
    SendMessageA(parts.send, WM_LBUTTONUP, 0, 0);
    EXPECT_EQ(WindowText(parts.input), "");

    SendMessageA(parts.input, WM_SETTEXT, 0, (LPARAM) "   ");
    SendMessageA(parts.input, WM_CHAR, 13, 0);  // a blank line is not posted

    EXPECT_EQ(CtlLines({"transcript"}), (std::vector<std::string>{faded, "by icon"}));
    // One tick count per posted line, in posting order, on the clock the tests read.
    const std::vector<std::string> times = CtlLines({"post-times"});
    ASSERT_EQ(times.size(), 2u);
    const DWORD first = std::stoul(times[0]), second = std::stoul(times[1]);
    EXPECT_LE(second - first, GetTickCount() - first);
    const std::string logged = ReadFileText(log);
    EXPECT_NE(logged.find("post\tLobby\tZun Fan\t" + faded + "\n"), std::string::npos) << logged;
}

TEST(SimChatRoom, HiddenInputStaysHiddenAndCommandsEmptyIt) {
    SimAOL sim(4, {"--room", "Lobby"});
    const RoomParts parts = LocateRoom(sim, false);
    ASSERT_NE(parts.input, nullptr);

    ShowWindow(parts.input, SW_HIDE);
    SendMessageA(parts.input, WM_SETTEXT, 0, (LPARAM) "sent while hidden");
    SendMessageA(parts.input, WM_CHAR, 13, 0);
    EXPECT_FALSE(IsWindowVisible(parts.input));
    EXPECT_EQ(CtlLines({"input"}), (std::vector<std::string>{"", "hidden"}));
    EXPECT_EQ(CtlLines({"transcript"}), std::vector<std::string>{"sent while hidden"});
    ShowWindow(parts.input, SW_SHOW);

    SendMessageA(parts.input, WM_SETTEXT, 0, (LPARAM) "/help me");
    SendMessageA(parts.input, WM_COMMAND, 20005, 0);
    SendMessageA(parts.input, WM_COMMAND, 20004, 0);
    EXPECT_EQ(WindowText(parts.input), "");
    EXPECT_EQ(CtlLines({"input"}), (std::vector<std::string>{"", "visible"}));
}

TEST(SimChatRoom, TypingGoesThroughTheInputQueue) {
    const std::string log = TempPath("typed.log");
    SimAOL sim(5, {"--room", "Lobby", "--log", log});
    EXPECT_EQ(Ctl({"type", "hello wor"}).status, 0);
    EXPECT_EQ(Ctl({"key", "backspace"}).status, 0);
    EXPECT_EQ(Ctl({"type", "ld"}).status, 0);
    EXPECT_EQ(CtlLines({"input"}), (std::vector<std::string>{"hello wold", "visible"}));
    EXPECT_EQ(Ctl({"key", "enter"}).status, 0);
    EXPECT_EQ(Ctl({"type", "second"}).status, 0);
    EXPECT_EQ(Ctl({"click-send"}).status, 0);
    EXPECT_EQ(CtlLines({"transcript"}), (std::vector<std::string>{"hello wold", "second"}));
    EXPECT_NE(ReadFileText(log).find("\thello wold\n"), std::string::npos);
    EXPECT_NE(Ctl({"key", "escape"}).status, 0);
}

TEST(SimChatRoom, MostRecentlyActiveRoomIsOnTop) {
    SimAOL sim(4, {"--room", "First", "--room", "Second"});
    auto caption = [](HWND w) {
        char text[100] = "";
        GetWindowTextA(w, text, sizeof text);
        return std::string(text);
    };
    EXPECT_EQ(caption(FindChatRoom(sim.Mdi())), "Second");
    Ctl({"type", "in second"});
    Ctl({"key", "enter"});
    ASSERT_EQ(Ctl({"open-room", "First"}).status, 0);
    EXPECT_EQ(caption(FindChatRoom(sim.Mdi())), "First");
    EXPECT_EQ(CtlLines({"transcript"}), std::vector<std::string>{});
    ASSERT_EQ(Ctl({"close-room"}).status, 0);
    EXPECT_EQ(CtlLines({"transcript"}), std::vector<std::string>{"in second"});
    ASSERT_EQ(Ctl({"close-room"}).status, 0);
    EXPECT_EQ(FindChatRoom(sim.Mdi()), nullptr);
    EXPECT_EQ(Ctl({"transcript"}).status, 1);
}

}  // namespace
