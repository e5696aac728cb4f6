// Rebuilding the control panel so that a changed colour mode shows on it.
#pragma once

// Unloads the control panel and loads it again, shown again if it was on
// view. Only the panel's window is replaced: the chat session keeps its
// hooks, and an advertisement or a multiline send under way goes on.
void ReloadControlPanel();
