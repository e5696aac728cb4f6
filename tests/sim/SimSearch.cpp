// The simulator tests' window searches, made as Prismo makes them.
#include "SimSearch.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

std::string TempPath(const std::string& name) {
    char folder[MAX_PATH] = "";
    GetTempPathA(MAX_PATH, folder);
    const std::string path = std::string(folder) + "simtest_" + name;
    DeleteFileA(path.c_str());
    return path;
}

std::string ReadFileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

void WriteFileText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

std::string ClassName(HWND hwnd) {
    char name[100] = "";
    GetClassNameA(hwnd, name, sizeof name);
    return name;
}

HWND NthChildOfClass(HWND parent, const char* className, int index) {
    int count = 0;
    for (HWND w = GetWindow(parent, GW_CHILD); w; w = GetWindow(w, GW_HWNDNEXT)) {
        if (lstrcmpiA(ClassName(w).c_str(), className) == 0 && ++count == index) return w;
    }
    return nullptr;
}

HWND ChildByCaption(HWND parent, const std::string& caption) {
    for (HWND w = GetWindow(parent, GW_CHILD); w; w = GetWindow(w, GW_HWNDNEXT)) {
        char text[100] = "";
        GetWindowTextA(w, text, sizeof text);
        if (caption == text) return w;
    }
    return nullptr;
}

HWND NextChildOfClass(HWND parent, HWND after, const char* className) {
    // Windows' FindWindowExA(parent, after, class) starts after `after` whatever
    // its class; Wine's finds nothing unless `after` is of the class itself.
    HWND w = after ? GetWindow(after, GW_HWNDNEXT) : GetWindow(parent, GW_CHILD);
    for (; w; w = GetWindow(w, GW_HWNDNEXT)) {
        if (lstrcmpiA(ClassName(w).c_str(), className) == 0) return w;
    }
    return nullptr;
}

HWND FindChatRoom(HWND mdi) {
    for (HWND w = GetWindow(mdi, GW_CHILD); w; w = GetWindow(w, GW_HWNDNEXT)) {
        if (ClassName(w) != "AOL Child") continue;
        HWND list = FindWindowExA(w, nullptr, "_AOL_LISTBOX", nullptr);
        HWND rich = FindWindowExA(w, nullptr, "RICHCNTL", nullptr);
        HWND combo = FindWindowExA(w, nullptr, "_AOL_COMBOBOX", nullptr);
        HWND icon = combo ? NextChildOfClass(w, combo, "_AOL_ICON") : nullptr;
        if (list && rich && combo && icon && WindowText(icon).empty()) return w;
    }
    return nullptr;
}

HWND WaitTopLevel(const char* className, const char* caption) {
    HWND found = nullptr;
    PumpUntil([&] { return (found = FindWindowA(className, caption)) && IsWindowVisible(found); }, 10000);
    return found && IsWindowVisible(found) ? found : nullptr;
}

HWND WaitChildByCaption(HWND parent, const std::string& caption) {
    HWND found = nullptr;
    PumpUntil([&] { return (found = ChildByCaption(parent, caption)) != nullptr; }, 10000);
    return found;
}

void Click(HWND hwnd) {
    SendMessageA(hwnd, WM_LBUTTONDOWN, 0, 0);
    SendMessageA(hwnd, WM_LBUTTONUP, 0, 0);
}
