// frmMsg: the message box every message of the program goes through. Its
// message area prints marked-up text and grows with it; three buttons below
// answer it.
#pragma once

#include <array>
#include <string>

#include "Form.h"
#include "GdiObjects.h"
#include "Markup.h"
#include "modZunBtns.h"

// The message area: an owner-drawn picture that keeps what is printed in
// it (auto-redraw) and measures and prints for the markup layout.
class MessageArea : public MarkupSurface, public OwnerDrawn {
public:
    MessageArea() = default;
    ~MessageArea() override;
    MessageArea(const MessageArea&) = delete;
    MessageArea& operator=(const MessageArea&) = delete;
    void Attach(HWND area, UIColor backColor);
    HWND hwnd() const { return hwnd_; }
    void DrawIcon(int systemIcon);

    void Clear() override;
    void SetStyle(const TextStyle& style) override;
    int TextWidth(const std::string& text) override;
    int LineHeight() override;
    void Print(int x, int y, const std::string& text) override;
    int Width() const override { return width_; }
    int Height() const override { return height_; }
    HDC Canvas() const { return canvas_.get(); }  // what is printed, for reading back
    void Grow(int pixels) override;
    void Draw(const DRAWITEMSTRUCT& item) override;

private:
    void MakeCanvas(int width, int height);

    HWND hwnd_ = nullptr;
    UIColor backColor_ = SysColor::ButtonFace;
    int width_ = 0, height_ = 0;
    MemoryDC canvas_;
    GdiBitmap bitmap_;
    GdiFont font_;
    HGDIOBJ originalBitmap_ = nullptr, originalFont_ = nullptr;
};

class frmMsg : public Form {
public:
    frmMsg();
    ~frmMsg() override;
    // Lays the message out for `style` (steps of showing a message up to the
    // beep); the caller shows the form and waits for it to hide.
    void Prepare(const std::string& message, const MsgStyle& style);
    // The Command1 index that has the focus when the form shows.
    int FocusIndex() const { return focusIndex_; }
    void FocusFirstButton();
    void Command1_Click(int index);

    std::array<ZunButton, 3> Command1;
    MessageArea Picture1;

protected:
    void OnLoad() override;
    void OnCommand(int id, int code, HWND control) override;

private:
    std::array<int, 3> answers_{};
    int focusIndex_ = 0;
};

// The common error report: Abort, Retry and Ignore with the failure's
// details. Returns 3, 4 or 5.
struct ErrorReport;
int ShowErrorReport(const ErrorReport& report);

// Makes ShowErrorReport the program's error reporter. Abort runs
// `endProgram` (when given), then unloads every form and ends the program.
void InstallErrorReport(void (*endProgram)() = nullptr);
