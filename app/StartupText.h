// The fixed texts and small decisions of start-up: its refusals, the loading
// window's status lines, and what counts as Tunebox. Portable.
#pragma once

#include <string>

namespace StartupText {
extern const char AlreadyRunning[];
extern const char WindowsNT[];
extern const char NotWindows9x[];
extern const char Tunebox[];
extern const char Welcome[];
extern const char PathRequired[];
}  // namespace StartupText

// The missing-runtime-file message naming `fileName`.
std::string MissingRuntimeFileText(const std::string& fileName);

// The refusal of an AOL whose version is neither 4 nor 5.
std::string WrongAOLVersionText(const std::string& version);

// "AOL Version 4.0 UK Determined" and the like; the first edition flag set
// wins, in the order UK, Canada, Australia; none is the US edition.
std::string VersionDeterminedText(const std::string& version, bool uk, bool canada, bool australia);

// The loading window's line after the screen names are read. Only names
// read from the sign-on list name the master: "Master Screen Name: " + it.
// Otherwise only the name now signed on is known, and the line says so much
// and no more.
std::string ScreenNameStatusText(const std::string& firstName, bool isMaster);

// What a "CHANGEAOL" start tells the user about the folder chosen.
std::string NextStartText(const std::string& folder);

// True when a process path names the Tunebox program, in any letter case.
bool IsTuneboxPath(const std::string& path);

// The "CHANGEAOL" command line: the whole text, exactly.
bool IsChangeAOLCommand(const std::string& commandLine);

// The platform ids GetVersionEx reports.
enum class OSVerdict { Windows9x, WindowsNT, Other };
OSVerdict ClassifyPlatform(unsigned long platformId);
