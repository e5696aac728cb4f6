// Fade Schemes over the settings store.
#include "Schemes.h"

#include "Catalog.h"
#include "modRegKeys.h"

void ParseSchemeLine(const std::string& section, const std::string& line)
{
    if (auto v = ParseSchemeText(line)) WriteSetting(section, v->name, v->value);
}

SchemeTexts ReadScheme(const std::string& schemeName)
{
    const std::string section = SchemeSection(schemeName);
    SchemeTexts scheme;
    for (const char* name : kSchemeValueNames) *SchemeField(scheme, name) = ReadSetting(section, name);
    return scheme;
}
