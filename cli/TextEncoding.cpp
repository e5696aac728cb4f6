// Characters in a line of bytes, and the encoding the user's locale asks for.
#include "TextEncoding.h"

#include <cctype>
#include <cstring>

namespace {

bool IsContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

// Length of the valid UTF-8 character at `at`, or 0 when none starts there.
// The second byte's range rules out overlong forms, surrogates and values
// past U+10FFFF, as the Unicode standard's table of well-formed sequences does.
std::size_t ValidCharacter(const unsigned char* p, std::size_t left)
{
    const unsigned char lead = p[0];
    if (lead < 0x80) return 1;
    unsigned char low = 0x80, high = 0xBF;
    std::size_t length;
    if (lead >= 0xC2 && lead <= 0xDF) length = 2;
    else if (lead >= 0xE0 && lead <= 0xEF) length = 3;
    else if (lead >= 0xF0 && lead <= 0xF4) length = 4;
    else return 0;
    if (lead == 0xE0) low = 0xA0;
    else if (lead == 0xED) high = 0x9F;
    else if (lead == 0xF0) low = 0x90;
    else if (lead == 0xF4) high = 0x8F;
    if (left < length || p[1] < low || p[1] > high) return 0;
    for (std::size_t k = 2; k < length; ++k)
        if (!IsContinuation(p[k])) return 0;
    return length;
}

bool NamesUtf8(const char* locale)
{
    std::string name;
    for (const char* p = std::strchr(locale, '.'); p && *++p && *p != '@';)
        if (*p != '-' && *p != '_') name += static_cast<char>(std::tolower(static_cast<unsigned char>(*p)));
    return name == "utf8";
}

}  // namespace

TextEncoding LocaleEncoding(const char* lcAll, const char* lcCtype, const char* lang)
{
    for (const char* locale : {lcAll, lcCtype, lang})
        if (locale && *locale) return NamesUtf8(locale) ? TextEncoding::Utf8 : TextEncoding::Ansi;
    return TextEncoding::Ansi;
}

bool OneBytePerCharacter(const std::string& line, TextEncoding encoding)
{
    if (encoding == TextEncoding::Ansi) return true;
    for (char c : line)
        if (static_cast<unsigned char>(c) >= 0x80) return false;
    return true;
}

bool CharacterShadow(const std::string& line, TextEncoding encoding, char standIn, std::string& shadow)
{
    shadow.resize(line.size());
    const auto* p = reinterpret_cast<const unsigned char*>(line.data());
    const std::size_t size = line.size();
    std::size_t out = 0;
    for (std::size_t at = 0; at < size;) {
        std::size_t length = 1;
        if (p[at] >= 0x80 && encoding == TextEncoding::Utf8) {
            length = ValidCharacter(p + at, size - at);
            if (length == 0) return false;
        }
        shadow[out++] = p[at] == ' ' ? ' ' : standIn;
        at += length;
    }
    shadow.resize(out);
    return true;
}
