// AOL's session as Prismo reads it: captions per edition, the menus per
// edition, version and sign-on state, the sign-on list read from another
// process, keywords handed to a running AOL, the version resource, and the
// ways AOL ends.
#include "SimConfig.h"
#include "SimSearch.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>

namespace {

std::string FrameCaption(HWND frame) {
    char text[100] = "";
    GetWindowTextA(frame, text, sizeof text);
    return text;
}

bool MenuHas(const std::vector<std::string>& menu, const std::string& caption) {
    for (const auto& line : menu) {
        const auto start = line.find_first_not_of('\t');
        if (line.compare(start, caption.size() + 1, caption + "\t") == 0) return true;
    }
    return false;
}

int TopLevelMenus(const std::vector<std::string>& menu) {
    int count = 0;
    for (const auto& line : menu) count += !line.empty() && line[0] != '\t';
    return count;
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
        EXPECT_EQ(TopLevelMenus(menu), 8);
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
        EXPECT_EQ(TopLevelMenus(menu), 5);
        EXPECT_FALSE(MenuHas(menu, "Switch Scree&n Name")) << "only AOL 5.0 has it";
    }
    {
        SimAOL sim(3, {"--menus", "6"});
        EXPECT_EQ(TopLevelMenus(CtlLines({"menu"})), 6);
        EXPECT_NE(ChildByCaption(sim.Mdi(), "Welcome"), nullptr) << "AOL 3.0 signs on from \"Welcome\"";
    }
}

std::vector<std::string> BarOf(const std::vector<std::string>& menu) {
    std::vector<std::string> bar;
    for (const auto& line : menu)
        if (!line.empty() && line[0] != '\t') bar.push_back(line.substr(0, line.find('\t')));
    return bar;
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
        EXPECT_EQ(FrameCaption(sim.Frame()),
                  std::string("America Online - [") + (std::string(kind) == "room" ? "Lobby" : "Write Mail") + "]");
        EXPECT_NE(FindChatRoom(sim.Mdi()), nullptr) << "a maximised room is still a room";
        ASSERT_EQ(Ctl({"restore"}).status, 0);
        EXPECT_EQ(BarOf(CtlLines({"menu"})), seven);
        EXPECT_EQ(FrameCaption(sim.Frame()), "America Online");
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
    for (const char* keyword : {"-swelcome", "-shttp://example.com/support.html", "-sPeople Connection"}) {
        STARTUPINFOA si{};
        si.cb = sizeof si;
        PROCESS_INFORMATION pi{};
        std::string line = "\"" + SimFolder(5) + "\\waol.exe\" " + keyword;
        ASSERT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si, &pi));
        EXPECT_EQ(WaitForSingleObject(pi.hProcess, 15000), WAIT_OBJECT_0) << "the second waol.exe must exit";
        CloseHandle(pi.hThread);
        CloseHandle(pi.hProcess);
    }
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
    const std::string path = SimFolderWithBlanks() + "\\waol.exe";
    DWORD handle = 0;
    std::vector<char> info(GetFileVersionInfoSizeA(path.c_str(), &handle));
    ASSERT_FALSE(info.empty());
    ASSERT_TRUE(GetFileVersionInfoA(path.c_str(), 0, (DWORD)info.size(), info.data()));
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueA(info.data(), "\\", (void**)&fixed, &length));
    EXPECT_EQ(HIWORD(fixed->dwFileVersionMS), 4);
}

TEST(SimSession, LauncherStartsWaolBesideIt) {
    STARTUPINFOA si{};
    si.cb = sizeof si;
    PROCESS_INFORMATION pi{};
    std::string line = "\"" + SimFolder(4) + "\\aol.exe\" --edition ca";
    ASSERT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &si, &pi));
    WaitForSingleObject(pi.hProcess, 10000);
    CloseHandle(pi.hThread);
    CloseHandle(pi.hProcess);
    HWND frame = WaitTopLevel("AOL FRAME25", nullptr);
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(FrameCaption(frame), "AOL Canada");
    EXPECT_EQ(Ctl({"kill"}).status, 0);
    EXPECT_EQ(FindWindowA("AOL FRAME25", nullptr), nullptr);
}

TEST(SimSession, FileVersionSaysTheAolVersion) {
    for (int version : {3, 4, 5}) {
        const std::string path = SimFolder(version) + "\\waol.exe";
        DWORD handle = 0;
        const DWORD size = GetFileVersionInfoSizeA(path.c_str(), &handle);
        ASSERT_GT(size, 0u) << path;
        std::vector<char> info(size);
        ASSERT_TRUE(GetFileVersionInfoA(path.c_str(), 0, size, info.data()));
        VS_FIXEDFILEINFO* fixed = nullptr;
        UINT length = 0;
        ASSERT_TRUE(VerQueryValueA(info.data(), "\\", (void**)&fixed, &length));
        EXPECT_EQ(HIWORD(fixed->dwFileVersionMS), (WORD)version);
        EXPECT_EQ(LOWORD(fixed->dwFileVersionMS), 0);
        EXPECT_EQ(GetFileAttributesA((SimFolder(version) + "\\download").c_str()) & FILE_ATTRIBUTE_DIRECTORY,
                  (DWORD)FILE_ATTRIBUTE_DIRECTORY);
    }
}

TEST(SimSession, CloseExitCommandAndKill) {
    const std::string log = TempPath("end.log");
    {
        SimAOL sim(4, {"--log", log});
        EXPECT_EQ(Ctl({"quit"}).status, 0);
        EXPECT_TRUE(sim.WaitExit(10000));
    }
    {
        SimAOL sim(4, {"--log", log});
        SendMessageA(sim.Frame(), WM_COMMAND, 8207, 0);
        EXPECT_TRUE(sim.WaitExit(10000));
    }
    {
        SimAOL sim(4, {"--log", log});
        EXPECT_EQ(Ctl({"kill"}).status, 0);
        EXPECT_TRUE(sim.WaitExit(10000));
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
