// The backup wizard's words and decisions.
#include "WizardText.h"

#include <algorithm>
#include <cctype>

#include "SchemeText.h"

namespace {

std::string Lower(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

std::string Upper(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
    return text;
}

std::string Trim(const std::string& text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

constexpr long kCritical = 16, kAbortRetryIgnore = 2;

}  // namespace

bool OfferedDrive(int driveType) { return driveType == kDriveRemovable || driveType == kDriveFixed; }

std::string IsFloppy(const std::string& root, int driveType)
{
    const std::string drive = Upper(root);
    if (drive == "A:\\" || drive == "B:\\") return "Floppy Drive (recommended)";
    if (drive == "C:\\") return "Hard Disk (not recommended)";
    if (driveType == kDriveRemovable) return "Removable Drive";
    if (driveType == kDriveFixed) return "Hard Disk (not recommended)";
    return "";
}

std::string DriveCaption(const std::string& root, int driveType)
{
    return "( " + root + " ) " + IsFloppy(root, driveType);
}

std::string TrimDriveLetter(const std::string& caption)
{
    const std::string start = Lower(caption.substr(0, 5));
    return start.size() > 2 ? start.substr(2) : "";
}

std::string GetDriveFormat(const std::string& caption)
{
    const auto close = caption.find(')');
    if (close == std::string::npos) return "";
    std::string kind = caption.substr(close + 1);
    const auto open = kind.find('(');
    if (open != std::string::npos) kind.erase(open);
    return Trim(kind);
}

std::optional<std::string> SubFolderOf(const std::string& answer)
{
    if (answer.empty()) return std::nullopt;
    std::string folder = answer[0] == '\\' ? answer.substr(1) : answer;
    if (folder.empty()) return std::string();
    if (folder.back() != '\\') folder += '\\';
    return folder;
}

std::string ExportAdvice(const std::string& driveKind, const std::string& driveRoot)
{
    const std::string drive = Upper(driveRoot);
    if (driveKind == "Floppy Drive")
        return "Please insert a floppy diskette into the Floppy Drive \"" + drive + "\" and click \"Next\" to continue.";
    if (driveKind == "Hard Disk")
        return "It is not recommended that you use your hard drive to Export (back up) your Fade Scheme settings "
               "to.  If you are sure of this selection, click \"Next\" to continue.";
    if (driveKind == "Removable Drive")
        return "Please insert the appropriate storage media (i.e. - Disk, Tape, etc.) into Removable Drive \"" +
               drive + "\" and click \"Next\" to continue.";
    return "";
}

std::string FilesToCopyText(int mode)
{
    if (mode == ModeExport)
        return "This feature will backup the following Fade Schemes from your existing copy of Prismo.\r\n\r\n"
               "This feature will NOT back up the Prismo program itself.  It is only designed to back up your Fade "
               "Schemes!\r\n\r\n";
    return "This feature will restore to your existing copy of Prismo the following saved Fade Schemes\r\n\r\n";
}

WizardProgress MoveProgress(long done, int total)
{
    done = std::min(done + 1, static_cast<long>(std::max(total, 0)));
    // A copy that finds more files than it listed stays full, not past it.
    const int percent = total > 0 ? static_cast<int>(done * 100 / total) : 100;
    return {done, percent};
}

WizardFailure FailureFor(int number, int mode)
{
    const bool exporting = mode == ModeExport;
    const WizardFailure accessError{FailureAction::AbortRetryIgnore,
                                    "~B~CRFile/Path access error!~B~CN~N ~NThe diskette in the disk drive is "
                                    "~Bcorrupted~B.~N ~NPlease try another diskette.",
                                    kAbortRetryIgnore + kCritical};
    const WizardFailure report{FailureAction::Report, "", 0};
    switch (number) {
    case 5:
    case 53:
    case 76:
        return {FailureAction::Ignore, "", 0};
    case 58:
        return exporting ? report : WizardFailure{FailureAction::Ignore, "", 0};
    case 52:
        return exporting ? report : accessError;
    case 57:
    case 75:
        return accessError;
    case 61:
        if (!exporting) return report;
        return {FailureAction::TellAndEnd,
                "~B~CRDisk is full!~B~CN~N ~NPlease free up some space on this disk and try this operation again.",
                kCritical};
    case 70:
        return {FailureAction::AbortRetryIgnore,
                "~B~CRPermission Denied!~B~CN~N ~NThe diskette in the disk drive is ~Bwrite-protected~B.",
                kAbortRetryIgnore + kCritical};
    case 71:
        return {FailureAction::TellAndRepeat,
                exporting ? "~B~CRNo disk present!~B~CN~N ~NPlease insert a disk now and click ~BOK~B"
                          : "There is ~B~CRno disk present~B~CN in the disk drive!~N ~NPlease insert a disk now and "
                            "click ~BOK~B",
                kCritical};
    default:
        return report;
    }
}

std::string UnexportedNamesMessage(const std::vector<std::string>& names)
{
    return UnfitNamesMessage("These Fade Schemes were not exported:", names, "export them again.");
}
