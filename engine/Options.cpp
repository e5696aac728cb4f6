// The one Options record of the program.
#include "Options.h"

OptionsRecord Options;
