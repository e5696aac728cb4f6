// Registry and folder helpers for the Wine tests, written against the raw
// Win32 API so that they do not share the code they check.
#include "WineRegistry.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace TestEnv {

namespace {

const char kRoot[] = "Software\\Zun Software\\Prismo";

std::string KeyPath(const std::string& section)
{
    return section.empty() ? kRoot : std::string(kRoot) + "\\" + section;
}

void DeleteTree(HKEY parent, const std::string& name)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(parent, name.c_str(), 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) return;
    for (;;) {
        char child[512];
        DWORD length = sizeof child;
        if (RegEnumKeyExA(key, 0, child, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        DeleteTree(key, child);
    }
    RegCloseKey(key);
    RegDeleteKeyA(parent, name.c_str());
}

void Walk(HKEY key, const std::string& path, std::vector<std::string>& keys,
          std::map<std::string, std::pair<DWORD, std::string>>& values)
{
    for (DWORD i = 0;; ++i) {
        char name[16384];
        DWORD nameLength = sizeof name, type = 0, size = 0;
        if (RegEnumValueA(key, i, name, &nameLength, nullptr, &type, nullptr, &size) != ERROR_SUCCESS) break;
        std::string data(size, '\0');
        nameLength = sizeof name;
        RegEnumValueA(key, i, name, &nameLength, nullptr, &type, reinterpret_cast<BYTE*>(&data[0]), &size);
        data.resize(size);
        values[path + "|" + std::string(name, nameLength)] = {type, data};
    }
    for (DWORD i = 0;; ++i) {
        char name[512];
        DWORD length = sizeof name;
        if (RegEnumKeyExA(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        const std::string child = path.empty() ? name : path + "\\" + name;
        keys.push_back(child);
        HKEY sub = nullptr;
        if (RegOpenKeyExA(key, name, 0, KEY_READ, &sub) == ERROR_SUCCESS) {
            Walk(sub, child, keys, values);
            RegCloseKey(sub);
        }
    }
}

std::string Unquote(const std::string& quoted)
{
    std::string out;
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
        if (quoted[i] == '\\' && i + 2 < quoted.size()) ++i;
        out += quoted[i];
    }
    return out;
}

std::string SourceFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + path);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

}  // namespace

void ResetProgramKey() { DeleteTree(HKEY_CURRENT_USER, kRoot); }

void DeleteSection(const std::string& section)
{
    if (!section.empty()) DeleteTree(HKEY_CURRENT_USER, KeyPath(section));
}

bool SectionExists(const std::string& section)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, KeyPath(section).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

bool ProgramKeyExists() { return SectionExists(""); }

void RawSet(const std::string& section, const std::string& name, DWORD type, const std::string& bytes)
{
    HKEY key = nullptr;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, KeyPath(section).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr) != ERROR_SUCCESS)
        throw std::runtime_error("cannot create " + section);
    RegSetValueExA(key, name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                   static_cast<DWORD>(bytes.size()));
    RegCloseKey(key);
}

bool RawGet(const std::string& section, const std::string& name, DWORD& type, std::string& bytes)
{
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, KeyPath(section).c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    DWORD size = 0;
    LONG result = RegQueryValueExA(key, name.c_str(), nullptr, &type, nullptr, &size);
    if (result == ERROR_SUCCESS) {
        bytes.assign(size, '\0');
        result = RegQueryValueExA(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&bytes[0]), &size);
        bytes.resize(size);
    }
    RegCloseKey(key);
    return result == ERROR_SUCCESS;
}

std::map<std::string, std::pair<DWORD, std::string>> ProgramTree(std::vector<std::string>* keys)
{
    std::map<std::string, std::pair<DWORD, std::string>> values;
    std::vector<std::string> found;
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_CURRENT_USER, kRoot, 0, KEY_READ, &key) == ERROR_SUCCESS) {
        Walk(key, "", found, values);
        RegCloseKey(key);
    }
    if (keys) *keys = found;
    return values;
}

std::string ShippedSchemesFolder() { return PRISMO_SCHEMES_DIR; }

void InstallShippedSchemes()
{
    std::istringstream lines(SourceFile(ShippedSchemesFolder() + "Schemes.reg"));
    const std::string prefix = std::string("[HKEY_CURRENT_USER\\") + kRoot + "\\";
    std::string line, section;
    while (std::getline(lines, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.rfind(prefix, 0) == 0) {
            section = line.substr(prefix.size(), line.size() - prefix.size() - 1);
        } else if (!line.empty() && line[0] == '"') {
            const std::size_t split = line.find("\"=\"");
            const std::string value = Unquote(line.substr(split + 2));
            RawSet(section, Unquote(line.substr(0, split + 1)), REG_SZ, value);
        }
    }
}

void CleanFolder(const std::string& folder)
{
    RemoveFolder(folder);
    CreateDirectoryA(folder.c_str(), nullptr);
}

void RemoveFolder(const std::string& folder)
{
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            const std::string name = found.cFileName;
            if (name == "." || name == "..") continue;
            const std::string path = folder + "\\" + name;
            if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
                RemoveFolder(path);
            } else {
                SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
                DeleteFileA(path.c_str());
            }
        } while (FindNextFileA(search, &found));
        FindClose(search);
    }
    RemoveDirectoryA(folder.c_str());
}

void PutFile(const std::string& path, const std::string& bytes)
{
    HANDLE file = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot create " + path);
    DWORD written = 0;
    ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

std::vector<std::string> FilesIn(const std::string& folder)
{
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) names.push_back(found.cFileName);
    } while (FindNextFileA(search, &found));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace TestEnv
