// The program-wide Options record: the settings every part of Prismo reads,
// filled from the settings store at start and kept in step with it by the
// handlers that change an option. The fade engine reads only the working fade.
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

    // The chat fader.
    bool FaderOn = false;                 // sent chat text is faded
    std::string DefaultScheme;            // the scheme last chosen
    bool ShowFadePanelWithChat = false;   // the control panel opens with a chat room
    bool UseChatKW = false;               // "/" commands typed into the chat line

    // The multiline sender.
    bool UseMultiline = false;
    float MultilineBurst = 0;             // seconds between lines
    std::int32_t CharsInLine = 0;

    // E-mail.
    bool UseAlias = false;                // sign mailed schemes with the alias
    std::string AliasName;
    bool ShowEMailSample = false;         // a faded sample in mailed schemes
    bool ShowEFToolbar = false;           // the e-mail fader toolbar with mail windows

    // The interface colours.
    ColorValue WindowColor = 0;
    ColorValue ButtonForecolor = 0;
    ColorValue ButtonHighlight = 0;
    ColorValue ButtonText = 0;
    std::int16_t UIMode = 0;              // 0 Standard, 1 Enhanced, 2 User
    bool LowColorDisplay = false;
};

extern OptionsRecord Options;
