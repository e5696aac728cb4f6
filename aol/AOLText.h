// The text rules of the AOL modules, kept apart from the windows they read:
// caption patterns, the Welcome caption, version texts, the AOL executable's
// path, and the program's place in AOL's menu bar.
#pragma once

#include <string>
#include <vector>

// Trims blanks (spaces, tabs, CR, LF, NUL) from both ends.
std::string TrimAOLText(const std::string& text);
std::string LowerAOLText(const std::string& text);

// The pattern match of caption searches: "*" any run, "?" one character,
// "#" one digit, "[abc]" / "[a-z]" / "[!abc]" one character of (or not of)
// the list. Case counts; callers lower-case both sides.
bool LikeMatch(const std::string& text, const std::string& pattern);

// Does a window caption start with `title`, as the caption search decides it:
// both lower-cased, the caption cut to its first 99 characters and trimmed,
// the title taken as a pattern followed by "*".
bool CaptionMatchesTitle(const std::string& caption, const std::string& title);

// The screen name in a Welcome window's caption "Welcome, NAME!": the text
// after the first 8 characters, cut before the first "!", trimmed.
std::string ScreenNameFromWelcome(const std::string& caption);

// "3.0" -> "3", "4.0" -> "4", "5.0" -> "5"; anything else -> "".
std::string MapAOLVersion(const std::string& fileVersion);

// A running AOL is the 32-bit client only when its program is WAOL.EXE.
bool IsWAOLPath(const std::string& exePath);
// AOL's folder: the path up to the backslash before "WAOL.EXE".
std::string AOLFolderOf(const std::string& exePath);

// A program path as the first word of a command line: quoted, since AOL's
// usual folder ("America Online 4.0") has blanks in it.
std::string QuotedProgram(const std::string& path);
// The command that has a running AOL in `folder` perform `keyword`: AOL's
// program, then "-s" followed by the keyword as it stands (AOL takes the
// rest of its command line as the keyword).
std::string KeywordCommandLine(const std::string& folder, const std::string& keyword);

// One name read from the sign-on list's memory: the bytes up to the first
// NUL, trimmed.
std::string SignOnNameFromBytes(const char* bytes, int count);
// Fills the six slots from the names read in list order (the reading stops
// before "Guest"); slot 6 is the name at the list's current selection.
std::vector<std::string> SignOnSlots(const std::vector<std::string>& names, int selection);
// The account's six slots while signed on: the names last read from the
// sign-on list, master first; with none ever read, only the name now signed
// on, in slot 1.
std::vector<std::string> AccountSlots(const std::vector<std::string>& listNames, const std::string& currentName);

// The menu "Prism&o" as the DLL builds it: "P\tcaption", "I\tid\tcaption",
// "S", "E" lines.
std::string ProgramMenuDescription();
extern const char kProgramMenuCaption[];  // "Prism&o"

// One entry of a menu dump ("<level>\t<id>\t<caption>" lines).
struct MenuEntry {
    int level = 0;
    int id = 0;
    std::string caption;
};
std::vector<MenuEntry> ParseMenuDump(const std::string& dump);
// AOL's own menus in the bar: its captioned entries. A maximised document
// window's system menu and buttons are pictures without a caption.
int MenuBarCount(const std::vector<MenuEntry>& entries);
// The bar position where the program's menu goes: after AOL's fifth or
// sixth menu (its last), after the seventh when AOL has more than six; -1
// while AOL has fewer than five menus.
int ProgramMenuPosition(const std::vector<MenuEntry>& entries);
// The bar position (5 to 19) of the first menu whose trimmed caption is
// exactly "Prism&o"; -1 when none is.
int ProgramMenuIndex(const std::vector<MenuEntry>& entries);
// The first entry (bar entries and their items, in order) whose caption
// equals `caption` ignoring case; nullptr when none does.
const MenuEntry* FindMenuCaption(const std::vector<MenuEntry>& entries, const std::string& caption);
// The item captioned `item` (ignoring case) in the bar's menu captioned
// `menu`; nullptr when there is none.
const MenuEntry* FindMenuItem(const std::vector<MenuEntry>& entries, const std::string& menu,
                              const std::string& item);
