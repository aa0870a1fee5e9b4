#include "runtime/StandardStreams.h"

#include "runtime/WindowsApi.h"

#include <csignal>

#ifdef Q_OS_WIN
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#endif

#ifdef Q_OS_WIN

void prepareStandardStreams()
{
    for (std::FILE *stream : {stdin, stdout, stderr}) {
        _setmode(_fileno(stream), _O_BINARY);
    }
    static const UINT consolePage = GetConsoleOutputCP(); // 0 without a console
    if (consolePage != 0 && SetConsoleOutputCP(CP_UTF8)) {
        std::atexit([] { SetConsoleOutputCP(consolePage); }); // the console outlives the program
    }
}

#else

void prepareStandardStreams()
{
    std::signal(SIGPIPE, SIG_IGN);
}

#endif
