// Scheme-file lines and scheme-file text.
#include "SchemeText.h"

#include "Convert.h"

#include <algorithm>
#include <cctype>

const char* const kSchemeColorNames[6] = {"One", "Two", "Three", "Four", "Five", "Six"};

namespace {

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string ColorText(const std::string& stored)
{
    auto value = ToLong(stored);
    return std::to_string(value ? *value : 0);
}

std::string StyleText(const std::string& stored)
{
    auto value = ToBool(stored);
    return value && *value ? "True" : "False";
}

}  // namespace

std::optional<SchemeLineValue> ParseSchemeText(const std::string& line)
{
    const auto equals = line.find('=');
    if (equals == std::string::npos) return std::nullopt;
    const std::string key = line.substr(0, equals);
    const std::string value = line.substr(equals + 1);
    const std::string lower = Lower(key);
    if (lower == "fadenumber") return SchemeLineValue{"Fade Number", value};
    static const char* const kKeys[] = {"one",  "two",  "three",  "four",  "five",
                                        "six",  "wavy", "bold",   "italic", "uline"};
    for (const char* k : kKeys)
        if (lower == k) return SchemeLineValue{key, value};
    return std::nullopt;
}

std::string FormatSchemeFile(const SchemeTexts& s)
{
    std::string out = "[Options]\r\nFadeNumber=" + s.fadeNumber + "\r\n\r\n[Colors]\r\n";
    for (int i = 0; i < 6; ++i) out += std::string(kSchemeColorNames[i]) + "=" + ColorText(s.colors[i]) + "\r\n";
    out += "\r\n[Style]\r\n";
    out += "Wavy=" + StyleText(s.wavy) + "\r\n";
    out += "Bold=" + StyleText(s.bold) + "\r\n";
    out += "Italic=" + StyleText(s.italic) + "\r\n";
    out += "ULine=" + StyleText(s.uline) + "\r\n";
    return out;
}

SchemeTexts ParseSchemeFile(const std::string& contents)
{
    SchemeTexts s;
    std::size_t at = 0;
    while (at < contents.size()) {
        std::size_t end = contents.find_first_of("\r\n", at);
        if (end == std::string::npos) end = contents.size();
        if (auto v = ParseSchemeText(contents.substr(at, end - at))) {
            const std::string name = Lower(v->name);
            if (name == "fade number") s.fadeNumber = v->value;
            else if (name == "wavy") s.wavy = v->value;
            else if (name == "bold") s.bold = v->value;
            else if (name == "italic") s.italic = v->value;
            else if (name == "uline") s.uline = v->value;
            else
                for (int i = 0; i < 6; ++i)
                    if (name == Lower(kSchemeColorNames[i])) s.colors[i] = v->value;
        }
        // A CR LF pair ends one line, not two.
        at = end + 1;
        if (end < contents.size() && contents[end] == '\r' && at < contents.size() && contents[at] == '\n') ++at;
    }
    return s;
}
