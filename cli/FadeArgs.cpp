// prismo-fade's command line: options, colours and scheme files.
#include "FadeArgs.h"

#include "Convert.h"
#include "SchemeText.h"

const char* const kFadeUsage =
    "usage: prismo-fade [options] [text ...]\n"
    "Fades each line of the text (the arguments joined by spaces, else standard input)\n"
    "and writes one line for each, one colour to each character.\n"
    "\n"
    "Options:\n"
    "  --colors C1,C2,...   up to six colours, each #RRGGBB or a decimal colour value\n"
    "                       as Prismo stores it (0x00BBGGRR: 255 is red)\n"
    "                         prismo-fade --colors '#FF0000,16711680' \"Hi all\"\n"
    "  --fade-number N      colours in use (default: as many as given; colours not\n"
    "                       given are black; other than 1 to 6: no colour)\n"
    "                         prismo-fade --fade-number 3 --colors '#FF0000,#00FF00' abc\n"
    "  --solid              the colours take turns instead of fading\n"
    "                         prismo-fade --solid --colors '#FF0000,#0000FF' \"a b c\"\n"
    "  --bold               the whole line bold\n"
    "                         prismo-fade --bold --colors '#FF0000,#0000FF' Hi\n"
    "  --italic             the whole line italic\n"
    "                         prismo-fade --italic --colors '#FF0000,#0000FF' Hi\n"
    "  --underline          the whole line underlined\n"
    "                         prismo-fade --underline --colors '#FF0000,#0000FF' Hi\n"
    "  --wavy               characters go up and down (raised, level, lowered, level);\n"
    "                       bbcode and minecraft have no raised text and show it level\n"
    "                         prismo-fade --wavy --colors '#FF0000,#0000FF' wave\n"
    "  --wave-phase N       where the wave starts, 0 to 5 (default 0); the wave\n"
    "                       carries on from line to line\n"
    "                         prismo-fade --wavy --wave-phase 3 --colors '#FF0000' wave\n"
    "  --scheme FILE.fde    fade number, colours and styles from a Prismo scheme file\n"
    "                       (at most 64 KB); options on the command line win\n"
    "                         prismo-fade --scheme 'Cool Fade.fde' < chat.txt\n"
    "  --encoding utf-8|ansi  how characters are told apart: UTF-8 (a character may\n"
    "                       take several bytes; the default where the locale is UTF-8)\n"
    "                       or ANSI (a byte is a character; the default otherwise and\n"
    "                       on a Windows console); the output is in the same encoding\n"
    "                         prismo-fade --encoding utf-8 --colors '#FF0000,#0000FF' Ñandú\n"
    "  --format F           what to write (default aol):\n"
    "    aol                AOL HTML, as Prismo sends it into a chat room\n"
    "                         prismo-fade --format aol --colors '#FF0000,#0000FF' Hi\n"
    "    html               a standalone web page, a paragraph per line\n"
    "                         prismo-fade --format html --colors '#FF0000,#0000FF' < a.txt > a.html\n"
    "    html-fragment      <span style=\"color:#RRGGBB\"> runs, <br> after each line\n"
    "                         prismo-fade --format html-fragment --colors '#FF0000,#0000FF' Hi\n"
    "    ansi               24-bit colours for a terminal; control characters of the\n"
    "                       text shown as ^[ and so on\n"
    "                         prismo-fade --format ansi --colors '#FF0000,#0000FF' Hi\n"
    "    bbcode             forum [color=#RRGGBB] runs in [b], [i], [u]; a \"[\" of the\n"
    "                       text is followed by an invisible break so \"[b]\" shows as typed\n"
    "                         prismo-fade --format bbcode --colors '#FF0000,#0000FF' Hi\n"
    "    minecraft          §x§R§R§G§G§B§B colour codes with §l, §o, §n; Minecraft\n"
    "                       cannot show a \"§\" of the text, which is written as \"S\"\n"
    "                         prismo-fade --format minecraft --colors '#FF0000,#0000FF' Hi\n"
    "  --                   the words after it are text, even those starting with --\n"
    "                         prismo-fade --colors '#FF0000,#0000FF' -- --wavy--\n"
    "  --help               this text\n"
    "\n"
    "Exit status: 0 done; 1 the input could not be read or the output written;\n"
    "2 bad options, colours or scheme file (nothing written), or a line that is not\n"
    "valid in its encoding (the lines before it stand).\n";

namespace {

constexpr ColorValue kLargestColor = 0xFFFFFF;

int HexDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

std::optional<ColorValue> ParseHexColor(const std::string& text)
{
    if (text.size() != 7) return std::nullopt;
    int digits[6];
    for (int i = 0; i < 6; ++i)
        if ((digits[i] = HexDigit(text[i + 1])) < 0) return std::nullopt;
    const int red = digits[0] * 16 + digits[1];
    const int green = digits[2] * 16 + digits[3];
    const int blue = digits[4] * 16 + digits[5];
    return red + green * 256 + blue * 65536;
}

std::vector<std::string> SplitCommas(const std::string& text)
{
    std::vector<std::string> parts;
    std::size_t at = 0;
    for (;;) {
        const std::size_t comma = text.find(',', at);
        parts.push_back(text.substr(at, comma == std::string::npos ? std::string::npos : comma - at));
        if (comma == std::string::npos) return parts;
        at = comma + 1;
    }
}

// Sets the colours and returns how many were given.
std::int16_t SetColors(const std::string& list, FadeRequest& request)
{
    const std::vector<std::string> parts = SplitCommas(list);
    if (parts.size() > request.fade.Colors.size())
        throw FadeArgsError("--colors takes at most six colours, not " + std::to_string(parts.size()));
    request.fade.Colors.fill(0);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto color = ParseColor(parts[i]);
        if (!color)
            throw FadeArgsError("bad colour \"" + parts[i] +
                                "\": use #RRGGBB or a decimal colour value 0 to 16777215");
        request.fade.Colors[i] = *color;
    }
    return static_cast<std::int16_t>(parts.size());
}

std::int16_t WholeNumber(const std::string& text, const char* what)
{
    const auto value = ToInteger(text);
    if (!value) throw FadeArgsError(std::string(what) + " \"" + text + "\" is not a whole number");
    return *value;
}

// Splits "--name=value" and takes the value from the next argument otherwise.
struct Option {
    std::string name;
    std::optional<std::string> inlineValue;
};

Option SplitOption(const std::string& arg)
{
    const std::size_t equals = arg.find('=');
    if (equals == std::string::npos) return {arg, std::nullopt};
    return {arg.substr(0, equals), arg.substr(equals + 1)};
}

class ArgReader {
public:
    explicit ArgReader(const std::vector<std::string>& args) : args_(args) {}
    bool Done() const { return at_ >= args_.size(); }
    const std::string& Next() { return args_[at_++]; }
    std::string Value(const Option& option)
    {
        if (option.inlineValue) return *option.inlineValue;
        if (Done()) throw FadeArgsError(option.name + " needs a value");
        return Next();
    }

private:
    const std::vector<std::string>& args_;
    std::size_t at_ = 0;
};

FadeFormat ParseFormat(const std::string& text)
{
    if (text == "aol") return FadeFormat::Aol;
    if (text == "html") return FadeFormat::Html;
    if (text == "html-fragment") return FadeFormat::HtmlFragment;
    if (text == "ansi") return FadeFormat::Ansi;
    if (text == "bbcode") return FadeFormat::BBCode;
    if (text == "minecraft") return FadeFormat::Minecraft;
    throw FadeArgsError("unknown format \"" + text + "\": use aol, html, html-fragment, ansi, bbcode or minecraft");
}

TextEncoding ParseEncoding(const std::string& text)
{
    if (text == "utf-8" || text == "UTF-8" || text == "utf8") return TextEncoding::Utf8;
    if (text == "ansi" || text == "ANSI") return TextEncoding::Ansi;
    throw FadeArgsError("unknown encoding \"" + text + "\": use utf-8 or ansi");
}

bool SetSwitch(const std::string& name, OptionsRecord& fade)
{
    if (name == "--solid") fade.SolidFade = true;
    else if (name == "--bold") fade.Bold = true;
    else if (name == "--italic") fade.Italic = true;
    else if (name == "--underline") fade.ULine = true;
    else if (name == "--wavy") fade.Wavy = true;
    else return false;
    return true;
}

void AppendWord(FadeRequest& request, const std::string& word)
{
    if (request.text) *request.text += " " + word;
    else request.text = word;
}

// Reads one option that takes a value; false when the name is none of them.
bool SetValue(const Option& option, ArgReader& reader, FadeRequest& request, std::int16_t& colorCount)
{
    const std::string& name = option.name;
    if (name == "--colors") {
        colorCount = SetColors(reader.Value(option), request);
        request.colorsGiven = true;
    } else if (name == "--fade-number") {
        request.fade.FadeNumber = WholeNumber(reader.Value(option), "fade number");
        request.fadeNumberGiven = true;
    } else if (name == "--wave-phase") {
        const std::string text = reader.Value(option);
        const std::int16_t phase = WholeNumber(text, "wave phase");
        if (phase < 0 || phase > 5) throw FadeArgsError("wave phase " + text + " is not 0 to 5");
        request.wavePhase = phase;
    } else if (name == "--scheme") {
        request.schemePath = reader.Value(option);
        if (request.schemePath.empty()) throw FadeArgsError("--scheme needs a file name");
    } else if (name == "--format") {
        request.format = ParseFormat(reader.Value(option));
    } else if (name == "--encoding") {
        request.encoding = ParseEncoding(reader.Value(option));
    } else {
        return false;
    }
    return true;
}

}  // namespace

std::optional<ColorValue> ParseColor(const std::string& text)
{
    if (!text.empty() && text[0] == '#') return ParseHexColor(text);
    const auto value = ToLong(text);
    if (!value || *value < 0 || *value > kLargestColor) return std::nullopt;
    return *value;
}

FadeRequest ParseFadeArgs(const std::vector<std::string>& args)
{
    FadeRequest request;
    std::int16_t colorCount = 0;
    ArgReader reader(args);
    bool optionsEnded = false;
    while (!reader.Done()) {
        const std::string& arg = reader.Next();
        if (optionsEnded || arg.size() < 2 || arg.compare(0, 2, "--") != 0) {
            AppendWord(request, arg);
        } else if (arg == "--") {
            optionsEnded = true;
        } else if (arg == "--help") {
            request.help = true;
        } else if (!SetSwitch(arg, request.fade)) {
            const Option option = SplitOption(arg);
            if (SetValue(option, reader, request, colorCount)) continue;
            OptionsRecord scratch;
            if (SetSwitch(option.name, scratch)) throw FadeArgsError(option.name + " takes no value");
            throw FadeArgsError("unknown option " + option.name);
        }
    }
    if (!request.fadeNumberGiven) request.fade.FadeNumber = colorCount;
    return request;
}

namespace {

const char* const kColorNames[6] = {"One", "Two", "Three", "Four", "Five", "Six"};

std::int32_t SchemeColor(const std::string& text, int number, bool inUse)
{
    if (text.empty() && !inUse) return 0;  // a scheme may leave out unused colours
    const auto color = ToLong(text);
    if (!color || *color < 0 || *color > kLargestColor)
        throw FadeArgsError("scheme colour " + std::string(kColorNames[number]) + " \"" + text +
                            "\" is not a colour value 0 to 16777215");
    return *color;
}

bool SchemeStyle(const std::string& text, const char* name)
{
    if (text.empty()) return false;
    const auto value = ToBool(text);
    if (!value) throw FadeArgsError(std::string("scheme style ") + name + " \"" + text + "\" is not True or False");
    return *value;
}

}  // namespace

void ApplyScheme(const std::string& contents, FadeRequest& request)
{
    const SchemeTexts scheme = ParseSchemeFile(contents);
    const auto fadeNumber = ToInteger(scheme.fadeNumber);
    if (!fadeNumber || *fadeNumber < 1 || *fadeNumber > 6)
        throw FadeArgsError("scheme has no FadeNumber of 1 to 6 (\"" + scheme.fadeNumber + "\")");
    OptionsRecord& fade = request.fade;
    std::array<ColorValue, 6> colors{};
    for (int i = 0; i < 6; ++i) colors[i] = SchemeColor(scheme.colors[i], i, i < *fadeNumber);
    if (!request.colorsGiven) {
        fade.Colors = colors;
        if (!request.fadeNumberGiven) fade.FadeNumber = *fadeNumber;
    }
    // Styles add to the ones asked for on the command line.
    fade.Wavy = SchemeStyle(scheme.wavy, "Wavy") || fade.Wavy;
    fade.Bold = SchemeStyle(scheme.bold, "Bold") || fade.Bold;
    fade.Italic = SchemeStyle(scheme.italic, "Italic") || fade.Italic;
    fade.ULine = SchemeStyle(scheme.uline, "ULine") || fade.ULine;
}
