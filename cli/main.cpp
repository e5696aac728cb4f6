// prismo-fade's entry point: hands the arguments and the standard streams on.
#include "FadeCli.h"

int main(int argc, char** argv)
{
    return RunPrismoFade(std::vector<std::string>(argv + 1, argv + argc), stdin, stdout, stderr);
}
