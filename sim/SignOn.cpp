// Signing on and off: the "Sign On" screen ("Welcome" in AOL 3.0) with its
// combo box of screen names, the "Welcome, NAME!" window while signed on and
// the edition's "Goodbye From ..." screen afterwards. As in AOL, the "Sign
// Off" command of the "Sign Off" menu can be chosen only while signed on: it
// is the one sign of the session that lasts as long as the session does,
// whatever windows the member closes. The combo box's item data
// points at records laid out as AOL keeps them, so another program can read
// the names with ReadProcessMemory: item data + 24 holds a 32-bit pointer, the
// name starts 6 bytes after it.
#include "Sim.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr std::size_t kRecordSize = 64;
constexpr std::size_t kNamesOffset = 0x8000;
constexpr std::size_t kArenaSize = 0x10000;

// One block below 4 GB, so the 32-bit pointers in it hold whole addresses in
// the 64-bit build too.
char* NameArena() {
    static char* arena = nullptr;
    for (std::uintptr_t base = 0x10000000; !arena && base < 0x7F000000; base += 0x01000000) {
        arena = static_cast<char*>(
            VirtualAlloc(reinterpret_cast<void*>(base), kArenaSize, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
    }
    return arena;
}

// Writes record `index` for `name` and returns its address (the item data).
LPARAM NameRecord(std::size_t index, const std::string& name) {
    char* arena = NameArena();
    if (!arena || (index + 1) * kRecordSize > kNamesOffset) return 0;
    char* record = arena + index * kRecordSize;
    char* nameBlock = arena + kNamesOffset + index * kRecordSize;
    memset(record, 0xA5, kRecordSize);
    memset(nameBlock, 0, kRecordSize);
    nameBlock[0] = static_cast<char>(index);  // AOL keeps a few bytes of its own before the name
    memcpy(nameBlock + 6, name.data(), name.size() < kRecordSize - 7 ? name.size() : kRecordSize - 7);
    const auto pointer = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(nameBlock));
    memcpy(record + 24, &pointer, sizeof pointer);
    return reinterpret_cast<LPARAM>(record);
}

class SignOnScreen : public SimChild {
public:
    const char* Kind() const override { return "signon"; }
    void OnCreate(HWND window) override {
        label = MakeControl(window, "_AOL_STATIC", "Select Screen Name:", 0, 1);
        combo = MakeControl(window, "_AOL_COMBOBOX", "", CBS_DROPDOWNLIST | WS_VSCROLL, 2);
        signOn = MakeControl(window, "_AOL_ICON", "SIGN ON", 0, 3);
        setup = MakeControl(window, "_AOL_ICON", "Setup", 0, 4);
        const auto& names = Sim().config.screenNames;
        int selected = 0;
        for (std::size_t i = 0; i < names.size(); ++i) {
            const int item = (int)SendMessageA(combo, CB_ADDSTRING, 0, (LPARAM)names[i].c_str());
            SendMessageA(combo, CB_SETITEMDATA, item, NameRecord(i, names[i]));
            if (names[i] == Sim().config.selectedName) selected = item;
        }
        SendMessageA(combo, CB_SETCURSEL, selected, 0);
    }
    void OnSize(int width, int) override {
        MoveWindow(label, 20, 20, width - 40, 20, TRUE);
        MoveWindow(combo, 20, 44, width - 40, 200, TRUE);
        MoveWindow(signOn, 20, 84, 100, 28, TRUE);
        MoveWindow(setup, 130, 84, 100, 28, TRUE);
    }
    bool OnCommand(WORD id, WORD code, HWND) override {
        if (id != 3 || code != BN_CLICKED) return false;
        char name[256] = "";
        const int item = (int)SendMessageA(combo, CB_GETCURSEL, 0, 0);
        if (item >= 0) SendMessageA(combo, CB_GETLBTEXT, item, (LPARAM)name);
        std::string error;
        SignOn(name, error);
        return true;
    }
    HWND label = nullptr, combo = nullptr, signOn = nullptr, setup = nullptr;
};

class WelcomeScreen : public SimChild {
public:
    const char* Kind() const override { return "welcome"; }
    void OnCreate(HWND window) override {
        const char* const captions[] = {"Top News", "Mail Center", "People Connection", "Channels"};
        for (int i = 0; i < 4; ++i) icons[i] = MakeControl(window, "_AOL_ICON", captions[i], 0, 10 + i);
    }
    void OnSize(int, int) override {
        for (int i = 0; i < 4; ++i) MoveWindow(icons[i], 20, 20 + i * 36, 180, 28, TRUE);
    }
    bool OnCommand(WORD id, WORD code, HWND) override {
        if (code != BN_CLICKED) return false;
        LogEvent("icon\t" + WindowText(icons[id - 10]));
        return true;
    }
    HWND icons[4] = {};
};

// The menus while signed on or off: "&Sign Off" greyed while there is no
// session, and in 5.0 "Switch Scree&n Name" only during one.
void ShowSessionInMenu(bool signedOn) {
    SetSwitchNameItem(signedOn);
    EnableMenuItem(GetMenu(Sim().frame), kSignOffCommand, MF_BYCOMMAND | (signedOn ? MF_ENABLED : MF_GRAYED));
    DrawMenuBar(Sim().frame);
}

void CloseChildren(const char* kind) {
    for (SimChild* child : ChildrenInOrder()) {
        if (std::string(child->Kind()) == kind) SendMessageA(Sim().mdiClient, WM_MDIDESTROY, (WPARAM)child->hwnd, 0);
    }
}

}  // namespace

void ShowSignedOffScreen(bool goodbye) {
    ShowSessionInMenu(false);
    const std::string caption = goodbye ? GoodbyeCaption(Sim().config.edition) : SignOnCaption(Sim().config.version);
    OpenChild(std::make_unique<SignOnScreen>(), caption, 360, 170);
}

void ShowSignOnLater(int seconds) {
    ShowSessionInMenu(false);
    SetTimer(nullptr, 0, static_cast<UINT>(seconds) * 1000u, [](HWND, UINT, UINT_PTR id, DWORD) {
        KillTimer(nullptr, id);
        // Signed on meanwhile (aolsimctl sign-on): AOL shows no sign-on screen then.
        if (!Sim().signedOn && !TopChild("signon")) ShowSignedOffScreen(false);
    });
}

void ShowWelcome() {
    if (SimChild* welcome = TopChild("welcome")) {
        ActivateChild(welcome->hwnd);
        return;
    }
    OpenChild(std::make_unique<WelcomeScreen>(), "Welcome, " + Sim().currentName + "!", 300, 220);
}

bool SignOn(const std::string& name, std::string& error) {
    if (Sim().signedOn) {
        error = "already signed on as " + Sim().currentName;
        return false;
    }
    bool known = false;
    for (const auto& listed : Sim().config.screenNames) known = known || listed == name;
    if (!known) {
        error = "\"" + name + "\" is not one of the account's screen names";
        return false;
    }
    CloseChildren("signon");
    Sim().signedOn = true;
    Sim().currentName = name;
    ShowSessionInMenu(true);
    LogEvent("sign-on\t" + name);
    ShowWelcome();
    return true;
}

void SignOff() {
    if (!Sim().signedOn) return;
    CloseChildren("room");
    CloseChildren("welcome");
    Sim().signedOn = false;
    ShowSessionInMenu(false);
    LogEvent("sign-off\t" + Sim().currentName);
    Sim().currentName.clear();
    ShowSignedOffScreen(true);
}
