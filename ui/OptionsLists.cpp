// The options dialog's lists and the line delay's stored text.
#include "OptionsLists.h"

#include <cstdio>
#include <string>

const std::vector<std::string>& BurstChoices()
{
    static const std::vector<std::string> choices = {"0.10", "0.25", "0.50", "0.75", "1",    "1.25", "1.50",
                                                     "1.75", "2",    "2.25", "2.50", "2.75", "3"};
    return choices;
}

const std::vector<std::string>& LineChoices()
{
    static const std::vector<std::string> choices = [] {
        std::vector<std::string> all;
        for (int n = 20; n <= 92; ++n) all.push_back(std::to_string(n));
        return all;
    }();
    return choices;
}

namespace {

// A plain decimal text ("1.50", "0.1") as a float, read with "." whatever
// the locale says: the digits as one whole number, divided once.
float PlainDecimal(const std::string& text)
{
    double digits = 0, divisor = 1;
    bool fraction = false;
    for (char c : text) {
        if (c == '.' && !fraction) {
            fraction = true;
        } else if (c >= '0' && c <= '9') {
            digits = digits * 10 + (c - '0');
            if (fraction) divisor *= 10;
        } else {
            break;
        }
    }
    return static_cast<float>(digits / divisor);
}

}  // namespace

float BurstOfChoice(const std::string& entry) { return PlainDecimal(entry); }

int BurstIndex(float burst)
{
    const auto& choices = BurstChoices();
    for (std::size_t i = 0; i < choices.size(); ++i)
        if (BurstOfChoice(choices[i]) == burst) return static_cast<int>(i);
    return -1;
}

int LinesIndex(long chars)
{
    const auto& choices = LineChoices();
    for (std::size_t i = 0; i < choices.size(); ++i)
        if (std::stol(choices[i]) == chars) return static_cast<int>(i);
    return -1;
}

std::string BurstText(float burst, char decimalPoint)
{
    // The fewest significant digits that give the same float back: 1.5f is
    // "1.5", not the "1.5000000" its double would print.
    std::string result;
    for (int digits = 1; digits <= 9; ++digits) {
        char text[32] = {};
        std::snprintf(text, sizeof text, "%.*g", digits, static_cast<double>(burst));
        result = text;
        // The runtime writes its locale's separator; ours is the one asked for.
        for (char& c : result)
            if (c == ',') c = '.';
        if (PlainDecimal(result) == burst) break;
    }
    for (char& c : result)
        if (c == '.') c = decimalPoint;
    return result;
}
