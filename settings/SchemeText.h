// The text side of Fade Scheme files (".fde"): reading one line into a
// registry value and writing a whole file. Knows nothing of the registry.
#pragma once

#include <cstddef>
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
// line; a last line without an ending still counts; a line longer than
// kSchemeLineLimit is left out.
std::vector<std::string> SplitSchemeLines(const std::string& contents);

// The longest line a scheme file is read with; a longer line is passed over
// whole, as no scheme value is that long (a cut one would be a wrong value).
// A huge or binary file so costs no more memory than this while it is read.
inline constexpr std::size_t kSchemeLineLimit = 1024;

// Cuts a scheme file into lines as SplitSchemeLines does, from pieces of any
// size as they are read, holding at most kSchemeLineLimit bytes of a line.
class SchemeLineSplitter {
public:
    // Adds the next piece of the file; `line` gets each line it completes.
    template <class OnLine>
    void Add(const char* data, std::size_t size, OnLine&& line)
    {
        for (std::size_t i = 0; i < size; ++i) {
            const char c = data[i];
            const bool pairedLF = c == '\n' && afterCR_;
            afterCR_ = c == '\r';
            if (pairedLF) continue;  // a CR LF pair ends one line, not two
            if (c == '\r' || c == '\n') {
                End(line);
            } else {
                open_ = true;
                if (line_.size() < kSchemeLineLimit) line_.push_back(c);
                else tooLong_ = true;
            }
        }
    }
    // At the end of the file: the last line, when it had no ending.
    template <class OnLine>
    void Finish(OnLine&& line)
    {
        if (open_) End(line);
        afterCR_ = false;
    }

private:
    template <class OnLine>
    void End(OnLine& line)
    {
        if (!tooLong_) line(static_cast<const std::string&>(line_));
        line_.clear();
        open_ = tooLong_ = false;
    }

    std::string line_;
    bool open_ = false;     // a line has begun and not ended
    bool afterCR_ = false;  // the last byte was a CR
    bool tooLong_ = false;  // the line has outgrown the limit
};

// True for a file name whose long name ends in ".fde" in any case. A FAT
// search for "*.fde" also finds "x.fdex" through its short name "X~1.FDE".
bool IsSchemeFileName(const std::string& fileName);

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

// True when folder + name + ".fde" can be a file of that folder: no
// character files cannot have, no trailing dot or blank, no device name (CON,
// PRN, AUX, NUL, COM1-9, LPT1-9, with any extension), a path of at most 259
// characters.
bool FitsAsFileName(const std::string& name, const std::string& folder);

// The names among `names` that do not fit as file names of `folder`, in the
// order given.
std::vector<std::string> UnfitFileNames(const std::vector<std::string>& names, const std::string& folder);

// The one message naming every scheme left out for its name: `headline`,
// the names one a line, then why and what to do, ending in `retry`.
std::string UnfitNamesMessage(const std::string& headline, const std::vector<std::string>& names,
                              const std::string& retry);
