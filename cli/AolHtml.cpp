// The AOL HTML reader: a received line's tags to styled runs of text.
#include "AolHtml.h"

#include <cctype>
#include <cstddef>

namespace {

bool IsLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

char Upper(char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); }

std::string UpperText(std::string text)
{
    for (char& c : text) c = Upper(c);
    return text;
}

int HexDigit(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    c = Upper(c);
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// "#RRGGBB" (the "#" may be left out, as senders sometimes do) to 0x00BBGGRR.
bool ReadColor(const std::string& value, ColorValue& color)
{
    std::size_t at = (!value.empty() && value[0] == '#') ? 1 : 0;
    if (value.size() - at != 6) return false;
    int digits[6];
    for (int i = 0; i < 6; ++i)
        if ((digits[i] = HexDigit(value[at + i])) < 0) return false;
    const int red = digits[0] * 16 + digits[1];
    const int green = digits[2] * 16 + digits[3];
    const int blue = digits[4] * 16 + digits[5];
    color = red + green * 256 + blue * 65536;
    return true;
}

// The style that text takes at a point of the line.
struct Style {
    std::vector<ColorValue> fonts;  // colours of the FONT tags still open
    bool bold = false, italic = false, underline = false;
    int baseline = 0;

    ColorValue Color() const { return fonts.empty() ? 0 : fonts.back(); }
};

// A tag split into its upper-case name (with "/" for a closing tag) and its
// attributes' text.
struct Tag {
    std::string name;
    std::string attributes;
};

Tag SplitTag(const std::string& inside)
{
    std::size_t at = 0;
    if (at < inside.size() && inside[at] == '/') ++at;
    while (at < inside.size() && !IsBlank(inside[at]) && inside[at] != '/') ++at;
    return Tag{UpperText(inside.substr(0, at)), inside.substr(at)};
}

// The COLOR attribute of a FONT tag, if it has one that reads as a colour.
// Attributes are name, name=value, name="value" or name='value'.
bool FontColor(const std::string& attributes, ColorValue& color)
{
    std::size_t at = 0;
    const std::size_t size = attributes.size();
    while (at < size) {
        while (at < size && (IsBlank(attributes[at]) || attributes[at] == '/')) ++at;
        const std::size_t nameStart = at;
        while (at < size && !IsBlank(attributes[at]) && attributes[at] != '=') ++at;
        const std::string name = UpperText(attributes.substr(nameStart, at - nameStart));
        while (at < size && IsBlank(attributes[at])) ++at;
        if (at >= size || attributes[at] != '=') continue;
        ++at;
        while (at < size && IsBlank(attributes[at])) ++at;
        std::string value;
        if (at < size && (attributes[at] == '"' || attributes[at] == '\'')) {
            const char quote = attributes[at++];
            const std::size_t end = attributes.find(quote, at);
            const std::size_t stop = end == std::string::npos ? size : end;
            value = attributes.substr(at, stop - at);
            at = stop == size ? size : stop + 1;
        } else {
            const std::size_t valueStart = at;
            while (at < size && !IsBlank(attributes[at])) ++at;
            value = attributes.substr(valueStart, at - valueStart);
        }
        if (name == "COLOR") return ReadColor(value, color);
    }
    return false;
}

void ApplyTag(const Tag& tag, Style& style)
{
    const std::string& n = tag.name;
    if (n == "FONT") {
        ColorValue color = style.Color();
        FontColor(tag.attributes, color);
        style.fonts.push_back(color);
    } else if (n == "/FONT") {
        if (!style.fonts.empty()) style.fonts.pop_back();
    } else if (n == "B" || n == "/B") {
        style.bold = n[0] != '/';
    } else if (n == "I" || n == "/I") {
        style.italic = n[0] != '/';
    } else if (n == "U" || n == "/U") {
        style.underline = n[0] != '/';
    } else if (n == "SUP") {
        style.baseline = 1;
    } else if (n == "SUB") {
        style.baseline = -1;
    } else if (n == "/SUP" || n == "/SUB") {
        style.baseline = 0;
    }
}

bool StartsTag(const std::string& line, std::size_t at)
{
    if (at + 1 >= line.size()) return false;
    const char next = line[at + 1];
    if (IsLetter(next) || next == '!') return true;
    return next == '/' && at + 2 < line.size() && IsLetter(line[at + 2]);
}

void AppendText(std::vector<AolRun>& runs, const Style& style, const char* text, std::size_t length)
{
    if (length == 0) return;
    const ColorValue color = style.Color();
    if (!runs.empty()) {
        AolRun& last = runs.back();
        if (last.color == color && last.bold == style.bold && last.italic == style.italic &&
            last.underline == style.underline && last.baseline == style.baseline) {
            last.text.append(text, length);
            return;
        }
    }
    AolRun run;
    run.text.assign(text, length);
    run.color = color;
    run.bold = style.bold;
    run.italic = style.italic;
    run.underline = style.underline;
    run.baseline = style.baseline;
    runs.push_back(std::move(run));
}

}  // namespace

std::vector<AolRun> ReadAolHtml(const std::string& line)
{
    std::vector<AolRun> runs;
    Style style;
    std::size_t at = 0;
    while (at < line.size()) {
        std::size_t lt = line.find('<', at);
        while (lt != std::string::npos && !StartsTag(line, lt)) lt = line.find('<', lt + 1);
        const std::size_t gt = lt == std::string::npos ? std::string::npos : line.find('>', lt);
        if (gt == std::string::npos) {
            AppendText(runs, style, line.data() + at, line.size() - at);
            break;
        }
        AppendText(runs, style, line.data() + at, lt - at);
        ApplyTag(SplitTag(line.substr(lt + 1, gt - lt - 1)), style);
        at = gt + 1;
    }
    return runs;
}
