// The window base every form of the program is built on: a dialog from a
// template in the resource script, or a plain window, with VB-like load,
// show, hide and unload, position and size in twips, a background colour,
// and the program-wide list of loaded forms that UnloadAllForms walks.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "Catalog.h"
#include "GdiObjects.h"
#include "UIColors.h"

// A control that paints itself when its form passes WM_DRAWITEM on. Its
// window holds a pointer to it, so it stays where it is (neither copied nor
// moved) and takes that pointer back when it goes.
class OwnerDrawn {
public:
    OwnerDrawn() = default;
    OwnerDrawn(const OwnerDrawn&) = delete;
    OwnerDrawn& operator=(const OwnerDrawn&) = delete;
    virtual ~OwnerDrawn();  // lets go of its control
    virtual void Draw(const DRAWITEMSTRUCT& item) = 0;
    // The object painting `control`, or nullptr.
    static OwnerDrawn* Of(HWND control);

protected:
    // Paints `control` from now on, and lets go of the control it had.
    void AttachTo(HWND control);

private:
    void Release();
    HWND control_ = nullptr;
};

class Form {
public:
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    bool Load();    // creates the window, hidden; false when it could not be made
    void Show();    // loads first when needed
    void Hide();
    bool Unload();  // false when the form refused to close
    bool Loaded() const { return hwnd_ != nullptr; }
    bool Visible() const;
    HWND hwnd() const { return hwnd_; }
    HWND Item(int id) const { return GetDlgItem(hwnd_, id); }
    const std::string& Name() const { return name_; }

    // Position and size of the whole window, in twips.
    long Left() const;
    long Top() const;
    long Width() const;
    long Height() const;
    void Move(long left, long top, long width, long height);
    void SetCaption(const std::string& caption);

    void SetBackColor(UIColor color);
    UIColor BackColor() const { return backColor_; }
    // Draws the etched edge inside the window's border on every repaint.
    void SetFormEdge(bool on);

    std::string Tag;  // free for the form's callers, as a VB form's Tag

protected:
    // templateId 0 makes a plain captioned window of `pixelWidth` x `pixelHeight`.
    Form(std::string name, int templateId, int pixelWidth = 0, int pixelHeight = 0);

    virtual void OnLoad() {}
    virtual void OnCommand(int /*id*/, int /*code*/, HWND /*control*/) {}
    virtual bool OnQueryUnload() { return true; }  // false refuses the unload
    // A close request (close box, Alt+F4, WM_CLOSE); a form that only hides overrides it.
    virtual void OnClose() { Unload(); }
    virtual void OnUnload() {}
    // Any other message; return true with `result` set to handle it.
    virtual bool OnMessage(UINT, WPARAM, LPARAM, LRESULT&) { return false; }

private:
    static INT_PTR CALLBACK DialogProc(HWND hwnd, UINT msg, WPARAM wp, LPARAM lp);
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT msg, WPARAM wp, LPARAM lp);
    bool Dispatch(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result);
    bool Paint();

    std::string name_;
    int templateId_;
    int pixelWidth_, pixelHeight_;
    HWND hwnd_ = nullptr;
    UIColor backColor_ = SysColor::ButtonFace;
    GdiBrush backBrush_;
    bool edge_ = false;
};

// The loaded forms, first loaded first.
const std::vector<Form*>& LoadedForms();

// Unloads the forms from the last loaded to the first; stops at the first
// form that refuses.
void UnloadAllForms();

long TwipsPerPixelX();
long TwipsPerPixelY();
long ScreenWidth();   // twips
long ScreenHeight();  // twips

// Waits, servicing messages, until the form is hidden or unloaded. With
// `blockOthers` the program's other windows are disabled meanwhile, as a
// modal form does.
void WaitWhileShown(Form& form, bool blockOthers);

// Placement helpers every form uses.
void CenterForm(Form& form);
void RePosForm(Form& form, int axis);  // 0 vertical, 1 horizontal
// The form at its stored place (`top` and `left`, in twips), pulled back onto
// the screen vertically, then horizontally; centred when no top is stored.
void RestoreFormPlace(Form& form, const SettingName& top, const SettingName& left);
void FormOnTop(Form& form);
void FormNotOnTop(Form& form);
// The first step of every dialog's loading: topmost, centred, coloured.
void InitForm(Form& form);

// Registers a window class of the program once; later calls do nothing.
void RegisterWindowClass(const char* name, WNDPROC proc, LPCSTR cursor);

// A window's text: a form's caption or a control's contents.
std::string WindowTextOf(HWND window);
// The entry at `index` of a list box; "" when there is none.
std::string ListBoxText(HWND list, int index);
