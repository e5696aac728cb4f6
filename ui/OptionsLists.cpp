// The options dialog's lists and the line delay's stored text.
#include "OptionsLists.h"

#include <charconv>
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

// The entries are our own fixed texts with "."; they are read so whatever
// the locale says.
float BurstOfChoice(const std::string& entry)
{
    float value = 0;
    std::from_chars(entry.data(), entry.data() + entry.size(), value);
    return value;
}

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
    // The fewest digits that give the same float back: 1.5f is "1.5", not
    // the "1.5000000" its double would print.
    char text[32] = {};
    const auto end = std::to_chars(text, text + sizeof text - 1, burst, std::chars_format::fixed).ptr;
    std::string result(text, end);
    for (char& c : result)
        if (c == '.') c = decimalPoint;
    return result;
}
