// Fuzzes prismo-fade's writer with arbitrary lines in every format and
// encoding: the first bytes choose the fade, the rest is the line.
#include "FadeOutput.h"
#include "TextEncoding.h"
#include "modFade.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

class StringSink : public OutputSink {
public:
    void Write(const char* data, std::size_t size) override { text.append(data, size); }
    std::string text;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 3) return 0;
    const auto format = static_cast<FadeFormat>(data[0] % 6);
    const auto encoding = (data[0] & 0x80) ? TextEncoding::Ansi : TextEncoding::Utf8;
    OptionsRecord fade;
    fade.FadeNumber = static_cast<std::int16_t>(data[1] % 8);
    fade.Colors = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF, 0, 0x123456};
    fade.SolidFade = data[1] & 0x08;
    fade.Bold = data[1] & 0x10;
    fade.Italic = data[1] & 0x20;
    fade.ULine = data[1] & 0x40;
    fade.Wavy = data[1] & 0x80;
    Options = fade;
    WavePhase = static_cast<std::int16_t>(data[2] % 6);
    std::string line(reinterpret_cast<const char*>(data + 3), size - 3);

    StringSink sink;
    FadeWriter writer(format, encoding, sink);
    writer.Start();
    std::string shadow;
    const bool valid = CharacterShadow(line, encoding, 'x', shadow);
    if (writer.Line(line) != valid) std::abort();
    writer.End();
    if (!valid) return 0;
    if (encoding == TextEncoding::Ansi && shadow.size() != line.size()) std::abort();
    // AOL HTML of a line without "<" shows the line itself between the tags.
    if (format == FadeFormat::Aol && line.find('<') == std::string::npos) {
        std::string shown;
        bool inTag = false;
        for (char c : sink.text) {
            if (c == '<') inTag = true;
            else if (c == '>' && inTag) inTag = false;
            else if (!inTag) shown += c;
        }
        if (shown != line + "\n") std::abort();
    }
    return 0;
}
