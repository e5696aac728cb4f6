// The settings store: string values under the program's registry key, read
// and written one at a time. Every failure shows only in the result (an empty
// text or false); nothing is reported here.
#pragma once

#include "Catalog.h"
#include "SettingsStore.h"

#include <string>
#include <vector>

// Stores `value` as a string value in root + section, creating the section
// (and every key above it) when missing. An empty value is stored as one
// space. True when the key was created or opened and the value stored.
bool WriteSetting(const std::string& section, const std::string& name, const std::string& value);

// The stored text, cut at its first NUL. Expandable strings come back
// unexpanded and DWORDs as their decimal text; texts of 1,024 characters or
// more, other value types, missing keys or values and every error read as the
// empty text. Never creates anything.
std::string ReadSetting(const std::string& section, const std::string& name);

// The registry as the store the portable settings code reads and writes
// (ReadSetting and WriteSetting).
SettingsStore& Registry();

// Deletes root + subPath when it has no subkeys; false when it is missing,
// still has subkeys, or the registry refuses. An empty subPath is refused:
// the program never deletes its own key.
bool DeleteSettingKey(const std::string& subPath);

// The names of the subkeys of root + section (the stored schemes are the
// subkeys of "Schemes"); empty when the section is missing.
std::vector<std::string> SettingSubkeys(const std::string& section);

inline bool WriteSetting(const SettingName& setting, const std::string& value)
{
    return WriteSetting(setting.section, setting.name, value);
}

inline std::string ReadSetting(const SettingName& setting)
{
    return ReadSetting(setting.section, setting.name);
}
