// The upgrade check's fixed texts and decisions: WinInet's error texts, the
// split and comparison of "major.minor.revision" versions, and what the
// result window says. Portable.
#pragma once

#include <string>

namespace UpgradeText {
extern const char PleaseWait[];      // the wait window's heading
extern const char NewRevision[];     // a newer version is posted
extern const char Latest[];          // the same version is posted
extern const char BetaTester[];      // an older version is posted
extern const char NetErrorPrefix[];  // before WinInet's text, when the check could not read
extern const char VersionFile[];     // the version file's path on the web site
extern const char DownloadPage[];    // the download page's path on the web site
}  // namespace UpgradeText

// WinInet's text for the error `number`; "Error details not available." for
// any number it does not describe.
std::string TranslateErrorCode(long number);

// The critical-error message for a posted text that is no version at all.
std::string CriticalErrorText(const std::string& siteName, const std::string& supportAddress);

// A version text cut at its first "." into major and the rest, and the rest
// at its first "." into minor and revision. Parts that are missing are "".
struct VersionParts {
    std::string major, minor, revision;
};
VersionParts SplitVersion(const std::string& version);

// One part as a 16-bit number. A part that is not a whole number raises
// error 13, a number past 16 bits error 6 (a RuntimeError).
int VersionPartValue(const std::string& part);

enum class UpgradeVerdict { Newer, Same, Older };

// The posted version against the running one, part by part (major, minor,
// revision), the first difference deciding. Raises as VersionPartValue does
// for any of the six parts.
UpgradeVerdict CompareVersions(const std::string& running, const std::string& posted);

// The posted text without the blanks and line ends around it.
std::string TrimPosted(const std::string& text);
