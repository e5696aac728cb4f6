// The program's loads of Options: from the registry, with the decimal
// separator of the user's regional settings.
#include "OptionsLoad.h"

#include "modRegKeys.h"

#include <windows.h>

void LoadOptions()
{
    char separator[8] = {};
    const bool known = GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, sizeof separator) > 1;
    LoadOptionsWith(Registry(), known ? separator[0] : '.');
}

void LoadUserColors() { LoadUserColors(Registry()); }
