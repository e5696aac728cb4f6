// prismo-fade's command line: options, colours and scheme files to the fade
// it asks for. Decides everything; reads and writes nothing.
#pragma once

#include "FadeOutput.h"
#include "Options.h"
#include "TextEncoding.h"

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

struct FadeRequest {
    OptionsRecord fade;                 // the working fade the lines go through
    std::int16_t wavePhase = 0;         // WavePhase before the first line
    FadeFormat format = FadeFormat::Aol;
    std::optional<TextEncoding> encoding;  // --encoding; else the locale's
    std::string schemePath;             // --scheme, still to be read; empty when none
    std::optional<std::string> text;    // the arguments joined by spaces, else none
    bool help = false;
    // What the command line set itself; a scheme file fills in the rest.
    bool colorsGiven = false, fadeNumberGiven = false;
};

// Bad input on the command line or in a scheme file; what() is the one line
// the user sees.
class FadeArgsError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// "#RRGGBB" (any letter case) or a decimal colour value as stored, 0 to
// 16777215 (0x00BBGGRR).
std::optional<ColorValue> ParseColor(const std::string& text);

// The arguments after the program name. A scheme file named by --scheme is
// left for ApplyScheme; the options given on the line win over it.
FadeRequest ParseFadeArgs(const std::vector<std::string>& args);

// Reads a scheme file's text into the request's fade, keeping whatever the
// command line set explicitly. Throws FadeArgsError for a malformed file.
void ApplyScheme(const std::string& contents, FadeRequest& request);

// Scheme files are small; a larger one is not a scheme file.
constexpr std::size_t kLargestSchemeFile = 64 * 1024;

// The usage text for --help.
extern const char* const kFadeUsage;
