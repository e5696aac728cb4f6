// prismo-fade's entry point: hands the arguments, the standard streams and
// the encoding of the user's locale on.
#include "FadeCli.h"

#include <cstdlib>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

int main(int argc, char** argv)
{
#ifdef _WIN32
    // Every byte of the text is a character, Ctrl+Z (0x1A) included; a text-mode
    // stdin would end there. CR LF line ends are taken apart by the fader.
    _setmode(_fileno(stdin), _O_BINARY);
    // A Windows console shows the ANSI code page: a byte is a character.
    const TextEncoding locale = TextEncoding::Ansi;
#else
    const TextEncoding locale =
        LocaleEncoding(std::getenv("LC_ALL"), std::getenv("LC_CTYPE"), std::getenv("LANG"));
#endif
    return RunPrismoFade(std::vector<std::string>(argv + 1, argv + argc), stdin, stdout, stderr, locale);
}
