// A settings store held in memory, for testing the portable code that reads
// and writes settings without a registry. It keeps the store's own rules that
// callers see: an empty text is stored as one space, names are not
// case-sensitive, a missing value reads as empty.
#pragma once

#include "SettingsStore.h"

#include <map>
#include <string>

namespace MemoryStore {
// Every stored value, by lower-case "section\name".
std::map<std::string, std::string>& Values();
void Clear();
// The same values as a store the portable code is handed.
SettingsStore& Store();
}  // namespace MemoryStore
