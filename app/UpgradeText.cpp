// The upgrade check's texts and its version comparison.
#include "UpgradeText.h"

#include <cctype>

#include "ErrorTrap.h"

namespace UpgradeText {
const char PleaseWait[] = "Please wait while Prismo checks for an upgrade.";
const char NewRevision[] =
    "Prismo Live Upgrade Notifier has determined that there is a new revision of Prismo.  Do you wish to go to "
    "the Prismo download page now?";
const char Latest[] =
    "Prismo Live Upgrade Notifier has determined that you already have the latest version of Prismo available.  "
    "No upgrade is required at this time.";
const char BetaTester[] =
    "Prismo Live Upgrade Notifier has determined that your revision of Prismo is newer then the revision posted. "
    "So you must be a Beta tester!  :)";
const char NetErrorPrefix[] = "~BLive Upgrade Notify Error~B: ~N ~N";
const char VersionFile[] = "/prismover32";
const char DownloadPage[] = "/prismo/update.html";
}  // namespace UpgradeText

std::string TranslateErrorCode(long number)
{
    // Several texts end with a blank: WinInet's own wording, kept as it is.
    static const char* const texts[] = {
        "No more handles could be generated at this time",
        "The request has timed out.",
        "An extended error was returned from the server.",
        "An internal error has occurred.",
        "The URL is invalid.",
        "The URL scheme could not be recognized, or is not supported.",
        "The server name could not be resolved.",
        "The requested protocol could not be located.",
        "A request to InternetQueryOption or InternetSetOption specified an invalid option value.",
        "The length of an option supplied to InternetQueryOption or InternetSetOption is incorrect for the type "
        "of option specified.",
        "The request option can not be set, only queried. ",
        "The Win32 Internet support is being shutdown or unloaded.",
        "The request to connect and login to an FTP server could not be completed because the supplied user name "
        "is incorrect.",
        "The request to connect and login to an FTP server could not be completed because the supplied password "
        "is incorrect. ",
        "The request to connect to and login to an FTP server failed.",
        "The requested operation is invalid. ",
        "The operation was canceled, usually because the handle on which the request was operating was closed "
        "before the operation completed.",
        "The type of handle supplied is incorrect for this operation.",
        "The requested operation can not be carried out because the handle supplied is not in the correct state.",
        "The request can not be made via a proxy.",
        "A required registry value could not be located. ",
        "A required registry value was located but is an incorrect type or has an invalid value.",
        "Direct network access cannot be made at this time. ",
        "An asynchronous request could not be made because a zero context value was supplied.",
        "An asynchronous request could not be made because a callback function has not been set.",
        "The required operation could not be completed because one or more requests are pending.",
        "The format of the request is invalid.",
        "The requested item could not be located.",
        "The attempt to connect to the server failed.",
        "The connection with the server has been terminated.",
        "The connection with the server has been reset.",
    };
    constexpr long first = 12001, count = sizeof texts / sizeof texts[0];
    if (number >= first && number < first + count) return texts[number - first];
    if (number == 12036) return "The request failed because the handle already exists.";
    return "Error details not available.";
}

std::string CriticalErrorText(const std::string& siteName, const std::string& supportAddress)
{
    return "There was a ~B~CRcritical error~B~CN in retreiving data from ~B" + siteName +
           "~B website!~B~N ~N~BPlease E-Mail ~B~CB" + supportAddress + "~B~CN for further assistance!";
}

VersionParts SplitVersion(const std::string& version)
{
    VersionParts parts;
    const auto first = version.find('.');
    parts.major = version.substr(0, first);
    if (first == std::string::npos) return parts;
    const std::string rest = version.substr(first + 1);
    const auto second = rest.find('.');
    parts.minor = rest.substr(0, second);
    if (second != std::string::npos) parts.revision = rest.substr(second + 1);
    return parts;
}

int VersionPartValue(const std::string& part)
{
    const auto first = part.find_first_not_of(' ');
    if (first == std::string::npos) throw RuntimeError(Err::TypeMismatch, "Type mismatch");
    const auto last = part.find_last_not_of(' ');
    std::size_t i = first;
    const bool negative = part[i] == '-';
    if (part[i] == '-' || part[i] == '+') ++i;
    if (i > last) throw RuntimeError(Err::TypeMismatch, "Type mismatch");
    long value = 0;
    bool overflow = false;
    for (; i <= last; ++i) {
        const auto c = static_cast<unsigned char>(part[i]);
        if (!std::isdigit(c)) throw RuntimeError(Err::TypeMismatch, "Type mismatch");
        // Past 16 bits stays past: no need to hold the whole number.
        if (!overflow) value = value * 10 + (c - '0');
        if (value > 32768) overflow = true;
    }
    if (negative) value = -value;
    if (overflow || value > 32767 || value < -32768) throw RuntimeError(Err::Overflow, "Overflow");
    return static_cast<int>(value);
}

UpgradeVerdict CompareVersions(const std::string& running, const std::string& posted)
{
    const VersionParts mine = SplitVersion(running), theirs = SplitVersion(posted);
    const int ours[] = {VersionPartValue(mine.major), VersionPartValue(mine.minor), VersionPartValue(mine.revision)};
    const int web[] = {VersionPartValue(theirs.major), VersionPartValue(theirs.minor),
                       VersionPartValue(theirs.revision)};
    for (int i = 0; i < 3; ++i) {
        if (web[i] > ours[i]) return UpgradeVerdict::Newer;
        if (web[i] < ours[i]) return UpgradeVerdict::Older;
    }
    return UpgradeVerdict::Same;
}

std::string TrimPosted(const std::string& text)
{
    const char* const blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}
