// What Prismo knows about the AOL it runs beside, shared program-wide.
#pragma once

#include <array>
#include <string>

struct AOLEditionFlags {
    bool UK = false;
    bool Canada = false;
    bool Australia = false;  // all three false: the US edition
};

extern AOLEditionFlags AOLEdition;
extern std::string AOLVersion;                 // "3", "4" or "5"; empty until read
extern std::string AOLPath;                    // AOL's program folder, no trailing backslash
extern std::array<std::string, 6> ScreenNames;  // slot 1 is ScreenNames[0]
