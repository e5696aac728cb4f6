// How prismo-fade writes a faded line: as AOL HTML, or in one of the formats
// that today's chats, forums, games and terminals read, character by
// character with the colour and wave the fade engine gave each character.
#pragma once

#include "Options.h"
#include "TextEncoding.h"

#include <cstddef>
#include <string>

enum class FadeFormat { Aol, Html, HtmlFragment, Ansi, BBCode, Minecraft };

// Where the written text goes. Write either takes all of it or throws.
class OutputSink {
public:
    virtual ~OutputSink() = default;
    virtual void Write(const char* data, std::size_t size) = 0;
};

// Fades lines one by one through FadeEngine (with the working fade in
// Options and WavePhase as they stand) and writes them to the sink in one
// format. Output is handed on in pieces of about 64 KB, and all of it by End.
class FadeWriter {
public:
    FadeWriter(FadeFormat format, TextEncoding encoding, OutputSink& sink);

    void Start();                          // a page's head, where the format has one
    bool Line(const std::string& line);    // false, writing nothing, when not valid in the encoding
    void End();                            // a page's end; hands on what is left

private:
    void HandOn(bool all);  // to the sink: all of the output, or only once it is large

    FadeFormat format_;
    TextEncoding encoding_;
    OutputSink& sink_;
    std::string shadow_, out_;
};
