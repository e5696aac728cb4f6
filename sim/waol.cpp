// waol.exe, the AOL simulator: an AOL-like main window with chat rooms, mail
// and sign-on screens for Prismo's tests and demo. "-s<keyword>" hands the
// keyword (the rest of the command line) to a running simulator, as AOL does.
#include "Sim.h"

#include <cstdio>
#include <stdexcept>

#ifndef SIM_AOL_VERSION
#define SIM_AOL_VERSION 4
#endif

SimState& Sim() {
    static SimState state;
    return state;
}

void LogEvent(const std::string& line) {
    if (!Sim().log.is_open()) return;
    Sim().log << line << "\n";
    Sim().log.flush();
}

namespace {

std::vector<std::string> CommandLineArgs() { return SplitSimCommandLine(GetCommandLineA()); }

bool HandOverKeyword(const std::string& keyword) {
    HWND running = FindWindowA(kFrameClass, nullptr);
    if (!running) return false;
    COPYDATASTRUCT data{kKeywordMagic, (DWORD)keyword.size(), const_cast<char*>(keyword.data())};
    DWORD_PTR result = 0;
    SendMessageTimeoutA(running, WM_COPYDATA, 0, (LPARAM)&data, SMTO_ABORTIFHUNG, 10000, &result);
    return true;
}

void OpenStartWindows() {
    const SimConfig& config = Sim().config;
    if (config.signedOn) {
        std::string error;
        const std::string name = config.signedOnAs.empty() ? config.screenNames.front() : config.signedOnAs;
        if (!SignOn(name, error)) throw std::invalid_argument(error);
    } else if (config.signOnDelay > 0) {
        ShowSignOnLater(config.signOnDelay);
    } else {
        ShowSignedOffScreen(false);
    }
    for (const auto& caption : config.windows) OpenNamedWindow(caption);
    if (config.mailOpen) OpenWriteMail();
    for (const auto& room : config.rooms) OpenChatRoom(room);
}

int Run(int show) {
    Sim().instance = GetModuleHandleA(nullptr);
    Sim().config = ParseSimArgs(CommandLineArgs(), SIM_AOL_VERSION);
    if (Sim().config.hasKeyword && HandOverKeyword(Sim().config.keyword)) return 0;
    if (!Sim().config.logFile.empty()) Sim().log.open(Sim().config.logFile, std::ios::app | std::ios::binary);
    LogEvent("start\t" + std::to_string(Sim().config.version) + ".0\t" + EditionName(Sim().config.edition));

    RegisterSimClasses(Sim().instance);
    RegisterChildClass(Sim().instance);
    HWND frame = CreateMainFrame();
    if (!frame) throw std::runtime_error("cannot create the main window");
    ShowWindow(frame, show == SW_SHOWMINNOACTIVE || show == SW_HIDE ? SW_SHOWNORMAL : show);
    OpenStartWindows();
    if (Sim().config.hasKeyword) PerformKeyword(Sim().config.keyword);
    UpdateWindow(frame);
    Sim().ready = true;

    MSG msg;
    while (GetMessageA(&msg, nullptr, 0, 0) > 0) {
        if (TranslateMDISysAccel(Sim().mdiClient, &msg)) continue;
        TranslateMessage(&msg);
        DispatchMessageA(&msg);
    }
    return 0;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
    try {
        return Run(show);
    } catch (const std::exception& e) {
        fprintf(stderr, "waol: %s\n", e.what());
        return 1;
    }
}
