// Fuzzes the reading of scheme files: whatever the bytes, a line stores only
// under a scheme value name, its value is exactly the text after the first
// "=", and a file written from what was read reads back the same.
#include "Catalog.h"
#include "SchemeText.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

std::string Lower(std::string s)
{
    std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return s;
}

bool IsSchemeValueName(const std::string& name)
{
    for (const char* allowed : kSchemeValueNames)
        if (Lower(name) == Lower(allowed)) return true;
    return false;
}

void Check(bool condition)
{
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string contents(reinterpret_cast<const char*>(data), size);
    for (const std::string& line : SplitSchemeLines(contents)) {
        Check(line.find_first_of("\r\n") == std::string::npos);
        if (auto v = ParseSchemeText(line)) {
            Check(IsSchemeValueName(v->name));
            Check(v->value == line.substr(line.find('=') + 1));
        }
    }
    const SchemeTexts read = ParseSchemeFile(contents);
    // Only the number of colours goes out as it stands; a line end inside it
    // would start a new line, so the round trip holds for the others.
    if (read.fadeNumber.find_first_of("\r\n") == std::string::npos) {
        const std::string file = FormatSchemeFile(read);
        Check(FormatSchemeFile(ParseSchemeFile(file)) == file);
    }
    return 0;
}
