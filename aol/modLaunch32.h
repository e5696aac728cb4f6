// What the program knows about the AOL installation and session without
// asking AOL: the version of its program file, whether it is signed on and
// under which names (read from the windows AOL shows), and starting AOL.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

// "3.0", "4.0", "5.0" ... from the version resource of folder\waol.exe;
// "" when it has none.
std::string AOLGetVersion(const std::string& folder);
// 1 when not signed on, 2 when signed on (a "Welcome, " window and no
// sign-on or goodbye screen).
long AOLIsOnline();
// Up to six screen names: the sign-on list when AOL shows one, else the name
// of the "Welcome, " window. Unused slots are "".
void AOLGetScreenName(const std::string& folderWithSlash, std::string names[6]);

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

// The full path of the program that owns `window` ("" when unknown).
std::string WindowProgramPath(HWND window);
