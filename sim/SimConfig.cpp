// Command-line parsing and the edition- and version-dependent texts of the
// AOL simulator.
#include "SimConfig.h"

#include <stdexcept>
#include <utility>

namespace {

std::string Trim(const std::string& text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return "";
    const auto last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

SimEdition ParseEdition(const std::string& name) {
    if (name == "us") return SimEdition::US;
    if (name == "uk") return SimEdition::UK;
    if (name == "ca") return SimEdition::Canada;
    if (name == "au") return SimEdition::Australia;
    throw std::invalid_argument("unknown edition \"" + name + "\" (us, uk, ca or au)");
}

int ParseSeconds(const std::string& option, const std::string& text) {
    if (text.empty() || text.size() > 4 || text.find_first_not_of("0123456789") != std::string::npos)
        throw std::invalid_argument(option + " takes a number of seconds, not \"" + text + "\"");
    return std::stoi(text);
}

bool IsKeywordSwitch(const std::string& arg) {
    return arg.size() >= 2 && (arg[0] == '-' || arg[0] == '/') && (arg[1] == 's' || arg[1] == 'S') &&
           arg.rfind("--", 0) != 0;
}

// One argument from `line` at `at` (past any blanks), quotes taken out as the
// C runtime does: 2n backslashes before a quote give n and the quote groups,
// 2n+1 give n and a plain quote; other backslashes stand as they are.
std::string NextArgument(const std::string& line, std::size_t& at) {
    std::string arg;
    bool quoted = false;
    while (at < line.size() && (quoted || (line[at] != ' ' && line[at] != '\t'))) {
        std::size_t slashes = 0;
        while (at < line.size() && line[at] == '\\') ++slashes, ++at;
        if (at < line.size() && line[at] == '"') {
            arg.append(slashes / 2, '\\');
            if (slashes % 2) arg += '"';
            else quoted = !quoted;
            ++at;
        } else {
            arg.append(slashes, '\\');
            if (at < line.size() && (quoted || (line[at] != ' ' && line[at] != '\t'))) arg += line[at++];
        }
    }
    return arg;
}

SimMailFault ParseMailFault(const std::string& name) {
    static const std::pair<const char*, SimMailFault> faults[] = {
        {"no-mail", SimMailFault::NoMail},
        {"no-attachments", SimMailFault::NoAttachments},
        {"no-attach-button", SimMailFault::NoAttachButton},
        {"no-file-dialog", SimMailFault::NoFileDialog},
        {"no-file-field", SimMailFault::NoFileField},
        {"no-open-button", SimMailFault::NoOpenButton},
    };
    for (const auto& fault : faults) {
        if (name == fault.first) return fault.second;
    }
    throw std::invalid_argument("unknown --mail-fault \"" + name +
                                "\" (no-mail, no-attachments, no-attach-button, no-file-dialog, no-file-field, "
                                "no-open-button)");
}

int ParseMenuCount(const std::string& text) {
    if (text == "5") return 5;
    if (text == "6") return 6;
    if (text == "7") return 7;
    if (text == "8") return 8;
    throw std::invalid_argument("--menus takes 5, 6, 7 or 8, not \"" + text + "\"");
}

// The value of an option given as "--name VALUE" or "--name=VALUE".
class ArgReader {
public:
    explicit ArgReader(const std::vector<std::string>& args) : args_(args) {}
    bool More() const { return pos_ < args_.size(); }
    std::string Next() { return args_[pos_++]; }
    std::string Value(const std::string& option, const std::string& inlineValue, bool hasInline) {
        if (hasInline) return inlineValue;
        if (!More()) throw std::invalid_argument(option + " needs a value");
        return Next();
    }

private:
    const std::vector<std::string>& args_;
    std::size_t pos_ = 0;
};

}  // namespace

std::vector<std::string> SplitNames(const std::string& list) {
    std::vector<std::string> names;
    std::size_t start = 0;
    while (start <= list.size()) {
        auto comma = list.find(',', start);
        if (comma == std::string::npos) comma = list.size();
        const auto name = Trim(list.substr(start, comma - start));
        if (!name.empty()) names.push_back(name);
        start = comma + 1;
    }
    return names;
}

SimConfig ParseSimArgs(const std::vector<std::string>& args, int version) {
    SimConfig config;
    config.version = version;
    config.menuCount = version == 5 ? 6 : 5;
    ArgReader reader(args);
    while (reader.More()) {
        const std::string arg = reader.Next();
        if (IsKeywordSwitch(arg)) {
            config.keyword = arg.substr(2);
            config.hasKeyword = true;
            continue;
        }
        const auto eq = arg.find('=');
        const bool hasInline = arg.rfind("--", 0) == 0 && eq != std::string::npos;
        const std::string name = hasInline ? arg.substr(0, eq) : arg;
        const std::string inlineValue = hasInline ? arg.substr(eq + 1) : "";
        auto value = [&] { return reader.Value(name, inlineValue, hasInline); };
        if (name == "--edition") {
            config.edition = ParseEdition(value());
        } else if (name == "--menus") {
            config.menuCount = ParseMenuCount(value());
        } else if (name == "--screen-names") {
            config.screenNames = SplitNames(value());
            if (config.screenNames.empty()) throw std::invalid_argument("--screen-names is empty");
        } else if (name == "--select") {
            config.selectedName = value();
        } else if (name == "--signed-on") {
            config.signedOn = true;
            config.signedOnAs = value();
        } else if (name == "--room") {
            config.rooms.push_back(value());
        } else if (name == "--mail") {
            config.mailOpen = true;
        } else if (name == "--window") {
            config.windows.push_back(value());
        } else if (name == "--log") {
            config.logFile = value();
        } else if (name == "--mail-fault") {
            config.mailFault = ParseMailFault(value());
        } else if (name == "--attach-icon") {
            const std::string how = value();
            if (how != "hidden" && how != "shown") throw std::invalid_argument("--attach-icon takes hidden or shown");
            config.attachIconHidden = how == "hidden";
        } else if (name == "--signon-delay") {
            config.signOnDelay = ParseSeconds(name, value());
        } else {
            throw std::invalid_argument("unknown option \"" + arg + "\"");
        }
    }
    return config;
}

std::vector<std::string> SplitSimCommandLine(const std::string& commandLine) {
    std::size_t at = 0;
    // The program's own name ends at its closing quote, or else at the first
    // blank: an unquoted folder with blanks leaves its tail as arguments.
    if (!commandLine.empty() && commandLine[0] == '"') {
        at = commandLine.find('"', 1);
        at = at == std::string::npos ? commandLine.size() : at + 1;
    }
    while (at < commandLine.size() && commandLine[at] != ' ' && commandLine[at] != '\t') ++at;
    std::vector<std::string> args;
    for (;;) {
        while (at < commandLine.size() && (commandLine[at] == ' ' || commandLine[at] == '\t')) ++at;
        if (at >= commandLine.size()) break;
        if (IsKeywordSwitch(commandLine.substr(at, 3))) {
            std::string rest = commandLine.substr(at);
            rest.erase(rest.find_last_not_of(" \t\r\n") + 1);
            args.push_back(rest);
            break;
        }
        args.push_back(NextArgument(commandLine, at));
    }
    return args;
}

std::string EditionName(SimEdition edition) {
    switch (edition) {
    case SimEdition::UK: return "uk";
    case SimEdition::Canada: return "ca";
    case SimEdition::Australia: return "au";
    default: return "us";
    }
}

std::string FrameCaption(SimEdition edition) {
    switch (edition) {
    case SimEdition::Canada: return "AOL Canada";
    case SimEdition::US: return "America Online";
    default: return "AOL";
    }
}

std::string WriteMailCaption(SimEdition edition) {
    return edition == SimEdition::Australia ? "Write e-mail" : "Write Mail";
}

std::string GoodbyeCaption(SimEdition edition) {
    switch (edition) {
    case SimEdition::Canada: return "Goodbye From AOL Canada!";
    case SimEdition::US: return "Goodbye From America Online!";
    default: return "Goodbye From AOL!";
    }
}

std::string SignOnCaption(int version) { return version >= 4 ? "Sign On" : "Welcome"; }

std::string FileDialogCaption(SimEdition edition) {
    return edition == SimEdition::UK || edition == SimEdition::Canada ? "Open" : "Attach";
}

std::vector<std::string> ToolbarCaptions(SimEdition edition) {
    std::string centre = "Mail Center";
    if (edition == SimEdition::UK || edition == SimEdition::Canada) centre = "Mail Centre";
    if (edition == SimEdition::Australia) centre = "e-mail centre";
    return {"Write", centre, "Print", "My Files", "My AOL", "Favorites", "Internet", "Channels",
            "People", "Quotes", "Perks", "Weather"};
}

namespace {

SimMenuItem Cmd(const std::string& caption, unsigned id) { return {caption, id, {}}; }
SimMenuItem Sep() { return {"", 0, {}}; }
SimMenuItem Popup(const std::string& caption, std::vector<SimMenuItem> items) {
    return {caption, 0, std::move(items)};
}

std::string AboutCaption(SimEdition edition) {
    switch (edition) {
    case SimEdition::Canada: return "&About AOL Canada";
    case SimEdition::US: return "&About America Online";
    default: return "&About AOL";
    }
}

SimMenuItem FileMenu() {
    return Popup("&File", {Cmd("&New", 8193), Cmd("&Open...", 8194), Cmd("&Save", 8195),
                           Cmd("Save &As...", 8196), Sep(), Cmd("&Print...", 8199), Sep(),
                           Cmd("E&xit", kExitCommand)});
}

SimMenuItem EditMenu() {
    return Popup("&Edit", {Cmd("&Undo", 20000), Sep(), Cmd("Cu&t", 20001), Cmd("&Copy", 20002),
                           Cmd("&Paste", 20003), Cmd("Select &All", 20005), Sep(),
                           Cmd("&Find in Top Window...", 8214)});
}

SimMenuItem SignOffMenu(const SimConfig& config, bool signedOn) {
    std::vector<SimMenuItem> items{Cmd("&Sign Off", kSignOffCommand)};
    if (config.version == 5 && signedOn) items.push_back(Cmd("Switch Scree&n Name", kSwitchNameCommand));
    return Popup("&Sign Off", std::move(items));
}

SimMenuItem HelpMenu(const SimConfig& config) {
    return Popup("&Help", {Cmd("&Offline Help", 8260), Cmd("&Member Services", 8261), Sep(),
                           Cmd(AboutCaption(config.edition), kAboutCommand)});
}

}  // namespace

std::vector<SimMenuItem> BuildMenuBar(const SimConfig& config, bool signedOn) {
    std::vector<SimMenuItem> bar{FileMenu(), EditMenu()};
    if (config.menuCount >= 6) bar.push_back(Popup("&Print", {Cmd("&Print...", 8199), Cmd("Print &Setup...", 8200)}));
    if (config.menuCount >= 7) bar.push_back(Popup("&Mail", {Cmd("&Write Mail", 8300), Cmd("&Read Mail", 8301)}));
    if (config.menuCount >= 8) bar.push_back(Popup("&People", {Cmd("&Chat Now", 8310), Cmd("&Find a Chat", 8311)}));
    bar.push_back(Popup("&Window", {Cmd("&Cascade", 8220), Cmd("&Tile", 8221), Cmd("Close &All", 8222)}));
    bar.push_back(SignOffMenu(config, signedOn));
    bar.push_back(HelpMenu(config));
    return bar;
}

std::string EscapeLogText(const std::string& bytes) {
    std::string out;
    for (char c : bytes) {
        switch (c) {
        case '\r': out += "\\r"; break;
        case '\n': out += "\\n"; break;
        case '\t': out += "\\t"; break;
        case '\\': out += "\\\\"; break;
        default: out += c;
        }
    }
    return out;
}
