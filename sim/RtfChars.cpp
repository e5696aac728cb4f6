// A small reader for the RTF a rich edit control writes: enough to tell the
// colour and style of every character of a mail body.
#include "RtfChars.h"

#include <cctype>
#include <cstdlib>

namespace {

struct Word {
    std::string name;
    bool hasParam = false;
    long param = 0;
};

class RtfReader {
public:
    explicit RtfReader(const std::string& rtf) : rtf_(rtf) {}

    std::vector<StyledChar> Read() {
        std::vector<StyledChar> out;
        std::vector<StyledChar> stack;
        StyledChar state;
        std::vector<int> skipDepths;  // group depths of skipped destinations
        int depth = 0;
        while (pos_ < rtf_.size()) {
            const char c = rtf_[pos_++];
            if (c == '{') {
                stack.push_back(state);
                ++depth;
                if (pos_ + 1 < rtf_.size() && rtf_[pos_] == '\\' && rtf_[pos_ + 1] == '*') skipDepths.push_back(depth);
                continue;
            }
            if (c == '}') {
                if (!skipDepths.empty() && skipDepths.back() == depth) skipDepths.pop_back();
                if (!stack.empty()) state = stack.back(), stack.pop_back();
                --depth;
                continue;
            }
            if (c == '\r' || c == '\n' || c == '\0') continue;  // line ends of the source; a writer's closing NUL
            const bool skipping = !skipDepths.empty();
            if (c != '\\') {
                if (!skipping) Put(out, state, c);
                continue;
            }
            if (pos_ >= rtf_.size()) break;
            const char next = rtf_[pos_];
            if (!std::isalpha((unsigned char)next)) {
                ++pos_;
                if (skipping) {
                    if (next == '\'') pos_ += 2;
                    continue;
                }
                if (next == '\'') Put(out, state, (char)HexByte());
                else if (next == '~') Put(out, state, (char)0xA0);
                else if (next == '_') Put(out, state, '-');
                else if (next == '\\' || next == '{' || next == '}') Put(out, state, next);
                continue;
            }
            const Word word = ReadWord();
            if (IsSkippedDestination(word.name)) {
                if (skipDepths.empty() || skipDepths.back() != depth) skipDepths.push_back(depth);
                continue;
            }
            if (word.name == "colortbl") {
                ReadColorTable();
                if (!stack.empty()) state = stack.back(), stack.pop_back();
                --depth;
                continue;
            }
            if (!skipping) Apply(word, state, out);
        }
        return out;
    }

private:
    static bool IsSkippedDestination(const std::string& name) {
        static const char* const names[] = {"fonttbl", "stylesheet", "info", "pict", "header", "footer",
                                            "listtable", "listoverridetable", "generator", "object"};
        for (const char* n : names) {
            if (name == n) return true;
        }
        return false;
    }

    Word ReadWord() {
        Word word;
        while (pos_ < rtf_.size() && std::isalpha((unsigned char)rtf_[pos_])) word.name += rtf_[pos_++];
        const std::size_t start = pos_;
        if (pos_ < rtf_.size() && (rtf_[pos_] == '-' || std::isdigit((unsigned char)rtf_[pos_]))) {
            ++pos_;
            while (pos_ < rtf_.size() && std::isdigit((unsigned char)rtf_[pos_])) ++pos_;
            word.hasParam = true;
            word.param = std::strtol(rtf_.substr(start, pos_ - start).c_str(), nullptr, 10);
        }
        if (pos_ < rtf_.size() && rtf_[pos_] == ' ') ++pos_;  // the word's delimiter
        return word;
    }

    int HexByte() {
        int value = 0;
        for (int i = 0; i < 2 && pos_ < rtf_.size(); ++i, ++pos_) {
            const char h = (char)std::tolower((unsigned char)rtf_[pos_]);
            value = value * 16 + (std::isdigit((unsigned char)h) ? h - '0' : h - 'a' + 10);
        }
        return value;
    }

    // "\red255\green0\blue0;" entries up to the group's end; an entry
    // without values is the automatic colour.
    void ReadColorTable() {
        std::uint32_t r = 0, g = 0, b = 0;
        while (pos_ < rtf_.size() && rtf_[pos_] != '}') {
            const char c = rtf_[pos_];
            if (c == ';') {
                colors_.push_back(r | (g << 8) | (b << 16));
                r = g = b = 0;
                ++pos_;
            } else if (c == '\\') {
                ++pos_;
                const Word word = ReadWord();
                if (word.name == "red") r = (std::uint32_t)word.param & 0xFF;
                if (word.name == "green") g = (std::uint32_t)word.param & 0xFF;
                if (word.name == "blue") b = (std::uint32_t)word.param & 0xFF;
            } else {
                ++pos_;
            }
        }
        if (pos_ < rtf_.size()) ++pos_;  // the table's closing brace
    }

    void Apply(const Word& word, StyledChar& state, std::vector<StyledChar>& out) {
        const std::string& n = word.name;
        const bool on = !word.hasParam || word.param != 0;
        if (n == "plain") {
            state = StyledChar{};
        } else if (n == "cf") {
            const long index = word.param;
            state.color = index > 0 && index < (long)colors_.size() ? colors_[index] : 0;
        } else if (n == "b") {
            state.bold = on;
        } else if (n == "i") {
            state.italic = on;
        } else if (n == "ul") {
            state.underline = on;
        } else if (n == "ulnone") {
            state.underline = false;
        } else if (n == "super") {
            state.baseline = 1;
        } else if (n == "sub") {
            state.baseline = -1;
        } else if (n == "nosupersub") {
            state.baseline = 0;
        } else if (n == "up") {
            state.baseline = on ? 1 : 0;
        } else if (n == "dn") {
            state.baseline = on ? -1 : 0;
        } else if (n == "par" || n == "line") {
            Put(out, state, '\r');
        } else if (n == "tab") {
            Put(out, state, '\t');
        } else if (n == "u") {
            Put(out, state, '?');
            pos_ += SkipAfterUnicode();
        }
    }

    // A \u character is followed by one plain stand-in to skip.
    std::size_t SkipAfterUnicode() const { return pos_ < rtf_.size() && rtf_[pos_] != '\\' && rtf_[pos_] != '{' ? 1 : 0; }

    static void Put(std::vector<StyledChar>& out, const StyledChar& state, char c) {
        StyledChar styled = state;
        styled.c = c;
        out.push_back(styled);
    }

    const std::string& rtf_;
    std::size_t pos_ = 0;
    std::vector<std::uint32_t> colors_;
};

}  // namespace

std::vector<StyledChar> ReadRtfChars(const std::string& rtf) { return RtfReader(rtf).Read(); }
