#include "runtime/StandardStreams.h"

#include "runtime/WindowsApi.h"

#include <csignal>

#ifdef Q_OS_WIN
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#else
#include <QString>

#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

constexpr int errorStream = 2;

} // namespace

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

bool isTerminal(int /*descriptor*/)
{
    return false; // consoles before Windows 10 show the codes as text
}

QuietErrors::QuietErrors() : m_errors(_dup(errorStream))
{
    const int nowhere = _open("NUL", _O_WRONLY);
    _dup2(nowhere, errorStream);
    _close(nowhere);
}

QuietErrors::~QuietErrors()
{
    _dup2(m_errors, errorStream);
    _close(m_errors);
}

#else

void prepareStandardStreams()
{
    std::signal(SIGPIPE, SIG_IGN);
}

bool isTerminal(int descriptor)
{
    const QString kind = qEnvironmentVariable("TERM");
    return ::isatty(descriptor) != 0 && !kind.isEmpty() && kind != QLatin1StringView("dumb");
}

QuietErrors::QuietErrors() : m_errors(::dup(errorStream))
{
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ::dup2(nowhere, errorStream);
    ::close(nowhere);
}

QuietErrors::~QuietErrors()
{
    ::dup2(m_errors, errorStream);
    ::close(m_errors);
}

#endif
