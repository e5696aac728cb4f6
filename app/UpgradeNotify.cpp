// modPrismo's upgrade check: where the check asks, and the comparison of the
// posted version with the running one.
#include <cstdlib>

#include "CNetGet.h"
#include "ErrorTrap.h"
#include "Maker.h"
#include "ProgramInfo.h"
#include "UpgradeText.h"
#include "frmUpdate.h"
#include "modMsgBox.h"
#include "modPrismo.h"

std::string UpgradeHost()
{
#ifdef PRISMO_UPDATE_HOST_VARIABLE
    // Test builds only: the tests serve the version file themselves.
    if (const char* host = std::getenv(PRISMO_UPDATE_HOST_VARIABLE); host && *host) return host;
#endif
    return Maker::Host;
}

void UpgradeNotify()
{
    ErrorTrap trap("modPrismo", "UpgradeNotify");
    const std::string running = VersionText();
    // Servers add line ends and blanks around the version; they mean nothing.
    const std::string posted = TrimPosted(PostedVersion);
    if (posted.find('.') == std::string::npos) {
        trap.Run([&] { ShowMsg(CriticalErrorText(Maker::SiteName, Maker::SupportEMail), MB_ICONSTOP); });
        return;
    }
    bool compared = false;
    std::string message;
    trap.Run([&] {
        switch (CompareVersions(running, posted)) {
        case UpgradeVerdict::Newer:
            message = UpgradeText::NewRevision;
            UpgradeAvailable = true;
            break;
        case UpgradeVerdict::Same:
            message = UpgradeText::Latest;
            UpgradeAvailable = false;
            break;
        case UpgradeVerdict::Older:
            message = UpgradeText::BetaTester;
            UpgradeAvailable = false;
            break;
        }
        compared = true;
    });
    // Without a verdict there is nothing to tell beyond the error report.
    if (!compared) return;
    trap.Run([&] { ShowUpdate(message, running, posted); });
}
