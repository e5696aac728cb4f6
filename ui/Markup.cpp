// Markup tokenising, word wrapping and the message box's style decoding.
#include "Markup.h"

#include <cctype>

namespace {

std::string TrimBlanks(const std::string& s)
{
    const auto first = s.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return s.substr(first, s.find_last_not_of(' ') - first + 1);
}

char Upper(char c) { return static_cast<char>(std::toupper(static_cast<unsigned char>(c))); }

std::uint32_t ColorFor(char code, std::uint32_t current)
{
    switch (code) {
    case 'R': return 0x0000FF;
    case 'G': return 0x00FF00;
    case 'B': return 0xFF0000;
    case 'N': return 0x000000;
    default: return current;  // an unknown colour letter changes nothing
    }
}

void AddText(std::vector<MarkupPiece>& pieces, const std::string& text, const TextStyle& style)
{
    if (!text.empty()) pieces.push_back({false, text, style});
}

}  // namespace

std::vector<MarkupPiece> TokeniseMarkup(const std::string& message)
{
    std::vector<MarkupPiece> pieces;
    TextStyle style;
    const std::string m = TrimBlanks(message);
    std::size_t pos = 0;
    while (pos < m.size()) {
        const auto tilde = m.find('~', pos);
        if (tilde == std::string::npos) {
            AddText(pieces, m.substr(pos), style);
            break;
        }
        AddText(pieces, m.substr(pos, tilde - pos), style);
        if (tilde + 1 >= m.size()) break;  // a "~" at the very end is dropped
        const char code = Upper(m[tilde + 1]);
        pos = tilde + 2;
        switch (code) {
        case 'C':
            if (pos < m.size()) style.color = ColorFor(Upper(m[pos++]), style.color);
            break;
        case 'B': style.bold = !style.bold; break;
        case 'I': style.italic = !style.italic; break;
        case 'U': style.underline = !style.underline; break;
        case 'N': pieces.push_back({true, "", style}); break;
        default: break;  // "~" and any other character: both consumed, nothing changes
        }
    }
    return pieces;
}

std::string NextWord(const std::string& text)
{
    const auto blank = text.size() > 1 ? text.find(' ', 1) : std::string::npos;
    return blank == std::string::npos ? text : text.substr(0, blank + 1);
}

namespace {

void GrowIfNeeded(MarkupSurface& area, const MarkupCursor& at)
{
    const int lh = area.LineHeight();
    if (at.y + 2 * lh > area.Height()) area.Grow(at.y + 2 * lh + 12);
}

void NewLine(MarkupSurface& area, MarkupCursor& at)
{
    GrowIfNeeded(area, at);
    at.y += area.LineHeight();
    at.x = MarkupCursor::LeftMargin;
}

}  // namespace

void PrintWrapped(MarkupSurface& area, MarkupCursor& at, const std::string& text)
{
    std::string rest = text;
    while (!rest.empty()) {
        const std::string taken = NextWord(rest);
        std::string word = taken;
        if (at.x + area.TextWidth(word) > area.Width() - 2) {
            NewLine(area, at);
            const bool trailingBlank = word.back() == ' ';
            word = TrimBlanks(word);
            if (trailingBlank) word += ' ';
        }
        if (!TrimBlanks(word).empty()) {
            area.Print(at.x, at.y, word);
            at.x += area.TextWidth(word);
        }
        rest.erase(0, taken.size());
    }
}

void RenderMarkup(MarkupSurface& area, const std::string& message)
{
    area.Clear();
    MarkupCursor at;
    area.SetStyle(TextStyle{});
    for (const MarkupPiece& piece : TokeniseMarkup(message)) {
        area.SetStyle(piece.style);
        if (piece.lineBreak)
            NewLine(area, at);
        else
            PrintWrapped(area, at, piece.text);
    }
}

MsgStyle DecodeMsgStyle(long style, bool ask)
{
    MsgStyle s;
    long rest = style;
    if (rest >= 4096) {
        s.modeless = true;
        rest -= 4096;
    }
    if (ask && rest >= 512) {
        rest -= 512;
    } else if (ask && rest >= 256) {
        s.firstInTab = 1;
        rest -= 256;
    }
    for (int icon : {64, 48, 32, 16}) {
        if (rest >= icon) {
            s.icon = icon;
            rest -= icon;
        }
    }
    if (ask && rest >= 0 && rest <= 5) s.buttons = static_cast<int>(rest);
    return s;
}

std::vector<MsgButton> ButtonSet(int buttons)
{
    switch (buttons) {
    case 1: return {{"OK", 1}, {"Cancel", 2}};
    case 2: return {{"&Abort", 3}, {"&Retry", 4}, {"&Ignore", 5}};
    case 3: return {{"&Yes", 6}, {"&No", 7}, {"Cancel", 2}};
    case 4: return {{"&Yes", 6}, {"&No", 7}};
    case 5: return {{"&Retry", 4}, {"Cancel", 2}};
    default: return {{"OK", 1}};
    }
}

int SystemIconFor(int icon)
{
    switch (icon) {
    case 16: return 32513;
    case 32: return 32514;
    case 48: return 32515;
    case 64: return 32516;
    default: return 0;
    }
}
