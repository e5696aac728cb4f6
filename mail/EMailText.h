// The e-mail side's fixed words and decisions, apart from any window: what
// the fader toolbar says and when it refuses a highlight, the faded sample of
// a stored scheme, the subject and body of a scheme mail, and which scheme
// names cannot travel as file names.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

class SettingsStore;

// ---- The fader toolbar (frmEFade) and its wait window (frmFadeMsg) ----

namespace EFadeText {
inline constexpr char ApplyFade[] = "Apply Fade";  // the buttons' tool tips
inline constexpr char UndoChanges[] = "Undo Changes";
inline constexpr char ControlPanel[] = "Fade Designer/Control panel";
inline constexpr char NoTextFound[] =
    "~B~CRNo text found!~B~CN~N ~NPlease highlight the text you would like faded and try again.";
inline constexpr char MessageTooLong[] =
    "~B~CRMessage too long!~B~CN~N ~NPrismo can only safely fade up to 30000 characters of text at a time.  "
    "Please break you fades up into smaller groups!";
inline constexpr char PleaseWait[] = "Please wait while Prismo applies the fade to your E-Mail";
inline constexpr char MayTakeAMinute[] = "This may take a minute...";
}  // namespace EFadeText

// The most characters the toolbar fades at once.
inline constexpr std::size_t kEFadeLimit = 30000;

// What the toolbar does with the text copied from the highlight.
enum class HighlightCheck { Fade, NoText, TooLong };
// Only blanks (or nothing) is no text; over kEFadeLimit characters, counted
// untrimmed, is too long.
HighlightCheck CheckHighlight(const std::string& copied);

// ---- Mailing Fade Schemes (frmEMailFade) ----

namespace SchemeMailText {
inline constexpr char Caption[] = "E-Mail Fades";
inline constexpr char NoMailWindow[] =
    "~BPrismo was unable to open an E-Mail window.~B~N ~NPlease open an E-hwMail by pressing ~B~CBCTRL+M~B~CN and "
    "try this operation again.";
inline constexpr char NoAttachmentsWindow[] =
    "Prismo was unable to open the ~B~CRAttachments~B~CN window.~B ~BPlease try this operation again!";
inline constexpr char NoAttachButton[] =
    "Prismo was unable to click the ~B~CRAttach~B~CN button.~B ~BPlease try this operation again!";
inline constexpr char NoFileDialog[] =
    "Prismo was unable to open the ~B~CRAttach File~B~CN window.~N ~NPlease try this operation again!";
inline constexpr char NoFileField[] =
    "Prismo was unable to set text to the ~B~CRAttach File~B~CN window.~N ~NPlease try this operation again!";
inline constexpr char NoOpenButton[] =
    "Prismo was unable to click the ~B~CROpen~B~CN button in the Attach File window.~N ~NPlease try this "
    "operation again~";
}  // namespace SchemeMailText

// A scheme going into a mail: its name and its faded sample line.
struct MailedScheme {
    std::string name;
    std::string sample;
};

// The sample line of the stored scheme `name`: "This is a sample of the NAME
// fade scheme!" faded in its colours, wrapped in its style tags even when the
// fade is empty. Values that are missing or unreadable count as 0 or off.
std::string MakeEMailFade(const SettingsStore& store, const std::string& name);

// The installation directions that end every scheme mail.
std::string DirectionsTag();

// The subject of a mail carrying `count` schemes from `sender`.
std::string SchemeMailSubject(std::size_t count, const std::string& sender);

// The whole HTML body of a scheme mail; `version` is the program's version
// text; with `showSample` each scheme shows its sample line.
std::string SchemeMailBody(const std::vector<MailedScheme>& schemes, const std::string& sender,
                           const std::string& version, bool showSample);

// The one message that names every scheme refused for its name.
std::string UnfitNamesMessage(const std::vector<std::string>& names);
