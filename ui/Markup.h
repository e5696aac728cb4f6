// The message box's inline markup and its layout, apart from any drawing:
// ~B ~I ~U toggle bold, italic and underline, ~CR ~CG ~CB ~CN pick red,
// green, blue or black, ~N breaks the line. The window side supplies a
// MarkupSurface that measures and draws; this file decides what goes where.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

struct TextStyle {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    std::uint32_t color = 0;  // 0x00BBGGRR
    bool operator==(const TextStyle& o) const
    {
        return bold == o.bold && italic == o.italic && underline == o.underline && color == o.color;
    }
};

// A message cut at its codes: runs of plain text in their style, and breaks.
struct MarkupPiece {
    bool lineBreak = false;
    std::string text;  // empty for a break
    TextStyle style;
};
std::vector<MarkupPiece> TokeniseMarkup(const std::string& message);

// The next word of a run, as the wrapping takes it: up to and including the
// first blank at or after the second character, or all the rest.
std::string NextWord(const std::string& text);

// What the layout needs from the message area; all figures in pixels.
class MarkupSurface {
public:
    virtual ~MarkupSurface() = default;
    virtual void Clear() = 0;
    virtual void SetStyle(const TextStyle& style) = 0;
    virtual int TextWidth(const std::string& text) = 0;  // in the current style
    virtual int LineHeight() = 0;                        // in the current style
    virtual void Print(int x, int y, const std::string& text) = 0;
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    // Makes the area taller: `pixels` of drawing room plus the area's own
    // 30-twip allowance.
    virtual void Grow(int pixels) = 0;
};

// Where the next word goes.
struct MarkupCursor {
    static constexpr int LeftMargin = 51;  // leaves the icon's column free
    static constexpr int TopMargin = 6;
    int x = LeftMargin;
    int y = TopMargin;
};

// Clears the area and prints the message with its markup, growing the area
// as lines run past its bottom.
void RenderMarkup(MarkupSurface& area, const std::string& message);

// Prints one run of plain text at the cursor, wrapping word by word.
void PrintWrapped(MarkupSurface& area, MarkupCursor& at, const std::string& text);

// A message box style, decoded from the top down.
struct MsgStyle {
    bool modeless = false;     // 4096
    int firstInTab = 0;        // Command1 index that comes first and has the focus: 0, or 1 with 256
    int icon = 0;              // 0, 16, 32, 48 or 64
    int buttons = 0;           // 0 to 5: the button set
};
// `ask` decodes the focus and button values as well (AskMsg); ShowMsg
// takes only the 4096 and icon values and always shows "OK".
MsgStyle DecodeMsgStyle(long style, bool ask);

struct MsgButton {
    std::string caption;
    int answer;  // 1 OK ... 7 No
};
// The buttons of a set, left to right; Command1 index of button i is
// (count - 1 - i), so the last button is always index 0.
std::vector<MsgButton> ButtonSet(int buttons);

// The platform's system icon for an icon value (IDI_HAND ... IDI_ASTERISK), 0 for none.
int SystemIconFor(int icon);
