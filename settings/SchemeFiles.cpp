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

// Runs each step of an import either through a procedure's error trap or
// with errors ignored; false stops the import (the trap's Abort).
using StepRunner = std::function<bool(const std::function<void()>&)>;

// Passes each line of the file to `line`, reading a piece at a time, so a
// file of any size or content holds no more than a piece and a line.
void ReadSchemeLines(const std::string& path, const std::function<void(const std::string&)>& line)
{
    KernelHandle file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.Valid()) RaiseLastError();
    SchemeLineSplitter splitter;
    char piece[16384];
    DWORD read = 0;
    while (::ReadFile(file.Get(), piece, sizeof piece, &read, nullptr) && read > 0) splitter.Add(piece, read, line);
    splitter.Finish(line);
}

// Imports one file into "Schemes\" + name, step by step: make sure the file
// exists, then store its lines as they are read. Values the file does not
// hold stay.
void ImportSchemeFile(const std::string& path, const std::string& name, const StepRunner& run)
{
    if (!run([&] { TouchFile(path); })) return;
    const std::string section = SchemeSection(name);
    run([&] { ReadSchemeLines(path, [&](const std::string& line) { ParseSchemeLine(Registry(), section, line); }); });
}

bool IgnoreErrors(const std::function<void()>& step)
{
    ErrorTrap::Ignoring(step);
    return true;
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
    ErrorTrap trap("frmWizard", "UpdateFadeReg");
    ImportSchemeFile(folder + name + kSchemeExtension, name,
                     [&trap](const std::function<void()>& step) { return trap.Run(step); });
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
        if (!name.empty()) ImportSchemeFile(folder + file, name, IgnoreErrors);
        ErrorTrap::Ignoring([&] { Kill(folder + file); });
    }
}
