// The settings store over the registry. Each rule of the store is enforced
// here rather than left to the registry, because Windows 95/98 and the NT
// family (and Wine) differ in what they do on their own.
#include "modRegKeys.h"

#include "RegKey.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

// Readers open with the writer's access, so a key the program could not write
// reads as missing too.
constexpr REGSAM kAccess = KEY_READ | KEY_WRITE;
// The read buffer; its last character is kept for the terminating NUL, so a
// text of this length or longer reads as empty.
constexpr DWORD kReadBuffer = 1024;
// Longest key name the registry allows, plus its NUL.
constexpr DWORD kKeyNameBuffer = 256;

using KeyPath = std::vector<std::string>;

void AppendParts(KeyPath& parts, const std::string& path)
{
    std::size_t at = 0;
    while (at <= path.size()) {
        std::size_t end = path.find('\\', at);
        if (end == std::string::npos) end = path.size();
        if (end > at) parts.push_back(path.substr(at, end - at));
        at = end + 1;
    }
}

// The program's key and then the section, one key name at a time. Empty
// names (a doubled or trailing backslash) are skipped.
KeyPath PathTo(const std::string& section)
{
    KeyPath parts;
    AppendParts(parts, kSettingsRoot);
    AppendParts(parts, section);
    return parts;
}

// Walks down from HKEY_CURRENT_USER one level at a time, so that every key on
// the way is created on any system when `create` is set, and nothing at all
// is created when it is not.
RegKey Walk(const KeyPath& parts, std::size_t count, bool create)
{
    RegKey key;
    HKEY parent = HKEY_CURRENT_USER;
    for (std::size_t i = 0; i < count; ++i) {
        RegKey next = create ? RegKey::Create(parent, parts[i], kAccess) : RegKey::Open(parent, parts[i], kAccess);
        if (!next) return {};
        key = std::move(next);
        parent = key.get();
    }
    return key;
}

std::string DwordText(const unsigned char* data)
{
    const std::uint32_t bits = data[0] | (data[1] << 8) | (data[2] << 16) | (std::uint32_t{data[3]} << 24);
    return std::to_string(static_cast<std::int32_t>(bits));
}

bool HasSubkeys(HKEY key)
{
    DWORD subkeys = 0;
    if (RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr, nullptr, nullptr, nullptr,
                         nullptr, nullptr) != ERROR_SUCCESS)
        return true;  // when in doubt, keep the key
    return subkeys > 0;
}

}  // namespace

bool WriteSetting(const std::string& section, const std::string& name, const std::string& value)
{
    const KeyPath path = PathTo(section);
    RegKey key = Walk(path, path.size(), true);
    if (!key) return false;
    // The registry cannot tell an empty text from a missing one on every
    // system, so an empty text is kept as one space.
    const std::string stored = value.empty() ? " " : value;
    return RegSetValueExA(key.get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(stored.data()),
                          static_cast<DWORD>(stored.size())) == ERROR_SUCCESS;
}

std::string ReadSetting(const std::string& section, const std::string& name)
{
    const KeyPath path = PathTo(section);
    RegKey key = Walk(path, path.size(), false);
    if (!key) return {};
    unsigned char data[kReadBuffer] = {};
    DWORD type = REG_NONE, size = kReadBuffer;
    if (RegQueryValueExA(key.get(), name.c_str(), nullptr, &type, data, &size) != ERROR_SUCCESS) return {};
    if (size > kReadBuffer) return {};
    switch (type) {
    case REG_SZ:
    case REG_EXPAND_SZ: {
        const std::size_t length = static_cast<std::size_t>(std::find(data, data + size, 0) - data);
        if (length >= kReadBuffer) return {};
        return std::string(reinterpret_cast<const char*>(data), length);
    }
    case REG_DWORD:
        return size == 4 ? DwordText(data) : std::string();
    default:
        return {};
    }
}

bool DeleteSettingKey(const std::string& subPath)
{
    KeyPath sub;
    AppendParts(sub, subPath);
    if (sub.empty()) return false;
    const KeyPath path = PathTo(subPath);
    RegKey parent = Walk(path, path.size() - 1, false);
    if (!parent) return false;
    {
        // Windows 95/98 would delete a whole tree; a key with subkeys stays.
        RegKey target = RegKey::Open(parent.get(), path.back(), KEY_READ);
        if (!target || HasSubkeys(target.get())) return false;
    }
    return RegDeleteKeyA(parent.get(), path.back().c_str()) == ERROR_SUCCESS;
}

std::vector<std::string> SettingSubkeys(const std::string& section)
{
    std::vector<std::string> names;
    const KeyPath path = PathTo(section);
    RegKey key = Walk(path, path.size(), false);
    if (!key) return names;
    for (DWORD index = 0;; ++index) {
        char name[kKeyNameBuffer];
        DWORD length = kKeyNameBuffer;
        const LONG result = RegEnumKeyExA(key.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr);
        if (result == ERROR_MORE_DATA) continue;
        if (result != ERROR_SUCCESS) break;
        names.emplace_back(name, length);
    }
    return names;
}

namespace {

class RegistryStore : public SettingsStore {
public:
    std::string Read(const std::string& section, const std::string& name) const override
    {
        return ReadSetting(section, name);
    }
    bool Write(const std::string& section, const std::string& name, const std::string& value) override
    {
        return WriteSetting(section, name, value);
    }
};

}  // namespace

SettingsStore& Registry()
{
    static RegistryStore store;
    return store;
}
