// The multiline sender's decisions (see MultilineText.h).
#include "MultilineText.h"

#include <cmath>

long MultilineLimit(bool faderOn, std::int32_t charsInLine)
{
    return faderOn ? static_cast<std::int16_t>(charsInLine) : kMultilineLimitFaderOff;
}

unsigned long BurstDelay(float seconds)
{
    constexpr double kDay = 86400000.0;
    const double ms = std::nearbyint(static_cast<double>(seconds) * 1000.0);
    if (!(ms > 0)) return 0;
    return static_cast<unsigned long>(ms < kDay ? ms : kDay);
}

std::optional<std::string> ChatLineFor(const std::string& line)
{
    if (line.empty()) return std::nullopt;
    if (line == "\r" || line == "\n" || line == " ") return std::string("\xA0");
    return line;
}

int MultilineProgress(long index, long count)
{
    if (count <= 0) return 0;
    return static_cast<int>(static_cast<long long>(index) * 100 / count);
}

long FitWidth(long width, long minWidth, long limit, const WrappedLengths& lengthsAt)
{
    for (;;) {
        bool fits = true;
        for (long length : lengthsAt(width)) {
            if (length > limit) {
                fits = false;
                break;
            }
        }
        if (fits || width - kNarrowingStep < minWidth) return width;
        width -= kNarrowingStep;
    }
}

std::optional<std::string> MultilineFileText(const std::string& bytes)
{
    const std::string text = bytes.substr(0, bytes.find('\0'));
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) out += '\r';
        out += text[i];
        if (out.size() > kMultilineMaxText) return std::nullopt;
    }
    return out;
}

std::string AddFullLine(const std::string& text, const std::string& line)
{
    if (text.empty() || line.empty()) return text + line;
    const bool ended = text.size() >= 2 && text.compare(text.size() - 2, 2, "\r\n") == 0;
    return text + (ended ? "" : "\r\n") + line;
}
