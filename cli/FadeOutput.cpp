// prismo-fade's output formats. The line is faded as a shadow of one byte per
// character (a stand-in for each, spaces kept), so that the fade is exactly
// the engine's whatever the characters' lengths; the engine's tags are then
// read back and each stand-in gives way to the character it stands for.
#include "FadeOutput.h"

#include "modFade.h"

#include <cstdint>
#include <cstring>

namespace {

// Never in a tag the engine writes, so the tags read back unmistakably.
constexpr char kStandIn = '\x01';
constexpr std::size_t kHandOnAt = 1 << 16;
constexpr std::size_t kFontTagLength = sizeof "<FONT COLOR=#RRGGBB>" - 1;
constexpr std::size_t kColorAt = sizeof "<FONT COLOR=#" - 1;

// What the engine gave one character: its colour (none before the first
// font tag, or when no fade is in use) and its place on the wave.
struct Look {
    bool colored = false;
    std::uint32_t rgb = 0;  // 0xRRGGBB, as the font tag reads
    int baseline = 0;       // +1 raised, -1 lowered

    bool SameColor(const Look& o) const { return colored == o.colored && rgb == o.rgb; }
    bool operator==(const Look& o) const { return SameColor(o) && baseline == o.baseline; }
};

int HexValue(char c) { return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10; }

std::uint32_t TagColor(const char* digits)
{
    std::uint32_t rgb = 0;
    for (int k = 0; k < 6; ++k) rgb = rgb * 16 + static_cast<std::uint32_t>(HexValue(digits[k]));
    return rgb;
}

void AppendHex(std::string& out, std::uint32_t rgb, const char* digits)
{
    for (int shift = 20; shift >= 0; shift -= 4) out += digits[(rgb >> shift) & 15];
}

// The line-wide styles, which the engine wraps around the whole text.
struct Styles {
    bool bold, italic, underline;
};

// Calls emit(look, bytes, length) for each character of the text, in order,
// from the engine's fade of its shadow.
template <class Emit>
void EachCharacter(const std::string& faded, const std::string& text, TextEncoding encoding, Emit&& emit)
{
    Look look;
    const char* t = text.data();
    const char* p = faded.data();
    const char* const end = p + faded.size();
    const bool utf8 = encoding == TextEncoding::Utf8;
    while (p < end) {
        if (*p == '<') {
            if (p[1] == 'F') {
                look.colored = true;
                look.rgb = TagColor(p + kColorAt);
                p += kFontTagLength;
                continue;
            }
            // <sup> and <sub> raise and lower; their closing tags level the
            // text again; <B>, <I>, <U> wrap the whole and change nothing here.
            if (p[1] == 's') look.baseline = p[3] == 'p' ? 1 : -1;
            else if (p[1] == '/' && p[2] == 's') look.baseline = 0;
            p = static_cast<const char*>(std::memchr(p, '>', static_cast<std::size_t>(end - p))) + 1;
            continue;
        }
        const std::size_t length = (*p == ' ' || !utf8) ? 1 : Utf8Length(static_cast<unsigned char>(*t));
        emit(look, t, length);
        t += length;
        ++p;
    }
}

// Hands the output on once it is large, so that a long line is never held
// twice over.
void HandOnWhenLarge(std::string& out, OutputSink& sink)
{
    if (out.size() < kHandOnAt) return;
    sink.Write(out.data(), out.size());
    out.clear();
}

// AOL HTML as the engine writes it, the line's own characters in it. What
// lies between two stand-ins (tags and spaces) is copied as it is; the
// text's spaces are the same spaces.
void AolLine(const std::string& faded, const std::string& text, std::string& out, OutputSink& sink)
{
    const char* t = text.data();
    const char* p = faded.data();
    const char* const end = p + faded.size();
    while (const void* found = std::memchr(p, kStandIn, static_cast<std::size_t>(end - p))) {
        const char* standIn = static_cast<const char*>(found);
        out.append(p, standIn);
        while (*t == ' ') ++t;
        const std::size_t length = Utf8Length(static_cast<unsigned char>(*t));
        out.append(t, length);
        t += length;
        p = standIn + 1;
        HandOnWhenLarge(out, sink);
    }
    out.append(p, end);
}

// Terminal colours: 24-bit foreground, bold 1, italic 3, underline 4,
// raised 73 and lowered 74 (terminals without them keep the text level).
class AnsiLine {
public:
    AnsiLine(Styles styles, TextEncoding encoding) : styles_(styles), utf8_(encoding == TextEncoding::Utf8) {}

    void Begin(std::string&) {}

    void Character(std::string& out, const Look& look, const char* c, std::size_t length)
    {
        if (first_ || !(look == current_)) Escape(out, look);
        Visible(out, c, length);
    }
    void End(std::string& out) { out += "\x1b[0m\n"; }

private:
    // The escape is put together on the stack and appended at once: it is
    // written for nearly every character of a fade.
    void Escape(std::string& out, const Look& look)
    {
        first_ = false;
        current_ = look;
        char escape[48];
        char* p = Put(escape, "\x1b[0");
        if (look.colored) {
            p = Put(p, ";38;2;");
            p = Decimal(p, look.rgb >> 16);
            *p++ = ';';
            p = Decimal(p, (look.rgb >> 8) & 255);
            *p++ = ';';
            p = Decimal(p, look.rgb & 255);
        }
        if (styles_.bold) p = Put(p, ";1");
        if (styles_.italic) p = Put(p, ";3");
        if (styles_.underline) p = Put(p, ";4");
        if (look.baseline > 0) p = Put(p, ";73");
        if (look.baseline < 0) p = Put(p, ";74");
        *p++ = 'm';
        out.append(escape, p);
    }

    static char* Put(char* p, const char* text)
    {
        while (*text) *p++ = *text++;
        return p;
    }

    static char* Decimal(char* p, std::uint32_t v)
    {
        if (v >= 100) *p++ = static_cast<char>('0' + v / 100);
        if (v >= 10) *p++ = static_cast<char>('0' + v / 10 % 10);
        *p++ = static_cast<char>('0' + v % 10);
        return p;
    }

    // A control character of the text would steer the terminal: it is shown
    // in caret notation instead (ESC as ^[, DEL as ^?; the C1 controls of
    // UTF-8 as M-^[ and so on, as cat -v shows them).
    void Visible(std::string& out, const char* c, std::size_t length)
    {
        const auto b = static_cast<unsigned char>(c[0]);
        if (b < 0x20 || b == 0x7F) {
            out += '^';
            out += static_cast<char>(b ^ 0x40);
        } else if (utf8_ && b == 0xC2 && static_cast<unsigned char>(c[1]) < 0xA0) {
            out += "M-^";
            out += static_cast<char>((static_cast<unsigned char>(c[1]) - 0x80) ^ 0x40);
        } else {
            out.append(c, length);
        }
    }

    Styles styles_;
    bool utf8_;
    bool first_ = true;
    Look current_;
};

// HTML: <span style="color:#RRGGBB"> runs inside <b>, <i> and <u>, wavy
// characters in <sup> and <sub>; a line of a page is a paragraph, a line of
// a fragment ends in <br>.
class HtmlLine {
public:
    HtmlLine(Styles styles, bool page) : styles_(styles), page_(page) {}

    void Begin(std::string& out)
    {
        if (page_) out += "<p>";
    }
    void Character(std::string& out, const Look& look, const char* c, std::size_t length)
    {
        if (first_) {
            if (styles_.bold) out += "<b>";
            if (styles_.italic) out += "<i>";
            if (styles_.underline) out += "<u>";
        } else if (!(look == current_)) {
            CloseRun(out);
        }
        if (first_ || !(look == current_)) OpenRun(out, look);
        first_ = false;
        Text(out, c, length);
    }
    void End(std::string& out)
    {
        if (!first_) {
            CloseRun(out);
            if (styles_.underline) out += "</u>";
            if (styles_.italic) out += "</i>";
            if (styles_.bold) out += "</b>";
        }
        out += page_ ? "</p>\n" : "<br>\n";
    }

private:
    void OpenRun(std::string& out, const Look& look)
    {
        current_ = look;
        if (look.baseline > 0) out += "<sup>";
        if (look.baseline < 0) out += "<sub>";
        if (look.colored) {
            out += "<span style=\"color:#";
            AppendHex(out, look.rgb, "0123456789ABCDEF");
            out += "\">";
        }
    }
    void CloseRun(std::string& out)
    {
        if (current_.colored) out += "</span>";
        if (current_.baseline > 0) out += "</sup>";
        if (current_.baseline < 0) out += "</sub>";
    }
    // Markup characters as entities; a space that HTML would fold into the
    // one before it (or drop at the start of a line) is a no-break space.
    void Text(std::string& out, const char* c, std::size_t length)
    {
        const char ch = c[0];
        if (ch == ' ') out += afterSpace_ ? "&nbsp;" : " ";
        else if (ch == '<') out += "&lt;";
        else if (ch == '>') out += "&gt;";
        else if (ch == '&') out += "&amp;";
        else if (ch == '"') out += "&quot;";
        else out.append(c, length);
        afterSpace_ = ch == ' ';
    }

    Styles styles_;
    bool page_;
    bool first_ = true;
    bool afterSpace_ = true;
    Look current_;
};

// Forum BBCode: [color=#RRGGBB] runs inside [b], [i] and [u]. BBCode has no
// raised or lowered text, so a wavy fade shows level. A "[" of the text is
// followed by an invisible break (a zero-width space in UTF-8, a soft hyphen
// in ANSI), so that "[b]" typed shows as typed on every forum instead of
// turning bold.
class BBCodeLine {
public:
    BBCodeLine(Styles styles, TextEncoding encoding)
        : styles_(styles), invisibleBreak_(encoding == TextEncoding::Utf8 ? "\xE2\x80\x8B" : "\xAD") {}

    void Begin(std::string&) {}
    void Character(std::string& out, const Look& look, const char* c, std::size_t length)
    {
        if (first_) {
            if (styles_.bold) out += "[b]";
            if (styles_.italic) out += "[i]";
            if (styles_.underline) out += "[u]";
        } else if (!look.SameColor(current_) && current_.colored) {
            out += "[/color]";
        }
        if ((first_ || !look.SameColor(current_)) && look.colored) {
            out += "[color=#";
            AppendHex(out, look.rgb, "0123456789ABCDEF");
            out += ']';
        }
        first_ = false;
        current_ = look;
        out.append(c, length);
        if (c[0] == '[') out += invisibleBreak_;
    }
    void End(std::string& out)
    {
        if (!first_) {
            if (current_.colored) out += "[/color]";
            if (styles_.underline) out += "[/u]";
            if (styles_.italic) out += "[/i]";
            if (styles_.bold) out += "[/b]";
        }
        out += '\n';
    }

private:
    Styles styles_;
    const char* invisibleBreak_;
    bool first_ = true;
    Look current_;
};

// Minecraft: §x§R§R§G§G§B§B before each change of colour, then §l, §o and
// §n again, since a colour code ends the styles. Minecraft has no raised or
// lowered text, so a wavy fade shows level. Every "§" starts a code and the
// game never shows one, so a "§" of the text is written as "S".
class MinecraftLine {
public:
    MinecraftLine(Styles styles, TextEncoding encoding)
        : styles_(styles), section_(encoding == TextEncoding::Utf8 ? "\xC2\xA7" : "\xA7") {}

    void Begin(std::string&) {}
    void Character(std::string& out, const Look& look, const char* c, std::size_t length)
    {
        if (look.colored && (first_ || !look.SameColor(current_))) {
            // Put together on the stack: it is written for nearly every character.
            char code[32];
            char* p = code;
            const std::size_t marker = std::strlen(section_);
            for (int shift = 24; shift >= 0; shift -= 4) {
                std::memcpy(p, section_, marker);
                p += marker;
                *p++ = shift == 24 ? 'x' : "0123456789abcdef"[(look.rgb >> shift) & 15];
            }
            out.append(code, p);
            StylesAgain(out);
        } else if (first_) {
            StylesAgain(out);
        }
        first_ = false;
        current_ = look;
        if (length == std::strlen(section_) && std::memcmp(c, section_, length) == 0) out += 'S';
        else out.append(c, length);
    }
    void End(std::string& out) { out += '\n'; }

private:
    void StylesAgain(std::string& out)
    {
        if (styles_.bold) (out += section_) += 'l';
        if (styles_.italic) (out += section_) += 'o';
        if (styles_.underline) (out += section_) += 'n';
    }

    Styles styles_;
    const char* section_;
    bool first_ = true;
    Look current_;
};

}  // namespace

FadeWriter::FadeWriter(FadeFormat format, TextEncoding encoding, OutputSink& sink)
    : format_(format), encoding_(encoding), sink_(sink)
{
}

void FadeWriter::Start()
{
    if (format_ != FadeFormat::Html) return;
    out_ += "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"";
    out_ += encoding_ == TextEncoding::Utf8 ? "utf-8" : "windows-1252";
    out_ += "\">\n<title>Prismo fade</title>\n"
            "<style>\n"
            "body { background: #ffffff; font: 10pt Arial, sans-serif; }\n"
            "p { margin: 0.2em 0; white-space: pre-wrap; }\n"
            "</style>\n</head>\n<body>\n";
}

void FadeWriter::End()
{
    if (format_ == FadeFormat::Html) out_ += "</body>\n</html>\n";
    HandOn(true);
}

void FadeWriter::HandOn(bool all)
{
    if (out_.empty() || (!all && out_.size() < kHandOnAt)) return;
    sink_.Write(out_.data(), out_.size());
    out_.clear();
}

namespace {

template <class Renderer>
void Render(Renderer renderer, const std::string& faded, const std::string& text, TextEncoding encoding,
            std::string& out, OutputSink& sink)
{
    renderer.Begin(out);
    EachCharacter(faded, text, encoding, [&](const Look& look, const char* c, std::size_t length) {
        renderer.Character(out, look, c, length);
        HandOnWhenLarge(out, sink);
    });
    renderer.End(out);
}

}  // namespace

bool FadeWriter::Line(const std::string& line)
{
    if (format_ == FadeFormat::Aol && OneBytePerCharacter(line, encoding_)) {
        // The engine's own output needs no characters put back.
        std::string faded = line;
        FadeEngine(faded);
        if (faded.size() < kHandOnAt) {
            out_ += faded;
        } else {  // a long line goes straight on rather than being copied again
            HandOn(true);
            sink_.Write(faded.data(), faded.size());
        }
        out_ += '\n';
        HandOn(false);
        return true;
    }
    if (!CharacterShadow(line, encoding_, kStandIn, shadow_)) return false;
    FadeEngine(shadow_);
    const Styles styles{Options.Bold, Options.Italic, Options.ULine};
    switch (format_) {
    case FadeFormat::Aol: AolLine(shadow_, line, out_, sink_); out_ += '\n'; break;
    case FadeFormat::Ansi: Render(AnsiLine(styles, encoding_), shadow_, line, encoding_, out_, sink_); break;
    case FadeFormat::Html: Render(HtmlLine(styles, true), shadow_, line, encoding_, out_, sink_); break;
    case FadeFormat::HtmlFragment: Render(HtmlLine(styles, false), shadow_, line, encoding_, out_, sink_); break;
    case FadeFormat::BBCode: Render(BBCodeLine(styles, encoding_), shadow_, line, encoding_, out_, sink_); break;
    case FadeFormat::Minecraft: Render(MinecraftLine(styles, encoding_), shadow_, line, encoding_, out_, sink_); break;
    }
    HandOn(false);
    return true;
}
