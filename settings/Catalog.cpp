// The catalogue's families and its list of every fixed setting.
#include "Catalog.h"

const char* const kColorValueNames[6] = {ValueName::One,  ValueName::Two,  ValueName::Three,
                                         ValueName::Four, ValueName::Five, ValueName::Six};

const char* const kSchemeValueNames[kSchemeValueCount] = {
    ValueName::FadeNumber, ValueName::One,  ValueName::Two,  ValueName::Three,
    ValueName::Four,       ValueName::Five, ValueName::Six,  ValueName::Wavy,
    ValueName::Bold,       ValueName::Italic, ValueName::ULine};

const SettingName kCatalog[] = {
    Setting::FaderOn,         Setting::UIMode,          Setting::AOLPath,
    Setting::PanelState,      Setting::PanelTop,        Setting::PanelLeft,
    Setting::DefaultScheme,   Setting::FadeNumber,      Setting::Colors[0],
    Setting::Colors[1],       Setting::Colors[2],       Setting::Colors[3],
    Setting::Colors[4],       Setting::Colors[5],       Setting::SolidFade,
    Setting::Bold,            Setting::Italic,          Setting::ULine,
    Setting::Wavy,            Setting::ShowFadePanelWithChat, Setting::UseChatKW,
    Setting::UseMultiline,    Setting::MultilineBurst,  Setting::CharsInLine,
    Setting::UseAlias,        Setting::AliasName,       Setting::ShowEMailSample,
    Setting::ShowEFToolbar,   Setting::EFadeTop,        Setting::EFadeLeft,
    Setting::MultilineTop,    Setting::MultilineLeft,   Setting::WindowColor,
    Setting::ButtonForecolor, Setting::ButtonHighlight, Setting::ButtonText,
};
const std::size_t kCatalogSize = sizeof(kCatalog) / sizeof(kCatalog[0]);

std::string CustomColorName(int index) { return std::to_string(index); }

std::string SchemeSection(const std::string& schemeName)
{
    return std::string(Section::Schemes) + "\\" + schemeName;
}
