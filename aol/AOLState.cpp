// The shared facts about AOL; the US edition until start-up detects another.
#include "AOLState.h"

AOLEditionFlags AOLEdition;
std::string AOLVersion;
std::string AOLPath;
std::array<std::string, 6> ScreenNames;
