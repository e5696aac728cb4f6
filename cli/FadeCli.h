// prismo-fade from its arguments to its output: reads the request, fades the
// text line by line and writes it in the chosen format.
#pragma once

#include "TextEncoding.h"

#include <cstdio>
#include <string>
#include <vector>

// Exit statuses: 0 done; 1 the input could not be read or the output written;
// 2 bad input: options, colours or scheme file (nothing on out), or a line
// not valid in its encoding (the lines before it written). Every failure is
// one line on err.
constexpr int kFadeOk = 0;
constexpr int kFadeReadWriteError = 1;
constexpr int kFadeBadInput = 2;

// args are the arguments after the program name; text comes from them or,
// when there are none, from in. localeEncoding is used unless --encoding
// says otherwise. Sets the program's Options and WavePhase.
int RunPrismoFade(const std::vector<std::string>& args, std::FILE* in, std::FILE* out, std::FILE* err,
                  TextEncoding localeEncoding);
