// frmChatTools: the control panel that stands beside the chat room. It shows
// the working fade as a live preview, lets the user change it, keeps the list
// of stored Fade Schemes, and owns the chat hooks and the watcher timer.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "Catalog.h"
#include "Form.h"
#include "Options.h"
#include "SubClass.h"
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

class frmChatTools : public Form {
public:
    frmChatTools();
    ~frmChatTools() override;

    // --- State of the panel ---
    bool Loading = false;                // true while the panel loads: no preview, no focus moves
    std::int16_t PanelFadeNumber = 1;    // the fade number the panel shows, 1 to 6
    bool ChatHooked = false;             // the chat input hooks sit on the current room
    bool SendingEnter = false;           // our own Enter is on its way to the chat input
    bool AdvertFaderWasOn = false;       // the fader's state before an advertisement
    bool CommandPending = false;         // a "/" command waits for the send icon's button-up
    std::string PendingCommand;
    HWND ChatInputWindow = nullptr;      // the chat input the hooks were attached to
    bool EFadeShown = false;             // the e-mail fader toolbar is up for a mail window
    bool SignedOnSeen = false;           // sign-on state and screen name taken in

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

    // The three hooks: AOL's chat input, its send icon, its main window.
    SubClass sbcChatEdit, sbcSendIcon, sbcMenu;

    // --- The panel's own routines ---
    void GetSchemes();
    void SetOptState();
    void FadeNumber();
    void FadeOn();   // as a click on optOn
    void FadeOff();  // as a click on optOff
    void ShowPanel();
    void HidePanel();
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

    // --- The chat hooks, commands and watcher (their own source files) ---
    void sbcChatEdit_WndMessageX(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                 LRESULT& result, bool& noDefault);
    void sbcSendIcon_WndMessageX(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                 LRESULT& result, bool& noDefault);
    void sbcMenu_WndMessageX(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                             LRESULT& result, bool& noDefault);
    void sbcMenu_DelayedEvent(LONG_PTR value);
    void Timer1_Timer();
    void ActivateCommand(const std::string& command);
    void Advertise();
    void EnableMultiline(HWND inputBox, int character, long lineLength);
    void UnhookPrismo();

protected:
    void OnLoad() override;
    void OnUnload() override;
    void OnCommand(int id, int code, HWND control) override;
    bool OnMessage(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) override;

private:
    void CreateControls();
    void PaintColorButton(int index, ColorValue color);
    void ToggleStyle(FlatButton& button, bool& field, const SettingName& setting);
    void ApplyState(bool expanded);
    void SelectScheme(const std::string& name);
    std::string SchemeText() const;
    void SetMinToolTip(const std::string& text);
    void StartTimer();
    void StopTimer();

    HWND toolTip_ = nullptr;
};

// The program's one control panel.
frmChatTools& ChatTools();

// Shared flags of the chat fader (defined with the panel, in frmChatTools.cpp).
extern bool PanelShownForChat;  // the watcher showed the panel for the open room
extern bool AOLClosing;         // AOL's exit command was seen; the program is ending
extern HWND EMailWindow;        // the mail being written that the e-mail fader works on
