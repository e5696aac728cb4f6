// modPrismo: start-up. Main checks where the program runs, attaches to AOL
// or starts it, shows the loading window, loads the user's settings and
// schemes, adds the program's menu to AOL, starts the chat session and opens
// the control panel.
#pragma once

#include <string>

// The whole start-up; returns normally only when the control panel is up.
// Every refusal ends the program inside.
void Main(const std::string& commandLine);

// Ends the program unless it runs on Windows 95 or 98.
void OS_Check();
// Ends the program when Tunebox 32 is running.
void CheckForTunebox();
// Ends the program when `fileName` is missing beside the program; with
// `registerIt`, also registers it silently.
void RegSvr(const std::string& fileName, bool registerIt);
// True when another copy of the program already runs. The first copy holds
// its claim until it ends.
bool AnotherInstanceRunning();

// Asks for AOL's folder with the folder picker and stores it as "AOL Path".
// firstRun 1 (start-up): welcomes first, and a Cancel ends the program;
// firstRun 0 (the "CHANGEAOL" start): tells where AOL will start next time.
void GetAOLPath(int firstRun);

// The host the upgrade check asks for the posted version.
std::string UpgradeHost();
// Compares the posted version (as the check read it) with the running one
// and shows the answer in frmUpdate.
void UpgradeNotify();

// Stops the chat session (its hooks leave AOL), unloads every form and ends
// the program.
[[noreturn]] void EndProgram();
