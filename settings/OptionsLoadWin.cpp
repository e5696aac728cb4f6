// LoadOptions with the decimal separator of the user's regional settings.
#include "OptionsLoad.h"

#include <windows.h>

void LoadOptions()
{
    char separator[8] = {};
    const bool known = GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, sizeof separator) > 1;
    LoadOptionsWith(known ? separator[0] : '.');
}
