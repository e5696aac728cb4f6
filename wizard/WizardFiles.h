// What the backup wizard does to files, one statement a call, behind one
// small interface so that a test can make any statement fail with any
// run-time error number. Failures raise RuntimeError (ErrorTrap.h).
#pragma once

#include <string>
#include <vector>

class WizardFiles {
public:
    virtual ~WizardFiles() = default;
    // Creates the folder (a path ending in a backslash) unless it is there.
    virtual void MakeFolder(const std::string& folder) = 0;
    // Writes the marker file at `path`, replacing any file of that name.
    virtual void WriteMarker(const std::string& path) = 0;
    // The scheme files of `folder` (names with ".fde"), in directory order.
    virtual std::vector<std::string> Search(const std::string& folder) = 0;
    // Imports folder + name + ".fde" into the scheme `name`, reading only.
    virtual void ImportOne(const std::string& folder, const std::string& name) = 0;
};

// The files the wizard works on: the real ones unless a test put others in
// their place with SetWizardFiles (nullptr puts the real ones back).
WizardFiles& TheWizardFiles();
void SetWizardFiles(WizardFiles* files);
