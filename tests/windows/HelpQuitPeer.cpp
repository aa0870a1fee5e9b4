#include "tests/reliability/HelpSession.h"

#include <cstdlib>

/// A Tabrix that opens its help and quits so many milliseconds later; 0 if it ends cleanly.
int main(int argc, char **argv)
{
    return openHelpAndQuit(argc > 1 ? std::atoi(argv[1]) : 0);
}
