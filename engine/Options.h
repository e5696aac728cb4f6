// The program-wide Options record: the settings every part of Prismo reads.
// The fade engine reads only the working-fade fields; later parts extend it.
#pragma once

#include <array>
#include <cstdint>
#include <string>

using ColorValue = std::int32_t;  // 0x00BBGGRR; system colours are 0x800000nn

struct OptionsRecord {
    // The working fade.
    std::int16_t FadeNumber = 0;          // colours in use, 1 to 6
    std::array<ColorValue, 6> Colors{};   // Colors[0] is colour 1
    bool Bold = false;
    bool Italic = false;
    bool ULine = false;
    bool Wavy = false;
    bool SolidFade = false;
};

extern OptionsRecord Options;
