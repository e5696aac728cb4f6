// A chat room: transcript, people list, combo box, the chat input with its
// caption-less send icon right behind it, and the room's captioned icons.
// Enter in the input or a click on the send icon posts the input's text.
#include "Sim.h"

#include <richedit.h>

namespace {

enum : int {
    idTranscript = 100,
    idPeople,
    idListChats,
    idCombo,
    idInput,
    idGap,
    idSend,
    idFirstIcon,
};

const char* const kRoomIcons[] = {"Notify AOL", "Member Profile", "Chat Preferences", "Find a Chat"};

class ChatRoom : public SimChild {
public:
    explicit ChatRoom(std::string roomName) : name(std::move(roomName)) {}
    const char* Kind() const override { return "room"; }

    void OnCreate(HWND room) override {
        transcript = MakeControl(room, "RICHCNTL", "",
                                 WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL, idTranscript);
        people = MakeControl(room, "_AOL_LISTBOX", "", WS_BORDER | WS_VSCROLL | LBS_NOINTEGRALHEIGHT, idPeople);
        listChats = MakeControl(room, "_AOL_ICON", "List Chats", 0, idListChats);
        combo = MakeControl(room, "_AOL_COMBOBOX", "", CBS_DROPDOWNLIST | WS_VSCROLL, idCombo);
        input = MakeControl(room, "RICHCNTL", "", WS_BORDER | ES_AUTOHSCROLL, idInput);
        // The UK edition has one window between the input and its send icon.
        if (Sim().config.edition == SimEdition::UK) gap = MakeControl(room, "_AOL_STATIC", "", 0, idGap);
        send = MakeControl(room, "_AOL_ICON", "", 0, idSend);
        for (int i = 0; i < 4; ++i) icons[i] = MakeControl(room, "_AOL_ICON", kRoomIcons[i], 0, idFirstIcon + i);

        SendMessageA(input, EM_EXLIMITTEXT, 0, 64000);
        SendMessageA(transcript, EM_SETBKGNDCOLOR, 0, RGB(255, 255, 255));
        // AOL's chat text is 10-point Arial; raised and lowered letters stay legible.
        CHARFORMAT2A font{};
        font.cbSize = sizeof font;
        font.dwMask = CFM_FACE | CFM_SIZE;
        font.yHeight = 200;
        lstrcpynA(font.szFaceName, "Arial", LF_FACESIZE);
        SendMessageA(transcript, EM_SETCHARFORMAT, SCF_ALL, (LPARAM)&font);
        SendMessageA(input, EM_SETCHARFORMAT, SCF_ALL, (LPARAM)&font);
        const std::string me = Sim().signedOn ? Sim().currentName : Sim().config.screenNames.front();
        for (const std::string& person : {me, std::string("OnlineHost"), std::string("Zun Fan")})
            SendMessageA(people, LB_ADDSTRING, 0, (LPARAM)person.c_str());
        for (const char* item : {"Chat Sounds", "Ignore Member", "Member Directory"})
            SendMessageA(combo, CB_ADDSTRING, 0, (LPARAM)item);
        SendMessageA(combo, CB_SETCURSEL, 0, 0);
        SetFocus(input);
    }

    void OnSize(int width, int height) override {
        const int listWidth = 150, iconWidth = 110, row = 26;
        const int bottom = height - 8;
        MoveWindow(transcript, 8, 8, width - listWidth - 24, height - 2 * row - 32, TRUE);
        MoveWindow(people, width - listWidth - 8, 8, listWidth, height - 3 * row - 40, TRUE);
        MoveWindow(listChats, width - listWidth - 8, height - 3 * row - 26, listWidth, row - 4, TRUE);
        MoveWindow(combo, width - listWidth - 8, height - 2 * row - 18, listWidth, 120, TRUE);
        MoveWindow(input, 8, bottom - 2 * row - 4, width - listWidth - 90, row, TRUE);
        if (gap) MoveWindow(gap, width - listWidth - 78, bottom - 2 * row - 4, 4, row, TRUE);
        MoveWindow(send, width - listWidth - 70, bottom - 2 * row - 4, 54, row, TRUE);
        for (int i = 0; i < 4; ++i)
            MoveWindow(icons[i], 8 + i * (iconWidth + 6), bottom - row + 2, iconWidth, row - 4, TRUE);
    }

    bool OnCommand(WORD id, WORD code, HWND) override {
        if (id == idSend && code == BN_CLICKED) {
            PostInput();
            return true;
        }
        if (id >= idFirstIcon && code == BN_CLICKED) {
            LogEvent("icon\t" + WindowText(icons[id - idFirstIcon]));
            return true;
        }
        return false;
    }

    LRESULT OnAppMessage(UINT msg, WPARAM, LPARAM lParam) override {
        if (msg != WM_SIM_RICH_ENTER || (HWND)lParam != input) return 0;
        PostInput();
        return 1;
    }

    // AOL sends what the input holds and empties it; a hidden input stays
    // hidden (whoever hid it shows it again).
    void PostInput() {
        const int length = (int)SendMessageA(input, WM_GETTEXTLENGTH, 0, 0);
        std::string text(length + 1, '\0');
        const int got = (int)SendMessageA(input, WM_GETTEXT, length + 1, (LPARAM)text.data());
        text.resize(got > 0 ? got : 0);
        if (text.find_first_not_of(" \t") == std::string::npos) return;
        SendMessageA(input, WM_SETTEXT, 0, (LPARAM)"");
        const std::string me = Sim().signedOn ? Sim().currentName : Sim().config.screenNames.front();
        lines.push_back(text);
        postTimes.push_back(GetTickCount());
        LogEvent("post\t" + name + "\t" + me + "\t" + text);
        AppendChatLine(transcript, me, text);
    }

    std::string name;
    std::vector<std::string> lines;
    std::vector<DWORD> postTimes;  // the tick count at which each line was posted
    HWND transcript = nullptr, people = nullptr, listChats = nullptr, combo = nullptr;
    HWND input = nullptr, gap = nullptr, send = nullptr;
    HWND icons[4] = {};
};

ChatRoom* AsRoom(SimChild* child) {
    return child && std::string(child->Kind()) == "room" ? static_cast<ChatRoom*>(child) : nullptr;
}

}  // namespace

HWND OpenChatRoom(const std::string& name) {
    for (SimChild* child : ChildrenInOrder()) {
        ChatRoom* room = AsRoom(child);
        if (room && room->name == name) {
            ActivateChild(room->hwnd);
            return room->hwnd;
        }
    }
    return OpenChild(std::make_unique<ChatRoom>(name), name, 620, 400);
}

std::vector<std::string> RoomTranscript(SimChild* room) {
    ChatRoom* chat = AsRoom(room);
    return chat ? chat->lines : std::vector<std::string>{};
}

std::vector<DWORD> RoomPostTimes(SimChild* room) {
    ChatRoom* chat = AsRoom(room);
    return chat ? chat->postTimes : std::vector<DWORD>{};
}

HWND RoomInput(SimChild* room) {
    ChatRoom* chat = AsRoom(room);
    return chat ? chat->input : nullptr;
}

HWND RoomSendIcon(SimChild* room) {
    ChatRoom* chat = AsRoom(room);
    return chat ? chat->send : nullptr;
}
