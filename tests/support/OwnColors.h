// The user's own colours the screenshot scenes show in colour mode 2: a green
// window with purple buttons, so the pictures tell it from the other modes.
#pragma once

#include <string>

#include "Catalog.h"
#include "modRegKeys.h"

inline void UseOwnColors()
{
    WriteSetting(Setting::WindowColor, std::to_string(0x00D8F0D8));
    WriteSetting(Setting::ButtonForecolor, std::to_string(0x00803060));
    WriteSetting(Setting::ButtonHighlight, std::to_string(0x00FFA0E0));
    WriteSetting(Setting::ButtonText, std::to_string(0x00FFFFFF));
}
