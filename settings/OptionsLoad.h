// Loading the Options record from the settings store at start: every field
// that is missing takes its default, a boolean with an unknown text keeps its
// value, and a number that does not convert is a type mismatch.
#pragma once

class SettingsStore;

// Fills every field but the interface colours and the UI mode from `store`,
// reporting a number that does not convert through the common error report
// ("LoadOptions" in "modPrismo"). Reads "Multiline Burst" with the decimal
// separator given.
void LoadOptionsWith(const SettingsStore& store, char decimalPoint);

// Fills the four User mode interface colours from `store`. Each text is
// trimmed; an empty one gives the default. A colour that does not convert
// raises RuntimeError 13 to the caller.
void LoadUserColors(const SettingsStore& store);

// The program's loads, from the registry (the Windows shell provides them):
// LoadOptionsWith with the user's decimal separator, and LoadUserColors.
void LoadOptions();
void LoadUserColors();

// The defaults of the interface colours of the User mode.
constexpr int kDefaultWindowColor = static_cast<int>(0x8000000F);  // the system button face
constexpr int kDefaultButtonForecolor = 11365632;
constexpr int kDefaultButtonHighlight = 16757388;
constexpr int kDefaultButtonText = 16777215;
