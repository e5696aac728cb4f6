// The marked-up message box every message of the program goes through.
#pragma once

#include <string>

// Shows `message` (with its ~B, ~CR, ~N ... markup) with the icon of `style`
// and one "OK" button; returns when the user has answered.
void ShowMsg(const std::string& message, long style);

// Shows `message` with the buttons, icon and default button of `style`;
// returns the answer code of the button clicked (1 OK ... 7 No).
int AskMsg(const std::string& message, long style);
