// Win32 error codes to run-time error numbers.
#include "Win32Error.h"

#include "ErrorTrap.h"

#include <windows.h>

namespace {

struct CodeNumber {
    DWORD code;
    int number;
};

// Codes not listed here are an unspecified access failure (75).
constexpr CodeNumber kNumbers[] = {
    {ERROR_FILE_NOT_FOUND, Err::FileNotFound},
    {ERROR_PATH_NOT_FOUND, Err::PathNotFound},
    {ERROR_BAD_NETPATH, Err::PathNotFound},
    {ERROR_INVALID_DRIVE, Err::PathNotFound},
    {ERROR_ACCESS_DENIED, Err::PathFileAccess},
    {ERROR_SHARING_VIOLATION, Err::PermissionDenied},
    {ERROR_LOCK_VIOLATION, Err::PermissionDenied},
    {ERROR_WRITE_PROTECT, Err::PermissionDenied},
    {ERROR_NOT_READY, Err::DiskNotReady},
    {ERROR_DISK_FULL, Err::DiskFull},
    {ERROR_HANDLE_DISK_FULL, Err::DiskFull},
    {ERROR_FILE_EXISTS, Err::FileExists},
    {ERROR_ALREADY_EXISTS, Err::FileExists},
    {ERROR_INVALID_NAME, Err::BadFileNameOrNumber},
    {ERROR_BAD_PATHNAME, Err::BadFileNameOrNumber},
    {ERROR_FILENAME_EXCED_RANGE, Err::BadFileNameOrNumber},
    {ERROR_INVALID_HANDLE, Err::BadFileNameOrNumber},
    {ERROR_CRC, Err::DeviceIO},
    {ERROR_READ_FAULT, Err::DeviceIO},
    {ERROR_WRITE_FAULT, Err::DeviceIO},
    {ERROR_GEN_FAILURE, Err::DeviceIO},
    {ERROR_SECTOR_NOT_FOUND, Err::DeviceIO},
    {ERROR_INVALID_PARAMETER, Err::AccessDenied},
};

struct NumberText {
    int number;
    const char* text;
};

constexpr NumberText kTexts[] = {
    {Err::AccessDenied, "Invalid procedure call or argument"},
    {Err::TypeMismatch, "Type mismatch"},
    {Err::BadFileNameOrNumber, "Bad file name or number"},
    {Err::FileNotFound, "File not found"},
    {Err::DeviceIO, "Device I/O error"},
    {Err::FileExists, "File already exists"},
    {Err::DiskFull, "Disk full"},
    {Err::PermissionDenied, "Permission denied"},
    {Err::DiskNotReady, "Disk not ready"},
    {Err::PathFileAccess, "Path/File access error"},
    {Err::PathNotFound, "Path not found"},
};

}  // namespace

int RuntimeErrorNumber(unsigned long win32Code)
{
    for (const CodeNumber& entry : kNumbers)
        if (entry.code == win32Code) return entry.number;
    return Err::PathFileAccess;
}

std::string RuntimeErrorText(int number)
{
    for (const NumberText& entry : kTexts)
        if (entry.number == number) return entry.text;
    return "Application-defined or object-defined error";
}

void RaiseWin32Error(unsigned long win32Code)
{
    const int number = RuntimeErrorNumber(win32Code);
    throw RuntimeError(number, RuntimeErrorText(number));
}

void RaiseLastError() { RaiseWin32Error(GetLastError()); }
