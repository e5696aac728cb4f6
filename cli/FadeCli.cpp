// prismo-fade: one FadeEngine call per line of text, in order, with the wave
// carried from line to line as the program carries it between chat lines.
#include "FadeCli.h"

#include "FadeArgs.h"
#include "FadeOutput.h"
#include "modFade.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace {

// A read or write that failed; what() is the line the user sees.
class StreamError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A line that is not valid in the chosen encoding.
class BadLine : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

std::string Because(int error) { return error ? std::string(": ") + std::strerror(error) : std::string(); }

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

// The scheme file's text; throws FadeArgsError when it cannot be read or is
// too large to be a scheme.
std::string ReadSchemeFile(const std::string& path)
{
    FileHandle file(std::fopen(path.c_str(), "rb"));
    if (!file) throw FadeArgsError("cannot read scheme file " + path + Because(errno));
    std::string contents;
    char buffer[4096];
    std::size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, file.get())) > 0) {
        contents.append(buffer, got);
        if (contents.size() > kLargestSchemeFile)
            throw FadeArgsError("scheme file " + path + " is over 64 KB: not a scheme file");
    }
    if (std::ferror(file.get())) throw FadeArgsError("cannot read scheme file " + path + Because(errno));
    return contents;
}

class FileSink : public OutputSink {
public:
    explicit FileSink(std::FILE* file) : file_(file) {}
    void Write(const char* data, std::size_t size) override
    {
        if (std::fwrite(data, 1, size, file_) != size) Fail();
    }
    void Finish()
    {
        if (std::fflush(file_) != 0 || std::ferror(file_)) Fail();
    }

private:
    [[noreturn]] void Fail() { throw StreamError("cannot write the output" + Because(errno)); }
    std::FILE* file_;
};

// Hands lines to the writer, counting them for the message about a bad one.
class LineFeeder {
public:
    LineFeeder(FadeWriter& writer, TextEncoding encoding) : writer_(writer), encoding_(encoding) {}

    void Line(std::string& line)
    {
        ++number_;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (!writer_.Line(line))
            throw BadLine("line " + std::to_string(number_) + " is not valid " +
                          (encoding_ == TextEncoding::Utf8 ? "UTF-8" : "ANSI"));
    }

private:
    FadeWriter& writer_;
    TextEncoding encoding_;
    long long number_ = 0;
};

// The text of the arguments: lines split at "\n", and always at least one
// line, so that an empty argument fades as an empty line.
void FadeText(std::string text, LineFeeder& feeder)
{
    if (!text.empty() && text.back() == '\n') text.pop_back();
    std::size_t at = 0;
    for (;;) {
        const std::size_t end = text.find('\n', at);
        std::string line = text.substr(at, end == std::string::npos ? std::string::npos : end - at);
        feeder.Line(line);
        if (end == std::string::npos) return;
        at = end + 1;
    }
}

// Standard input, line by line as it comes. A line longer than one read is
// gathered, each read's bytes searched once for the line end.
void FadeStream(std::FILE* in, LineFeeder& feeder)
{
    std::string pending, line;
    std::size_t searched = 0;
    char buffer[65536];
    std::size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, in)) > 0) {
        pending.append(buffer, got);
        std::size_t at = 0, end;
        while ((end = pending.find('\n', searched)) != std::string::npos) {
            line.assign(pending, at, end - at);
            feeder.Line(line);
            at = searched = end + 1;
        }
        pending.erase(0, at);
        searched = pending.size();
    }
    if (std::ferror(in)) throw StreamError("cannot read the input" + Because(errno));
    if (!pending.empty()) feeder.Line(pending);
}

FadeRequest ReadRequest(const std::vector<std::string>& args)
{
    FadeRequest request = ParseFadeArgs(args);
    if (!request.schemePath.empty()) {
        const std::string contents = ReadSchemeFile(request.schemePath);
        try {
            ApplyScheme(contents, request);
        } catch (const FadeArgsError& e) {
            throw FadeArgsError(request.schemePath + ": " + e.what());
        }
    }
    return request;
}

int Report(std::FILE* err, std::string message, int status)
{
    for (char& c : message)
        if (c == '\n' || c == '\r') c = ' ';  // the problem stays on one line
    std::fprintf(err, "prismo-fade: %s\n", message.c_str());
    return status;
}

int Fade(const FadeRequest& request, std::FILE* in, std::FILE* out, TextEncoding encoding)
{
    FileSink sink(out);
    if (request.help) {
        sink.Write(kFadeUsage, std::strlen(kFadeUsage));
        sink.Finish();
        return kFadeOk;
    }
    Options = request.fade;
    WavePhase = request.wavePhase;
    FadeWriter writer(request.format, encoding, sink);
    LineFeeder feeder(writer, encoding);
    writer.Start();
    try {
        if (request.text) FadeText(*request.text, feeder);
        else FadeStream(in, feeder);
    } catch (const BadLine&) {
        writer.End();  // the lines before it stand
        sink.Finish();
        throw;
    }
    writer.End();
    sink.Finish();
    return kFadeOk;
}

}  // namespace

int RunPrismoFade(const std::vector<std::string>& args, std::FILE* in, std::FILE* out, std::FILE* err,
                  TextEncoding localeEncoding)
{
    FadeRequest request;
    try {
        request = ReadRequest(args);
    } catch (const FadeArgsError& e) {
        return Report(err, e.what(), kFadeBadInput);
    }
    try {
        return Fade(request, in, out, request.encoding.value_or(localeEncoding));
    } catch (const BadLine& e) {
        return Report(err, e.what(), kFadeBadInput);
    } catch (const StreamError& e) {
        return Report(err, e.what(), kFadeReadWriteError);
    }
}
