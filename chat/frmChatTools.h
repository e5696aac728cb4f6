// frmChatTools: the control panel that stands beside the chat room. It shows
// the working fade as a live preview, lets the user change it, and keeps the
// list of stored Fade Schemes. The chat session works through it as a
// ChatPanel; the hooks and the watcher live in the session, not here.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "Catalog.h"
#include "ChatSession.h"
#include "Form.h"
#include "Options.h"
#include "ToolTips.h"
#include "modZunBtns.h"

// The preview strip: a child window painted by the panel.
class PreviewStrip {
public:
    HWND Create(HWND parent, int id, int x, int y, int width, int height);
    HWND hwnd() const { return hwnd_; }
    ColorValue BackColor = 0;  // the one colour of a one-colour fade

private:
    HWND hwnd_ = nullptr;
};

class frmChatTools : public Form, public ChatPanel {
public:
    frmChatTools();
    ~frmChatTools() override;

    // --- State of the panel ---
    bool Loading = false;                // true while the panel loads: no preview, no focus moves
    std::int16_t PanelFadeNumber = 1;    // the fade number the panel shows, 1 to 6

    // --- Controls ---
    HWND cboSchemes = nullptr;
    ZunButton cmdColor[6];               // cmdColor1 .. cmdColor6
    FlatButton optFade[6];               // opt1Fade .. opt6Fade
    FlatButton optWavy, optBold, optItalic, optULine;
    FlatButton optOn, optOff;
    HWND chkSolid = nullptr;
    PreviewStrip picPreview;
    FlatButton cmdSave, cmdEmail, cmdDel, cmdRefresh;
    ZunButton cmdMin, cmdExit;
    HWND Line1 = nullptr;
    std::string cmdMinToolTip;           // "Show Options" or "Close Options"

    // --- The panel's own routines ---
    void GetSchemes();
    void SetOptState();
    void FadeNumber();
    void FadeOn() override;   // as a click on optOn
    void FadeOff() override;  // as a click on optOff
    void ShowPanel() override;
    void HidePanel() override;
    void KeepInFront() override;
    // Hands the keyboard focus back to the chat room the user types in.
    void FocusChatRoom();
    // Moves the keyboard to `target` of another thread, or only looks; true when it is there.
    static bool PlaceKeyboard(HWND target, bool move);

    // Click handlers, one per control (index 0 to 5 for the arrays).
    void cboSchemes_Click();
    void cmdColor_Click(int index);
    void optFade_Click(int number);  // 1 to 6
    void optWavy_Click();
    void optBold_Click();
    void optItalic_Click();
    void optULine_Click();
    void chkSolid_Click();
    void optOn_Click();
    void optOff_Click();
    void cmdSave_Click();
    void cmdEmail_Click();
    void cmdDel_Click();
    void cmdRefresh_Click();
    void cmdMin_Click();
    void cmdExit_Click();

    // --- The preview strip (Preview.cpp) ---
    void picPreview_Paint();
    void Fade1Preview(const ColorValue& color);  // one colour: the strip's background
    void picPreview_MouseDown();

protected:
    void OnLoad() override;
    void OnUnload() override;
    // The panel only hides: closing it must not end the program under AOL's menu.
    void OnClose() override { HidePanel(); }
    void OnCommand(int id, int code, HWND control) override;

private:
    void CreateControls();
    void PaintColorButton(int index, ColorValue color);
    void ToggleStyle(FlatButton& button, bool& field, const SettingName& setting);
    void ApplyState(bool expanded);
    void SelectScheme(const std::string& name);
    std::string SchemeText() const;
    void SetMinToolTip(const std::string& text);

    ToolTips toolTips_;
};

// The program's one control panel.
frmChatTools& ChatTools();
// The program's one chat session, working with that panel.
ChatSession& TheChatSession();
