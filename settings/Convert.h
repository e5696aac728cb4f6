// Text to number and boolean, as the program converts stored settings: a text
// is a number only when its whole trimmed text is one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

std::string Trim(const std::string& text);  // blanks off both ends

// A whole decimal integer (optional sign) that fits in 32 bits.
std::optional<std::int32_t> ToLong(const std::string& text);
// The same, limited to 16 bits.
std::optional<std::int16_t> ToInteger(const std::string& text);
// A decimal number; `decimalPoint` is the user's locale's separator.
std::optional<double> ToDouble(const std::string& text, char decimalPoint = '.');
// "True"/"False" in any case, or a number (non-zero is true).
std::optional<bool> ToBool(const std::string& text);
