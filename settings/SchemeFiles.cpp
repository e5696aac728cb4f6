// Scheme files on disk and the import of arriving scheme files.
#include "SchemeFiles.h"

#include "AOLState.h"
#include "Catalog.h"
#include "ErrorTrap.h"
#include "Schemes.h"
#include "KernelHandle.h"
#include "SchemeText.h"
#include "Win32Error.h"
#include "modFileOp.h"
#include "modRegKeys.h"

#include <windows.h>

namespace {

constexpr char kSchemeExtension[] = ".fde";
constexpr char kSchemePattern[] = "*.fde";

KernelHandle OpenForReading(const std::string& path)
{
    KernelHandle file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.Valid()) RaiseLastError();
    return file;
}

// Passes each line of the open file to `line`, reading a piece at a time, so
// a file of any size or content holds no more than a piece and a line.
void ReadSchemeLines(const KernelHandle& file, const std::function<void(const std::string&)>& line)
{
    SchemeLineSplitter splitter;
    char piece[16384];
    DWORD read = 0;
    while (::ReadFile(file.Get(), piece, sizeof piece, &read, nullptr) && read > 0) splitter.Add(piece, read, line);
    splitter.Finish(line);
}

void StoreSchemeLines(const KernelHandle& file, const std::string& name)
{
    const std::string section = SchemeSection(name);
    ReadSchemeLines(file, [&](const std::string& line) { ParseSchemeLine(Registry(), section, line); });
}

}  // namespace

std::string ProgramFolder()
{
    char path[MAX_PATH + 1] = {};
    const DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string file(path, length);
    const auto slash = file.find_last_of('\\');
    return slash == std::string::npos ? std::string() : file.substr(0, slash);
}

std::string IncomingFolder() { return ProgramFolder() + "\\incoming\\"; }
std::string OutgoingFolder() { return ProgramFolder() + "\\outgoing\\"; }

void MakeSchemeFolders()
{
    for (const std::string& folder : {IncomingFolder(), OutgoingFolder()})
        if (!DirExists(folder)) ErrorTrap::Ignoring([&] { MkDir(folder); });
}

void WriteSchemeFile(const std::string& name, const std::string& folder)
{
    WriteFile(folder + name + kSchemeExtension, FormatSchemeFile(ReadScheme(Registry(), name)));
}

void UpdateFadeReg(const std::string& folder, const std::string& name)
{
    // Backups often sit on write-protected disks: the file is only read, and
    // one that cannot be opened is the caller's to handle.
    const KernelHandle file = OpenForReading(folder + name + kSchemeExtension);
    ErrorTrap trap("frmWizard", "UpdateFadeReg");
    trap.Run([&] { StoreSchemeLines(file, name); });
}

void MoveSchemeFiles(const std::string& sourceFolder)
{
    const std::string incoming = IncomingFolder();
    for (const std::string& file : FileNames(sourceFolder + kSchemePattern)) {
        if (!IsSchemeFileName(file)) continue;
        // A file that could not be copied is left in place, not lost.
        if (ErrorTrap::Ignoring([&] { FileCopy(sourceFolder + file, incoming + file); }))
            ErrorTrap::Ignoring([&] { Kill(sourceFolder + file); });
    }
}

void UpdateFadeSchemes(const std::string& folder, const SchemeStatus& status)
{
    if (status) status("Updating Fade Schemes");
    // Before start-up has found AOL there is no AOL folder to collect from.
    if (!AOLPath.empty()) {
        MoveSchemeFiles(AOLPath + "\\");
        MoveSchemeFiles(AOLPath + "\\download\\");
    }
    MoveSchemeFiles(ProgramFolder() + "\\");
    // The folder is listed once, so a file that cannot be deleted is passed
    // over instead of being imported again and again.
    const std::string extension = kSchemeExtension;
    for (const std::string& file : FileNames(folder + kSchemePattern)) {
        if (!IsSchemeFileName(file)) continue;
        const std::string name = file.size() > extension.size() ? file.substr(0, file.size() - extension.size()) : "";
        // A file called just ".fde" names no scheme; importing it would write
        // into the "Schemes" key itself.
        if (!name.empty()) ErrorTrap::Ignoring([&] { StoreSchemeLines(OpenForReading(folder + file), name); });
        ErrorTrap::Ignoring([&] { Kill(folder + file); });
    }
}
