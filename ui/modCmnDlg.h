// The platform's common dialogs as the program uses them: the colour picker
// with its sixteen remembered custom colours, and the file-open dialog.
#pragma once

#include <windows.h>

#include <string>

#include "UIColors.h"

// The colour dialog, fully open, with `initial` preselected. Returns the
// chosen colour, or `initial` when cancelled; 0 when no memory was to be
// had. The custom colours are stored whether confirmed or cancelled.
UIColor PickColor(HWND owner, UIColor initial);

// Custom colour 0 to 15 as stored in "Custom Colors"; a missing one is white.
UIColor GetCustomColor(int index);
void SaveCustomColor(int index, UIColor color);

// The file-open dialog for one kind of file. mode 1 returns the chosen
// file's full path, mode 2 the folder that holds it with its trailing
// backslash; "" when cancelled.
std::string OpenDialog(const std::string& description, const std::string& pattern, int mode, HWND owner = nullptr);
