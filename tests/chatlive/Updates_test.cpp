// Check for Updates live: prismo.exe beside the AOL simulator, signed on in
// a room, asking a web server of the test's own on 127.0.0.1 for the posted
// version. The answers, the download page, servers that fail in every way
// they can, and the chat hooks coming back after a check that held the
// program up.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>

#include "ChatLiveFixture.h"
#include "Maker.h"
#include "ProgramInfo.h"
#include "UpgradeText.h"
#include "WebServer.h"

namespace ChatLive {
namespace {

constexpr char kHostVariable[] = "PRISMO_UPDATE_HOST";

// A copy of prismo.exe (with its hook DLL beside it) whose version resource
// says `version`: the same program, as another release of it.
std::string ProgramAsVersion(int major, int minor, int revision)
{
    char temp[MAX_PATH] = "";
    GetTempPathA(sizeof temp, temp);
    const std::string folder = std::string(temp) + "prismo-" + std::to_string(major) + "." + std::to_string(minor) +
                               "." + std::to_string(revision) + "\\";
    CreateDirectoryA(folder.c_str(), nullptr);
    const std::string built = Prismo().substr(0, Prismo().find_last_of('\\') + 1);
    CopyFileA((built + "prismosbc.dll").c_str(), (folder + "prismosbc.dll").c_str(), FALSE);
    std::ifstream in(Prismo(), std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    // The fixed file information: its signature, its structure version, then
    // the file version's two halves.
    const std::string signature("\xBD\x04\xEF\xFE", 4);
    const size_t at = bytes.find(signature);
    if (at == std::string::npos) return "";
    const DWORD ms = static_cast<DWORD>(major) << 16 | static_cast<DWORD>(minor);
    const DWORD ls = static_cast<DWORD>(revision) << 16;
    memcpy(&bytes[at + 8], &ms, sizeof ms);
    memcpy(&bytes[at + 12], &ls, sizeof ls);
    std::ofstream(folder + "prismo.exe", std::ios::binary) << bytes;
    return folder + "prismo.exe";
}

// Pixels of `color` on screen inside `window`.
int PixelsOf(HWND window, COLORREF color)
{
    RECT r;
    GetWindowRect(window, &r);
    const int width = r.right - r.left, height = r.bottom - r.top;
    if (width <= 0 || height <= 0) return 0;
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, r.left, r.top, SRCCOPY);
    SelectObject(memory, old);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    std::vector<DWORD> pixels(static_cast<size_t>(width) * height);
    GetDIBits(memory, bitmap, 0, height, pixels.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    const DWORD wanted = GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color);
    int count = 0;
    for (DWORD p : pixels) count += (p & 0xFFFFFF) == wanted;
    return count;
}

// frmUpdate as the user sees it.
struct UpdateShown {
    HWND window = nullptr;
    std::string caption, message, current, posted, ok;
    bool yes = false;
};

class UpdatesTest : public ChatLiveTest {
protected:
    void TearDown() override
    {
        ChatLiveTest::TearDown();
        SetEnvironmentVariableA(kHostVariable, nullptr);
    }

    // Prismo (as release `program`, or as built) beside AOL in a room, asking our server.
    void StartAsking(const std::string& program = "")
    {
        SetEnvironmentVariableA(kHostVariable, server_.Host().c_str());
        if (!program.empty()) program_ = program;
        Start();
    }
    // Prism&o, Check for Updates.
    void Check() { PostMessageA(sim_.Frame(), WM_COMMAND, 60006, 0); }

    UpdateShown Update()
    {
        UpdateShown shown;
        shown.window = WindowHolding(IDC_UP_REPORT);
        if (!shown.window) return shown;
        shown.caption = WindowText(shown.window);
        shown.message = WindowText(GetDlgItem(shown.window, IDC_UP_MSG));
        shown.current = WindowText(GetDlgItem(shown.window, IDC_UP_CURVER));
        shown.posted = WindowText(GetDlgItem(shown.window, IDC_UP_REPORT));
        shown.ok = WindowText(GetDlgItem(shown.window, IDC_UP_OK));
        shown.yes = IsWindowVisible(GetDlgItem(shown.window, IDC_UP_YES)) != 0;
        return shown;
    }
    // True once the posted version is painted in `color` (and, unless that is
    // the only colour asked for, not in red).
    bool PostedPaintedIn(const UpdateShown& shown, COLORREF color)
    {
        HWND label = GetDlgItem(shown.window, IDC_UP_REPORT);
        return PumpUntil(
            [&] { return PixelsOf(label, color) > 0 && (color == RGB(255, 0, 0) || !PixelsOf(label, RGB(255, 0, 0))); },
            5000);
    }
    // Answers frmUpdate with `button` and waits until the check is over.
    bool Answer(const UpdateShown& shown, int button)
    {
        Press(shown.window, button);
        return CheckOver();
    }

    // The common error report's details, answered Ignore; "" when none came.
    std::string ErrorReport()
    {
        HWND report = WindowHolding(IDC_ERR_DETAILS);
        if (!report) return "";
        const std::string details = WindowText(GetDlgItem(report, IDC_ERR_DETAILS));
        Press(report, IDC_ERR_IGNORE);
        return details;
    }

    // The wait window is gone and the program is no longer busy with the check.
    bool CheckOver()
    {
        return PumpUntil(
            [&] {
                return !WindowWithChild(prismo_.Id(), IDC_VC_CANCEL, false) &&
                       !WindowWithChild(prismo_.Id(), IDC_UP_REPORT, false) && !CommandRunning(prismo_.Id());
            },
            30000);
    }
    // The watcher has looked at AOL twice since now.
    void TwoTicks()
    {
        const long ticks = WatcherTicks(prismo_.Id());
        ASSERT_TRUE(PumpUntil([&] { return WatcherTicks(prismo_.Id()) >= ticks + 2; }, 10000));
    }
    bool Requested(size_t count)
    {
        return PumpUntil([&] { return server_.RequestCount() >= count; }, 20000);
    }

    WebServer server_;
};

TEST_F(UpdatesTest, PostedVersionsAgainstRevision209)
{
    const std::string program = ProgramAsVersion(2, 0, 9);
    ASSERT_FALSE(program.empty());
    StartAsking(program);
    const std::string downloadPage = "http://" + server_.Host() + "/prismo/update.html";

    server_.Answer(WebServer::Page("2.1.0"));
    Check();
    UpdateShown shown = Update();
    ASSERT_TRUE(shown.window) << "no answer to 2.1.0";
    EXPECT_EQ(shown.caption, "Prismo Update!");
    EXPECT_EQ(shown.message, UpgradeText::NewRevision);
    EXPECT_EQ(shown.current, "2.0.9");
    EXPECT_EQ(shown.posted, "2.1.0");
    EXPECT_EQ(shown.ok, "No");
    EXPECT_TRUE(shown.yes);
    EXPECT_TRUE(PostedPaintedIn(shown, RGB(255, 0, 0))) << "a newer version stands out in red";
    EXPECT_TRUE(Answer(shown, IDC_UP_YES));
    EXPECT_TRUE(KeywordSeen(downloadPage)) << sim_.Ctl("keywords");

    struct Case {
        const char* body;
        const char* message;
        bool newer;
    };
    const Case cases[] = {
        {"2.0.9", UpgradeText::Latest, false},
        {"2.0.8", UpgradeText::BetaTester, false},
        {"2.0.10", UpgradeText::NewRevision, true},  // 10 after 9, as numbers
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.body);
        server_.Answer(WebServer::Page(c.body));
        Check();
        shown = Update();
        ASSERT_TRUE(shown.window);
        EXPECT_EQ(shown.message, c.message);
        EXPECT_EQ(shown.posted, c.body);
        EXPECT_EQ(shown.ok, c.newer ? "No" : "OK");
        EXPECT_EQ(shown.yes, c.newer);
        const COLORREF text = c.newer ? RGB(255, 0, 0) : GetSysColor(COLOR_BTNTEXT);
        EXPECT_TRUE(PostedPaintedIn(shown, text));
        EXPECT_TRUE(Answer(shown, IDC_UP_OK)) << "No and OK close it";
    }
    const std::vector<std::string> keywords = Lines(sim_.Ctl("keywords"));
    EXPECT_EQ(std::count(keywords.begin(), keywords.end(), downloadPage), 1) << "only Yes opens the download page";

    // The chat command; line ends after the version mean nothing.
    server_.Answer(WebServer::Page("2.1.0\r\n"));
    sim_.Ctl("type /updates");
    sim_.Ctl("key enter");
    shown = Update();
    ASSERT_TRUE(shown.window) << "/updates";
    EXPECT_EQ(shown.message, UpgradeText::NewRevision);
    EXPECT_EQ(shown.posted, "2.1.0");
    EXPECT_TRUE(Answer(shown, IDC_UP_OK));

    // One plain GET of the version file per check, as "prismo".
    const std::vector<std::string> requests = server_.Requests();
    EXPECT_EQ(requests.size(), 5u);
    for (const std::string& request : requests) {
        EXPECT_EQ(request.rfind("GET /prismover32 HTTP/1.1\r\n", 0), 0u) << request;
        EXPECT_NE(request.find("\r\nUser-Agent: prismo\r\n"), std::string::npos) << request;
    }
    EXPECT_TRUE(ExitPrismo());
}

TEST_F(UpdatesTest, TheMajorPartDecidesFirst)
{
    const std::string program = ProgramAsVersion(2, 9, 9);
    ASSERT_FALSE(program.empty());
    StartAsking(program);
    server_.Answer(WebServer::Page("3.0.0"));
    Check();
    const UpdateShown shown = Update();
    ASSERT_TRUE(shown.window);
    EXPECT_EQ(shown.current, "2.9.9");
    EXPECT_EQ(shown.message, UpgradeText::NewRevision);
    EXPECT_TRUE(shown.yes);
    EXPECT_TRUE(Answer(shown, IDC_UP_OK));
    EXPECT_TRUE(ExitPrismo());
}

TEST_F(UpdatesTest, ServersThatAnswerBadly)
{
    StartAsking();
    const std::string critical = CriticalErrorText(Maker::SiteName, Maker::SupportEMail);

    // An error page without a dot is no version at all.
    server_.Answer(WebServer::Page("<html>Not Found</html>", "404 Not Found"));
    Check();
    EXPECT_EQ(Message(), critical);
    EXPECT_TRUE(CheckOver());

    // Texts with dots that are no version: the common error report.
    struct Case {
        std::string body;
        const char* error;
    };
    std::string digits;
    while (digits.size() < (8u << 20)) digits += "1.2.3.";
    const Case cases[] = {
        {WebServer::Page("1.x.y", "404 Not Found"), "Error number: 13\r\n"},
        {WebServer::Page("2.1"), "Error number: 13\r\n"},
        {WebServer::Page("99999.0.0"), "Error number: 6\r\nDescription: Overflow"},
        {WebServer::Page(digits), "Error number: 13\r\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.body.substr(0, 80));
        server_.Answer(c.body);
        Check();
        const std::string details = ErrorReport();
        EXPECT_NE(details.find("Module: modPrismo\r\nProcedure: UpgradeNotify\r\n"), std::string::npos) << details;
        EXPECT_NE(details.find(c.error), std::string::npos) << details;
        EXPECT_TRUE(CheckOver());
    }
    EXPECT_EQ(WindowWithChild(prismo_.Id(), IDC_UP_REPORT, false), nullptr) << "no answer after a report";

    // A connection closed before the headers end. Wine's WinInet takes what came for the whole answer, an empty page,
    // which is no version; a WinInet that calls it an error has its text shown.
    for (const char* early : {"HTTP/1.1 200 OK\r\nContent-Ty", ""}) {
        SCOPED_TRACE(early);
        server_.Answer(early);
        Check();
        const std::string halfAnswer = Message();
        EXPECT_TRUE(halfAnswer == critical || halfAnswer.rfind(UpgradeText::NetErrorPrefix, 0) == 0) << halfAnswer;
        EXPECT_TRUE(CheckOver());
    }

    // Nobody listening.
    server_.StopListening();
    Check();
    EXPECT_EQ(Message(), std::string(UpgradeText::NetErrorPrefix) + "The attempt to connect to the server failed.");
    EXPECT_TRUE(CheckOver());
    EXPECT_TRUE(ExitPrismo());
}

// While the check waits for the server nothing else runs, and the hooks in
// AOL give up on the program; once it is over they are back by the watcher's
// second tick.
TEST_F(UpdatesTest, SlowAndSilentServersAndTheHooksAfterThem)
{
    StartAsking();
    WebServer::Reply slow{WebServer::Page(VersionText()), true};
    server_.Answer(slow);
    Check();
    ASSERT_TRUE(Requested(1));
    sim_.Ctl("type slow");  // typed while the program cannot answer (the hooks give up after 2 s)
    server_.Release();
    const UpdateShown shown = Update();
    ASSERT_TRUE(shown.window) << "a slow server still answers";
    EXPECT_EQ(shown.message, UpgradeText::Latest);
    EXPECT_TRUE(Answer(shown, IDC_UP_OK));
    TwoTicks();
    EXPECT_EQ(Send(""), Faded("slow"));

    server_.Answer(WebServer::Reply{"", false, true});
    Check();
    ASSERT_TRUE(Requested(2));
    const DWORD asked = GetTickCount();
    sim_.Ctl("type silent");
    const std::string timedOut = Message(60000);
    std::printf("a silent server is given up after %lu ms\n", static_cast<unsigned long>(GetTickCount() - asked));
    // Windows calls it a time-out (12002); Wine's WinInet, the connection
    // ended (12030).
    EXPECT_TRUE(timedOut == UpgradeText::NetErrorPrefix + TranslateErrorCode(12002) ||
                timedOut == UpgradeText::NetErrorPrefix + TranslateErrorCode(12030))
        << timedOut;
    EXPECT_TRUE(CheckOver());
    TwoTicks();
    EXPECT_EQ(Send(""), Faded("silent"));
    EXPECT_TRUE(ExitPrismo());
}

}  // namespace
}  // namespace ChatLive
