// The text rules of the AOL modules (see AOLText.h).
#include "AOLText.h"

#include <cctype>
#include <cstdlib>

namespace {
bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\0';
}

// One bracketed list "[...]" at pattern[p]; sets `end` past the "]".
bool MatchList(char c, const std::string& pattern, size_t p, size_t& end)
{
    size_t i = p + 1;
    bool negate = false;
    if (i < pattern.size() && pattern[i] == '!') {
        negate = true;
        ++i;
    }
    bool found = false;
    const size_t first = i;
    for (; i < pattern.size() && (pattern[i] != ']' || i == first); ++i) {
        const unsigned char low = static_cast<unsigned char>(pattern[i]);
        if (i + 2 < pattern.size() && pattern[i + 1] == '-' && pattern[i + 2] != ']') {
            const unsigned char high = static_cast<unsigned char>(pattern[i + 2]);
            const unsigned char ch = static_cast<unsigned char>(c);
            if (ch >= low && ch <= high) found = true;
            i += 2;
        } else if (static_cast<unsigned char>(c) == low) {
            found = true;
        }
    }
    end = i < pattern.size() ? i + 1 : i;
    return found != negate;
}

bool Like(const std::string& text, size_t t, const std::string& pattern, size_t p)
{
    while (p < pattern.size()) {
        const char pc = pattern[p];
        if (pc == '*') {
            for (size_t k = t; k <= text.size(); ++k)
                if (Like(text, k, pattern, p + 1)) return true;
            return false;
        }
        if (t >= text.size()) return false;
        const char c = text[t];
        if (pc == '?') {
            ++p;
        } else if (pc == '#') {
            if (!std::isdigit(static_cast<unsigned char>(c))) return false;
            ++p;
        } else if (pc == '[') {
            size_t end = p;
            if (!MatchList(c, pattern, p, end)) return false;
            p = end;
        } else {
            if (c != pc) return false;
            ++p;
        }
        ++t;
    }
    return t == text.size();
}
}  // namespace

const char kProgramMenuCaption[] = "Prism&o";

std::string TrimAOLText(const std::string& text)
{
    size_t begin = 0, end = text.size();
    while (begin < end && IsBlank(text[begin])) ++begin;
    while (end > begin && IsBlank(text[end - 1])) --end;
    return text.substr(begin, end - begin);
}

std::string LowerAOLText(const std::string& text)
{
    std::string lower = text;
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

bool LikeMatch(const std::string& text, const std::string& pattern)
{
    return Like(text, 0, pattern, 0);
}

bool CaptionMatchesTitle(const std::string& caption, const std::string& title)
{
    const std::string shown = TrimAOLText(caption.substr(0, 99));
    return LikeMatch(LowerAOLText(shown), LowerAOLText(title) + "*");
}

std::string ScreenNameFromWelcome(const std::string& caption)
{
    if (caption.size() <= 8) return "";
    std::string name = caption.substr(8);
    const size_t bang = name.find('!');
    if (bang != std::string::npos) name.erase(bang);
    return TrimAOLText(name);
}

std::string MapAOLVersion(const std::string& fileVersion)
{
    const std::string v = TrimAOLText(fileVersion);
    if (v == "3.0") return "3";
    if (v == "4.0") return "4";
    if (v == "5.0") return "5";
    return "";
}

bool IsWAOLPath(const std::string& exePath)
{
    std::string upper = exePath;
    for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return upper.find("WAOL.EXE") != std::string::npos;
}

std::string AOLFolderOf(const std::string& exePath)
{
    std::string upper = exePath;
    for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const size_t at = upper.find("WAOL.EXE");
    if (at == std::string::npos) return "";
    std::string folder = exePath.substr(0, at);
    if (!folder.empty() && folder.back() == '\\') folder.pop_back();
    return folder;
}

std::string SignOnNameFromBytes(const char* bytes, int count)
{
    int n = 0;
    while (n < count && bytes[n] != '\0') ++n;
    return TrimAOLText(std::string(bytes, static_cast<size_t>(n)));
}

std::vector<std::string> SignOnSlots(const std::vector<std::string>& names, int selection)
{
    std::vector<std::string> slots(6);
    for (size_t i = 0; i < 5 && i < names.size(); ++i) slots[i] = names[i];
    if (selection >= 0 && static_cast<size_t>(selection) < names.size())
        slots[5] = names[static_cast<size_t>(selection)];
    return slots;
}

std::string QuotedProgram(const std::string& path)
{
    return "\"" + path + "\"";
}

std::string KeywordCommandLine(const std::string& folder, const std::string& keyword)
{
    return QuotedProgram(folder + "\\waol.exe") + " -s" + keyword;
}

std::vector<std::string> AccountSlots(const std::vector<std::string>& listNames, const std::string& currentName)
{
    std::vector<std::string> slots(6);
    if (listNames.empty()) {
        slots[0] = currentName;
        return slots;
    }
    for (size_t i = 0; i < 6 && i < listNames.size(); ++i) slots[i] = listNames[i];
    return slots;
}

std::string ProgramMenuDescription()
{
    return std::string("P\t") + kProgramMenuCaption + "\n"
           "I\t60000\t&Fade Designer/Control Panel\n"
           "S\n"
           "I\t60001\t&Options\n"
           "S\n"
           "I\t60002\t&Advertise\n"
           "S\n"
           "I\t60003\t&Import/Export Wizard\n"
           "S\n"
           "P\t&Help\n"
           "I\t62000\t&Table of Contents\n"
           "I\t62001\t&Search for Help on...\n"
           "S\n"
           "I\t62002\t&Online Support\n"
           "E\n"
           "I\t60006\t&Check for Updates\n"
           "I\t60004\t&About Prismo\n"
           "S\n"
           "I\t60005\t&Exit Prismo\n"
           "E\n";
}

std::vector<MenuEntry> ParseMenuDump(const std::string& dump)
{
    std::vector<MenuEntry> entries;
    size_t start = 0;
    while (start < dump.size()) {
        size_t end = dump.find('\n', start);
        if (end == std::string::npos) end = dump.size();
        const std::string line = dump.substr(start, end - start);
        start = end + 1;
        const size_t tab1 = line.find('\t');
        const size_t tab2 = tab1 == std::string::npos ? tab1 : line.find('\t', tab1 + 1);
        if (tab2 == std::string::npos) continue;
        MenuEntry entry;
        entry.level = std::atoi(line.substr(0, tab1).c_str());
        entry.id = std::atoi(line.substr(tab1 + 1, tab2 - tab1 - 1).c_str());
        entry.caption = line.substr(tab2 + 1);
        entries.push_back(entry);
    }
    return entries;
}

namespace {
bool IsAOLMenu(const MenuEntry& e)
{
    return e.level == 0 && !TrimAOLText(e.caption).empty();
}
}  // namespace

int MenuBarCount(const std::vector<MenuEntry>& entries)
{
    int count = 0;
    for (const MenuEntry& e : entries)
        if (IsAOLMenu(e)) ++count;
    return count;
}

// The menu is placed among AOL's menus by counting them alone: while a
// document window is maximised, Windows puts its system menu in front of
// AOL's menus and its minimise, restore and close buttons behind them, and a
// count of every entry would put our menu among those buttons (and, with
// seven or more menus, one menu too early).
int ProgramMenuPosition(const std::vector<MenuEntry>& entries)
{
    const int menus = MenuBarCount(entries);
    if (menus < 5) return -1;
    const int before = menus <= 6 ? menus : 7;  // AOL's menus that stay in front of ours
    int position = 0, seen = 0;
    for (const MenuEntry& e : entries) {
        if (e.level != 0) continue;
        ++position;
        if (IsAOLMenu(e) && ++seen == before) return position;
    }
    return position;
}

int ProgramMenuIndex(const std::vector<MenuEntry>& entries)
{
    int position = -1;
    for (const MenuEntry& e : entries) {
        if (e.level != 0) continue;
        ++position;
        if (position >= 5 && position <= 19 && TrimAOLText(e.caption) == kProgramMenuCaption)
            return position;
    }
    return -1;
}

const MenuEntry* FindMenuCaption(const std::vector<MenuEntry>& entries, const std::string& caption)
{
    const std::string wanted = LowerAOLText(caption);
    for (const MenuEntry& e : entries) {
        // A bar entry that opens a menu has no command of its own to match.
        if (e.level == 0 && e.id == -1) continue;
        if (LowerAOLText(e.caption) == wanted) return &e;
    }
    return nullptr;
}

const MenuEntry* FindMenuItem(const std::vector<MenuEntry>& entries, const std::string& menu,
                              const std::string& item)
{
    const std::string wantedMenu = LowerAOLText(menu), wantedItem = LowerAOLText(item);
    bool inMenu = false;
    for (const MenuEntry& e : entries) {
        if (e.level == 0)
            inMenu = LowerAOLText(e.caption) == wantedMenu;
        else if (inMenu && LowerAOLText(e.caption) == wantedItem)
            return &e;
    }
    return nullptr;
}
