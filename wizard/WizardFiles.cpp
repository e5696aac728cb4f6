// The wizard's file statements on real disks. A drive whose root cannot be
// found has no disk in it: a failure there is error 71, whatever the system
// said about the path, so the user is asked to insert one.
#include "WizardFiles.h"

#include <windows.h>

#include "ErrorTrap.h"
#include "KernelHandle.h"
#include "SchemeFiles.h"
#include "SchemeText.h"
#include "Win32Error.h"
#include "WizardText.h"
#include "modFileOp.h"

namespace {

// A folder that is there, the root of a drive too (an empty diskette's root
// lists nothing, so a search cannot tell).
bool FolderExists(std::string folder)
{
    if (folder.size() > 3 && folder.back() == '\\') folder.pop_back();
    const DWORD attributes = GetFileAttributesA(folder.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Raises "no disk" (71) when the path's drive has no root to be found.
void RequireDisk(const std::string& path)
{
    const bool lettered = path.size() >= 3 && path[1] == ':';
    if (lettered && !FolderExists(path.substr(0, 3)))
        throw RuntimeError(Err::DiskNotReady, RuntimeErrorText(Err::DiskNotReady));
}

[[noreturn]] void RaiseFileError(const std::string& path, DWORD code)
{
    RequireDisk(path);
    RaiseWin32Error(code);
}

class DiskFiles : public WizardFiles {
public:
    void MakeFolder(const std::string& folder) override
    {
        if (FolderExists(folder)) return;
        if (!CreateDirectoryA(folder.c_str(), nullptr)) RaiseFileError(folder, GetLastError());
    }

    void WriteMarker(const std::string& path) override
    {
        KernelHandle file(
            CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file.Valid()) RaiseFileError(path, GetLastError());
        const std::string text = kMarkerText;
        DWORD written = 0;
        DWORD failure = NO_ERROR;
        if (!::WriteFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr))
            failure = GetLastError();
        // A short write without an error is a full disk all the same.
        else if (written != text.size())
            failure = ERROR_DISK_FULL;
        if (failure == NO_ERROR) return;
        // A marker cut short would pass for a finished backup.
        file = KernelHandle();
        DeleteFileA(path.c_str());
        RaiseFileError(path, failure);
    }

    std::vector<std::string> Search(const std::string& folder) override
    {
        RequireDisk(folder);  // a listing of a missing drive is merely empty
        std::vector<std::string> schemes;
        for (const std::string& file : FileNames(folder + "*.fde"))
            if (IsSchemeFileName(file)) schemes.push_back(file);
        return schemes;
    }

    void ImportOne(const std::string& folder, const std::string& name) override
    {
        try {
            UpdateFadeReg(folder, name);
        } catch (const RuntimeError&) {
            RequireDisk(folder);
            throw;
        }
    }
};

WizardFiles*& Substitute()
{
    static WizardFiles* files = nullptr;
    return files;
}

}  // namespace

WizardFiles& TheWizardFiles()
{
    static DiskFiles disk;
    return Substitute() ? *Substitute() : disk;
}

void SetWizardFiles(WizardFiles* files) { Substitute() = files; }
