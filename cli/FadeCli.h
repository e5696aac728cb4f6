// prismo-fade from its arguments to its output: reads the request, fades the
// text line by line and writes it in the chosen form.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

// Exit statuses: 0 done, 2 bad input (one line on err, nothing on out).
constexpr int kFadeOk = 0;
constexpr int kFadeBadInput = 2;

// args are the arguments after the program name; text comes from them or,
// when there are none, from in. Sets the program's Options and WavePhase.
int RunPrismoFade(const std::vector<std::string>& args, std::FILE* in, std::FILE* out, std::FILE* err);
