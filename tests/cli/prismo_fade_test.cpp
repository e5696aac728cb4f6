// prismo-fade as a user runs it: arguments and standard input in, standard
// output, standard error and the exit status out.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace {

struct Result {
    int status = -1;
    std::string out, err;
};

std::string Quote(const std::string& arg)
{
    std::string quoted = "'";
    for (char c : arg) {
        if (c == '\'') quoted += "'\\''";
        else quoted += c;
    }
    return quoted + "'";
}

std::string Slurp(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string TempPath(const std::string& name) { return ::testing::TempDir() + "prismo_fade_" + name; }

void WriteFile(const std::string& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

// Runs prismo-fade in a UTF-8 locale unless `locale` sets the locale's
// variables otherwise ("LC_ALL=C", "LC_ALL= LANG=de_DE.utf8").
Result RunFade(const std::vector<std::string>& args, const std::string& input = "",
               const std::string& locale = "LC_ALL=C.UTF-8", const std::string& output = "")
{
    const std::string in = TempPath("in"), out = output.empty() ? TempPath("out") : output,
                      err = TempPath("err");
    WriteFile(in, input);
    std::string command = "env " + locale + " " + Quote(PRISMO_FADE);
    for (const std::string& a : args) command += " " + Quote(a);
    command += " <" + Quote(in) + " >" + Quote(out) + " 2>" + Quote(err);
    Result r;
    const int raw = std::system(command.c_str());
    r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    r.out = output.empty() ? Slurp(out) : "";
    r.err = Slurp(err);
    return r;
}

std::string Out(const std::vector<std::string>& args, const std::string& input = "")
{
    const Result r = RunFade(args, input);
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "");
    return r.out;
}

const std::string kHiAll =
    "<FONT COLOR=#D4002A>H<FONT COLOR=#AA0055>i <FONT COLOR=#5500AA>a<FONT COLOR=#2A00D4>l<FONT COLOR=#0000FF>l\n";

TEST(PrismoFade, ColourFormsAndTextFromArgumentsOrInput)
{
    EXPECT_EQ(Out({"--colors", "255,16711680", "Hi all"}), kHiAll);
    EXPECT_EQ(Out({"--colors", "#FF0000,#0000ff", "Hi", "all"}), kHiAll);  // words joined by a space
    EXPECT_EQ(Out({"--colors=#ff0000,16711680"}, "Hi all\n"), kHiAll);
    // A last line without its line end still counts; CR LF lines read as lines.
    EXPECT_EQ(Out({"--colors", "255,16711680"}, "Hi all\r\nHi all"), kHiAll + kHiAll);
    EXPECT_EQ(Out({"--colors", "255"}, ""), "");
}

TEST(PrismoFade, FadeNumbers)
{
    // 0 and 7 leave the text alone apart from the style tags; "<" is just a character.
    EXPECT_EQ(Out({"--fade-number", "0", "--colors", "255", "--bold", "a<b"}), "<B>a<b</B>\n");
    EXPECT_EQ(Out({"--fade-number", "7", "--colors", "255", "--italic", "a<b"}), "<I>a<b</I>\n");
    EXPECT_EQ(Out({"a<b"}), "a<b\n");  // no colours: fade number 0
    // 1 is one font tag in front, whatever else is given.
    EXPECT_EQ(Out({"--fade-number", "1", "--colors", "255,16711680", "Hi all"}), "<FONT COLOR=#FF0000>Hi all\n");
    EXPECT_EQ(Out({"--colors", "16777215", "--underline", ""}), "<U><FONT COLOR=#FBFBFB></U>\n");
    // Colours not given are black.
    EXPECT_EQ(Out({"--fade-number", "2", "--colors", "255", "ab"}),
              "<FONT COLOR=#800000>a<FONT COLOR=#000000>b\n");
    EXPECT_EQ(Out({"--solid", "--colors", "255,65280,16711680", "a b cd"}),
              "<FONT COLOR=#FF0000>a <FONT COLOR=#00FF00>b <FONT COLOR=#0000FF>c<FONT COLOR=#FF0000>d\n");
}

TEST(PrismoFade, WavePhaseCarriesFromLineToLine)
{
    // A one-colour fade continues the wave; it starts at 0 (no tag) or where asked.
    EXPECT_EQ(Out({"--colors", "255", "--wavy"}, "ab\ncd\n"),
              "<FONT COLOR=#FF0000>a<sup>b\n<FONT COLOR=#FF0000></sup>c<sub>d\n");
    EXPECT_EQ(Out({"--colors", "255", "--wavy", "--wave-phase", "4"}, "ab\ncd\n"),
              "<FONT COLOR=#FF0000></sub>a<sup>b\n<FONT COLOR=#FF0000></sup>c<sub>d\n");
    // A gradient starts every line at the same place.
    EXPECT_EQ(Out({"--colors", "255,255", "--wavy", "--wave-phase", "1"}, "ab\nc\n"),
              "<FONT COLOR=#FF0000></sup>a<FONT COLOR=#FF0000><sub>b\n<FONT COLOR=#FF0000></sup>c\n");
}

TEST(PrismoFade, SchemeFiles)
{
    // Five colours over four characters: each shows the end of its segment.
    const std::string cool = std::string(PRISMO_SOURCE_DIR) + "/data/schemes/Cool Fade.fde";
    EXPECT_EQ(Out({"--scheme", cool, "abcd"}),
              "<FONT COLOR=#00CED1>a<FONT COLOR=#7B68EE>b<FONT COLOR=#BA55D3>c<FONT COLOR=#FF69B4>d\n");

    const std::string path = TempPath("styled.fde");
    WriteFile(path, "[Options]\r\nfadenumber=2\r\n[Colors]\r\nOne=255\r\nTwo=16711680\r\n"
                    "[Style]\r\nBold=True\r\nWavy=False\r\n");
    EXPECT_EQ(Out({"--scheme", path, "Hi all"}), "<B>" + kHiAll.substr(0, kHiAll.size() - 1) + "</B>\n");
    // The command line's colours win over the scheme's; its styles stay.
    EXPECT_EQ(Out({"--colors", "65280", "--scheme", path, "ab"}), "<B><FONT COLOR=#00FF00>ab</B>\n");
}

TEST(PrismoFade, HtmlPageShowsEveryCharacterAsTyped)
{
    const std::string page = Out({"--format", "html", "--colors", "255,16711680", "--bold", "--wavy"}, "a<b\n");
    EXPECT_EQ(page.rfind("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n", 0), 0u) << page;
    EXPECT_NE(page.find("\n<p><b><span style=\"color:#AA0055\">a</span>"
                        "<sub><span style=\"color:#5500AA\">&lt;</span></sub>"
                        "<span style=\"color:#0000FF\">b</span></b></p>\n"),
              std::string::npos)
        << page;
    EXPECT_EQ(page.substr(page.size() - 16), "</body>\n</html>\n");
    // Raised, italic and underlined, from a solid fade; a page in ANSI says so.
    const Result raised = RunFade({"--format", "html", "--solid", "--colors", "255,255", "--italic",
                                   "--underline", "--wavy", "--wave-phase", "1", "&"},
                                  "", "LC_ALL=C");
    EXPECT_NE(raised.out.find("<meta charset=\"windows-1252\">"), std::string::npos) << raised.out;
    EXPECT_NE(raised.out.find("<p><i><u><sup><span style=\"color:#FF0000\">&amp;</span></sup></u></i></p>"),
              std::string::npos)
        << raised.out;
}

TEST(PrismoFade, FormatsForTodaysChatsShowMarkupLikeTextAsTyped)
{
    // Four characters from red to blue: BF0040, 800080, 4000BF, 0000FF.
    EXPECT_EQ(Out({"--format", "bbcode", "--colors", "#FF0000,#0000FF", "--bold", "--underline", "[b]x"}),
              "[b][u][color=#BF0040][\u200B[/color][color=#800080]b[/color][color=#4000BF]][/color]"
              "[color=#0000FF]x[/color][/u][/b]\n");
    // One colour is one run; no colour at all is the text alone.
    EXPECT_EQ(Out({"--format", "bbcode", "--colors", "#00FF00", "--italic", "a [i]"}),
              "[i][color=#00FF00]a [\u200Bi][/color][/i]\n");
    EXPECT_EQ(Out({"--format", "bbcode", "[url]"}), "[\u200Burl]\n");
    // In ANSI the break is a soft hyphen.
    EXPECT_EQ(RunFade({"--format", "bbcode", "[b]"}, "", "LC_ALL=C").out, "[\xAD" "b]\n");

    // Three characters: AA0055, 5500AA, 0000FF; the styles come again after
    // each colour code, which ends them; "§" cannot be shown and is an S.
    EXPECT_EQ(Out({"--format", "minecraft", "--colors", "#FF0000,#0000FF", "--bold", "--italic", "a§b"}),
              "§x§a§a§0§0§5§5§l§oa§x§5§5§0§0§a§a§l§oS§x§0§0§0§0§f§f§l§ob\n");
    EXPECT_EQ(Out({"--format", "minecraft", "--underline", "--wavy", "§c"}), "§nSc\n");
    EXPECT_EQ(Out({"--format", "minecraft", "--solid", "--colors", "255,255", "x y"}),
              "§x§f§f§0§0§0§0x y\n");

    // A gradient's wave: level, lowered, level.
    EXPECT_EQ(Out({"--format", "html-fragment", "--colors", "#FF0000,#0000FF", "--wavy"}, "a<&\n\"b>\n"),
              "<span style=\"color:#AA0055\">a</span><sub><span style=\"color:#5500AA\">&lt;</span></sub>"
              "<span style=\"color:#0000FF\">&amp;</span><br>\n"
              "<span style=\"color:#AA0055\">&quot;</span><sub><span style=\"color:#5500AA\">b</span></sub>"
              "<span style=\"color:#0000FF\">&gt;</span><br>\n");
    // Spaces that HTML would fold away stay.
    EXPECT_EQ(Out({"--format", "html-fragment", "--bold", "  a  b"}), "<b>&nbsp;&nbsp;a &nbsp;b</b><br>\n");
    EXPECT_EQ(Out({"--format", "html-fragment", "--bold", ""}), "<br>\n");
}

// The whole text is well-formed UTF-8 (checked by the C library, not by the
// fader's own reading).
bool ValidUtf8(const std::string& text)
{
    std::setlocale(LC_CTYPE, "C.UTF-8");
    std::mbstate_t state{};
    const char* p = text.data();
    const char* const end = p + text.size();
    while (p < end) {
        wchar_t c;
        const std::size_t used = std::mbrtowc(&c, p, static_cast<std::size_t>(end - p), &state);
        if (used == static_cast<std::size_t>(-1) || used == static_cast<std::size_t>(-2)) return false;
        p += used == 0 ? 1 : used;
    }
    return true;
}

TEST(PrismoFade, CharactersNotBytes)
{
    // Five characters, whatever their length: the fade of "Nandu".
    const std::string nandu = Out({"--colors", "#FF0000,#0000FF", "Nandu"});
    EXPECT_EQ(nandu, "<FONT COLOR=#CC0033>N<FONT COLOR=#990066>a<FONT COLOR=#660099>n"
                     "<FONT COLOR=#3300CC>d<FONT COLOR=#0000FF>u\n");
    EXPECT_EQ(Out({"--colors", "#FF0000,#0000FF", "Ñandú"}),
              "<FONT COLOR=#CC0033>Ñ<FONT COLOR=#990066>a<FONT COLOR=#660099>n"
              "<FONT COLOR=#3300CC>d<FONT COLOR=#0000FF>ú\n");
    // Four-byte characters and a wave: the wave steps of "abc d".
    EXPECT_EQ(Out({"--colors", "255", "--wavy", "--wave-phase", "1", "😀é€ 𝄞"}),
              "<FONT COLOR=#FF0000><sup>😀</sup>é<sub>€ </sub>𝄞\n");
    for (const char* format : {"aol", "html", "html-fragment", "ansi", "bbcode", "minecraft"}) {
        const std::string out = Out({"--format", format, "--colors", "#FF0000,#00FF00,#0000FF", "--wavy",
                                     "--bold", "Ñandú [§] ü€😀"});
        EXPECT_TRUE(ValidUtf8(out)) << format << ": " << out;
        EXPECT_NE(out.find("ú"), std::string::npos) << format;
    }
    // The locale decides unless --encoding does: in "C" a byte is a character.
    EXPECT_EQ(RunFade({"--colors", "#FF0000,#0000FF", "Ñ"}, "", "LC_ALL=C").out,
              "<FONT COLOR=#800080>\xC3<FONT COLOR=#0000FF>\x91\n");
    EXPECT_EQ(RunFade({"--colors", "#FF0000,#0000FF", "Ñ"}, "", "LC_ALL= LC_CTYPE= LANG=de_DE.utf8").out,
              "<FONT COLOR=#0000FF>Ñ\n");
    EXPECT_EQ(RunFade({"--colors", "#FF0000,#0000FF", "Ñ"}, "", "LC_ALL= LC_CTYPE=POSIX LANG=C.UTF-8").out,
              "<FONT COLOR=#800080>\xC3<FONT COLOR=#0000FF>\x91\n");
    EXPECT_EQ(RunFade({"--encoding", "utf-8", "--colors", "#FF0000,#0000FF", "Ñ"}, "", "LC_ALL=C").out,
              "<FONT COLOR=#0000FF>Ñ\n");
    EXPECT_EQ(Out({"--encoding", "ansi", "--colors", "#FF0000,#0000FF", "Ñ"}),
              "<FONT COLOR=#800080>\xC3<FONT COLOR=#0000FF>\x91\n");
}

TEST(PrismoFade, InvalidTextStopsAtItsLineAndTheLinesBeforeItStand)
{
    const struct {
        const char* bytes;
        const char* what;
    } broken[] = {
        {"\xFF", "never in UTF-8"},        {"\x80", "stray continuation"},
        {"\xC3", "cut short at the end"},  {"\xC3(", "cut short"},
        {"\xC0\xAF", "overlong /"},        {"\xE0\x80\xAF", "overlong /, three bytes"},
        {"\xED\xA0\x80", "surrogate"},     {"\xF4\x90\x80\x80", "past U+10FFFF"},
        {"\xF0\x9F\x98", "four bytes cut short"},
    };
    for (const auto& b : broken) {
        const Result r = RunFade({"--colors", "255,16711680", "--format", "ansi"},
                                 "Hi all\nab" + std::string(b.bytes) + "cd\nnever\n");
        EXPECT_EQ(r.status, 2) << b.what;
        EXPECT_EQ(r.out, "\x1b[0;38;2;212;0;42mH\x1b[0;38;2;170;0;85mi \x1b[0;38;2;85;0;170ma"
                         "\x1b[0;38;2;42;0;212ml\x1b[0;38;2;0;0;255ml\x1b[0m\n")
            << b.what;
        EXPECT_EQ(r.err, "prismo-fade: line 2 is not valid UTF-8\n") << b.what;
    }
    // The same bytes are characters in ANSI.
    EXPECT_EQ(RunFade({"--encoding", "ansi"}, "\xFF\xC0\xAF\n").out, "\xFF\xC0\xAF\n");
    // A page stays a whole page.
    const Result page = RunFade({"--format", "html"}, "a\n\xFF\n");
    EXPECT_EQ(page.status, 2);
    EXPECT_NE(page.out.find("<p>a</p>\n</body>\n</html>\n"), std::string::npos) << page.out;
}

TEST(PrismoFade, ReadAndWriteErrorsGiveStatusOne)
{
    for (const char* format : {"aol", "ansi", "bbcode"}) {
        const Result full = RunFade({"--format", format, "--colors", "255"}, "Hi all\n", "LC_ALL=C.UTF-8",
                                    "/dev/full");
        EXPECT_EQ(full.status, 1) << format;
        EXPECT_EQ(full.err, "prismo-fade: cannot write the output: No space left on device\n") << format;
    }
    EXPECT_EQ(RunFade({"--help"}, "", "LC_ALL=C.UTF-8", "/dev/full").status, 1);
    // A folder cannot be read as text.
    const std::string command = "env " + Quote(PRISMO_FADE) + " < /tmp > /dev/null 2>" + Quote(TempPath("err"));
    const int raw = std::system(command.c_str());
    EXPECT_EQ(WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, 1);
    EXPECT_EQ(Slurp(TempPath("err")), "prismo-fade: cannot read the input: Is a directory\n");
}

TEST(PrismoFade, LinesLongerThanOneReadAreWholeLines)
{
    // 100,000 characters: a solid fade alternates red and blue for each.
    std::string line, faded;
    for (int i = 0; i < 50000; ++i) {
        line += "ab";
        faded += "<FONT COLOR=#FF0000>a<FONT COLOR=#0000FF>b";
    }
    const std::vector<std::string> solid = {"--solid", "--colors", "255,16711680"};
    EXPECT_EQ(Out(solid, line + "\n" + line + "\r\nab"), faded + "\n" + faded + "\n" +
                                                                "<FONT COLOR=#FF0000>a<FONT COLOR=#0000FF>b\n");
    // Every format writes it in pieces and still as one line.
    std::vector<std::string> fragment = solid;
    fragment.insert(fragment.end(), {"--format", "html-fragment"});
    const std::string html = Out(fragment, line + "é\n");
    EXPECT_EQ(html.size(), 50000 * (2 * sizeof "<span style=\"color:#FF0000\">a</span>" - 2) +
                               sizeof "<span style=\"color:#FF0000\">é</span><br>\n" - 1);
    EXPECT_EQ(html.find('\n'), html.size() - 1);
}

TEST(PrismoFade, AnsiTerminalText)
{
    EXPECT_EQ(Out({"--format", "ansi", "--colors", "255,16711680"}, "a<b\n"),
              "\x1b[0;38;2;170;0;85ma\x1b[0;38;2;85;0;170m<\x1b[0;38;2;0;0;255mb\x1b[0m\n");
    EXPECT_EQ(Out({"--format", "ansi", "--bold", "a b"}), "\x1b[0;1ma b\x1b[0m\n");  // no colours given
    EXPECT_EQ(Out({"--format", "ansi", "--colors", "255", "--wavy", "--wave-phase", "1", "xy"}),
              "\x1b[0;38;2;255;0;0;73mx\x1b[0;38;2;255;0;0my\x1b[0m\n");
}

TEST(PrismoFade, AnsiNeverPassesTheTextsControlCharactersToTheTerminal)
{
    // ESC, DEL, a tab, a bell and UTF-8's CSI (U+009B) in caret notation,
    // each character still one step of the fade.
    EXPECT_EQ(Out({"--format", "ansi"}, "a\x1b[31mb\x7f\t\a\xC2\x9B" "2J\n"),
              "\x1b[0ma^[[31mb^?^I^GM-^[2J\x1b[0m\n");
    EXPECT_EQ(Out({"--format", "ansi", "--solid", "--colors", "255,16711680"}, "\x1b[2J\n"),
              "\x1b[0;38;2;255;0;0m^[\x1b[0;38;2;0;0;255m[\x1b[0;38;2;255;0;0m2\x1b[0;38;2;0;0;255mJ\x1b[0m\n");
    // In ANSI the bytes from 0x80 up are the code page's letters.
    EXPECT_EQ(RunFade({"--format", "ansi"}, "\x1b\xC2\x9B\n", "LC_ALL=C").out, "\x1b[0m^[\xC2\x9B\x1b[0m\n");
}

TEST(PrismoFade, HelpShowsEveryOptionAndFormatInAnExample)
{
    const std::string help = Out({"--help"});
    std::vector<std::string> examples;
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);)
        if (line.find("  prismo-fade ") != std::string::npos) examples.push_back(line + " ");
    for (const char* shown : {"--colors ", "--fade-number ", "--solid ", "--bold ", "--italic ", "--underline ",
                              "--wavy ", "--wave-phase ", "--scheme ", "--encoding utf-8 ", "-- ",
                              "--format aol ", "--format html ", "--format html-fragment ", "--format ansi ",
                              "--format bbcode ", "--format minecraft "}) {
        bool found = false;
        for (const std::string& example : examples) found = found || example.find(shown) != std::string::npos;
        EXPECT_TRUE(found) << shown << "has no example in\n" << help;
    }
}

TEST(PrismoFade, BadInputIsOneLineOnStandardErrorAndStatusTwo)
{
    const std::string broken = TempPath("broken.fde");
    WriteFile(broken, "[Options]\r\nFadeNumber=many\r\n");
    const std::string badColor = TempPath("badcolor.fde");
    WriteFile(badColor, "[Options]\r\nFadeNumber=2\r\n[Colors]\r\nOne=255\r\nTwo=blue\r\n");
    // A scheme file that is right but for its size: blank lines after it.
    const std::string huge = TempPath("huge.fde");
    WriteFile(huge, "[Options]\r\nFadeNumber=1\r\n[Colors]\r\nOne=255\r\n" + std::string(65536, '\n'));
    const struct {
        std::vector<std::string> args;
        const char* named;  // what the message must name
    } cases[] = {
        {{"--shiny", "x"}, "--shiny"},
        {{"--bold=yes", "x"}, "--bold"},
        {{"--colors", "#12345", "x"}, "#12345"},
        {{"--colors", "#GG0000", "x"}, "#GG0000"},
        {{"--colors", "16777216", "x"}, "16777216"},
        {{"--colors", "-1", "x"}, "-1"},
        {{"--colors", "red", "x"}, "red"},
        {{"--colors", "#FF0000,li\nne", "x"}, "li ne"},
        {{"--colors", "1,2,3,4,5,6,7", "x"}, "six"},
        {{"--colors"}, "--colors"},
        {{"--fade-number", "2.5", "x"}, "2.5"},
        {{"--fade-number", "two", "x"}, "two"},
        {{"--wave-phase", "6", "x"}, "wave phase 6"},
        {{"--wave-phase=-1", "x"}, "wave phase -1"},
        {{"--encoding", "latin1", "x"}, "latin1"},
        {{"--format", "pdf", "x"}, "pdf"},
        {{"--scheme", TempPath("missing.fde"), "x"}, "missing.fde"},
        {{"--scheme", broken, "x"}, "FadeNumber"},
        {{"--scheme", badColor, "x"}, "blue"},
        {{"--scheme", huge, "x"}, "64 KB"},
    };
    for (const auto& c : cases) {
        const Result r = RunFade(c.args, "text\n");
        EXPECT_EQ(r.status, 2) << c.named;
        EXPECT_EQ(r.out, "") << c.named;
        EXPECT_NE(r.err.find(c.named), std::string::npos) << r.err;
        EXPECT_EQ(r.err.find('\n'), r.err.size() - 1) << r.err;  // exactly one line
    }
}

}  // namespace
