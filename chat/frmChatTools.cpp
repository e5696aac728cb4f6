// frmChatTools: the control panel beside the chat room.
#include "frmChatTools.h"

bool PanelShownForChat = false;
bool AOLClosing = false;
bool EMailWindow = false;
