// Fuzzes the AOL HTML reader with arbitrary received lines and checks what it
// promises about its runs.
#include "AolHtml.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string line(reinterpret_cast<const char*>(data), size);
    const auto runs = ReadAolHtml(line);
    std::size_t shown = 0;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const AolRun& r = runs[i];
        if (r.text.empty() || r.color < 0 || r.color > 0xFFFFFF) std::abort();
        if (r.baseline < -1 || r.baseline > 1) std::abort();
        if (i > 0) {
            const AolRun& p = runs[i - 1];
            if (p.color == r.color && p.bold == r.bold && p.italic == r.italic &&
                p.underline == r.underline && p.baseline == r.baseline)
                std::abort();  // neighbours must differ
        }
        shown += r.text.size();
    }
    if (shown > line.size()) std::abort();
    // A line without "<" is shown exactly as it came.
    if (line.find('<') == std::string::npos && shown != line.size()) std::abort();
    return 0;
}
