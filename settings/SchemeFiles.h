// Scheme files (".fde") on disk: writing a stored scheme out, importing a
// file into the store, and the automatic import of files that arrive through
// AOL. Folders passed in end with a backslash.
#pragma once

#include <functional>
#include <string>

// P: the folder of the running program file, without a trailing backslash.
std::string ProgramFolder();
// P + "\incoming\": scheme files waiting to be imported.
std::string IncomingFolder();
// P + "\outgoing\": scheme files written for e-mailing.
std::string OutgoingFolder();
// Creates the two folders when they are missing; errors are ignored.
void MakeSchemeFolders();

// Writes the stored scheme `name` to folder + name + ".fde", replacing any
// file of that name. Errors are ignored.
void WriteSchemeFile(const std::string& name, const std::string& folder);

// Imports folder + name + ".fde" into "Schemes\" + name; the file is only
// read. A file that cannot be opened raises RuntimeError; a failure while
// storing goes to the common error report ("UpdateFadeReg" in "frmWizard").
void UpdateFadeReg(const std::string& folder, const std::string& name);

// Moves every "*.fde" file of `sourceFolder` into P + "\incoming\". A file
// that cannot be copied stays where it is. Errors are ignored.
void MoveSchemeFiles(const std::string& sourceFolder);

// Receives the loading window's status text.
using SchemeStatus = std::function<void(const std::string&)>;

// The automatic import: collects the scheme files from AOL's folder, its
// "\download\" folder and P into P + "\incoming\", then imports every
// "*.fde" file of `folder` and deletes it. Errors are ignored.
void UpdateFadeSchemes(const std::string& folder, const SchemeStatus& status = {});
