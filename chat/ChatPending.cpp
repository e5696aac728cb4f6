// Stand-ins for the chat hooks, chat commands and watcher whose own source
// files are not in the tree yet: each group does nothing until its file
// arrives (chat/CMakeLists.txt then drops the group from here).
#include "frmChatTools.h"

#ifdef PRISMO_PENDING_SENDHOOKS
void frmChatTools::sbcChatEdit_WndMessageX(HWND, UINT, WPARAM, LPARAM, LRESULT&, bool&) {}
void frmChatTools::sbcSendIcon_WndMessageX(HWND, UINT, WPARAM, LPARAM, LRESULT&, bool&) {}
#endif

#ifdef PRISMO_PENDING_CHATCOMMANDS
void frmChatTools::ActivateCommand(const std::string&) {}
void frmChatTools::Advertise() {}
void frmChatTools::EnableMultiline(HWND, int, long) {}
#endif

#ifdef PRISMO_PENDING_WATCHER
void frmChatTools::sbcMenu_WndMessageX(HWND, UINT, WPARAM, LPARAM, LRESULT&, bool&) {}
void frmChatTools::sbcMenu_DelayedEvent(LONG_PTR) {}
void frmChatTools::Timer1_Timer() {}
void frmChatTools::UnhookPrismo() {}
#endif
