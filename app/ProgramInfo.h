// The program's version text and title text, read from its own version
// resource so that every caption agrees with what Explorer shows.
#pragma once

#include <string>

// "major.minor.revision" of the running program ("" without a version resource).
std::string VersionText();

// "Prismo - " + the version text.
std::string TitleText();
