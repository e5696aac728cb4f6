// LoadOptions and LoadUserColors: the stored settings into the Options record.
#include "OptionsLoad.h"

#include "Catalog.h"
#include "Convert.h"
#include "ErrorTrap.h"
#include "Options.h"
#include "SettingsStore.h"

#include <optional>

namespace {

// A boolean that is on unless stored "False"; an unknown text changes nothing.
void LoadOnByDefault(const SettingsStore& store, const SettingName& setting, bool& field)
{
    const std::string text = store.Read(setting);
    if (text == kTrueText || text.empty()) field = true;
    else if (text == kFalseText) field = false;
}

// A boolean that is off unless stored "True"; an unknown text changes nothing.
void LoadOffByDefault(const SettingsStore& store, const SettingName& setting, bool& field)
{
    const std::string text = store.Read(setting);
    if (text == kTrueText) field = true;
    else if (text == kFalseText || text.empty()) field = false;
}

[[noreturn]] void TypeMismatch() { throw RuntimeError(Err::TypeMismatch, "Type mismatch"); }

template <class T>
T Converted(const std::optional<T>& value)
{
    if (!value) TypeMismatch();
    return *value;
}

template <class T, class Convert>
void LoadNumber(const SettingsStore& store, const SettingName& setting, T& field, T fallback, Convert convert)
{
    const std::string text = store.Read(setting);
    field = text.empty() ? fallback : static_cast<T>(Converted(convert(text)));
}

void LoadText(const SettingsStore& store, const SettingName& setting, std::string& field, const char* fallback)
{
    field = store.Read(setting);
    if (field.empty()) field = fallback;
}

ColorValue LoadUserColor(const SettingsStore& store, const SettingName& setting, ColorValue fallback)
{
    const std::string text = Trim(store.Read(setting));
    return text.empty() ? fallback : Converted(ToLong(text));
}

}  // namespace

void LoadOptionsWith(const SettingsStore& store, char decimalPoint)
{
    OptionsRecord& o = Options;
    ErrorTrap trap("modPrismo", "LoadOptions");
    auto step = [&trap](auto&& load) { return trap.Run(load); };
    const auto whole = [](const std::string& t) { return ToLong(t); };
    const auto small = [](const std::string& t) { return ToInteger(t); };
    const auto real = [decimalPoint](const std::string& t) { return ToDouble(t, decimalPoint); };

    // The order of the reads is the order the user's settings take effect
    // when one of them is broken and the report is answered Abort.
    if (!step([&] { LoadOnByDefault(store, Setting::FaderOn, o.FaderOn); })) return;
    if (!step([&] { LoadText(store, Setting::DefaultScheme, o.DefaultScheme, kDefaultSchemeName); })) return;
    if (!step([&] { LoadOffByDefault(store, Setting::Wavy, o.Wavy); })) return;
    if (!step([&] { LoadOffByDefault(store, Setting::Bold, o.Bold); })) return;
    if (!step([&] { LoadOffByDefault(store, Setting::Italic, o.Italic); })) return;
    if (!step([&] { LoadOffByDefault(store, Setting::ULine, o.ULine); })) return;
    if (!step([&] { LoadNumber(store, Setting::FadeNumber, o.FadeNumber, std::int16_t{5}, small); })) return;
    for (int i = 0; i < 6; ++i)
        if (!step([&] { LoadNumber(store, Setting::Colors[i], o.Colors[i], ColorValue{0}, whole); })) return;
    if (!step([&] { LoadOnByDefault(store, Setting::ShowFadePanelWithChat, o.ShowFadePanelWithChat); })) return;
    if (!step([&] { LoadOnByDefault(store, Setting::UseMultiline, o.UseMultiline); })) return;
    if (!step([&] { LoadNumber(store, Setting::MultilineBurst, o.MultilineBurst, 1.5f, real); })) return;
    if (!step([&] { LoadNumber(store, Setting::CharsInLine, o.CharsInLine, std::int32_t{60}, whole); })) return;
    if (!step([&] { LoadOffByDefault(store, Setting::UseAlias, o.UseAlias); })) return;
    if (!step([&] { o.AliasName = store.Read(Setting::AliasName); })) return;
    if (!step([&] { LoadOnByDefault(store, Setting::ShowEMailSample, o.ShowEMailSample); })) return;
    if (!step([&] { LoadOnByDefault(store, Setting::UseChatKW, o.UseChatKW); })) return;
    if (!step([&] { LoadOnByDefault(store, Setting::ShowEFToolbar, o.ShowEFToolbar); })) return;
    step([&] { LoadOffByDefault(store, Setting::SolidFade, o.SolidFade); });
}

void LoadUserColors(const SettingsStore& store)
{
    Options.WindowColor = LoadUserColor(store, Setting::WindowColor, kDefaultWindowColor);
    Options.ButtonForecolor = LoadUserColor(store, Setting::ButtonForecolor, kDefaultButtonForecolor);
    Options.ButtonHighlight = LoadUserColor(store, Setting::ButtonHighlight, kDefaultButtonHighlight);
    Options.ButtonText = LoadUserColor(store, Setting::ButtonText, kDefaultButtonText);
}
