// The backup wizard's words and decisions, apart from any window: the drive
// choices and what their captions say, the sub-folder the user types, the
// texts that change with the mode and the drive, the progress arithmetic,
// and what each file error does to a copy.
#pragma once

#include <optional>
#include <string>
#include <vector>

// The wizard's two ways, as its mode field holds them.
enum WizardMode { ModeNone = 0, ModeExport = 1, ModeImport = 2 };

// Drive type numbers as the platform reports them; only these are offered.
inline constexpr int kDriveRemovable = 2, kDriveFixed = 3;
// At most this many drives are offered (optOne to optSeven).
inline constexpr int kDriveChoices = 7;

// The marker file an export leaves beside the scheme files, and its one line.
inline constexpr char kMarkerFileName[] = "importfde.key";
inline constexpr char kMarkerText[] =
    "Please do not delete this file as it is needed for restoring/importing Fade Scheme settings!\r\n";

// The description of a drive for its choice: floppies and C: by letter,
// others by type.
std::string IsFloppy(const std::string& root, int driveType);
// The caption of a drive's choice: "( A:\ ) Floppy Drive (recommended)".
std::string DriveCaption(const std::string& root, int driveType);
// True for the drive types the wizard offers: removable and fixed.
bool OfferedDrive(int driveType);

// The drive root of a choice's caption, in lower case: "a:\".
std::string TrimDriveLetter(const std::string& caption);
// The drive kind of a choice's caption: "Floppy Drive", "Hard Disk" or
// "Removable Drive".
std::string GetDriveFormat(const std::string& caption);

// The sub-folder kept from the input box's answer: one leading backslash
// dropped, a trailing one added. Nothing for an empty answer (nothing
// changes); "" when only a backslash was typed (no sub-folder).
std::optional<std::string> SubFolderOf(const std::string& answer);

// The confirmation page's advice for an export to a drive of `driveKind`;
// X in it is the drive root in capitals.
std::string ExportAdvice(const std::string& driveKind, const std::string& driveRoot);

// txtFiles: what the copy will and will not do.
std::string FilesToCopyText(int mode);

// The progress after one more scheme: schemes done (never past the total)
// and the bar's value, 0 to 100.
struct WizardProgress {
    long done;
    int percent;
};
WizardProgress MoveProgress(long done, int total);

// What a file error does to a copy.
enum class FailureAction {
    Ignore,              // go on with the next statement
    AbortRetryIgnore,    // ask: Abort ends the copy, Retry repeats, Ignore goes on
    TellAndEnd,          // a message, then the copy ends
    TellAndRepeat,       // a message, then the failed statement again
    Report,              // the program's common error report
};
struct WizardFailure {
    FailureAction action;
    std::string message;  // for the actions that show one
    long style;           // the message box style for it
};
WizardFailure FailureFor(int number, int mode);

// The one message naming the schemes an export left out for their names.
std::string UnexportedNamesMessage(const std::vector<std::string>& names);

// Fixed texts the wizard sets as it goes.
namespace WizardText {
inline constexpr char lblDrive[] =
    "Please select one of the following removable drives to Export your Fade Scheme setting to.";
inline constexpr char lblFromImport[] =
    "You are about to Import the following Fadae Schemes from this location:";
inline constexpr char lblFromExport[] = "You are about to Export the following Prismo Fade Schemes:";
inline constexpr char lblActionExport[] = "Prismo is ready to Export your settings!";
inline constexpr char lblActionImport[] = "Prismo is ready to Import your settings!";
inline constexpr char lblSaveExport[] = "Exporting to:";
inline constexpr char lblSaveImport[] = "Importing:";
inline constexpr char lblMsgImport[] =
    "If the above information is correct, please click the \"Next\" button to continue the Import process.  "
    "Otherwise, click \"Back\" to make the appropriate changes.";
inline constexpr char Preparing[] = "Preparing to copy files...";
inline constexpr char Copying[] = "Copying ";
inline constexpr char ExportCanceled[] = "Export Canceled";
inline constexpr char ImportCanceled[] = "Import Canceled";
inline constexpr char Label9Export[] = "Export Complete!";
inline constexpr char Label10Export[] =
    "A file named IMPORTFDE.KEY has been added to your backup disk/folder.  Please do not tamper with or delete "
    "this file as it will be needed to Import your Fade Scheme settings in the future!  :)";
inline constexpr char Label11Export[] = "Please click the \"Finish\" button to finish the Export process!";
inline constexpr char Label9Import[] = "Import Complete!";
inline constexpr char Label10Import[] =
    "It may be necessary to close and restart Prismo for some of these settings to take place.  Please do this "
    "now for the maximum results!";
inline constexpr char Label11Import[] =
    "Please click the \"Finish\" button to finish the Import process.  (This will *not* restart Prismo)";

inline constexpr char ChooseOption[] = "Please choose with the ~BImport~B or ~BExport~B option before continuing.";
inline constexpr char SelectDrive[] =
    "Please ~B~CRselect a drive letter~B~CN to Export your Fade Scheme settings to.";
inline constexpr char LocateKey[] =
    "The location for the ~BIMPORT.KEY~B file has not been specified.~N ~NPlease click the ~B~CRLocate "
    "IMPORT.KEY~B~CN button to locate this file before continuing.";
inline constexpr char NoSchemesKey[] =
    "~B~CRCannot open registry key't open key \"SCHEMES\"~B~CN~N ~NPlease reinstall Prismo to restore this "
    "registry key.~N ~NThis function will now end.";

inline constexpr char SubFolderPrompt[] =
    "Please enter the name of the sub-folder you would like to add to the Export path.";
inline constexpr char SubFolderDefault[] = "Prismo Schemes";
inline constexpr char KeyFilterName[] = "Prismo Import Key";
}  // namespace WizardText
