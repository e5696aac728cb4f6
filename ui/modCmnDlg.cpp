// The colour picker, its custom colours in the registry, and file-open.
#include "modCmnDlg.h"

#include <commdlg.h>

#include <utility>

#include "Convert.h"
#include "ErrorTrap.h"
#include "GlobalMemory.h"
#include "modRegKeys.h"
#include "modZunBtns.h"

namespace {

constexpr int CustomColorCount = 16;
constexpr UIColor White = 16777215;

}  // namespace

UIColor GetCustomColor(int index)
{
    UIColor color = White;
    ErrorTrap trap("modCmnDlg", "GetCustomColor");
    trap.Run([&] {
        const std::string stored = Trim(ReadSetting(Section::CustomColors, std::to_string(index)));
        if (stored.empty()) return;
        const auto value = ToLong(stored);
        if (!value) throw RuntimeError(Err::TypeMismatch, "Type mismatch");
        color = *value;
    });
    return color;
}

void SaveCustomColor(int index, UIColor color)
{
    WriteSetting(Section::CustomColors, std::to_string(index), std::to_string(color));
}

UIColor PickColor(HWND owner, UIColor initial)
{
    UIColor result = initial;
    ErrorTrap trap("modCmnDlg", "PickColor");
    trap.Run([&] {
        GlobalBlock block(CustomColorCount * sizeof(COLORREF));
        if (!block.get()) {
            result = 0;
            return;
        }
        GlobalLockScope lock(block.get());
        auto* colors = static_cast<COLORREF*>(lock.Data());
        if (!colors) {
            result = 0;
            return;
        }
        for (int i = 0; i < CustomColorCount; ++i) colors[i] = static_cast<COLORREF>(GetCustomColor(i));
        CHOOSECOLORA cc{};
        cc.lStructSize = sizeof cc;
        cc.hwndOwner = owner;
        cc.rgbResult = ResolveColor(initial);
        cc.lpCustColors = colors;
        cc.Flags = CC_FULLOPEN | CC_RGBINIT;
        const bool chosen = ChooseColorA(&cc);
        // Custom colours the user made count even when the dialog was cancelled.
        for (int i = 0; i < CustomColorCount; ++i) SaveCustomColor(i, static_cast<UIColor>(colors[i]));
        const auto picked = static_cast<UIColor>(cc.rgbResult);
        if (chosen && picked >= 0) result = picked;
    });
    return result;
}

std::string OpenDialog(const std::string& description, const std::string& pattern, int mode, HWND owner)
{
    std::string chosen;
    ErrorTrap trap("modCmnDlg", "OpenDialog");
    trap.Run([&] {
        const std::string filter = description + '\0' + pattern + '\0' + '\0';
        char file[128] = "";
        OPENFILENAMEA ofn{};
        ofn.lStructSize = sizeof ofn;
        ofn.hwndOwner = owner;
        ofn.lpstrFilter = filter.c_str();
        ofn.lpstrFile = file;
        ofn.nMaxFile = sizeof file;
        // The current folder stays where it was: left on a diskette, it would
        // hold that folder open and keep it from being removed.
        ofn.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
        if (!GetOpenFileNameA(&ofn)) return;
        const std::string path(file);
        chosen = mode == 2 ? path.substr(0, ofn.nFileOffset) : path;
        if (mode == 2 && !chosen.empty() && chosen.back() != '\\') chosen += '\\';
    });
    return chosen;
}
