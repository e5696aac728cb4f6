// frmAbout: the about box, made afresh at each opening.
#include "frmAbout.h"

#include <memory>
#include <utility>

#include "ProgramInfo.h"
#include "WindowSurface.h"
#include "modWin32API.h"
#include "resource.h"

namespace {

// The gradient of the title: a deep blue at the top running to a light sky blue.
constexpr UIColor kPicture1BackColor = 0x00800000;  // red 0, green 0, blue 128
constexpr UIColor kLblColorBackColor = 0x00FFD080;  // red 128, green 208, blue 255
constexpr COLORREF kTitleColor = RGB(255, 255, 255);

// The program's reference to its about box; a closed box is replaced at the
// next opening, never while one of its handlers runs.
std::unique_ptr<frmAbout>& Instance()
{
    static std::unique_ptr<frmAbout> instance;
    return instance;
}

}  // namespace

void AboutPicture::Attach(HWND picture)
{
    hwnd_ = picture;
    AttachTo(picture);
}

void AboutPicture::Draw(const DRAWITEMSTRUCT& item)
{
    {
        WindowSurface surface(hwnd_);
        Gradient(surface, BackColor, BottomColor);
    }
    // The title, Label10, stands on the gradient.
    char title[64] = {};
    GetWindowTextA(hwnd_, title, sizeof title);
    GdiFont font(CreateFontA(-(item.rcItem.bottom - item.rcItem.top) / 2, 0, 0, 0, FW_BOLD, TRUE, FALSE, FALSE,
                             ANSI_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                             DEFAULT_PITCH | FF_ROMAN, "Times New Roman"));
    HGDIOBJ old = SelectObject(item.hDC, font.get());
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, kTitleColor);
    RECT r = item.rcItem;
    DrawTextA(item.hDC, title, -1, &r, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    SelectObject(item.hDC, old);
}

frmAbout::frmAbout(AboutActions actions)
    : Form("frmAbout", IDD_ABOUT), lblColorBackColor(kLblColorBackColor), actions_(std::move(actions))
{
    Picture1.BackColor = kPicture1BackColor;
}

frmAbout::~frmAbout() { Unload(); }

void frmAbout::OnLoad()
{
    InitForm(*this);
    cmdUpdates.Attach(Item(IDC_AB_UPDATES));
    cmdHelp.Attach(Item(IDC_AB_HELP));
    cmdOK.Attach(Item(IDC_AB_OK));
    for (ZunButton* button : {&cmdUpdates, &cmdHelp, &cmdOK}) SetButtonColor(*button);
    DrawFormEdge(*this);
    Picture1.Attach(Item(IDC_AB_PICTURE1));
    Picture1.BottomColor = lblColorBackColor;
    SetWindowTextA(Item(IDC_AB_VERSION), VersionText().c_str());
    SetWindowTextA(Item(IDC_AB_RELEASE), kReleaseDate);
}

// The box closes first; the check then runs on its own, and only while signed on.
void frmAbout::cmdUpdates_Click()
{
    const AboutActions actions = actions_;  // this box may be replaced while the check runs
    Unload();
    if (actions.AOLOnline && actions.AOLOnline() && actions.VersionCheck) actions.VersionCheck();
}

void frmAbout::cmdHelp_Click() { RunWinHelp(hwnd(), "Table Of Contents", 0); }

void frmAbout::cmdOK_Click() { Unload(); }

void frmAbout::OnCommand(int id, int code, HWND)
{
    if (code != BN_CLICKED) return;
    switch (id) {
    case IDC_AB_UPDATES: return cmdUpdates_Click();
    case IDC_AB_HELP: return cmdHelp_Click();
    case IDC_AB_OK:
    case IDCANCEL: return cmdOK_Click();
    default: return;
    }
}

bool ShowAbout(AboutActions actions)
{
    auto& instance = Instance();
    if (instance && instance->Loaded()) {
        instance->Show();
        SetForegroundWindow(instance->hwnd());
        return true;
    }
    instance = std::make_unique<frmAbout>(std::move(actions));
    instance->Show();
    return instance->Loaded();
}

frmAbout* AboutBox()
{
    auto& instance = Instance();
    return instance && instance->Loaded() ? instance.get() : nullptr;
}

bool LoadAboutHidden()
{
    if (AboutBox()) return false;
    Instance() = std::make_unique<frmAbout>(AboutActions{});
    return Instance()->Load();
}

void UnloadAbout()
{
    if (Instance()) Instance()->Unload();
}
