// Scheme-file lines and scheme-file text.
#include "SchemeText.h"

#include "Catalog.h"
#include "Convert.h"

#include <algorithm>
#include <cctype>

namespace {

// The file's own key for the number of colours; the registry calls it
// "Fade Number".
constexpr char kFadeNumberKey[] = "FadeNumber";

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
    return value && *value ? kTrueText : kFalseText;
}

std::string Line(const char* key, const std::string& value) { return std::string(key) + "=" + value + "\r\n"; }

}  // namespace

std::optional<SchemeLineValue> ParseSchemeText(const std::string& line)
{
    const auto equals = line.find('=');
    if (equals == std::string::npos) return std::nullopt;
    const std::string key = line.substr(0, equals);
    const std::string value = line.substr(equals + 1);
    const std::string lower = Lower(key);
    if (lower == Lower(kFadeNumberKey)) return SchemeLineValue{ValueName::FadeNumber, value};
    // Every other scheme value is stored under the file's key as spelled;
    // value names are not case-sensitive, so "one" is "One".
    for (const char* name : kSchemeValueNames)
        if (std::string(name) != ValueName::FadeNumber && lower == Lower(name)) return SchemeLineValue{key, value};
    return std::nullopt;
}

std::vector<std::string> SplitSchemeLines(const std::string& contents)
{
    std::vector<std::string> lines;
    auto keep = [&lines](const std::string& line) { lines.push_back(line); };
    SchemeLineSplitter splitter;
    splitter.Add(contents.data(), contents.size(), keep);
    splitter.Finish(keep);
    return lines;
}

bool IsSchemeFileName(const std::string& fileName)
{
    const std::string extension = ".fde";
    return fileName.size() >= extension.size() &&
           Lower(fileName.substr(fileName.size() - extension.size())) == extension;
}

std::string FormatSchemeFile(const SchemeTexts& s)
{
    std::string out = "[Options]\r\n" + Line(kFadeNumberKey, s.fadeNumber) + "\r\n[Colors]\r\n";
    for (int i = 0; i < 6; ++i) out += Line(kColorValueNames[i], ColorText(s.colors[i]));
    out += "\r\n[Style]\r\n";
    out += Line(ValueName::Wavy, StyleText(s.wavy));
    out += Line(ValueName::Bold, StyleText(s.bold));
    out += Line(ValueName::Italic, StyleText(s.italic));
    out += Line(ValueName::ULine, StyleText(s.uline));
    return out;
}

std::string* SchemeField(SchemeTexts& s, const std::string& valueName)
{
    const std::string name = Lower(valueName);
    if (name == Lower(ValueName::FadeNumber)) return &s.fadeNumber;
    if (name == Lower(ValueName::Wavy)) return &s.wavy;
    if (name == Lower(ValueName::Bold)) return &s.bold;
    if (name == Lower(ValueName::Italic)) return &s.italic;
    if (name == Lower(ValueName::ULine)) return &s.uline;
    for (int i = 0; i < 6; ++i)
        if (name == Lower(kColorValueNames[i])) return &s.colors[i];
    return nullptr;
}

SchemeTexts ParseSchemeFile(const std::string& contents)
{
    SchemeTexts s;
    for (const std::string& line : SplitSchemeLines(contents))
        if (auto v = ParseSchemeText(line))
            if (std::string* field = SchemeField(s, v->name)) *field = v->value;
    return s;
}

namespace {

bool IsDeviceName(const std::string& name)
{
    std::string base = name.substr(0, name.find('.'));
    base.erase(base.find_last_not_of(' ') + 1);
    std::transform(base.begin(), base.end(), base.begin(), [](unsigned char c) { return std::toupper(c); });
    if (base == "CON" || base == "PRN" || base == "AUX" || base == "NUL") return true;
    const bool numbered = base.size() == 4 && (base.compare(0, 3, "COM") == 0 || base.compare(0, 3, "LPT") == 0);
    return numbered && base[3] >= '1' && base[3] <= '9';
}

// A scheme name as a message can show it: control characters as ^A, ^B...
std::string ShownName(const std::string& name)
{
    std::string shown;
    for (unsigned char c : name) {
        if (c < 32) shown += '^', shown += static_cast<char>(c + 64);
        else shown += static_cast<char>(c);
    }
    return shown;
}

}  // namespace

bool FitsAsFileName(const std::string& name, const std::string& folder)
{
    if (name.empty() || name.back() == '.' || name.back() == ' ') return false;
    for (unsigned char c : name)
        if (c < 32 || std::string("\\/:*?\"<>|").find(static_cast<char>(c)) != std::string::npos) return false;
    return !IsDeviceName(name) && folder.size() + name.size() + 4 <= 259;
}

std::vector<std::string> UnfitFileNames(const std::vector<std::string>& names, const std::string& folder)
{
    std::vector<std::string> unfit;
    for (const std::string& name : names)
        if (!FitsAsFileName(name, folder)) unfit.push_back(name);
    return unfit;
}

std::string UnfitNamesMessage(const std::string& headline, const std::vector<std::string>& names,
                              const std::string& retry)
{
    std::string message = "~B~CR" + headline + "~B~CN~N ~N";
    for (const std::string& name : names) message += "\"" + ShownName(name) + "\"~N";
    return message + " ~NTheir names cannot be file names.  Please save them under other names in the Fade Designer and " +
           retry;
}
