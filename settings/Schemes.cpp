// Fade Schemes over the settings store.
#include "Schemes.h"

#include "Catalog.h"
#include "SettingsStore.h"

void ParseSchemeLine(SettingsStore& store, const std::string& section, const std::string& line)
{
    if (auto v = ParseSchemeText(line)) store.Write(section, v->name, v->value);
}

SchemeTexts ReadScheme(const SettingsStore& store, const std::string& schemeName)
{
    const std::string section = SchemeSection(schemeName);
    SchemeTexts scheme;
    for (const char* name : kSchemeValueNames) *SchemeField(scheme, name) = store.Read(section, name);
    return scheme;
}
