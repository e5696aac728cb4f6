// What one run of the AOL simulator looks like: edition, version, menus,
// account and the windows open at start, read from the command line, and the
// captions and menu layout that follow from them.
#pragma once

#include <string>
#include <vector>

enum class SimEdition { US, UK, Canada, Australia };

// A step of writing and attaching mail that this AOL never shows, so that a
// program driving it must notice the step is missing and give up.
enum class SimMailFault { None, NoMail, NoAttachments, NoAttachButton, NoFileDialog, NoFileField, NoOpenButton };

struct SimConfig {
    int version = 4;                    // 3, 4 or 5 (fixed per build)
    SimEdition edition = SimEdition::US;
    int menuCount = 5;                  // top-level menus: 5 to 8
    std::vector<std::string> screenNames{"Zun Tester", "Guest"};
    std::string selectedName;           // sign-on selection; empty: the first name
    bool signedOn = false;
    std::string signedOnAs;             // empty: the first screen name
    std::vector<std::string> rooms;     // chat rooms open at start, last one on top
    bool mailOpen = false;              // a new mail open at start
    std::vector<std::string> windows;   // further windows open at start, by caption
    std::string logFile;
    std::string keyword;                // -s<keyword>: hand over or perform at start
    bool hasKeyword = false;
    int signOnDelay = 0;                // seconds between the main window and the Sign On screen
    SimMailFault mailFault = SimMailFault::None;  // a step of sending mail that never appears
    bool attachIconHidden = false;      // the mail's attach icon exists but is not shown
};

// waol.exe's arguments from its whole command line (program name first), the
// way AOL reads them: blanks separate arguments, double quotes group them,
// and "-s" takes the rest of the line as it stands, blanks and all, as the
// keyword ("waol.exe -sPeople Connection" asks for "People Connection").
std::vector<std::string> SplitSimCommandLine(const std::string& commandLine);

// Parses waol.exe's arguments. Throws std::invalid_argument naming the problem.
SimConfig ParseSimArgs(const std::vector<std::string>& args, int version);

// Splits "A,B,Guest" into its names (blanks around a name kept out).
std::vector<std::string> SplitNames(const std::string& list);

std::string EditionName(SimEdition edition);  // "us", "uk", "ca", "au"

// Captions that differ between editions.
std::string FrameCaption(SimEdition edition);
std::string WriteMailCaption(SimEdition edition);
std::string GoodbyeCaption(SimEdition edition);
std::string SignOnCaption(int version);
std::string FileDialogCaption(SimEdition edition);
std::vector<std::string> ToolbarCaptions(SimEdition edition);

// One item of AOL's menu bar: a command (id > 0), a separator (empty caption,
// id 0) or a popup with items.
struct SimMenuItem {
    std::string caption;
    unsigned id = 0;
    std::vector<SimMenuItem> items;
};

constexpr unsigned kExitCommand = 8207;         // AOL's own exit command
constexpr unsigned kSwitchNameCommand = 8240;
constexpr unsigned kAboutCommand = 8250;
constexpr unsigned kSignOffCommand = 8230;

// The menu bar for an edition, version, number of menus and sign-on state.
std::vector<SimMenuItem> BuildMenuBar(const SimConfig& config, bool signedOn);

// Text for one log line: CR, LF, TAB and backslash as \r \n \t \\.
std::string EscapeLogText(const std::string& bytes);
