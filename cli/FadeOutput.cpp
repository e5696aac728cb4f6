// prismo-fade's page and terminal forms of a faded line.
#include "FadeOutput.h"

#include "modFade.h"

namespace {

// Stands in for every visible character while the line is faded: the fade
// depends only on where the spaces are, and this byte never occurs in a tag,
// so the tags read back unmistakably whatever the user typed.
constexpr char kStandIn = '\x01';

void AppendNumber(std::string& out, int value) { out += std::to_string(value); }

void AppendHexColor(std::string& out, ColorValue color)
{
    static const char kDigits[] = "0123456789abcdef";
    const int parts[3] = {color & 255, (color >> 8) & 255, (color >> 16) & 255};
    out += '#';
    for (int v : parts) {
        out += kDigits[v >> 4];
        out += kDigits[v & 15];
    }
}

void AppendHtmlText(std::string& out, const std::string& text)
{
    for (char c : text) {
        switch (c) {
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '&': out += "&amp;"; break;
        case '"': out += "&quot;"; break;
        default: out += c;
        }
    }
}

}  // namespace

std::vector<AolRun> FadeLineRuns(const std::string& line)
{
    std::string shadow = line;
    for (char& c : shadow)
        if (c != ' ') c = kStandIn;
    FadeEngine(shadow);
    std::vector<AolRun> runs = ReadAolHtml(shadow);
    // Put the line's own characters back in order.
    std::size_t at = 0;
    for (AolRun& run : runs)
        for (char& c : run.text)
            if (at < line.size()) c = line[at++];
    return runs;
}

std::string HtmlPageStart()
{
    return "<!DOCTYPE html>\n"
           "<html>\n<head>\n<meta charset=\"windows-1252\">\n<title>Prismo fade</title>\n"
           "<style>\n"
           "body { background: #ffffff; font: 10pt Arial, sans-serif; }\n"
           "p { margin: 0.2em 0; white-space: pre-wrap; }\n"
           "</style>\n</head>\n<body>\n";
}

std::string HtmlLine(const std::vector<AolRun>& runs, bool colored)
{
    std::string out = "<p>";
    for (const AolRun& run : runs) {
        const char* shift = run.baseline > 0 ? "sup" : run.baseline < 0 ? "sub" : nullptr;
        if (shift) out += std::string("<") + shift + ">";
        out += "<span style=\"";
        if (colored) {
            out += "color:";
            AppendHexColor(out, run.color);
            out += ';';
        }
        if (run.bold) out += "font-weight:bold;";
        if (run.italic) out += "font-style:italic;";
        if (run.underline) out += "text-decoration:underline;";
        out += "\">";
        AppendHtmlText(out, run.text);
        out += "</span>";
        if (shift) out += std::string("</") + shift + ">";
    }
    out += "</p>\n";
    return out;
}

std::string HtmlPageEnd() { return "</body>\n</html>\n"; }

std::string AnsiLine(const std::vector<AolRun>& runs, bool colored)
{
    std::string out;
    for (const AolRun& run : runs) {
        out += "\x1b[0";
        if (colored) {
            out += ";38;2;";
            AppendNumber(out, run.color & 255);
            out += ';';
            AppendNumber(out, (run.color >> 8) & 255);
            out += ';';
            AppendNumber(out, (run.color >> 16) & 255);
        }
        if (run.bold) out += ";1";
        if (run.italic) out += ";3";
        if (run.underline) out += ";4";
        // Raised and lowered (superscript, subscript); terminals without
        // them show the character level.
        if (run.baseline > 0) out += ";73";
        if (run.baseline < 0) out += ";74";
        out += 'm';
        out += run.text;
    }
    out += "\x1b[0m\n";
    return out;
}
