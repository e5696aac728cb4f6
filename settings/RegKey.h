// An owning registry key handle: closed once, by whoever holds it last.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

class RegKey {
public:
    RegKey() = default;
    explicit RegKey(HKEY key) : key_(key) {}
    RegKey(RegKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    RegKey& operator=(RegKey&& other) noexcept
    {
        if (this != &other) {
            Close();
            key_ = std::exchange(other.key_, nullptr);
        }
        return *this;
    }
    RegKey(const RegKey&) = delete;
    RegKey& operator=(const RegKey&) = delete;
    ~RegKey() { Close(); }

    HKEY get() const { return key_; }
    explicit operator bool() const { return key_ != nullptr; }

    // The existing subkey `name` of `parent`, or an empty RegKey.
    static RegKey Open(HKEY parent, const std::string& name, REGSAM access)
    {
        HKEY key = nullptr;
        if (RegOpenKeyExA(parent, name.c_str(), 0, access, &key) != ERROR_SUCCESS) return {};
        return RegKey(key);
    }

    // The subkey `name` of `parent`, created when missing, or an empty RegKey.
    static RegKey Create(HKEY parent, const std::string& name, REGSAM access)
    {
        HKEY key = nullptr;
        if (RegCreateKeyExA(parent, name.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, access, nullptr, &key,
                            nullptr) != ERROR_SUCCESS)
            return {};
        return RegKey(key);
    }

private:
    void Close()
    {
        if (key_) RegCloseKey(key_);
        key_ = nullptr;
    }

    HKEY key_ = nullptr;
};
