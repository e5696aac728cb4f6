// The control panel's fade preview strip.
#include "frmChatTools.h"
