// What the Import/Export wizard's copies cost beyond their own pauses,
// measured in one run in this process: 50 schemes exported to a folder of the
// hard disk and imported back into an empty scheme list, each timed from the
// last Next to the finished page. An export waits 300 ms and then 100 ms a
// scheme; an import 300 ms, 300 ms before its first file and 100 ms before
// each later one. Prints the absolute times, the pauses and the ratios
// (target: at most 1.25 times the pauses alone).
#include <windows.h>

#include <cstdio>
#include <string>

#include "TestProcess.h"
#include "WineRegistry.h"
#include "frmWizard.h"
#include "WizardPages.h"
#include "resource.h"

namespace {

constexpr int kSchemes = 50;
const std::string kFolder = "c:\\prismo-bench-wizard";
constexpr double kExportPausesMs = 300 + kSchemes * 100;
constexpr double kImportPausesMs = 300 + 300 + (kSchemes - 1) * 100;

HWND Control(int id) { return WizardControl(Wizard()->hwnd(), id); }

std::string Text(int id)
{
    char text[1024] = "";
    GetWindowTextA(Control(id), text, sizeof text);
    return text;
}

// A click, carried out before this returns (a copy runs inside its click).
void Click(int id) { SendMessageA(Control(id), BM_CLICK, 0, 0); }

// Answers the input box with the export folder's name and the open dialog
// with the marker, whichever is up; runs only while the wizard asks.
void CALLBACK Answer(HWND, UINT, UINT_PTR, DWORD)
{
    if (HWND input = WindowWithChild(GetCurrentProcessId(), IDC_IB_TEXT)) {
        SetDlgItemTextA(input, IDC_IB_TEXT, kFolder.substr(3).c_str());
        PostMessageA(GetDlgItem(input, IDC_IB_OK), BM_CLICK, 0, 0);
    }
    HWND open = FindWindowA("#32770", "Open");
    if (open && IsWindowVisible(open)) {
        const std::string key = kFolder + "\\importfde.key";
        for (int id : {0x47c, 0x480}) SetDlgItemTextA(open, id, key.c_str());
        PostMessageA(GetDlgItem(open, IDOK), BM_CLICK, 0, 0);
    }
}

void WhileAnswering(int id)
{
    const UINT_PTR timer = SetTimer(nullptr, 0, 30, Answer);
    Click(id);
    KillTimer(nullptr, timer);
}

// The last Next and the copy behind it, in milliseconds; -1 when the
// finished page did not come with `done`.
double TimedCopy(const std::string& done)
{
    LARGE_INTEGER frequency, start, end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    Click(IDC_WZ_NEXT);
    QueryPerformanceCounter(&end);
    if (!IsWindowVisible(Control(IDC_WZ_LABEL9)) || Text(IDC_WZ_LABEL9) != done) return -1;
    return static_cast<double>(end.QuadPart - start.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

double Export()
{
    if (!ShowWizard()) return -1;
    Click(IDC_WZ_OPTEXPORT);
    Click(IDC_WZ_NEXT);
    for (int i = 0; i < 7; ++i)
        if (Text(IDC_WZ_OPTONE + i) == "( C:\\ ) Hard Disk (not recommended)") Click(IDC_WZ_OPTONE + i);
    WhileAnswering(IDC_WZ_SUBFOLDER);
    Click(IDC_WZ_NEXT);
    Click(IDC_WZ_NEXT);
    const double ms = TimedCopy("Export Complete!");
    Click(IDC_WZ_FINISH);
    return ms;
}

double Import()
{
    if (!ShowWizard()) return -1;
    Click(IDC_WZ_OPTIMPORT);
    Click(IDC_WZ_NEXT);
    WhileAnswering(IDC_WZ_LOCATEKEY);
    Click(IDC_WZ_NEXT);
    Click(IDC_WZ_NEXT);
    const double ms = TimedCopy("Import Complete!");
    Click(IDC_WZ_FINISH);
    return ms;
}

void Print(const char* what, double ms, double pausesMs)
{
    std::printf("  %-28s %8.0f ms   pauses alone %6.0f ms   ratio %.3f (target at most 1.25)\n", what, ms,
                pausesMs, ms / pausesMs);
}

}  // namespace

int main()
{
    TestEnv::ResetProgramKey();
    for (int i = 0; i < kSchemes; ++i) {
        const std::string section = "Schemes\\Bench " + std::to_string(100 + i);
        const auto set = [&](const char* name, const std::string& value) {
            TestEnv::RawSet(section, name, REG_SZ, value + std::string(1, '\0'));
        };
        set("Fade Number", "6");
        for (const char* colour : {"One", "Two", "Three", "Four", "Five", "Six"}) set(colour, std::to_string(i * 1000));
        for (const char* style : {"Wavy", "Bold", "Italic", "ULine"}) set(style, i % 2 ? "True" : "False");
    }
    TestEnv::RemoveFolder(kFolder);

    const double exported = Export();
    const size_t files = TestEnv::FilesIn(kFolder).size();
    TestEnv::DeleteSection("Schemes");
    const double imported = Import();
    const bool back = TestEnv::SectionExists("Schemes\\Bench 100") && TestEnv::SectionExists("Schemes\\Bench 149");
    TestEnv::RemoveFolder(kFolder);

    std::printf("Import/Export wizard, %d schemes, from the last Next to the finished page\n", kSchemes);
    Print("export to the hard disk:", exported, kExportPausesMs);
    Print("import back:", imported, kImportPausesMs);
    std::printf("  (%zu files written, the schemes %s back)\n", files, back ? "all" : "NOT");
    const bool ok = exported > 0 && imported > 0 && files == kSchemes + 1 && back;
    if (!ok) std::printf("  a copy did not finish as it should\n");
    TestEnv::ResetProgramKey();
    return ok ? 0 : 1;
}
