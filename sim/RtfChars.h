// The characters of an RTF document as a rich edit control writes it out,
// each with its colour and style, so that a long formatted text is read in
// one pass instead of a selection per character.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct StyledChar {
    char c = 0;                // ANSI byte; '\r' for a paragraph or line break
    std::uint32_t color = 0;   // 0x00BBGGRR; the automatic colour reads as black
    bool bold = false, italic = false, underline = false;
    int baseline = 0;          // +1 raised, -1 lowered, 0 level
};

// Reads text, \par, \line, \tab, \'hh and the character formatting words
// (\plain \cf \b \i \ul \ulnone \super \sub \nosupersub \up \dn); groups keep
// their own formatting; the font, style and information tables and \*
// destinations are skipped.
std::vector<StyledChar> ReadRtfChars(const std::string& rtf);
