// How prismo-fade tells characters apart in a line of bytes: UTF-8, where a
// character may take up to four bytes, or ANSI, where every byte is one.
#pragma once

#include <cstddef>
#include <string>

enum class TextEncoding { Utf8, Ansi };

// The encoding a POSIX locale names: the first of LC_ALL, LC_CTYPE and LANG
// that is set and not empty decides; UTF-8 when its code set is UTF-8 (in
// any spelling: "UTF-8", "utf8"), ANSI otherwise (the "C" locale included).
// Null pointers count as unset.
TextEncoding LocaleEncoding(const char* lcAll, const char* lcCtype, const char* lang);

// Bytes of the character starting with this (valid) lead byte.
inline std::size_t Utf8Length(unsigned char lead)
{
    return lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

// The line with every character but the space U+0020 replaced by `standIn`,
// one byte per character, so that the fade engine, which counts bytes, fades
// the line character by character. False (shadow undefined) when the line is
// not valid UTF-8: a stray or missing continuation byte, an overlong form, a
// surrogate or a value past U+10FFFF.
bool CharacterShadow(const std::string& line, TextEncoding encoding, char standIn, std::string& shadow);

// True when every character of the line is one byte (ANSI, or ASCII-only UTF-8).
bool OneBytePerCharacter(const std::string& line, TextEncoding encoding);
