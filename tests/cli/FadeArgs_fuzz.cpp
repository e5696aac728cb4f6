// Fuzzes prismo-fade's command line (arguments split at NUL bytes), its
// colour forms and its scheme-file reading.
#include "FadeArgs.h"

#include <cstdint>
#include <cstdlib>

namespace {

void CheckFade(const OptionsRecord& fade)
{
    for (ColorValue c : fade.Colors)
        if (c < 0 || c > 0xFFFFFF) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);

    if (const auto color = ParseColor(text))
        if (*color < 0 || *color > 0xFFFFFF) std::abort();

    std::vector<std::string> args;
    std::size_t at = 0;
    for (;;) {
        const std::size_t nul = text.find('\0', at);
        args.push_back(text.substr(at, nul == std::string::npos ? std::string::npos : nul - at));
        if (nul == std::string::npos) break;
        at = nul + 1;
    }
    try {
        const FadeRequest request = ParseFadeArgs(args);
        CheckFade(request.fade);
        if (request.wavePhase < 0 || request.wavePhase > 5) std::abort();
        if (!request.colorsGiven && !request.fadeNumberGiven && request.fade.FadeNumber != 0) std::abort();
    } catch (const FadeArgsError& e) {
        if (std::string(e.what()).empty()) std::abort();
    }

    FadeRequest request;
    try {
        ApplyScheme(text, request);
        CheckFade(request.fade);
        if (request.fade.FadeNumber < 1 || request.fade.FadeNumber > 6) std::abort();
    } catch (const FadeArgsError&) {
    }
    return 0;
}
