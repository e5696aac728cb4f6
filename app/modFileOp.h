// Whole-file operations the program shares: does a path exist, read or write
// a file in one piece, and the few statements the scheme files need (list,
// copy, delete, create). Failures raise RuntimeError with the run-time error
// number of the Win32 failure, unless a function says it ignores them.
#pragma once

#include <string>
#include <vector>

// True when a search for the path finds anything: a file, a folder, or any
// match of a wildcard pattern.
bool FileExists(const std::string& path);

// True when the path is not empty and a search that includes folders finds
// it; a path ending in "\" asks whether that folder can be listed. Any error
// gives false.
bool DirExists(const std::string& path);

// The whole file as bytes; with `atMost`, no more than its first `atMost`
// bytes (a huge file need not be read to be refused).
std::string ReadFile(const std::string& path, std::size_t atMost = static_cast<std::size_t>(-1));

// Creates or truncates the file and writes `text` as it stands, without a
// line end. Errors are ignored; the result says whether it was written.
bool WriteFile(const std::string& path, const std::string& text);

// The names (without folder) of the plain files matching `pattern`, in
// directory order; folders, hidden and system files are left out. An
// unmatched pattern or a missing folder gives none.
std::vector<std::string> FileNames(const std::string& pattern);

// Copies a file, replacing the target.
void FileCopy(const std::string& source, const std::string& target);

// Deletes a file.
void Kill(const std::string& path);

// Creates a folder.
void MkDir(const std::string& path);
