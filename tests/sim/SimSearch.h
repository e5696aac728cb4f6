// What the simulator tests look at from outside, the way Prismo does: child
// searches by class and caption, the chat room's shape, clicks, and the
// files the simulator logs to.
#pragma once

#include <windows.h>

#include <string>

#include "SimHarness.h"

std::string TempPath(const std::string& name);    // a fresh file name in the temp folder
std::string ReadFileText(const std::string& path);
void WriteFileText(const std::string& path, const std::string& text);

// Child searches as Prismo makes them.
std::string ClassName(HWND hwnd);
HWND NthChildOfClass(HWND parent, const char* className, int index);
HWND NextChildOfClass(HWND parent, HWND after, const char* className);  // FindWindowExA as Windows does it
HWND ChildByCaption(HWND parent, const std::string& caption);
HWND FindChatRoom(HWND mdi);
// Waits (servicing messages) up to 10 s for a visible top-level window.
HWND WaitTopLevel(const char* className, const char* caption);
HWND WaitChildByCaption(HWND parent, const std::string& caption);
void Click(HWND hwnd);  // WM_LBUTTONDOWN then WM_LBUTTONUP, sent
