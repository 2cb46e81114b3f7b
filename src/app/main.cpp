#include <csignal>

#include "app/program.h"
#include "qt/platform.h"

int main(int argc, char* argv[]) {
    // A file that may not grow any further is an error of the step that writes it, not the end.
    std::signal(SIGXFSZ, SIG_IGN);

    // Read before the toolkit is told to speak Spanish: the separator is that of the user's locale.
    return velmora::RunProgram(argc, argv, velmora::SeparatorOfTheRegion());
}
