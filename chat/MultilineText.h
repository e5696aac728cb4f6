// The multiline sender's decisions, apart from any window: how long a chat
// line may be, what each wrapped line becomes, how far the progress bar
// stands, how narrow the wrapping box must get, and what a text file gives.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

// The longest line the sender posts: "Chars In Line" (taken as 16 bits) with
// the fader on, 84 with it off.
long MultilineLimit(bool faderOn, std::int32_t charsInLine);
inline constexpr long kMultilineLimitFaderOff = 84;

// The wait before each posted line, in ms: "Multiline Burst" seconds; none
// for zero, a negative or a non-number, at most a day.
unsigned long BurstDelay(float seconds);

// What goes out for one wrapped line: nothing for an empty line (it is
// skipped without a wait); a no-break space for a line that is only a carriage
// return, a line feed or one space (AOL would post nothing); else the line.
std::optional<std::string> ChatLineFor(const std::string& line);

// The progress bar before line `index` of `count`: the whole part of
// index / count x 100.
int MultilineProgress(long index, long count);

// The wrapped lines' lengths when the box is `width` twips wide.
using WrappedLengths = std::function<std::vector<long>(long width)>;
// Narrows the box 1000 twips at a time from `width` until no wrapped line is
// longer than `limit`, each pass looking at the lines from the first again;
// stops at `minWidth`, where the lines go out as they then wrap. Returns the
// width it settled on.
long FitWidth(long width, long minWidth, long limit, const WrappedLengths& lengthsAt);
inline constexpr long kNarrowingStep = 1000;  // twips
// Where narrowing stops: a tiny line limit would otherwise narrow the box to nothing.
inline constexpr long kMinimumWrapWidth = 1000;  // twips

// The most the multiline window holds, typed or read from a file: a Windows
// 9x edit control holds 64 KB.
inline constexpr std::size_t kMultilineMaxText = 60000;

// A text file's bytes as the window takes them: the text before a NUL byte,
// with lone line feeds made Windows line ends. Nothing when that is longer
// than kMultilineMaxText.
std::optional<std::string> MultilineFileText(const std::string& bytes);

// The window's text after a full chat line of `line` arrived: the line alone
// in an empty window, else the line on a line of its own after what is there;
// an empty line changes nothing.
std::string AddFullLine(const std::string& text, const std::string& line);
