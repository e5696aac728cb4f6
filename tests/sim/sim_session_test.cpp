// AOL's session as Prismo reads it: captions and menus per edition and
// version, sign-on, keywords, the version resource, and the ways AOL ends.
#include "SimConfig.h"
#include "SimSearch.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>

namespace {

bool MenuHas(const std::vector<std::string>& menu, const std::string& caption) {
    for (const auto& line : menu) {
        const auto start = line.find_first_not_of('\t');
        if (line.compare(start, caption.size() + 1, caption + "\t") == 0) return true;
    }
    return false;
}

std::vector<std::string> BarOf(const std::vector<std::string>& menu) {
    std::vector<std::string> bar;
    for (const auto& line : menu)
        if (!line.empty() && line[0] != '\t') bar.push_back(line.substr(0, line.find('\t')));
    return bar;
}

// The major and minor version in the version resource of `path`, or -1.
int FileVersion(const std::string& path) {
    DWORD handle = 0;
    std::vector<char> info(GetFileVersionInfoSizeA(path.c_str(), &handle));
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    if (info.empty() || !GetFileVersionInfoA(path.c_str(), 0, (DWORD)info.size(), info.data()) ||
        !VerQueryValueA(info.data(), "\\", (void**)&fixed, &length))
        return -1;
    return (int)fixed->dwFileVersionMS;
}

// Runs `line` and waits up to `ms` for it to end.
bool RunToEnd(std::string line, DWORD ms) {
    STARTUPINFOA si{};
    si.cb = sizeof si;
    PROCESS_INFORMATION pi{};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si, &pi)) return false;
    const bool ended = WaitForSingleObject(pi.hProcess, ms) == WAIT_OBJECT_0;
    CloseHandle(pi.hThread);
    CloseHandle(pi.hProcess);
    return ended;
}

TEST(SimSession, CaptionsFollowTheEdition) {
    struct Case {
        const char* edition;
        const char* mail;
        const char* goodbye;
        const char* about;
        const char* fileDialog;
    };
    const Case cases[] = {
        {"us", "Write Mail", "Goodbye From America Online!", "&About America Online", "Attach"},
        {"uk", "Write Mail", "Goodbye From AOL!", "&About AOL", "Open"},
        {"ca", "Write Mail", "Goodbye From AOL Canada!", "&About AOL Canada", "Open"},
        {"au", "Write e-mail", "Goodbye From AOL!", "&About AOL", "Attach"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.edition);
        SimAOL sim(4, {"--edition", c.edition, "--signed-on", "Zun Tester"});
        HWND outer = FindWindowExA(sim.Frame(), nullptr, "AOL Toolbar", nullptr);
        HWND inner = FindWindowExA(outer, nullptr, "_AOL_Toolbar", nullptr);
        HWND second = NthChildOfClass(inner, "_AOL_ICON", 2);
        const bool au = std::string(c.edition) == "au";
        EXPECT_EQ(WindowText(second) == "e-mail centre", au);

        Click(NthChildOfClass(inner, "_AOL_ICON", 1));  // opens a new mail
        EXPECT_NE(WaitChildByCaption(sim.Mdi(), c.mail), nullptr);
        const auto menu = CtlLines({"menu"});
        EXPECT_TRUE(MenuHas(menu, c.about));
        EXPECT_EQ(MenuHas(menu, "&About AOL"), std::string(c.about) == "&About AOL");
        EXPECT_EQ(Ctl({"sign-off"}).status, 0);
        EXPECT_NE(WaitChildByCaption(sim.Mdi(), c.goodbye), nullptr);
        EXPECT_EQ(ChildByCaption(sim.Mdi(), "Welcome, Zun Tester!"), nullptr);
        EXPECT_EQ(FileDialogCaption(ParseSimArgs({"--edition", c.edition}, 4).edition), c.fileDialog);
    }
}

TEST(SimSession, MenusPerVersionCountAndSignOn) {
    {
        SimAOL sim(5, {"--menus", "8", "--screen-names", "Alpha,Guest"});
        auto menu = CtlLines({"menu"});
        EXPECT_EQ(BarOf(menu).size(), 8u);
        EXPECT_TRUE(MenuHas(menu, "E&xit\t8207") || MenuHas(menu, "E&xit"));
        EXPECT_FALSE(MenuHas(menu, "Switch Scree&n Name"));
        EXPECT_NE(ChildByCaption(sim.Mdi(), "Sign On"), nullptr);
        EXPECT_EQ(Ctl({"sign-on", "Alpha"}).status, 0);
        EXPECT_TRUE(MenuHas(CtlLines({"menu"}), "Switch Scree&n Name"));
        EXPECT_NE(ChildByCaption(sim.Mdi(), "Welcome, Alpha!"), nullptr);
        EXPECT_EQ(ChildByCaption(sim.Mdi(), "Sign On"), nullptr);
        EXPECT_EQ(Ctl({"sign-off"}).status, 0);
        EXPECT_FALSE(MenuHas(CtlLines({"menu"}), "Switch Scree&n Name"));
        EXPECT_NE(Ctl({"sign-on", "Nobody"}).status, 0);
    }
    {
        SimAOL sim(4, {"--signed-on", "Zun Tester"});
        const auto menu = CtlLines({"menu"});
        EXPECT_EQ(BarOf(menu).size(), 5u);
        EXPECT_FALSE(MenuHas(menu, "Switch Scree&n Name")) << "only AOL 5.0 has it";
    }
    {
        SimAOL sim(3, {"--menus", "6"});
        EXPECT_EQ(BarOf(CtlLines({"menu"})).size(), 6u);
        EXPECT_NE(ChildByCaption(sim.Mdi(), "Welcome"), nullptr) << "AOL 3.0 signs on from \"Welcome\"";
    }
}

// Seven menus add "&Mail" to six; a maximised room or mail puts its system
// menu in front of the bar and its three buttons behind it, as Windows' MDI
// does, and its caption into the frame's; restoring takes them back.
TEST(SimSession, SevenMenusAndAMaximisedWindowInTheBar) {
    SimAOL sim(4, {"--menus", "7", "--room", "Lobby", "--mail"});
    const std::vector<std::string> seven{"&File", "&Edit", "&Print", "&Mail", "&Window", "&Sign Off", "&Help"};
    EXPECT_EQ(BarOf(CtlLines({"menu"})), seven);
    for (const char* kind : {"room", "mail"}) {
        SCOPED_TRACE(kind);
        ASSERT_EQ(Ctl({"maximize", kind}).status, 0);
        std::vector<std::string> bar = BarOf(CtlLines({"menu"}));
        ASSERT_EQ(bar.size(), seven.size() + 4);
        EXPECT_EQ(bar.front(), "(system menu)");
        EXPECT_EQ(std::vector<std::string>(bar.begin() + 1, bar.end() - 3), seven);
        EXPECT_EQ(std::vector<std::string>(bar.end() - 3, bar.end()),
                  (std::vector<std::string>{"(minimize)", "(restore)", "(close)"}));
        EXPECT_EQ(WindowText(sim.Frame()),
                  std::string("America Online - [") + (std::string(kind) == "room" ? "Lobby" : "Write Mail") + "]");
        EXPECT_NE(FindChatRoom(sim.Mdi()), nullptr) << "a maximised room is still a room";
        ASSERT_EQ(Ctl({"restore"}).status, 0);
        EXPECT_EQ(BarOf(CtlLines({"menu"})), seven);
        EXPECT_EQ(WindowText(sim.Frame()), "America Online");
    }
    EXPECT_NE(Ctl({"restore"}).status, 0) << "nothing is maximised";
    EXPECT_NE(Ctl({"maximize", "window"}).status, 0) << "no such window is open";
}

TEST(SimSession, SignOnListReadsFromAnotherProcess) {
    SimAOL sim(4, {"--screen-names", "Alpha,Beta Two,Guest,Gamma", "--select", "Beta Two"});
    HWND signOn = ChildByCaption(sim.Mdi(), "Sign On");
    ASSERT_NE(signOn, nullptr);
    HWND combo = FindWindowExA(signOn, nullptr, "_AOL_COMBOBOX", nullptr);
    ASSERT_NE(combo, nullptr);
    DWORD pid = 0;
    GetWindowThreadProcessId(combo, &pid);
    HANDLE process = OpenProcess(0xF0010, FALSE, pid);
    ASSERT_NE(process, nullptr);
    std::vector<std::string> names;
    const int count = (int)SendMessageA(combo, CB_GETCOUNT, 0, 0);
    for (int i = 0; i < count; ++i) {
        const auto data = static_cast<std::uintptr_t>(SendMessageA(combo, CB_GETITEMDATA, i, 0));
        EXPECT_LT(data + 24, std::uintptr_t{1} << 32);
        std::uint32_t pointer = 0;
        SIZE_T got = 0;
        ASSERT_TRUE(ReadProcessMemory(process, (LPCVOID)(data + 24), &pointer, 4, &got));
        char name[17] = {};
        ASSERT_TRUE(ReadProcessMemory(process, (LPCVOID)(std::uintptr_t)(pointer + 6), name, 16, &got));
        names.push_back(name);
    }
    CloseHandle(process);
    EXPECT_EQ(names, (std::vector<std::string>{"Alpha", "Beta Two", "Guest", "Gamma"}));
    EXPECT_EQ(SendMessageA(combo, CB_GETCURSEL, 0, 0), 1);
}

TEST(SimSession, KeywordsAreHandedToTheRunningAol) {
    const std::string log = TempPath("keyword.log");
    SimAOL sim(5, {"--signed-on", "Zun Tester", "--log", log});
    // The Welcome window is gone; the keyword brings it back.
    SendMessageA(sim.Mdi(), WM_MDIDESTROY, (WPARAM)ChildByCaption(sim.Mdi(), "Welcome, Zun Tester!"), 0);
    // As Prismo hands them over: the keyword unquoted, blanks and all.
    for (const char* keyword : {"-swelcome", "-shttp://example.com/support.html", "-sPeople Connection"})
        EXPECT_TRUE(RunToEnd("\"" + SimFolder(5) + "\\waol.exe\" " + keyword, 15000)) << "the second waol.exe must exit";
    EXPECT_EQ(CtlLines({"keywords"}),
              (std::vector<std::string>{"welcome", "http://example.com/support.html", "People Connection"}));
    EXPECT_NE(WaitChildByCaption(sim.Mdi(), "Welcome, Zun Tester!"), nullptr);
    EXPECT_EQ(FindWindowExA(nullptr, sim.Frame(), "AOL FRAME25", nullptr), nullptr) << "a second AOL started";
    EXPECT_NE(ReadFileText(log).find("keyword\twelcome\n"), std::string::npos);
}

TEST(SimSession, KeywordWithoutRunningAolStartsIt) {
    SimAOL sim(4, {"-sPeople Connection"});
    EXPECT_EQ(CtlLines({"keywords"}), std::vector<std::string>{"People Connection"});
}

TEST(SimSession, SignOnScreenComesAsLateAsAsked) {
    SimAOL sim(4, {"--signon-delay", "2"});
    EXPECT_EQ(ChildByCaption(sim.Mdi(), "Sign On"), nullptr) << "ready before its Sign On screen";
    EXPECT_NE(WaitChildByCaption(sim.Mdi(), "Sign On"), nullptr);
    EXPECT_EQ(Ctl({"sign-on", "Zun Tester"}).status, 0);
    EXPECT_NE(ChildByCaption(sim.Mdi(), "Welcome, Zun Tester!"), nullptr);
}

TEST(SimSession, FolderWithBlanksHoldsAol40) {
    SimAOL sim;
    ASSERT_TRUE(sim.StartIn(SimFolderWithBlanks(), "--screen-names \"Ann Lee,Guest\""));
    EXPECT_NE(ChildByCaption(sim.Mdi(), "Sign On"), nullptr);
    EXPECT_EQ(FileVersion(SimFolderWithBlanks() + "\\waol.exe"), MAKELONG(0, 4));
}

TEST(SimSession, LauncherStartsWaolBesideIt) {
    RunToEnd("\"" + SimFolder(4) + "\\aol.exe\" --edition ca", 10000);
    HWND frame = WaitTopLevel("AOL FRAME25", nullptr);
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(WindowText(frame), "AOL Canada");
    EXPECT_EQ(Ctl({"kill"}).status, 0);
    EXPECT_EQ(FindWindowA("AOL FRAME25", nullptr), nullptr);
}

TEST(SimSession, FileVersionSaysTheAolVersion) {
    for (int version : {3, 4, 5}) {
        EXPECT_EQ(FileVersion(SimFolder(version) + "\\waol.exe"), MAKELONG(0, version)) << version;
        EXPECT_EQ(GetFileAttributesA((SimFolder(version) + "\\download").c_str()) & FILE_ATTRIBUTE_DIRECTORY,
                  (DWORD)FILE_ATTRIBUTE_DIRECTORY);
    }
}

TEST(SimSession, CloseExitCommandAndKill) {
    const std::string log = TempPath("end.log");
    for (const char* end : {"quit", "exit", "kill"}) {
        SimAOL sim(4, {"--log", log});
        if (std::string(end) == "exit")
            SendMessageA(sim.Frame(), WM_COMMAND, 8207, 0);  // File, Exit
        else
            EXPECT_EQ(Ctl({end}).status, 0) << end;
        EXPECT_TRUE(sim.WaitExit(10000)) << end;
    }
    const std::string logged = ReadFileText(log);
    std::size_t quits = 0;
    for (auto at = logged.find("quit\n"); at != std::string::npos; at = logged.find("quit\n", at + 1)) ++quits;
    EXPECT_EQ(quits, 2u) << "a killed AOL logs no quit: " << logged;
    EXPECT_NE(Ctl({"caption"}).status, 0) << "no AOL left to answer";
}

TEST(SimSession, BadCommandLinesAreRefused) {
    EXPECT_THROW(ParseSimArgs({"--edition", "fr"}, 4), std::invalid_argument);
    EXPECT_THROW(ParseSimArgs({"--menus", "9"}, 4), std::invalid_argument);
    EXPECT_THROW(ParseSimArgs({"--log"}, 4), std::invalid_argument);
    EXPECT_THROW(ParseSimArgs({"--bogus"}, 4), std::invalid_argument);
    const SimConfig config = ParseSimArgs({"--screen-names= A , B ,Guest", "-sWelcome", "--menus=8"}, 5);
    EXPECT_EQ(config.screenNames, (std::vector<std::string>{"A", "B", "Guest"}));
    EXPECT_EQ(config.keyword, "Welcome");
    EXPECT_EQ(config.menuCount, 8);
    EXPECT_THROW(ParseSimArgs({"--signon-delay", "soon"}, 4), std::invalid_argument);
    EXPECT_EQ(ParseSimArgs({"--signon-delay=8"}, 4).signOnDelay, 8);
    EXPECT_THROW(ParseSimArgs({"--mail-fault", "no-printer"}, 4), std::invalid_argument);
    EXPECT_THROW(ParseSimArgs({"--attach-icon", "gone"}, 4), std::invalid_argument);
    EXPECT_EQ(ParseSimArgs({"--mail-fault=no-open-button"}, 4).mailFault, SimMailFault::NoOpenButton);
}

TEST(SimSession, CommandLineIsReadAsAolReadsIt) {
    using Args = std::vector<std::string>;
    // "-s" takes the rest of the line, blanks and all, as the keyword.
    EXPECT_EQ(SplitSimCommandLine("waol.exe -sPeople Connection  "), Args{"-sPeople Connection"});
    EXPECT_EQ(SplitSimCommandLine("\"C:\\America Online 4.0\\waol.exe\" --edition uk -sA --b"),
              (Args{"--edition", "uk", "-sA --b"}));
    // An unquoted program path with blanks leaves its tail as arguments.
    EXPECT_EQ(SplitSimCommandLine("C:\\America Online 4.0\\waol.exe"), (Args{"Online", "4.0\\waol.exe"}));
    EXPECT_THROW(ParseSimArgs(SplitSimCommandLine("C:\\America Online 4.0\\waol.exe"), 4), std::invalid_argument);
    // Quotes group; backslashes stay but for the ones before a quote.
    EXPECT_EQ(SplitSimCommandLine("w --log \"Z:\\a b\\x.log\" --window \"say \\\"hi\\\"\" --room \"C:\\\\\""),
              (Args{"--log", "Z:\\a b\\x.log", "--window", "say \"hi\"", "--room", "C:\\"}));
    EXPECT_EQ(SplitSimCommandLine("w"), Args{});
}

}  // namespace
