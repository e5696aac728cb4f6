// Whether a process has a module loaded, from ToolHelp's list of its modules:
// the tests' way to see that prismosbc.dll has really left AOL's process.
#pragma once

#include <windows.h>
#include <tlhelp32.h>

#include <string>

inline bool ProcessHoldsModule(DWORD pid, const std::string& name)
{
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, pid);
    if (snapshot == INVALID_HANDLE_VALUE) return false;
    MODULEENTRY32 entry = {};
    entry.dwSize = sizeof entry;
    bool found = false;
    for (BOOL more = Module32First(snapshot, &entry); more && !found; more = Module32Next(snapshot, &entry))
        found = lstrcmpiA(entry.szModule, name.c_str()) == 0;
    CloseHandle(snapshot);
    return found;
}
