// The text side of Fade Scheme files (".fde"): reading one line into a
// registry value and writing a whole file. Knows nothing of the registry.
#pragma once

#include <optional>
#include <string>
#include <vector>

// What one scheme-file line stores: the registry value name and its text.
struct SchemeLineValue {
    std::string name;
    std::string value;
};

// The value a line of a scheme file stores, or nothing for lines without "="
// (section headers, empty lines) and for keys a scheme does not have. Keys
// compare in lower case; "FadeNumber" stores as "Fade Number", the others
// under the key as spelled in the file. The value is everything after the
// first "=", untrimmed.
std::optional<SchemeLineValue> ParseSchemeText(const std::string& line);

// The lines of a file's text: CR LF, a lone CR and a lone LF each end one
// line; a last line without an ending still counts.
std::vector<std::string> SplitSchemeLines(const std::string& contents);

// A stored scheme as its registry texts, as read (empty when missing).
struct SchemeTexts {
    std::string fadeNumber;
    std::string colors[6];  // "One" to "Six"
    std::string wavy, bold, italic, uline;
};

// The scheme file for a stored scheme: CR LF lines in the fixed order; a
// colour that is missing or not a number is written as 0, a style that is not
// a boolean as "False".
std::string FormatSchemeFile(const SchemeTexts& scheme);

// Reads a whole scheme file into the texts it would store, line by line as
// the import does (later lines win).
SchemeTexts ParseSchemeFile(const std::string& contents);

// The text a scheme keeps under one of its value names (any case), or null
// for a name a scheme does not have.
std::string* SchemeField(SchemeTexts& scheme, const std::string& valueName);
