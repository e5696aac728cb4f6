// The three interface colour modes and the colours each gives a window, an
// ordinary button and a flat two-state button. Portable: the window side
// resolves system colours (0x800000nn) and paints.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

using UIColor = std::int32_t;  // 0x00BBGGRR, or a system colour 0x800000nn

namespace SysColor {
constexpr UIColor ButtonFace = static_cast<UIColor>(0x8000000F);
constexpr UIColor ButtonShadow = static_cast<UIColor>(0x80000010);
constexpr UIColor ButtonText = static_cast<UIColor>(0x80000012);
constexpr UIColor ButtonHighlight = static_cast<UIColor>(0x80000014);
}  // namespace SysColor

enum UIModeValue { UIStandard = 0, UIEnhanced = 1, UIUser = 2 };

// The user's own colours (mode 2).
struct UserColors {
    UIColor WindowColor = SysColor::ButtonFace;
    UIColor ButtonForecolor = SysColor::ButtonFace;  // the button face
    UIColor ButtonHighlight = SysColor::ButtonHighlight;
    UIColor ButtonText = SysColor::ButtonText;
};

// The AOL edition flags the colours depend on.
struct EditionColors {
    bool UK = false;
    bool Australia = false;
};

// The mode the display suggests. `lowColor` is set for 8 bits or fewer,
// cleared for 16 or more, left alone in between.
int DefaultUIMode(int bitsPerPixel, bool& lowColor);

// The mode at start: the display's default, overridden by the stored
// "UIMode" text (when not empty) except on a low-colour display.
int ChooseUIMode(int bitsPerPixel, bool& lowColor, const std::string& storedMode);

// A window's background; nothing for a mode outside 0 to 2.
std::optional<UIColor> FormColorFor(int mode, const UserColors& user, EditionColors aol);

struct ButtonColors {
    UIColor face;
    UIColor focus;       // the focus highlight
    UIColor text;
    UIColor background;  // around the button
    std::optional<UIColor> border;  // nothing: leave the button's own
    UIColor shadow;
};
std::optional<ButtonColors> ButtonColorsFor(int mode, const UserColors& user, EditionColors aol);

struct FlatColors {
    UIColor face;
    UIColor highlight;
    UIColor text;
};
std::optional<FlatColors> FlatColorsFor(bool pressed, int mode, const UserColors& user);
