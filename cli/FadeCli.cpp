// prismo-fade: one FadeEngine call per line of text, in order, with the wave
// carried from line to line as the program carries it between chat lines.
#include "FadeCli.h"

#include "FadeArgs.h"
#include "FadeOutput.h"
#include "modFade.h"

#include <memory>

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

bool ReadWholeFile(const std::string& path, std::string& contents)
{
    FileHandle file(std::fopen(path.c_str(), "rb"));
    if (!file) return false;
    char buffer[4096];
    std::size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, file.get())) > 0) contents.append(buffer, got);
    return !std::ferror(file.get());
}

void Write(std::FILE* out, const std::string& text) { std::fwrite(text.data(), 1, text.size(), out); }

// Fades lines and writes each in the chosen form.
class LineWriter {
public:
    LineWriter(const FadeRequest& request, std::FILE* out)
        : format_(request.format), out_(out),
          colored_(request.fade.FadeNumber >= 1 && request.fade.FadeNumber <= 6) {}

    void Start() { if (format_ == FadeFormat::Html) Write(out_, HtmlPageStart()); }
    void End() { if (format_ == FadeFormat::Html) Write(out_, HtmlPageEnd()); }

    void Line(std::string line)
    {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        switch (format_) {
        case FadeFormat::Aol:
            FadeEngine(line);
            line += '\n';
            Write(out_, line);
            break;
        case FadeFormat::Html: Write(out_, HtmlLine(FadeLineRuns(line), colored_)); break;
        case FadeFormat::Ansi: Write(out_, AnsiLine(FadeLineRuns(line), colored_)); break;
        }
    }

private:
    FadeFormat format_;
    std::FILE* out_;
    bool colored_;
};

// The text of the arguments: lines split at "\n", and always at least one
// line, so that an empty argument fades as an empty line.
void FadeText(std::string text, LineWriter& writer)
{
    if (!text.empty() && text.back() == '\n') text.pop_back();
    std::size_t at = 0;
    for (;;) {
        const std::size_t end = text.find('\n', at);
        if (end == std::string::npos) break;
        writer.Line(text.substr(at, end - at));
        at = end + 1;
    }
    writer.Line(text.substr(at));
}

void FadeStream(std::FILE* in, LineWriter& writer)
{
    std::string pending;
    char buffer[65536];
    std::size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, in)) > 0) {
        pending.append(buffer, got);
        std::size_t at = 0, end;
        while ((end = pending.find('\n', at)) != std::string::npos) {
            writer.Line(pending.substr(at, end - at));
            at = end + 1;
        }
        pending.erase(0, at);
    }
    if (!pending.empty()) writer.Line(pending);
}

FadeRequest ReadRequest(const std::vector<std::string>& args)
{
    FadeRequest request = ParseFadeArgs(args);
    if (!request.schemePath.empty()) {
        std::string contents;
        if (!ReadWholeFile(request.schemePath, contents))
            throw FadeArgsError("cannot read scheme file " + request.schemePath);
        try {
            ApplyScheme(contents, request);
        } catch (const FadeArgsError& e) {
            throw FadeArgsError(request.schemePath + ": " + e.what());
        }
    }
    return request;
}

}  // namespace

int RunPrismoFade(const std::vector<std::string>& args, std::FILE* in, std::FILE* out, std::FILE* err)
{
    FadeRequest request;
    try {
        request = ReadRequest(args);
    } catch (const FadeArgsError& e) {
        std::string message = e.what();
        for (char& c : message)
            if (c == '\n' || c == '\r') c = ' ';  // the problem stays on one line
        std::fprintf(err, "prismo-fade: %s\n", message.c_str());
        return kFadeBadInput;
    }
    if (request.help) {
        std::fputs(kFadeUsage, out);
        return kFadeOk;
    }
    Options = request.fade;
    WavePhase = request.wavePhase;
    LineWriter writer(request, out);
    writer.Start();
    if (request.text) FadeText(*request.text, writer);
    else FadeStream(in, writer);
    writer.End();
    return kFadeOk;
}
