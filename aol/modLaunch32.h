// What the program knows about the AOL installation and session without
// asking AOL: the version of its program file, whether it is signed on and
// under which names (read from the windows AOL shows), and starting AOL.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

// "3.0", "4.0", "5.0" ... from the version resource of folder\waol.exe;
// "" when it has none.
std::string AOLGetVersion(const std::string& folder);
// 1 when not signed on, 2 when signed on: AOL's "Sign Off" command can be
// chosen (see the reasoning beside it).
long AOLIsOnline();
// The account's screen names while signed on: the names last read from the
// sign-on list, master first; with none ever read, the name now signed on in
// slot 1 (from the Welcome window, which AOL is asked to show again when it
// was closed). Unused slots are "". True when slot 1 is the master name.
bool AOLGetScreenName(const std::string& folderWithSlash, std::string names[6]);
// Keeps the account's names as just read from the sign-on list, in its order.
void RememberSignOnNames(const std::vector<std::string>& names);

// Sets AOLVersion from AOLGetVersion(AOLPath); other versions leave it alone.
void GetAOLVersion();

// The loading window's steps: a status text ("" keeps the last) and a percentage.
using LoadingProgress = std::function<void(const std::string& status, int percent)>;

// For an AOL already running: refuses a 16-bit client (false, after telling
// the user; the program ends), else sets AOLWindow and AOLPath, saves the
// path and maximises AOL.
bool AOLIsRunning(const LoadingProgress& progress);

// Asks the user for AOL's folder (the folder picker), storing "AOL Path".
using AOLFolderChooser = std::function<void(int firstRun)>;

// Starts AOL from "AOL Path" (asking for the folder when needed) and waits,
// without limit, for its main window. False when there is no folder to start.
bool StartAOL(const LoadingProgress& progress, const AOLFolderChooser& chooseFolder);

// The full path of the AOL program (a module named WAOL.EXE) in the process
// that owns `window`; "" when that process has none.
std::string WindowProgramPath(HWND window);
