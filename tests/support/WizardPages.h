// The Import/Export wizard's controls found from outside it: its pages are
// child dialogs of its window, so a control sits inside one of them.
#pragma once

#include <windows.h>

// Control `id` of the wizard window `wizard`, on whichever page it sits (in
// this process or another); null when it has none.
inline HWND WizardControl(HWND wizard, int id)
{
    for (HWND page = GetWindow(wizard, GW_CHILD); page; page = GetWindow(page, GW_HWNDNEXT))
        if (HWND control = GetDlgItem(page, id)) return control;
    return GetDlgItem(wizard, id);
}
