// Start-up's texts and decisions.
#include "StartupText.h"

#include <algorithm>
#include <cctype>

namespace StartupText {
const char AlreadyRunning[] = "Prismo is already running!";
const char WindowsNT[] =
    "~B~CRIncorrect Operating System!~B~CN~N ~NPrismo is not compatible with Windows NT.~N ~NThe program will now "
    "end.";
const char NotWindows9x[] =
    "~B~CRIncorrect Operating System!~B~CN~N ~NPrismo can only run under Windows 95 or Windows 98.";
const char Tunebox[] =
    "~B~CRPrismo has detected that Tunebox 32 is currently running!~B~CN~N ~NPrismo is ~Bnot compatible with "
    "Tunebox 32~B.  Running both together can cause errors.~N ~NIt should also be noted that Tunebox 32 already "
    "has every feature of the Prismo program!  :)~N ~NPrismo will now end.";
const char Welcome[] =
    "~B~CRWelcome to Prismo!~B~CN~N ~NBefore we begin, Prismo needs to know your current AOL folder so it can "
    "start AOL for you.~N ~NPlease click ~BOK~B to choose your AOL folder now!~N ~N~B~CBNote:~B~CNYou will not "
    "see this prompt again once a valid AOL folder is chosen.";
const char PathRequired[] =
    "Prismo requires a path to your AOL Directory to function properly.~N ~NThe program will now end.";
}  // namespace StartupText

std::string MissingRuntimeFileText(const std::string& fileName)
{
    return "~B~CRMissing runtime file!~B~CN~N ~NPrismo has detected that one of its critical runtime files, ~B" +
           fileName + "~B is missing.~N ~NPlease perform a full reinstallation of Prismo to correct this problem.";
}

std::string WrongAOLVersionText(const std::string& version)
{
    return "~B~CRAOL Version " + version +
           ".0 detected!~B~CN~N ~NPrismo is not compatible with this version of AOL. You must be using the "
           "~B~CR32 bit~B~CN version of ~B~CBAOL 4.0~B~CN.~N ~NPrismo will now end.";
}

std::string VersionDeterminedText(const std::string& version, bool uk, bool canada, bool australia)
{
    const char* edition = uk ? ".0 UK Determined"
                          : canada ? ".0 Canada Determined"
                          : australia ? ".0 Australia Determined"
                                      : ".0 US Determined";
    return "AOL Version " + version + edition;
}

std::string ScreenNameStatusText(const std::string& firstName, bool isMaster)
{
    if (isMaster) return "Master Screen Name: " + firstName;
    if (firstName.empty()) return "Screen Name Unknown";
    return "Signed On As: " + firstName;
}

std::string NextStartText(const std::string& folder)
{
    std::string upper = folder;
    std::transform(upper.begin(), upper.end(), upper.begin(), [](unsigned char c) { return std::toupper(c); });
    return "The next time you start Prismo, it will start the AOL program located in the ~B~CB" + upper +
           "~B~CN directory.";
}

bool IsTuneboxPath(const std::string& path)
{
    std::string lower = path;
    std::transform(lower.begin(), lower.end(), lower.begin(), [](unsigned char c) { return std::tolower(c); });
    return lower.find("tunebox32.exe") != std::string::npos;
}

bool IsChangeAOLCommand(const std::string& commandLine) { return commandLine == "CHANGEAOL"; }

OSVerdict ClassifyPlatform(unsigned long platformId)
{
    if (platformId == 1) return OSVerdict::Windows9x;
    if (platformId == 2) return OSVerdict::WindowsNT;
    return OSVerdict::Other;
}
