// prismo-fade's entry point: hands the arguments and the standard streams on.
#include "FadeCli.h"

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
#endif
    return RunPrismoFade(std::vector<std::string>(argv + 1, argv + argc), stdin, stdout, stderr);
}
