// Any message text tokenises and lays out without running off its ends,
// and the layout never moves backwards.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "Markup.h"

namespace {

class MeasuringArea : public MarkupSurface {
public:
    void Clear() override {}
    void SetStyle(const TextStyle& style) override { bold_ = style.bold; }
    int TextWidth(const std::string& text) override { return static_cast<int>(text.size()) * (bold_ ? 7 : 6); }
    int LineHeight() override { return 13; }
    void Print(int x, int y, const std::string& text) override
    {
        if (text.empty() || y < lastY_ || x < MarkupCursor::LeftMargin) std::abort();
        lastY_ = y;
    }
    int Width() const override { return 300; }
    int Height() const override { return height_; }
    void Grow(int pixels) override
    {
        if (pixels + 2 <= height_) std::abort();  // growing only ever grows
        height_ = pixels + 2;
    }

private:
    bool bold_ = false;
    int lastY_ = 0, height_ = 52;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string message(reinterpret_cast<const char*>(data), size);
    std::size_t printed = 0;
    for (const MarkupPiece& piece : TokeniseMarkup(message)) printed += piece.text.size();
    if (printed > message.size()) std::abort();
    MeasuringArea area;
    RenderMarkup(area, message);
    return 0;
}
