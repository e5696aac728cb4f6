// AOL HTML in the simulator's rich text controls: chat lines rendered with
// their colours and styles, the mail body read back as AOL HTML, and the
// editor commands AOL's rich text control answers (undo, copy, paste of the
// "AOLMAIL" clipboard format, clear, select all).
#include "Sim.h"

#include "AolHtml.h"
#include "RtfChars.h"

#include <richedit.h>

#include <cctype>

namespace {

// RTF of a control before the last paste, for the editor's undo.
std::map<HWND, std::string> g_undo;
// What each control's editor commands cost: "ID<TAB>start<TAB>end" lines.
std::map<HWND, std::vector<std::string>> g_editorTimes;

void SetInsertFormat(HWND rich, const AolRun& run) {
    CHARFORMAT2A cf{};
    cf.cbSize = sizeof cf;
    cf.dwMask = CFM_COLOR | CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE | CFM_SUBSCRIPT;
    cf.crTextColor = (COLORREF)run.color;
    if (run.bold) cf.dwEffects |= CFE_BOLD;
    if (run.italic) cf.dwEffects |= CFE_ITALIC;
    if (run.underline) cf.dwEffects |= CFE_UNDERLINE;
    if (run.baseline > 0) cf.dwEffects |= CFE_SUPERSCRIPT;
    if (run.baseline < 0) cf.dwEffects |= CFE_SUBSCRIPT;
    SendMessageA(rich, EM_SETCHARFORMAT, SCF_SELECTION, (LPARAM)&cf);
}

void InsertRuns(HWND rich, const std::vector<AolRun>& runs) {
    for (const AolRun& run : runs) {
        SetInsertFormat(rich, run);
        SendMessageA(rich, EM_REPLACESEL, TRUE, (LPARAM)run.text.c_str());
    }
}

// Line breaks in a mail are <BR> tags; the reader drops tags it does not
// style, so they become paragraph marks first.
std::string BreaksToParagraphs(const std::string& html) {
    std::string out;
    for (std::size_t i = 0; i < html.size(); ++i) {
        if (html[i] == '<' && i + 3 < html.size() && std::toupper((unsigned char)html[i + 1]) == 'B' &&
            std::toupper((unsigned char)html[i + 2]) == 'R' && html[i + 3] == '>') {
            out += '\r';
            i += 3;
        } else {
            out += html[i];
        }
    }
    return out;
}

// The runs as one RTF document in the control's own font, so that a long
// fade goes in with one stream instead of a format change per character.
// CR, LF and CR LF each break the line once, even with tags between the CR
// and the LF (a faded CR LF carries a colour on each half).
std::string RunsToRtf(HWND rich, const std::vector<AolRun>& runs) {
    CHARFORMAT2A font{};
    font.cbSize = sizeof font;
    SendMessageA(rich, EM_GETCHARFORMAT, SCF_DEFAULT, (LPARAM)&font);
    const std::string size = "\\fs" + std::to_string(font.yHeight > 0 ? font.yHeight / 10 : 20);
    std::map<COLORREF, int> colors;
    std::string table, body;
    bool afterCr = false;
    for (const AolRun& run : runs) {
        const COLORREF color = (COLORREF)run.color;
        if (!colors.count(color)) {
            const int index = (int)colors.size() + 1;
            colors[color] = index;
            table += "\\red" + std::to_string(GetRValue(color)) + "\\green" + std::to_string(GetGValue(color)) +
                     "\\blue" + std::to_string(GetBValue(color)) + ";";
        }
        body += "\\plain\\f0" + size + "\\cf" + std::to_string(colors[color]);
        if (run.bold) body += "\\b";
        if (run.italic) body += "\\i";
        if (run.underline) body += "\\ul";
        if (run.baseline > 0) body += "\\super";
        if (run.baseline < 0) body += "\\sub";
        body += ' ';
        for (char c : run.text) {
            const unsigned char byte = (unsigned char)c;
            const bool wasCr = afterCr;
            afterCr = c == '\r';
            if (c == '\r' || (c == '\n' && !wasCr)) body += "\\par ";
            else if (c == '\n') continue;
            else if (c == '\t') body += "\\tab ";
            else if (c == '\\' || c == '{' || c == '}') body += std::string("\\") + c;
            else if (byte < 0x20 || byte >= 0x80) {
                char hex[8];
                snprintf(hex, sizeof hex, "\\'%02x", byte);
                body += hex;
            } else body += c;
        }
    }
    return "{\\rtf1\\ansi\\ansicpg" + std::to_string(GetACP()) + "\\deff0{\\fonttbl{\\f0 " + font.szFaceName +
           ";}}{\\colortbl;" + table + "}" + body + "}";
}

DWORD CALLBACK StreamOut(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* done) {
    reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<char*>(buffer), size);
    *done = size;
    return 0;
}

struct StreamSource {
    const std::string* text;
    std::size_t pos;
};

DWORD CALLBACK StreamIn(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* done) {
    auto* source = reinterpret_cast<StreamSource*>(cookie);
    const std::size_t left = source->text->size() - source->pos;
    const std::size_t n = left < (std::size_t)size ? left : (std::size_t)size;
    memcpy(buffer, source->text->data() + source->pos, n);
    source->pos += n;
    *done = (LONG)n;
    return 0;
}

std::string SaveRtf(HWND rich) {
    std::string rtf;
    EDITSTREAM stream{(DWORD_PTR)&rtf, 0, StreamOut};
    SendMessageA(rich, EM_STREAMOUT, SF_RTF, (LPARAM)&stream);
    return rtf;
}

// The whole control, or with SFF_SELECTION in place of the highlight.
void LoadRtf(HWND rich, const std::string& rtf, WPARAM how = SF_RTF) {
    StreamSource source{&rtf, 0};
    EDITSTREAM stream{(DWORD_PTR)&source, 0, StreamIn};
    SendMessageA(rich, EM_STREAMIN, how, (LPARAM)&stream);
}

std::string SelectedText(HWND rich) {
    CHARRANGE range{};
    SendMessageA(rich, EM_EXGETSEL, 0, (LPARAM)&range);
    std::string text(range.cpMax - range.cpMin + 1, '\0');
    const LRESULT got = SendMessageA(rich, EM_GETSELTEXT, 0, (LPARAM)text.data());
    text.resize(got > 0 ? got : 0);
    // The clipboard's plain text breaks lines with CR LF.
    std::string out;
    for (char c : text) {
        if (c == '\r') out += "\r\n";
        else if (c != '\n') out += c;
    }
    return out;
}

void PutClipboardText(HWND owner, const std::string& text) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, text.size() + 1);
    if (!block) return;
    memcpy(GlobalLock(block), text.c_str(), text.size());
    GlobalUnlock(block);
    if (!OpenClipboard(owner)) {
        GlobalFree(block);
        return;
    }
    EmptyClipboard();
    if (!SetClipboardData(CF_TEXT, block)) GlobalFree(block);
    CloseClipboard();
}

// The clipboard's "AOLMAIL" text, else its plain text read as if it had no tags.
bool ReadPasteText(HWND owner, std::string& text, bool& isAolMail) {
    if (!OpenClipboard(owner)) return false;
    const UINT aolMail = RegisterClipboardFormatA("AOLMAIL");
    HANDLE data = GetClipboardData(aolMail);
    isAolMail = data != nullptr;
    if (!data) data = GetClipboardData(CF_TEXT);
    if (data) {
        const char* bytes = static_cast<const char*>(GlobalLock(data));
        if (bytes) text.assign(bytes, strnlen(bytes, GlobalSize(data)));
        GlobalUnlock(data);
    }
    CloseClipboard();
    return data != nullptr;
}

void Paste(HWND rich) {
    std::string text;
    bool isAolMail = false;
    if (!ReadPasteText(rich, text, isAolMail)) return;
    g_undo[rich] = SaveRtf(rich);
    LogEvent(std::string(isAolMail ? "paste-aolmail\t" : "paste-text\t") + EscapeLogText(text));
    std::vector<AolRun> runs;
    if (isAolMail) {
        runs = ReadAolHtml(BreaksToParagraphs(text));
    } else {
        runs.emplace_back();
        runs.back().text = text;
    }
    LoadRtf(rich, RunsToRtf(rich, runs), SF_RTF | SFF_SELECTION);
}

void Undo(HWND rich) {
    auto it = g_undo.find(rich);
    if (it == g_undo.end()) {
        SendMessageA(rich, EM_UNDO, 0, 0);
        return;
    }
    const std::string rtf = it->second;
    g_undo.erase(it);
    LoadRtf(rich, rtf);
}

std::string ColorTag(COLORREF color) {
    char tag[40];
    snprintf(tag, sizeof tag, "<FONT COLOR=\"#%02X%02X%02X\">", GetRValue(color), GetGValue(color), GetBValue(color));
    return tag;
}

struct CharStyle {
    COLORREF color = 0;
    bool bold = false, italic = false, underline = false;
    int baseline = 0;
};

// Tags that take the text from style `from` to style `to`: styles that end
// close first, then the colour, then the styles that begin.
std::string StyleChange(const CharStyle& from, const CharStyle& to) {
    const bool was[] = {from.bold, from.italic, from.underline, from.baseline > 0, from.baseline < 0};
    const bool is[] = {to.bold, to.italic, to.underline, to.baseline > 0, to.baseline < 0};
    const char* const names[] = {"B", "I", "U", "SUP", "SUB"};
    std::string tags;
    for (int i = 4; i >= 0; --i) {
        if (was[i] && !is[i]) tags += std::string("</") + names[i] + ">";
    }
    if (from.color != to.color) tags += ColorTag(to.color);
    for (int i = 0; i < 5; ++i) {
        if (!was[i] && is[i]) tags += std::string("<") + names[i] + ">";
    }
    return tags;
}

}  // namespace

void AppendChatLine(HWND transcript, const std::string& name, const std::string& html) {
    // A faded line is one run per character: draw the line once, not per run.
    SendMessageA(transcript, WM_SETREDRAW, FALSE, 0);
    CHARRANGE end{-1, -1};
    SendMessageA(transcript, EM_EXSETSEL, 0, (LPARAM)&end);
    AolRun who;
    who.text = (GetWindowTextLengthA(transcript) > 0 ? "\r" : "") + name + ":\t";
    InsertRuns(transcript, {who});
    InsertRuns(transcript, ReadAolHtml(html));
    SendMessageA(transcript, WM_SETREDRAW, TRUE, 0);
    SendMessageA(transcript, WM_VSCROLL, SB_BOTTOM, 0);
    InvalidateRect(transcript, nullptr, TRUE);
}

std::string ReadRichAsAolHtml(HWND rich) {
    // The plain text tells how many line breaks there are: the RTF may close
    // with a paragraph mark the text does not have.
    GETTEXTLENGTHEX lengthOf{GTL_NUMCHARS | GTL_PRECISE, CP_ACP};
    const LONG length = (LONG)SendMessageA(rich, EM_GETTEXTLENGTHEX, (WPARAM)&lengthOf, 0);
    std::string text(length + 1, '\0');
    TEXTRANGEA range{{0, length}, text.data()};
    text.resize(SendMessageA(rich, EM_GETTEXTRANGE, 0, (LPARAM)&range));
    std::size_t breaks = 0;
    for (char c : text) breaks += c == '\r';

    std::string html;
    CharStyle current;
    for (const StyledChar& sc : ReadRtfChars(SaveRtf(rich))) {
        if (sc.c == '\r') {
            if (breaks == 0) continue;
            --breaks;
            html += "<BR>";
            continue;
        }
        CharStyle next;
        next.color = sc.color;
        next.bold = sc.bold;
        next.italic = sc.italic;
        next.underline = sc.underline;
        next.baseline = sc.baseline;
        html += StyleChange(current, next);
        current = next;
        html += sc.c;
    }
    html += StyleChange(current, CharStyle{current.color});
    return html;
}

bool RichEditorCommand(HWND rich, WORD id) {
    switch (id) {
    case 20000: Undo(rich); return true;
    case 20001: SendMessageA(rich, WM_CUT, 0, 0); return true;
    case 20002: {
        // With nothing highlighted AOL's editor leaves the clipboard as it was.
        CHARRANGE range{};
        SendMessageA(rich, EM_EXGETSEL, 0, (LPARAM)&range);
        if (range.cpMin != range.cpMax) PutClipboardText(rich, SelectedText(rich));
        return true;
    }
    case 20003: Paste(rich); return true;
    case 20004: SendMessageA(rich, WM_CLEAR, 0, 0); return true;
    case 20005: SendMessageA(rich, EM_SETSEL, 0, -1); return true;
    default: return false;
    }
}

void ForgetRichControl(HWND rich) {
    g_undo.erase(rich);
    g_editorTimes.erase(rich);
}

void NoteEditorTime(HWND rich, const std::string& what, DWORD start, DWORD end) {
    g_editorTimes[rich].push_back(what + "\t" + std::to_string(start) + "\t" + std::to_string(end));
}

std::vector<std::string> EditorTimes(HWND rich) {
    auto it = g_editorTimes.find(rich);
    return it == g_editorTimes.end() ? std::vector<std::string>{} : it->second;
}
