// Tool tips over a form's controls.
#include "ToolTips.h"

#include <commctrl.h>

void ToolTips::Set(HWND form, HWND control, const std::string& text)
{
    TOOLINFOA tool{};
    tool.cbSize = TTTOOLINFOA_V1_SIZE;  // what Windows 95's own common controls know
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = form;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    tool.lpszText = const_cast<char*>(text.c_str());  // the tooltip keeps a copy
    if (!window_ || !IsWindow(window_)) {
        InitCommonControls();
        // Owned by the form, so it is destroyed with it.
        window_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP, CW_USEDEFAULT,
                                  CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, form, nullptr,
                                  GetModuleHandleA(nullptr), nullptr);
    }
    // Deleting a tool that is not there does nothing.
    SendMessageA(window_, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageA(window_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}
