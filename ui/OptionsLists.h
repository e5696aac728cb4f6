// The options dialog's two lists and the text the line delay is stored as.
// The entries are fixed texts read with "." whatever the user's locale; the
// stored delay uses the locale's decimal separator, as the loading reads it.
#pragma once

#include <string>
#include <vector>

// The line delay's entries, in seconds: "0.10" to "3", in list order.
const std::vector<std::string>& BurstChoices();
// The line length's entries: "20" to "92", ascending.
const std::vector<std::string>& LineChoices();

// The seconds an entry of the line delay list stands for.
float BurstOfChoice(const std::string& entry);

// The entry whose number equals `burst` exactly (1.5 finds "1.50"); -1 when
// none does, as for a delay edited by hand.
int BurstIndex(float burst);
// The entry equal to `chars`; -1 when none is.
int LinesIndex(long chars);

// The shortest decimal text that reads back as `burst` ("1.5" for "1.50"),
// with `decimalPoint` as its separator.
std::string BurstText(float burst, char decimalPoint);
