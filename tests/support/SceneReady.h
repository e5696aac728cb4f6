// Lets the screenshot scripts photograph a scene as soon as it is on screen
// rather than after a guessed delay: once one of the scene's windows is
// visible and its message loop has nothing left to paint (timer messages
// come after every paint), the file named by PRISMO_SCENE_READY is created.
#pragma once

#include <windows.h>

#include <cstdlib>

namespace SceneReady {

inline BOOL CALLBACK FindVisible(HWND window, LPARAM found)
{
    DWORD pid = 0;
    GetWindowThreadProcessId(window, &pid);
    if (pid != GetCurrentProcessId() || !IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<bool*>(found) = true;
    return FALSE;
}

// Tells the screenshot script that the scene is on screen now.
inline void Mark()
{
    HANDLE file = CreateFileA(std::getenv("PRISMO_SCENE_READY"), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
}

// True while the window or one of its children still waits to be painted
// (for a scene whose windows belong to another program).
inline bool WaitsForPaint(HWND window)
{
    if (GetUpdateRect(window, nullptr, FALSE)) return true;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (WaitsForPaint(child)) return true;
    return false;
}

inline void CALLBACK Tick(HWND, UINT, UINT_PTR id, DWORD)
{
    bool shown = false;
    EnumWindows(FindVisible, reinterpret_cast<LPARAM>(&shown));
    if (!shown) return;
    KillTimer(nullptr, id);
    Mark();
}

// Call before showing the scene; it marks itself from the scene's own loop.
inline void MarkWhenDrawn()
{
    if (std::getenv("PRISMO_SCENE_READY")) SetTimer(nullptr, 0, 100, Tick);
}

}  // namespace SceneReady
