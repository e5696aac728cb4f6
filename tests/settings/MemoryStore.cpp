// The in-memory settings store behind the native tests.
#include "MemoryStore.h"

#include "modRegKeys.h"

#include <algorithm>
#include <cctype>

namespace {

std::string KeyOf(const std::string& section, const std::string& name)
{
    std::string key = section + "\\" + name;
    std::transform(key.begin(), key.end(), key.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return key;
}

}  // namespace

std::map<std::string, std::string>& MemoryStore::Values()
{
    static std::map<std::string, std::string> values;
    return values;
}

void MemoryStore::Clear() { Values().clear(); }

bool WriteSetting(const std::string& section, const std::string& name, const std::string& value)
{
    MemoryStore::Values()[KeyOf(section, name)] = value.empty() ? " " : value;
    return true;
}

std::string ReadSetting(const std::string& section, const std::string& name)
{
    auto found = MemoryStore::Values().find(KeyOf(section, name));
    return found == MemoryStore::Values().end() ? std::string() : found->second;
}

bool DeleteSettingKey(const std::string&) { return false; }
std::vector<std::string> SettingSubkeys(const std::string&) { return {}; }

SettingsStore& MemoryStore::Store()
{
    struct Memory : SettingsStore {
        std::string Read(const std::string& section, const std::string& name) const override
        {
            return ReadSetting(section, name);
        }
        bool Write(const std::string& section, const std::string& name, const std::string& value) override
        {
            return WriteSetting(section, name, value);
        }
    };
    static Memory store;
    return store;
}
