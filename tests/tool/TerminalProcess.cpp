#include "tests/tool/TerminalProcess.h"

#include "tests/support/Patience.h"

#include <QDeadlineTimer>
#include <QFile>

#include <array>
#include <csignal>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The pointers that exec takes; they live as long as the texts.
std::vector<char *> pointersTo(QByteArrayList &texts)
{
    std::vector<char *> pointers;
    for (QByteArray &text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

QByteArrayList encoded(const QStringList &texts)
{
    QByteArrayList bytes;
    for (const QString &text : texts) {
        bytes << QFile::encodeName(text);
    }
    return bytes;
}

} // namespace

TerminalProcess::TerminalProcess(const QString &folder, const QStringList &command, const QStringList &environment)
{
    QByteArrayList arguments = encoded(command);
    QByteArrayList variables = encoded(
        QStringList{u"PATH="_s + qEnvironmentVariable("PATH"), u"LC_ALL=C.UTF-8"_s, u"HOME="_s + folder} + environment);
    const std::vector<char *> argumentList = pointersTo(arguments);
    const std::vector<char *> variableList = pointersTo(variables);
    const QByteArray folderName = QFile::encodeName(folder);
    winsize size{};
    size.ws_row = 25;
    size.ws_col = 200; // so that no line is broken
    m_child = ::forkpty(&m_terminal, nullptr, nullptr, &size);
    if (m_child == 0) {
        if (::chdir(folderName.constData()) == 0) {
            ::execve(argumentList.front(), argumentList.data(), variableList.data());
        }
        ::_exit(127);
    }
}

TerminalProcess::~TerminalProcess()
{
    ::close(m_terminal);
    if (m_child > 0) {
        ::kill(m_child, SIGKILL);
        ::waitpid(m_child, nullptr, 0);
    }
}

bool TerminalProcess::readSome()
{
    constexpr int step = 100; // milliseconds
    pollfd waiting{.fd = m_terminal, .events = POLLIN, .revents = 0};
    if (::poll(&waiting, 1, step) == 0) {
        return true;
    }
    std::array<char, 4096> piece{};
    const ssize_t length = ::read(m_terminal, piece.data(), piece.size());
    if (length > 0) {
        m_shown.append(piece.data(), length);
    }
    return length > 0;
}

bool TerminalProcess::waitFor(const QByteArray &text)
{
    const QDeadlineTimer deadline(patience);
    while (!m_shown.contains(text)) {
        if (deadline.hasExpired() || !readSome()) {
            return m_shown.contains(text);
        }
    }
    return true;
}

void TerminalProcess::type(const QByteArray &text) const
{
    [[maybe_unused]] const ssize_t written = ::write(m_terminal, text.constData(), std::size_t(text.size()));
}

int TerminalProcess::finish()
{
    const QDeadlineTimer deadline(patience);
    while (!deadline.hasExpired() && readSome()) { }
    if (deadline.hasExpired()) {
        return -1;
    }
    int status = 0;
    ::waitpid(m_child, &status, 0);
    m_child = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
