// Conversions of stored texts to numbers and booleans.
#include "Convert.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <limits>

std::string Trim(const std::string& text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    const auto last = text.find_last_not_of(' ');
    return text.substr(first, last - first + 1);
}

std::optional<std::int32_t> ToLong(const std::string& text)
{
    const std::string t = Trim(text);
    if (t.empty()) return std::nullopt;
    std::size_t i = (t[0] == '-' || t[0] == '+') ? 1 : 0;
    if (i == t.size()) return std::nullopt;
    for (std::size_t k = i; k < t.size(); ++k)
        if (!std::isdigit(static_cast<unsigned char>(t[k]))) return std::nullopt;
    errno = 0;
    long long v = std::strtoll(t.c_str(), nullptr, 10);
    if (errno == ERANGE || v < std::numeric_limits<std::int32_t>::min() ||
        v > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(v);
}

std::optional<std::int16_t> ToInteger(const std::string& text)
{
    auto v = ToLong(text);
    if (!v || *v < std::numeric_limits<std::int16_t>::min() || *v > std::numeric_limits<std::int16_t>::max())
        return std::nullopt;
    return static_cast<std::int16_t>(*v);
}

std::optional<double> ToDouble(const std::string& text, char decimalPoint)
{
    std::string t = Trim(text);
    if (t.empty()) return std::nullopt;
    // Digits, one decimal separator, an optional sign in front; nothing else.
    bool digits = false, point = false;
    std::string plain;
    for (std::size_t k = 0; k < t.size(); ++k) {
        char c = t[k];
        if (std::isdigit(static_cast<unsigned char>(c))) {
            digits = true;
            plain += c;
        } else if (c == decimalPoint && !point) {
            point = true;
            plain += '.';
        } else if ((c == '-' || c == '+') && k == 0) {
            plain += c;
        } else {
            return std::nullopt;
        }
    }
    if (!digits) return std::nullopt;
    return std::strtod(plain.c_str(), nullptr);
}

std::optional<bool> ToBool(const std::string& text)
{
    std::string t = Trim(text);
    std::string lower;
    for (char c : t) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (lower == "true") return true;
    if (lower == "false") return false;
    if (auto v = ToDouble(t)) return *v != 0;
    return std::nullopt;
}
