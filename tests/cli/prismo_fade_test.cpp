// prismo-fade as a user runs it: arguments and standard input in, standard
// output, standard error and the exit status out.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
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

Result RunFade(const std::vector<std::string>& args, const std::string& input = "")
{
    const std::string in = TempPath("in"), out = TempPath("out"), err = TempPath("err");
    WriteFile(in, input);
    std::string command = Quote(PRISMO_FADE);
    for (const std::string& a : args) command += " " + Quote(a);
    command += " <" + Quote(in) + " >" + Quote(out) + " 2>" + Quote(err);
    Result r;
    const int raw = std::system(command.c_str());
    r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    r.out = Slurp(out);
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
    EXPECT_EQ(page.rfind("<!DOCTYPE html>\n<html>\n", 0), 0u);
    EXPECT_NE(page.find("\n<p><span style=\"color:#aa0055;font-weight:bold;\">a</span>"
                        "<sub><span style=\"color:#5500aa;font-weight:bold;\">&lt;</span></sub>"
                        "<span style=\"color:#0000ff;font-weight:bold;\">b</span></p>\n"),
              std::string::npos)
        << page;
    EXPECT_EQ(page.substr(page.size() - 16), "</body>\n</html>\n");
    // Raised, italic and underlined, from a solid fade.
    const std::string raised = Out({"--format", "html", "--solid", "--colors", "255,255", "--italic",
                                    "--underline", "--wavy", "--wave-phase", "1", "&"});
    EXPECT_NE(raised.find("<p><sup><span style=\"color:#ff0000;font-style:italic;text-decoration:underline;\">"
                          "&amp;</span></sup></p>"),
              std::string::npos)
        << raised;
}

TEST(PrismoFade, AnsiTerminalText)
{
    EXPECT_EQ(Out({"--format", "ansi", "--colors", "255,16711680"}, "a<b\n"),
              "\x1b[0;38;2;170;0;85ma\x1b[0;38;2;85;0;170m<\x1b[0;38;2;0;0;255mb\x1b[0m\n");
    EXPECT_EQ(Out({"--format", "ansi", "--bold", "a b"}), "\x1b[0;1ma b\x1b[0m\n");  // no colours given
    EXPECT_EQ(Out({"--format", "ansi", "--colors", "255", "--wavy", "--wave-phase", "1", "xy"}),
              "\x1b[0;38;2;255;0;0;73mx\x1b[0;38;2;255;0;0my\x1b[0m\n");
}

TEST(PrismoFade, BadInputIsOneLineOnStandardErrorAndStatusTwo)
{
    const std::string broken = TempPath("broken.fde");
    WriteFile(broken, "[Options]\r\nFadeNumber=many\r\n");
    const std::string badColor = TempPath("badcolor.fde");
    WriteFile(badColor, "[Options]\r\nFadeNumber=2\r\n[Colors]\r\nOne=255\r\nTwo=blue\r\n");
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
        {{"--wave-phase", "9", "x"}, "wave phase"},
        {{"--format", "pdf", "x"}, "pdf"},
        {{"--scheme", TempPath("missing.fde"), "x"}, "missing.fde"},
        {{"--scheme", broken, "x"}, "FadeNumber"},
        {{"--scheme", badColor, "x"}, "blue"},
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
