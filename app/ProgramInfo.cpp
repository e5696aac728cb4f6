// Version and title texts from the running program's version resource.
#include "ProgramInfo.h"

#include <windows.h>

#include <vector>

std::string VersionText()
{
    static std::string text;
    if (!text.empty()) return text;
    char path[MAX_PATH] = "";
    if (!GetModuleFileNameA(nullptr, path, sizeof path)) return text;
    DWORD unused = 0;
    const DWORD size = GetFileVersionInfoSizeA(path, &unused);
    if (size == 0) return text;
    std::vector<char> block(size);
    if (!GetFileVersionInfoA(path, 0, size, block.data())) return text;
    VS_FIXEDFILEINFO* info = nullptr;
    UINT length = 0;
    if (!VerQueryValueA(block.data(), "\\", reinterpret_cast<void**>(&info), &length) || !info) return text;
    text = std::to_string(HIWORD(info->dwFileVersionMS)) + "." + std::to_string(LOWORD(info->dwFileVersionMS)) +
           "." + std::to_string(HIWORD(info->dwFileVersionLS));
    return text;
}

std::string TitleText() { return "Prismo - " + VersionText(); }
