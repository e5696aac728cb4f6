// frmMultiline: the multiline window. It takes a longer text, typed, pasted
// or read from a text file, and posts it into the chat room line by line,
// each line faded like ordinary chat while the fader is on, paced by the
// "Multiline Burst" setting.
#pragma once

#include <windows.h>

#include <string>

#include "Form.h"
#include "modZunBtns.h"

class frmMultiline : public Form {
public:
    frmMultiline();
    ~frmMultiline() override;

    // --- Controls ---
    HWND txtChat = nullptr;    // the text as the user edits it
    HWND txtHidden = nullptr;  // hidden word-wrapping box that cuts the text into chat lines
    ProgressBar SSPanel1;      // share of lines sent; the handle the window is dragged by
    ZunButton cmdInsert, cmdSend, cmdClose;

    // Sends the whole text of txtChat into the chat room, line by line.
    void SendMultiline();
    void cmdSend_Click();    // SendMultiline, then unload; ignored while a send runs
    void cmdInsert_Click();  // the text replaced by a text file's
    void cmdClose_Click();   // unloads; a send under way stops after its current line
    void SSPanel1_MouseDown();

    // True while SendMultiline runs.
    bool Sending() const { return sending_; }
    // Adds a full chat line at the end of the text and puts the caret after it.
    void TakeFullLine(const std::string& line);
    // Characters typed into AOL's chat input after a full line, typed on here.
    void TypeOn(const std::string& characters);

protected:
    void OnLoad() override;
    void OnCommand(int id, int code, HWND control) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void FitLines();
    void SendLines(HWND window, HWND input);
    // Waits `ms` on the tick count, servicing events; false when the send must end meanwhile.
    bool WaitBeforeLine(unsigned long ms, HWND window);
    std::string HiddenLine(long index) const;
    void SetHiddenWidth(long twips);
    long HiddenWidth() const;
    // True once the send must end: its window went, AOL or the program is going.
    bool SendMustStop(HWND window) const;

    bool sending_ = false;
};

// The program's one multiline window; it is loaded on first use and each
// loading starts afresh.
frmMultiline& Multiline();

// The window loaded and shown with Insert hidden, `line` added to its text,
// the keyboard in it; false when it could not be made.
bool OpenMultiline(const std::string& line);
// Shows the loaded window's Insert button; false when it is not loaded.
bool ShowMultilineInsert();
