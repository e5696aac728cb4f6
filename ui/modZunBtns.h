// The program's own owner-drawn controls with the colour roles of the
// interface modes (an ordinary 3-D button, a flat two-state button and a
// progress bar), and the routines that colour forms and buttons by mode.
#pragma once

#include <windows.h>

#include <string>

#include "Form.h"
#include "UIColors.h"

// A colour as GDI takes it: system colours (0x800000nn) through GetSysColor.
COLORREF ResolveColor(UIColor color);

// A BS_OWNERDRAW button made by a dialog template or by Create; its form's
// WM_DRAWITEM paints it.
class OwnerDrawnButton : public OwnerDrawn {
public:
    void Attach(HWND button);
    HWND Create(HWND parent, int id, const std::string& caption, int x, int y, int width, int height);
    HWND hwnd() const { return hwnd_; }
    void Refresh() const;

protected:
    HWND hwnd_ = nullptr;
};

// An ordinary 3-D push button.
class ZunButton : public OwnerDrawnButton {
public:
    void Draw(const DRAWITEMSTRUCT& item) override;

    UIColor BackColor = SysColor::ButtonFace;         // the face
    UIColor ForeColor = SysColor::ButtonText;         // the caption
    UIColor FocusColor = 0;                           // the frame of the focused button
    UIColor FillerBackground = SysColor::ButtonFace;  // the margin around the button
    UIColor BorderColor = SysColor::ButtonHighlight;  // the lit top and left edges
    UIColor ShadowColor = SysColor::ButtonShadow;     // the shaded bottom and right edges
};

// A flat button that stays pressed ("on") or released; its owner flips
// Value on a click and colours it with SetOptColor.
class FlatButton : public OwnerDrawnButton {
public:
    void Draw(const DRAWITEMSTRUCT& item) override;

    bool Value = false;
    UIColor BackColor = SysColor::ButtonFace;
    UIColor Highlight = SysColor::ButtonHighlight;  // the flat frame
    UIColor ForeColor = SysColor::ButtonText;
    UIColor FocusColor = 0;
    UIColor ClickColor = SysColor::ButtonShadow;     // the face while the mouse holds it
};

// A progress bar with a status text and a percentage.
class ProgressBar {
public:
    // Its window holds a pointer to it: it stays where it is, and takes that
    // pointer back when it goes.
    ProgressBar() = default;
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar();
    HWND Create(HWND parent, int id, int x, int y, int width, int height);
    HWND hwnd() const { return hwnd_; }
    void SetValue(int percent);  // 0 to 100
    void SetText(const std::string& status);
    int Value() const { return value_; }
    const std::string& Text() const { return text_; }
    void Paint(HDC dc) const;

    UIColor BackColor = 0x00FFFFFF;
    UIColor FillColor = 11365632;
    UIColor ForeColor = 0;

private:
    HWND hwnd_ = nullptr;
    int value_ = 0;
    std::string text_;
};

// The interface colours of the current mode (Options UIMode) on a form's
// background, an ordinary button, and a flat button pressed or released.
// A mode outside 0 to 2 leaves the colours as they are.
void SetFormColor(Form& form);
void SetButtonColor(ZunButton& button);
void SetOptColor(bool pressed, FlatButton& button);
// Clears the form's drawing and frames it with an etched edge.
void DrawFormEdge(Form& form);
// Sets the progress bar's colours to the current mode's button colours.
void SetProgressColor(ProgressBar& bar);

// The display's colour depth in bits per pixel.
int DisplayBitsPerPixel();

// The default mode for the display; sets Options LowColorDisplay.
// bitsPerPixel 0 asks the display.
int GetUIMode(int bitsPerPixel = 0);

// The mode at start: GetUIMode, overridden by the stored "UIMode" unless the
// display is low-colour. Sets Options UIMode and returns it.
int StartUIMode(int bitsPerPixel = 0);
