// frmWizard: the Import/Export wizard's pages, its page flow and its two
// copies. A copy lets the interface run only in its pauses; that is where a
// Cancel is taken, and where the wizard may be unloaded under it (AOL gone,
// the program ending), after which the copy goes no further.
#include "frmWizard.h"

#include "Catalog.h"
#include "InputBox.h"
#include "RegKey.h"
#include "SchemeFiles.h"
#include "SchemeText.h"
#include "WizardFiles.h"
#include "modCmnDlg.h"
#include "modMsgBox.h"
#include "modRegKeys.h"
#include "modWin32API.h"
#include "resource.h"

namespace {

constexpr long kCritical = 16, kInformation = 64, kExclamation = 48;

constexpr int kPageTemplates[frmWizard::kPages] = {IDD_WZ_ONE,  IDD_WZ_TWO,    IDD_WZ_IMPORT, IDD_WZ_THREE,
                                                   IDD_WZ_FOUR, IDD_WZ_BACKUP, IDD_WZ_FINISH};

// A page is a container: what its controls tell their parent, the wizard
// answers (clicks, owner drawing, the background colour).
INT_PTR CALLBACK PageProc(HWND page, UINT msg, WPARAM wp, LPARAM lp)
{
    switch (msg) {
    case WM_COMMAND:
    case WM_DRAWITEM:
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
        return SendMessageA(GetParent(page), msg, wp, lp);
    default:
        return FALSE;
    }
}

bool QuitPending()
{
    MSG msg;
    return PeekMessageA(&msg, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != 0;
}

// The export path as the copy takes it: without blanks around it, in lower case.
std::string LowerTrimmed(std::string text)
{
    const auto first = text.find_first_not_of(' ');
    text = first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
    if (!text.empty()) CharLowerBuffA(&text[0], static_cast<DWORD>(text.size()));
    return text;
}

}  // namespace

frmWizard::frmWizard() : Form("frmWizard", IDD_WIZARD) {}

frmWizard::~frmWizard() { Unload(); }

namespace {

// One wizard for the program's whole run; each opening loads it afresh.
frmWizard& TheWizard()
{
    static frmWizard wizard;
    return wizard;
}

}  // namespace

bool ShowWizard()
{
    frmWizard& wizard = TheWizard();
    if (wizard.Loaded()) {
        SetForegroundWindow(wizard.hwnd());
        return true;
    }
    wizard.Show();
    return wizard.Loaded();
}

frmWizard* Wizard() { return TheWizard().Loaded() ? &TheWizard() : nullptr; }

// ---- loading and colouring --------------------------------------------------

void frmWizard::OnLoad()
{
    mode = ModeNone;
    driveRoot.clear();
    subFolder.clear();
    cancelRequested = copying_ = closeAfterCopy_ = false;
    filesDone = filesTotal = 0;
    optTag_.fill("");

    MakePages();
    cmdBack.Attach(Item(IDC_WZ_BACK));
    cmdNext.Attach(Item(IDC_WZ_NEXT));
    cmdFinish.Attach(Item(IDC_WZ_FINISH));
    cmdCancel.Attach(Item(IDC_WZ_CANCEL));
    cmdHelp.Attach(Item(IDC_WZ_HELP));
    cmdSubFolder.Attach(Control(IDC_WZ_SUBFOLDER));
    cmdLocateKey.Attach(Control(IDC_WZ_LOCATEKEY));
    cmdCancelProgress.Attach(Control(IDC_WZ_CANCELPROGRESS));

    InitForm(*this);
    Recolor();
    ShowPage(fraOne);
    Enable(cmdBack, false);
    Enable(cmdFinish, false);
}

void frmWizard::MakePages()
{
    RECT place{6, 6, 0, 0};
    MapDialogRect(hwnd(), &place);
    for (int i = 0; i < kPages; ++i) {
        pages_[i] = CreateDialogParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(kPageTemplates[i]), hwnd(),
                                       PageProc, 0);
        SetWindowPos(pages_[i], nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    }
    // The headings stand out in bold.
    LOGFONTA face{};
    GetObjectA(reinterpret_cast<HFONT>(SendMessageA(hwnd(), WM_GETFONT, 0, 0)), sizeof face, &face);
    face.lfWeight = FW_BOLD;
    boldFont_ = GdiFont(CreateFontIndirectA(&face));
    for (int id : {IDC_WZ_LABEL1, IDC_WZ_LBLACTION, IDC_WZ_LABEL9})
        SendMessageA(Control(id), WM_SETFONT, reinterpret_cast<WPARAM>(boldFont_.get()), FALSE);
    // The progress bar takes the place its page keeps for it.
    HWND spot = Control(IDC_WZ_PRGSTATUS);
    RECT r;
    GetWindowRect(spot, &r);
    MapWindowPoints(nullptr, pages_[fraBackup], reinterpret_cast<POINT*>(&r), 2);
    DestroyWindow(spot);
    prgStatus.Create(pages_[fraBackup], IDC_WZ_PRGSTATUS, r.left, r.top, r.right - r.left, r.bottom - r.top);
    prgStatus.SetText(WizardText::Preparing);
}

void frmWizard::Recolor()
{
    SetFormColor(*this);
    for (ZunButton* button :
         {&cmdBack, &cmdNext, &cmdFinish, &cmdCancel, &cmdHelp, &cmdSubFolder, &cmdLocateKey, &cmdCancelProgress})
        SetButtonColor(*button);
    SetProgressColor(prgStatus);
    // Pages, option buttons and labels take the form's colour as they repaint.
    RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    DrawFormEdge(*this);
}

HWND frmWizard::Control(int id) const
{
    for (HWND page : pages_)
        if (HWND control = page ? GetDlgItem(page, id) : nullptr) return control;
    return Item(id);
}

std::string frmWizard::Text(int id) const { return WindowTextOf(Control(id)); }

void frmWizard::SetText(int id, const std::string& text) { SetWindowTextA(Control(id), text.c_str()); }

void frmWizard::ShowPage(Page page)
{
    page_ = page;
    for (int i = 0; i < kPages; ++i) ShowWindow(pages_[i], i == page ? SW_SHOW : SW_HIDE);
}

void frmWizard::Enable(ZunButton& button, bool on) { EnableWindow(button.hwnd(), on); }

// ---- the page flow ----------------------------------------------------------

void frmWizard::OnCommand(int id, int code, HWND)
{
    if (code != BN_CLICKED) return;
    if (id >= IDC_WZ_OPTONE && id < IDC_WZ_OPTONE + kDriveChoices) return optDrive_Click(id - IDC_WZ_OPTONE);
    switch (id) {
    case IDC_WZ_OPTEXPORT: mode = ModeExport; return;
    case IDC_WZ_OPTIMPORT: mode = ModeImport; return;
    case IDC_WZ_NEXT: return cmdNext_Click();
    case IDC_WZ_BACK: return cmdBack_Click();
    case IDC_WZ_FINISH: return cmdFinish_Click();
    case IDC_WZ_CANCEL: return cmdCancel_Click();
    case IDC_WZ_HELP: return cmdHelp_Click();
    case IDC_WZ_SUBFOLDER: return cmdSubFolder_Click();
    case IDC_WZ_LOCATEKEY: return cmdLocateKey_Click();
    case IDC_WZ_CANCELPROGRESS: return cmdCancelProgress_Click();
    case IDCANCEL: return OnClose();  // Escape, as the close box
    default: return;
    }
}

void frmWizard::cmdNext_Click()
{
    if (!IsWindowEnabled(cmdNext.hwnd())) return;
    switch (page_) {
    case fraOne:
        if (mode == ModeNone) return ShowMsg(WizardText::ChooseOption, kCritical);
        if (mode == ModeExport) ExportSettings();
        else ImportSettings();
        Enable(cmdBack, true);
        return;
    case fraTwo:
        if (Text(IDC_WZ_LBLPATH).empty()) return ShowMsg(WizardText::SelectDrive, kInformation);
        SetText(IDC_WZ_LBLFROM, WizardText::lblFromExport);
        FilesToCopy(ModeExport);
        return ShowPage(fraThree);
    case fraImport:
        if (Text(IDC_WZ_LBLIMPORT).empty()) return ShowMsg(WizardText::LocateKey, 0);
        SetText(IDC_WZ_LBLFROM, WizardText::lblFromImport);
        FilesToCopy(ModeImport);
        return ShowPage(fraThree);
    case fraThree:
        FillConfirmation();
        return ShowPage(fraFour);
    case fraFour:
    case fraBackup:  // after a cancelled copy: the same copy again
        return StartCopy();
    default:
        return;
    }
}

void frmWizard::cmdBack_Click()
{
    if (!IsWindowEnabled(cmdBack.hwnd())) return;
    switch (page_) {
    case fraTwo:
    case fraImport:
        ShowPage(fraOne);
        return Enable(cmdBack, false);
    case fraThree:
        return ShowPage(mode == ModeImport ? fraImport : fraTwo);
    case fraFour:
    case fraBackup:
        return ShowPage(fraThree);
    default:
        return;
    }
}

void frmWizard::cmdFinish_Click() { Unload(); }

void frmWizard::cmdCancel_Click()
{
    if (!copying_) Unload();
}

void frmWizard::cmdCancelProgress_Click() { cancelRequested = true; }

void frmWizard::cmdHelp_Click() { RunWinHelp(hwnd(), "Import Settings", 0); }

// The close box during a copy stops it after the scheme in hand; the wizard
// closes once the copy has let go of it.
void frmWizard::OnClose()
{
    if (!copying_) return (void)Unload();
    cancelRequested = closeAfterCopy_ = true;
}

void frmWizard::ExportSettings()
{
    ShowPage(fraTwo);
    if (!optTag_[0].empty()) return;  // filled on an earlier visit
    SetText(IDC_WZ_LBLDRIVE, WizardText::lblDrive);
    int next = 0;
    for (char letter = 'A'; letter <= 'Z' && next < kDriveChoices; ++letter) {
        if (!DoEvents() || !Loaded()) return;
        const std::string root = std::string(1, letter) + ":\\";
        const int type = static_cast<int>(GetDriveTypeA(root.c_str()));
        if (!OfferedDrive(type)) continue;
        HWND option = Control(IDC_WZ_OPTONE + next);
        SetWindowTextA(option, DriveCaption(root, type).c_str());
        optTag_[static_cast<std::size_t>(next++)] = "USED";
        ShowWindow(option, SW_SHOW);
    }
}

void frmWizard::ImportSettings() { ShowPage(fraImport); }

void frmWizard::optDrive_Click(int index)
{
    const std::string caption = Text(IDC_WZ_OPTONE + index);
    driveRoot = TrimDriveLetter(caption);
    // A sub-folder belongs to the drive it was added on.
    subFolder.clear();
    SetText(IDC_WZ_LBLPATH, driveRoot);
    SetText(IDC_WZ_LBLDRVFORMAT, GetDriveFormat(caption));
    Enable(cmdSubFolder, true);
}

void frmWizard::cmdSubFolder_Click()
{
    const auto folder = SubFolderOf(InputBox(WizardText::SubFolderPrompt, "Prismo", WizardText::SubFolderDefault, hwnd()));
    if (!folder) return;
    subFolder = *folder;
    SetText(IDC_WZ_LBLPATH, driveRoot + subFolder);
}

void frmWizard::cmdLocateKey_Click()
{
    // The open dialog must be able to come in front of the wizard.
    FormNotOnTop(*this);
    const std::string folder = OpenDialog(WizardText::KeyFilterName, kMarkerFileName, 2, hwnd());
    if (Loaded()) FormOnTop(*this);
    if (!folder.empty()) SetText(IDC_WZ_LBLIMPORT, folder);
}

void frmWizard::FilesToCopy(int copyMode)
{
    SetText(IDC_WZ_TXTFILES, FilesToCopyText(copyMode));
    GetSchemesText(copyMode);
}

void frmWizard::GetSchemesText(int copyMode)
{
    HWND list = Control(IDC_WZ_LSTSCHEMES);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    ErrorTrap trap("frmWizard", "GetSchemesText");
    trap.Run([&] {
        std::vector<std::string> names;
        if (copyMode == ModeExport) {
            const RegKey key =
                RegKey::Open(HKEY_CURRENT_USER, std::string(kSettingsRoot) + Section::Schemes, KEY_READ);
            if (!key) return ShowMsg(WizardText::NoSchemesKey, kCritical);
            names = SettingSubkeys(Section::Schemes);
        } else {
            for (const std::string& file : TheWizardFiles().Search(Text(IDC_WZ_LBLIMPORT)))
                names.push_back(file.substr(0, file.size() - 4));
        }
        for (const std::string& name : names)
            SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    });
}

std::vector<std::string> frmWizard::ListedSchemes() const
{
    HWND list = Control(IDC_WZ_LSTSCHEMES);
    std::vector<std::string> names;
    const int count = static_cast<int>(SendMessageA(list, LB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) names.push_back(ListBoxText(list, i));
    return names;
}

void frmWizard::FillConfirmation()
{
    const bool importing = mode == ModeImport;
    ShowWindow(Control(IDC_WZ_LABEL8), importing ? SW_HIDE : SW_SHOW);
    ShowWindow(Control(IDC_WZ_LBLDRVTYPE), importing ? SW_HIDE : SW_SHOW);
    if (importing) {
        SetText(IDC_WZ_LBLACTION, WizardText::lblActionImport);
        SetText(IDC_WZ_LBLSAVE, WizardText::lblSaveImport);
        SetText(IDC_WZ_LBLSAVETO, Text(IDC_WZ_LBLIMPORT));
        SetText(IDC_WZ_LBLMSG, WizardText::lblMsgImport);
        return;
    }
    const std::string kind = Text(IDC_WZ_LBLDRVFORMAT);
    SetText(IDC_WZ_LBLACTION, WizardText::lblActionExport);
    SetText(IDC_WZ_LBLSAVE, WizardText::lblSaveExport);
    SetText(IDC_WZ_LBLSAVETO, LowerTrimmed(Text(IDC_WZ_LBLPATH)));
    SetText(IDC_WZ_LBLDRVTYPE, kind);
    SetText(IDC_WZ_LBLMSG, ExportAdvice(kind, driveRoot));
}

// ---- the copies -------------------------------------------------------------

void frmWizard::StartCopy()
{
    ShowPage(fraBackup);
    for (ZunButton* button : {&cmdNext, &cmdBack, &cmdCancel}) Enable(*button, false);
    prgStatus.SetValue(0);
    prgStatus.SetText(WizardText::Preparing);
    copying_ = true;
    Pause(300);
    const std::string folder = Text(IDC_WZ_LBLSAVETO);
    const std::string root = folder.substr(0, 1) + ":\\";
    if (Going()) {
        if (mode == ModeExport) DoBackUp(folder, root);
        else DoRestore(folder, root);
    }
    copying_ = false;
    if (closeAfterCopy_ && Loaded()) Unload();
}

void frmWizard::DoBackUp(const std::string& folder, const std::string& root)
{
    cancelRequested = false;
    filesDone = 0;
    const std::vector<std::string> names = ListedSchemes();
    filesTotal = static_cast<int>(names.size());
    WizardFiles& files = TheWizardFiles();
    ErrorTrap trap("frmWizard", "DoBackUp");

    // Making sure of the folder first also finds a drive without a disk
    // before any scheme is lost on it.
    if (!Step(trap, [&] { files.MakeFolder(root + subFolder); })) return ResetBar();
    // A name that cannot be a file of this folder is left out, so nothing is
    // written anywhere else; the user hears of all of them at the end.
    const std::vector<std::string> unfit = UnfitFileNames(names, folder);
    for (const std::string& name : names) {
        prgStatus.SetText(WizardText::Copying + name);
        MoveProgressBar();
        if (!Going()) return;
        if (FitsAsFileName(name, folder)) WriteSchemeFile(name, folder);
        if (cancelRequested) return ResetBar();
    }
    if (!Step(trap, [&] { files.WriteMarker(folder + kMarkerFileName); })) return ResetBar();
    if (!unfit.empty()) ShowMsg(UnexportedNamesMessage(unfit), kExclamation);
    if (Going()) ShowFinish(WizardText::Label9Export, WizardText::Label10Export, WizardText::Label11Export);
}

void frmWizard::DoRestore(const std::string& folder, const std::string& /*root*/)
{
    cancelRequested = false;
    filesDone = 0;
    filesTotal = static_cast<int>(ListedSchemes().size());
    WizardFiles& files = TheWizardFiles();
    ErrorTrap trap("frmWizard", "DoRestore");

    std::vector<std::string> found;
    if (!Step(trap, [&] { found = files.Search(folder); })) return ResetBar();
    bool first = true;
    for (const std::string& file : found) {
        const std::string name = file.substr(0, file.size() - 4);
        prgStatus.SetText(WizardText::Copying + name);
        if (first) Pause(300);
        else MoveProgressBar();
        first = false;
        if (!Going()) return;
        // A file called just ".fde" names no scheme: it would land in the key of all schemes.
        if (!name.empty() && !Step(trap, [&] { files.ImportOne(folder, name); })) return ResetBar();
        if (cancelRequested) return ResetBar();
    }
    ShowFinish(WizardText::Label9Import, WizardText::Label10Import, WizardText::Label11Import);
}

void frmWizard::ShowFinish(const char* label9, const char* label10, const char* label11)
{
    Enable(cmdNext, false);
    SetText(IDC_WZ_LABEL9, label9);
    SetText(IDC_WZ_LABEL10, label10);
    SetText(IDC_WZ_LABEL11, label11);
    Enable(cmdFinish, true);
    ShowPage(fraFinish);
}

void frmWizard::MoveProgressBar()
{
    const WizardProgress progress = MoveProgress(filesDone, filesTotal);
    filesDone = progress.done;
    prgStatus.SetValue(progress.percent);
    Pause(100);
}

void frmWizard::ResetBar()
{
    if (!Going()) return;
    prgStatus.SetText(mode == ModeExport ? WizardText::ExportCanceled : WizardText::ImportCanceled);
    for (ZunButton* button : {&cmdNext, &cmdBack, &cmdCancel}) Enable(*button, true);
}

// The copy goes on while the wizard is there and the program is not ending.
bool frmWizard::Going() const { return Loaded() && !QuitPending(); }

// Runs one statement of a copy with the wizard's handling of file errors;
// what the wizard has no answer for goes to the common error report. False
// when the copy ends here.
bool frmWizard::Step(ErrorTrap& trap, const std::function<void()>& statement)
{
    bool goOn = true;
    const bool reported = trap.Run([&] { goOn = Handled(statement); });
    return reported && goOn && Going();
}

// Runs the statement until it succeeds or its error lets the copy go on or
// end; rethrows an error that belongs to the common report.
bool frmWizard::Handled(const std::function<void()>& statement)
{
    for (;;) {
        try {
            statement();
            return true;
        } catch (const RuntimeError& e) {
            const WizardFailure failure = FailureFor(e.number, mode);
            switch (failure.action) {
            case FailureAction::Ignore:
                return true;
            case FailureAction::Report:
                throw;
            case FailureAction::TellAndEnd:
                ShowMsg(failure.message, failure.style);
                return false;
            case FailureAction::TellAndRepeat:
                ShowMsg(failure.message, failure.style);
                if (!Going()) return false;
                continue;
            case FailureAction::AbortRetryIgnore: {
                const int answer = AskMsg(failure.message, failure.style);
                if (answer == AnswerRetry && Going()) continue;
                return answer == AnswerIgnore;
            }
            }
            return false;
        }
    }
}
