// Choosing the interface colour mode, the colours each mode gives, and the
// arithmetic that centres a form and keeps it on screen.
#include <gtest/gtest.h>

#include "FormPlacement.h"
#include "UIColors.h"

TEST(ChooseUIMode, TheDisplayDepthDecidesAndALowColourDisplayIgnoresTheStoredMode)
{
    bool low = false;
    EXPECT_EQ(ChooseUIMode(8, low, "2"), UIStandard);
    EXPECT_TRUE(low);
    EXPECT_EQ(ChooseUIMode(16, low, ""), UIEnhanced);
    EXPECT_FALSE(low);
    EXPECT_EQ(ChooseUIMode(24, low, " 2 "), UIUser);
    EXPECT_EQ(ChooseUIMode(24, low, "blue"), UIEnhanced) << "a text that is no number keeps the default";
    low = true;
    EXPECT_EQ(ChooseUIMode(15, low, "2"), UIStandard) << "9 to 15 bits leave LowColorDisplay as it was";
    EXPECT_TRUE(low);
    low = false;
    EXPECT_EQ(ChooseUIMode(15, low, "2"), UIUser);
}

TEST(UIColors, EachModeGivesItsTabledColours)
{
    UserColors user{0x111111, 0x222222, 0x333333, 0x444444};
    const EditionColors us{}, uk{true, false}, ukAustralia{true, true}, australia{false, true};

    EXPECT_EQ(*FormColorFor(0, user, us), SysColor::ButtonFace);
    EXPECT_EQ(*FormColorFor(1, user, us), 0x00F0FBFF);
    EXPECT_EQ(*FormColorFor(1, user, australia), 0x00C0FFFF);
    EXPECT_EQ(*FormColorFor(2, user, us), 0x111111);
    EXPECT_FALSE(FormColorFor(3, user, us));
    EXPECT_FALSE(FormColorFor(-1, user, us));

    const ButtonColors std0 = *ButtonColorsFor(0, user, us);
    EXPECT_EQ(std0.face, SysColor::ButtonFace);
    EXPECT_EQ(std0.text, SysColor::ButtonText);
    EXPECT_FALSE(std0.border);
    EXPECT_EQ(std0.shadow, SysColor::ButtonShadow);

    const ButtonColors blue = *ButtonColorsFor(1, user, australia);
    EXPECT_EQ(blue.face, 0x00AD6D00);
    EXPECT_EQ(blue.text, 0x00FFFFFF);
    EXPECT_EQ(blue.background, 0x00F0FBFF) << "only the UK buttons know the Australian window";
    EXPECT_EQ(*blue.border, 0x00FFFFFF);
    EXPECT_EQ(blue.shadow, 0x00808080);

    const ButtonColors orange = *ButtonColorsFor(1, user, uk);
    EXPECT_EQ(orange.face, 0x00A0E0FF);
    EXPECT_EQ(orange.text, 0);
    EXPECT_EQ(orange.background, 0x00F0FBFF);
    EXPECT_EQ(ButtonColorsFor(1, user, ukAustralia)->background, 0x00C0FFFF);

    const ButtonColors own = *ButtonColorsFor(2, user, us);
    EXPECT_EQ(own.face, 0x222222);
    EXPECT_EQ(own.focus, 0x333333);
    EXPECT_EQ(own.text, 0x444444);
    EXPECT_EQ(own.background, 0x111111);
    EXPECT_FALSE(own.border);
    EXPECT_FALSE(ButtonColorsFor(3, user, us));
}

TEST(UIColors, FlatButtonsAreRedWhenPressedInEveryMode)
{
    const UserColors user{0x111111, 0x222222, 0x333333, 0x444444};
    for (int mode = 0; mode < 3; ++mode) {
        const FlatColors on = *FlatColorsFor(true, mode, user);
        EXPECT_EQ(on.face, 192);
        EXPECT_EQ(on.highlight, 255);
        EXPECT_EQ(on.text, 0x00FFFFFF);
    }
    EXPECT_EQ(FlatColorsFor(false, 0, user)->highlight, SysColor::ButtonHighlight);
    EXPECT_EQ(FlatColorsFor(false, 1, user)->face, 11365632);
    EXPECT_EQ(FlatColorsFor(false, 1, user)->highlight, 16757388);
    EXPECT_EQ(FlatColorsFor(false, 2, user)->text, 0x444444);
    EXPECT_FALSE(FlatColorsFor(false, 5, user));
}

TEST(FormPlacement, RePosKeepsFormsOnScreenOneAxisAtATime)
{
    const long sw = 15360, sh = 11520;
    FormRect low{1000, sh - 2000 + 300, 3000, 2000};
    EXPECT_EQ(RePosRect(low, 0, sw, sh).top, low.top - 300);
    EXPECT_EQ(RePosRect(low, 1, sw, sh).top, low.top);

    FormRect left{-500, 100, 3000, 2000};
    EXPECT_EQ(RePosRect(left, 1, sw, sh).left, 0);
    EXPECT_EQ(RePosRect(left, 0, sw, sh).left, -500);
    EXPECT_EQ(RePosRect(left, 2, sw, sh).left, -500);

    FormRect huge{-100, 400, sw + 600, sh + 900};
    EXPECT_EQ(RePosRect(huge, 0, sw, sh).top, 0);
    EXPECT_EQ(RePosRect(huge, 1, sw, sh).left, -600);

    const FormRect centred = CenterRect({0, 0, 3000, 2001}, sw, sh);
    EXPECT_EQ(centred.left, 6180);
    EXPECT_EQ(centred.top, 4759);
}

TEST(FormPlacement, ShownTwipsAreWholePixelsOfTheDisplay)
{
    // The panel's two heights at 96 DPI (15 twips a pixel) and 120 DPI (12).
    EXPECT_EQ(ShownTwips(990, 15), 990);
    EXPECT_EQ(ShownTwips(705, 15), 705);
    EXPECT_EQ(ShownTwips(990, 12), 984);
    EXPECT_EQ(ShownTwips(705, 12), 696);
    EXPECT_NE(ShownTwips(990, 12), ShownTwips(705, 12));
    EXPECT_EQ(ShownTwips(991, 0), 991) << "no display to speak of";
}
