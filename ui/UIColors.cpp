// The colour tables of the three interface modes.
#include "UIColors.h"

#include "Convert.h"

namespace {

constexpr UIColor White = 0x00FFFFFF;
constexpr UIColor AOLWindow = 0x00F0FBFF;
constexpr UIColor AOLWindowAustralia = 0x00C0FFFF;
constexpr UIColor AOLBlue = 11365632;       // 0x00AD6D00
constexpr UIColor AOLLightBlue = 16757388;  // 0x00FFB28C
constexpr UIColor UKOrange = 0x00A0E0FF;
constexpr UIColor Grey = 0x00808080;

}  // namespace

int DefaultUIMode(int bitsPerPixel, bool& lowColor)
{
    if (bitsPerPixel <= 8) {
        lowColor = true;
        return UIStandard;
    }
    if (bitsPerPixel >= 16) {
        lowColor = false;
        return UIEnhanced;
    }
    return UIStandard;
}

int ChooseUIMode(int bitsPerPixel, bool& lowColor, const std::string& storedMode)
{
    int mode = DefaultUIMode(bitsPerPixel, lowColor);
    if (lowColor) return mode;
    const auto stored = ToInteger(storedMode);
    return stored ? *stored : mode;
}

std::optional<UIColor> FormColorFor(int mode, const UserColors& user, EditionColors aol)
{
    switch (mode) {
    case UIStandard: return SysColor::ButtonFace;
    case UIEnhanced: return aol.Australia ? AOLWindowAustralia : AOLWindow;
    case UIUser: return user.WindowColor;
    default: return std::nullopt;
    }
}

std::optional<ButtonColors> ButtonColorsFor(int mode, const UserColors& user, EditionColors aol)
{
    switch (mode) {
    case UIStandard:
        return ButtonColors{SysColor::ButtonFace, 0, SysColor::ButtonText, SysColor::ButtonFace, std::nullopt,
                            SysColor::ButtonShadow};
    case UIEnhanced:
        if (aol.UK)
            return ButtonColors{UKOrange, 0, 0, aol.Australia ? AOLWindowAustralia : AOLWindow, White, Grey};
        return ButtonColors{AOLBlue, 0, White, AOLWindow, White, Grey};
    case UIUser:
        return ButtonColors{user.ButtonForecolor, user.ButtonHighlight, user.ButtonText, user.WindowColor,
                            std::nullopt, SysColor::ButtonShadow};
    default: return std::nullopt;
    }
}

std::optional<FlatColors> FlatColorsFor(bool pressed, int mode, const UserColors& user)
{
    if (pressed) return FlatColors{192, 255, White};
    switch (mode) {
    case UIStandard: return FlatColors{SysColor::ButtonFace, SysColor::ButtonHighlight, SysColor::ButtonText};
    case UIEnhanced: return FlatColors{AOLBlue, AOLLightBlue, White};
    case UIUser: return FlatColors{user.ButtonForecolor, user.ButtonHighlight, user.ButtonText};
    default: return std::nullopt;
    }
}
