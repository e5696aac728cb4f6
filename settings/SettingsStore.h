// The settings store as the portable code sees it: string values by section
// and name. The program's store is the registry; tests use one in memory.
#pragma once

#include "Catalog.h"

#include <string>

class SettingsStore {
public:
    virtual ~SettingsStore() = default;
    // The stored text; the empty text when the value is missing or unreadable.
    virtual std::string Read(const std::string& section, const std::string& name) const = 0;
    // Stores `value` (an empty one as one space), creating the section; true when stored.
    virtual bool Write(const std::string& section, const std::string& name, const std::string& value) = 0;

    std::string Read(const SettingName& setting) const { return Read(setting.section, setting.name); }
};
