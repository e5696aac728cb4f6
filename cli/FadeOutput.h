// How prismo-fade shows a faded line: as AOL would show it, character by
// character, on a web page or in a 24-bit colour terminal.
#pragma once

#include "AolHtml.h"

#include <string>
#include <vector>

// Fades one line through FadeEngine (one call, with the working fade in
// Options and WavePhase as it stands) and returns what AOL shows of the
// result: the line's own characters with the colour and style each got.
// Whatever the line holds, "<" included, comes back as text.
std::vector<AolRun> FadeLineRuns(const std::string& line);

// A standalone page: the head, one block per faded line, and the end.
std::string HtmlPageStart();
std::string HtmlLine(const std::vector<AolRun>& runs, bool colored);
std::string HtmlPageEnd();

// One terminal line, ending in a reset and "\n". Without colour (no fade
// in use) the terminal's own colour stays.
std::string AnsiLine(const std::vector<AolRun>& runs, bool colored);
