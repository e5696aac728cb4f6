// Test helpers that work on the real registry and the real file system under
// Wine, independently of the code under test: resetting the program's key and
// a test's folders, raw registry reads and writes, and the shipped schemes.
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

namespace TestEnv {

// Deletes HKCU\Software\Zun Software\Prismo with everything under it.
void ResetProgramKey();
// Deletes root + section with everything under it (the program's key stays).
void DeleteSection(const std::string& section);

// True when root + section exists (opened read-only, never created).
bool SectionExists(const std::string& section);
// True when the program's key itself exists.
bool ProgramKeyExists();

// Stores raw data of any type under root + section (created when missing).
void RawSet(const std::string& section, const std::string& name, DWORD type, const std::string& bytes);
// The raw type and bytes of a value; false when it is missing.
bool RawGet(const std::string& section, const std::string& name, DWORD& type, std::string& bytes);

// Every value under the program's key, by "section|name" (section as the
// key path below the program's key), each as its type and bytes; `keys`
// receives every key below the program's key ("Schemes\Cool Fade").
std::map<std::string, std::pair<DWORD, std::string>> ProgramTree(std::vector<std::string>* keys = nullptr);

// Writes the shipped schemes into the registry from the installer's
// REGEDIT4 file (data/schemes/Schemes.reg), as the installer will.
void InstallShippedSchemes();
// The folder holding the shipped scheme files, ending with a separator.
std::string ShippedSchemesFolder();

// Empties `folder` (a path without trailing backslash), creating it when
// missing; read-only files are made writable first.
void CleanFolder(const std::string& folder);
// Deletes `folder` and everything in it.
void RemoveFolder(const std::string& folder);
// Writes a file's bytes, creating or replacing it.
void PutFile(const std::string& path, const std::string& bytes);
// The plain files of a folder (no trailing backslash), sorted.
std::vector<std::string> FilesIn(const std::string& folder);

}  // namespace TestEnv
