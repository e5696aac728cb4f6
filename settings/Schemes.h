// Fade Schemes in the settings store: one scheme-file line into a section,
// and a stored scheme read back as its texts.
#pragma once

#include "SchemeText.h"

#include <string>

class SettingsStore;

// What the user is told when the program's "Schemes" key cannot be opened.
inline constexpr char kNoSchemesKeyMessage[] =
    "~B~CRCannot open registry key \"SCHEMES\"~B~CN~N ~NPlease reinstall Prismo to restore this key.~N ~N open "
    "key.~N ~NThis function will now end.";

// Applies one line of a scheme file to `section` of the store (normally
// "Schemes\" + name): a line with a key a scheme has stores its value; every
// other line stores nothing.
void ParseSchemeLine(SettingsStore& store, const std::string& section, const std::string& line);

// The stored scheme of that name, each value as read (empty when missing).
SchemeTexts ReadScheme(const SettingsStore& store, const std::string& schemeName);
