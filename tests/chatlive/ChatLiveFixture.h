// The fixture of the chat fader's live tests: a fresh program key, the AOL
// simulator signed on in a chat room, prismo.exe beside it with its hooks in
// place, and the few ways a test types, sends and reads back.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ChatLive.h"
#include "resource.h"

namespace ChatLive {

class ChatLiveTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        EndEveryAOL();
        FreshSettings(SimFolder() + "aol40");
    }
    void TearDown() override
    {
        prismo_.Kill();
        sim_.Stop();
        EndEveryAOL();
    }

    // AOL signed on in a room, then Prismo, until its watcher has hooked the room.
    void Start(const std::string& simOptions = "--room \"Town Square\"")
    {
        StartBeside("40", "--signed-on \"Zun Tester\" " + simOptions);
    }

    // AOL `version` ("40", "50") started with `simOptions` alone, then Prismo
    // with that AOL's folder stored, until its hooks are in place.
    void StartBeside(const std::string& version, const std::string& simOptions)
    {
        SetOption("", "AOL Path", SimFolder() + "aol" + version);
        ASSERT_TRUE(sim_.Start(version, simOptions));
        ASSERT_TRUE(prismo_.Start("\"" + program_ + "\""));
        PumpUntil([&] { return (panel_ = WindowWithChild(prismo_.Id(), IDC_CT_PREVIEW, false)) != nullptr; },
                  60000);
        ASSERT_TRUE(panel_) << "the control panel never came";
        const bool room = simOptions.find("--room") != std::string::npos;
        ASSERT_TRUE(Hooked(room)) << sim_.Ctl("subclassed");
    }

    // True once the program's hooks sit on AOL's main window and, with
    // `room`, on the room's chat input and send icon.
    bool Hooked(bool room = true)
    {
        return PumpUntil(
            [&] {
                const std::string hooks = sim_.Ctl("subclassed");
                return hooks.find("frame\tsubclassed\n") != std::string::npos &&
                       (!room || (hooks.find("input\tsubclassed\n") != std::string::npos &&
                                  hooks.find("send\tsubclassed\n") != std::string::npos));
            },
            20000);
    }

    // Types `text` and sends it with Enter (or the icon); returns what the
    // room received. The hooks decide while AOL waits, so whatever the send
    // puts into the room is there once aolsimctl has had AOL handle it.
    std::string Send(const std::string& text, bool byIcon = false)
    {
        const size_t before = Lines(sim_.Ctl("transcript")).size();
        if (!text.empty()) sim_.Ctl("type \"" + text + "\"");
        sim_.Ctl(byIcon ? "click-send" : "key enter");
        const std::vector<std::string> after = Lines(sim_.Ctl("transcript"));
        std::string got;
        for (size_t i = before; i < after.size(); ++i) got += after[i] + "\n";
        return got;
    }

    // The room's lines so far, and those it received from line `from` on.
    size_t Posted() { return Lines(sim_.Ctl("transcript")).size(); }
    std::vector<std::string> PostedSince(size_t from)
    {
        const std::vector<std::string> all = Lines(sim_.Ctl("transcript"));
        return {all.begin() + static_cast<long>(from), all.end()};
    }
    // "/adv" typed and sent with Enter; true once its first line is in the room.
    bool AdvertStarted(size_t before)
    {
        sim_.Ctl("type /adv");
        sim_.Ctl("key enter");
        return PumpUntil([&] { return Posted() > before; }, 15000);
    }
    // True once the room has `count` lines from `before` on and the program
    // has finished what it was doing (an advertisement ends with a pause).
    bool AdvertDone(size_t before, size_t count = 5)
    {
        PumpUntil([&] { return Posted() >= before + count; }, 30000);
        return PumpUntil([&] { return !CommandRunning(prismo_.Id()); }, 30000);
    }
    bool ProgramMenuShown() { return sim_.Ctl("menu").find("Prism&o") != std::string::npos; }
    // An entry of Prismo's menu in AOL chosen, as a click on it sends it.
    void Menu(WPARAM command) { PostMessageA(sim_.Frame(), WM_COMMAND, command, 0); }
    // The program's window holding control `childId`, once it shows; null when it never does.
    HWND WindowHolding(int childId, DWORD ms = 20000)
    {
        HWND window = nullptr;
        PumpUntil([&] { return (window = WindowWithChild(prismo_.Id(), childId)) != nullptr; }, ms);
        return window;
    }
    // Prism&o, Exit Prismo; true once the program has ended cleanly.
    bool ExitPrismo()
    {
        Menu(60005);
        return prismo_.Wait(15000) == 0;
    }

    std::string Input() { return sim_.Ctl("input"); }
    // A command runs right after the send that asked for it: wait for what it stores.
    bool Stored(const std::string& name, const std::string& value)
    {
        return PumpUntil([&] { return Option("", name) == value; }, 5000);
    }
    bool PanelVisible() { return IsWindowVisible(panel_) != 0; }
    bool KeywordSeen(const std::string& keyword)
    {
        return PumpUntil([&] { return sim_.Ctl("keywords").find(keyword + "\n") != std::string::npos; }, 5000);
    }

    // The program's message box shown now, its text, and the box dismissed;
    // "" when none came.
    std::string Message(DWORD ms = 20000)
    {
        HWND box = WindowHolding(IDC_MSG_AREA, ms);
        if (!box) return "";
        const std::string text = WindowText(GetDlgItem(box, IDC_MSG_AREA));
        Press(box, IDC_MSG_CMD0);
        PumpUntil([&] { return !IsWindow(box) || !IsWindowVisible(box); }, 5000);
        return text;
    }
    // Waits until the program shows a message box or ends; the box, or null.
    HWND MessageOrEnd(DWORD ms = 30000)
    {
        HWND box = nullptr;
        PumpUntil(
            [&] {
                box = WindowWithChild(prismo_.Id(), IDC_MSG_AREA);
                return box || prismo_.Wait(0) != -1;
            },
            ms);
        return box;
    }
    // What AOL's clipboard holds in `format` ("aolmail", "text"); "(none)" when nothing.
    std::string Clipboard(const std::string& format)
    {
        std::string out;
        return sim_.Ctl("clipboard " + format, out) == 0 ? out : "(none)";
    }

    SimAOL sim_;
    std::string program_ = Prismo();  // the prismo.exe that Start runs
    TestProcess prismo_;
    HWND panel_ = nullptr;
};

}  // namespace ChatLive
