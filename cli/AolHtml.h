// Reads a line received in an AOL chat room the way AOL shows it: its tags
// become colours and styles, everything else is the text a person sees.
#pragma once

#include "Options.h"  // ColorValue

#include <string>
#include <vector>

struct AolRun {
    std::string text;          // ANSI bytes to show
    ColorValue color = 0;      // 0x00BBGGRR; black unless a FONT COLOR set it
    bool bold = false, italic = false, underline = false;
    int baseline = 0;          // +1 raised (<sup>), -1 lowered (<sub>), 0 level
};

// One received line to styled runs, in order; neighbouring runs differ in
// style and no run is empty. Nothing is escaped on the way in, so text that
// looks like a tag is read as one: "<" starts a tag when a letter, "/" + letter
// or "!" follows it, and the tag runs to the next ">". FONT (its COLOR=#RRGGBB;
// SIZE, FACE, PTSIZE and the rest change nothing shown here), B, I, U, sup and
// sub and their closing forms set the style, in any letter case; every other
// tag (A, HTML, PRE, P, BR, ...) is dropped. A "<" that starts no tag, or whose
// tag never ends, is shown as it is.
std::vector<AolRun> ReadAolHtml(const std::string& line);
