// The one place where a Win32 error code becomes one of the program's
// run-time error numbers (see ErrorTrap.h), so every handler keys on the
// same numbers whatever the system call was.
#pragma once

#include <string>

// The run-time error number for a Win32 error code.
int RuntimeErrorNumber(unsigned long win32Code);

// The description that goes with a run-time error number.
std::string RuntimeErrorText(int number);

// Throws the RuntimeError for a Win32 error code.
[[noreturn]] void RaiseWin32Error(unsigned long win32Code);

// Throws the RuntimeError for the calling thread's last Win32 error.
[[noreturn]] void RaiseLastError();
