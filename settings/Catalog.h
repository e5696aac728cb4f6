// Every registry section and value name Prismo reads or writes, in one place:
// the rest of the program names a setting only through these constants.
#pragma once

#include <cstddef>
#include <string>

// One stored setting: a section under the program's key ("" is the key
// itself) and a value name in it.
struct SettingName {
    const char* section;
    const char* name;
};

// The program's own key under HKEY_CURRENT_USER.
inline constexpr char kSettingsRoot[] = "Software\\Zun Software\\Prismo\\";

namespace Section {
inline constexpr char Root[] = "";
inline constexpr char Schemes[] = "Schemes";
inline constexpr char Colors[] = "Colors";
inline constexpr char Style[] = "Style";
inline constexpr char Options[] = "Options";
inline constexpr char Multiline[] = "Multiline";
inline constexpr char EMail[] = "EMail";
inline constexpr char EFade[] = "E-Fade";
inline constexpr char ChatExtPos[] = "ChatExtPos";
inline constexpr char UserColors[] = "User Colors";
inline constexpr char CustomColors[] = "Custom Colors";
}  // namespace Section

namespace ValueName {
inline constexpr char FaderOn[] = "Fader On";
inline constexpr char UIMode[] = "UIMode";
inline constexpr char AOLPath[] = "AOL Path";
inline constexpr char State[] = "State";
inline constexpr char Top[] = "Top";
inline constexpr char Left[] = "Left";
inline constexpr char Default[] = "Default";
inline constexpr char FadeNumber[] = "Fade Number";
inline constexpr char One[] = "One";
inline constexpr char Two[] = "Two";
inline constexpr char Three[] = "Three";
inline constexpr char Four[] = "Four";
inline constexpr char Five[] = "Five";
inline constexpr char Six[] = "Six";
inline constexpr char SolidFade[] = "SolidFade";
inline constexpr char Bold[] = "Bold";
inline constexpr char Italic[] = "Italic";
inline constexpr char ULine[] = "ULine";
inline constexpr char Wavy[] = "Wavy";
inline constexpr char ShowFadePanelWithChat[] = "ShowFadePanelWithChat";
inline constexpr char UseChatKW[] = "Use Chat KW";
inline constexpr char UseMultiline[] = "Use Multiline";
inline constexpr char MultilineBurst[] = "Multiline Burst";
inline constexpr char CharsInLine[] = "Chars In Line";
inline constexpr char UseAlias[] = "Use Alias";
inline constexpr char AliasName[] = "Alias Name";
inline constexpr char ShowEMailSample[] = "Show EMail Sample";
inline constexpr char ShowEFToolbar[] = "ShowEFToolbar";
inline constexpr char WindowColor[] = "WindowColor";
inline constexpr char ButtonForecolor[] = "ButtonForecolor";
inline constexpr char ButtonHighlight[] = "ButtonHighlight";
inline constexpr char ButtonText[] = "ButtonText";
}  // namespace ValueName

// The settings themselves, section and name together.
namespace Setting {
inline constexpr SettingName FaderOn{Section::Root, ValueName::FaderOn};
inline constexpr SettingName UIMode{Section::Root, ValueName::UIMode};
inline constexpr SettingName AOLPath{Section::Root, ValueName::AOLPath};
inline constexpr SettingName PanelState{Section::Root, ValueName::State};
inline constexpr SettingName PanelTop{Section::Root, ValueName::Top};
inline constexpr SettingName PanelLeft{Section::Root, ValueName::Left};
inline constexpr SettingName DefaultScheme{Section::Schemes, ValueName::Default};
inline constexpr SettingName FadeNumber{Section::Colors, ValueName::FadeNumber};
inline constexpr SettingName Colors[6] = {
    {Section::Colors, ValueName::One},  {Section::Colors, ValueName::Two},
    {Section::Colors, ValueName::Three}, {Section::Colors, ValueName::Four},
    {Section::Colors, ValueName::Five}, {Section::Colors, ValueName::Six}};
inline constexpr SettingName SolidFade{Section::Colors, ValueName::SolidFade};
inline constexpr SettingName Bold{Section::Style, ValueName::Bold};
inline constexpr SettingName Italic{Section::Style, ValueName::Italic};
inline constexpr SettingName ULine{Section::Style, ValueName::ULine};
inline constexpr SettingName Wavy{Section::Style, ValueName::Wavy};
inline constexpr SettingName ShowFadePanelWithChat{Section::Options, ValueName::ShowFadePanelWithChat};
inline constexpr SettingName UseChatKW{Section::Options, ValueName::UseChatKW};
inline constexpr SettingName UseMultiline{Section::Multiline, ValueName::UseMultiline};
inline constexpr SettingName MultilineBurst{Section::Multiline, ValueName::MultilineBurst};
inline constexpr SettingName CharsInLine{Section::Multiline, ValueName::CharsInLine};
inline constexpr SettingName UseAlias{Section::EMail, ValueName::UseAlias};
inline constexpr SettingName AliasName{Section::EMail, ValueName::AliasName};
inline constexpr SettingName ShowEMailSample{Section::EMail, ValueName::ShowEMailSample};
inline constexpr SettingName ShowEFToolbar{Section::EFade, ValueName::ShowEFToolbar};
inline constexpr SettingName EFadeTop{Section::EFade, ValueName::Top};
inline constexpr SettingName EFadeLeft{Section::EFade, ValueName::Left};
inline constexpr SettingName MultilineTop{Section::ChatExtPos, ValueName::Top};
inline constexpr SettingName MultilineLeft{Section::ChatExtPos, ValueName::Left};
inline constexpr SettingName WindowColor{Section::UserColors, ValueName::WindowColor};
inline constexpr SettingName ButtonForecolor{Section::UserColors, ValueName::ButtonForecolor};
inline constexpr SettingName ButtonHighlight{Section::UserColors, ValueName::ButtonHighlight};
inline constexpr SettingName ButtonText{Section::UserColors, ValueName::ButtonText};
}  // namespace Setting

// How a boolean setting is stored; readers compare exactly, case and all.
inline constexpr char kTrueText[] = "True";
inline constexpr char kFalseText[] = "False";

// The scheme chosen when none is recorded; the installation always ships it.
inline constexpr char kDefaultSchemeName[] = "Cool Fade";

// The colour dialog's custom colours are the values "0" to "15" of
// Section::CustomColors.
constexpr int kCustomColorCount = 16;
std::string CustomColorName(int index);

// A stored Fade Scheme lives in "Schemes\" + its name.
std::string SchemeSection(const std::string& schemeName);

// The only value names a stored scheme has: "Fade Number", the six colours,
// then the four styles.
constexpr std::size_t kSchemeValueCount = 11;
extern const char* const kSchemeValueNames[kSchemeValueCount];
// The six colour names, "One" to "Six", in order.
extern const char* const kColorValueNames[6];

// The whole catalogue, every fixed setting once (the custom colours and the
// scheme values are the two families above).
extern const SettingName kCatalog[];
extern const std::size_t kCatalogSize;
