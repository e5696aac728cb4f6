// frmAbout: the about box. The program's name over a colour gradient, its
// version and release date, help, and the way to the upgrade check.
#pragma once

#include <windows.h>

#include <functional>

#include "Form.h"
#include "UIColors.h"
#include "modZunBtns.h"

// What Updates reaches beyond the about box: whether AOL is signed on, and
// the upgrade check, which runs while its window is loaded and unloaded.
struct AboutActions {
    std::function<bool()> AOLOnline;
    std::function<void()> VersionCheck;
};

// Picture1: the gradient with the title on it.
class AboutPicture : public OwnerDrawn {
public:
    void Attach(HWND picture);
    void Draw(const DRAWITEMSTRUCT& item) override;
    HWND hwnd() const { return hwnd_; }
    UIColor BackColor = 0;      // the gradient's top
    UIColor BottomColor = 0;    // the gradient's bottom (lblColor's background)

private:
    HWND hwnd_ = nullptr;
};

class frmAbout : public Form {
public:
    explicit frmAbout(AboutActions actions);
    ~frmAbout() override;

    AboutPicture Picture1;
    UIColor lblColorBackColor;  // the hidden lblColor's background: the gradient's bottom
    ZunButton cmdUpdates, cmdHelp, cmdOK;

    void cmdUpdates_Click();
    void cmdHelp_Click();
    void cmdOK_Click();

protected:
    void OnLoad() override;
    void OnCommand(int id, int code, HWND control) override;

private:
    AboutActions actions_;
};

// The release date the about box shows.
inline constexpr char kReleaseDate[] = "July 06, 1999";

// Opens the about box: a fresh one at each opening, or the open one brought forward.
bool ShowAbout(AboutActions actions);
// The about box while it is loaded (shown or not); nullptr otherwise.
frmAbout* AboutBox();
// Loads a fresh about box without showing it, unless one is loaded already;
// true when it loaded one (the caller then unloads it with UnloadAbout).
bool LoadAboutHidden();
void UnloadAbout();
