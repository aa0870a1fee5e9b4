#include "runtime/CommandLine.h"

#include "runtime/FileName.h"
#include "runtime/WindowsApi.h"

#include <QCoreApplication>

#include <algorithm>
#include <span>

#ifdef Q_OS_WIN
#include <shellapi.h>
#endif

namespace {

/// An argument of a line: what was typed, the spaces before it, and the value that a program is given.
struct Argument
{
    QStringView spaces;
    QStringView typed;
    QString value;
};

bool isSpace(QChar unit)
{
    return unit == u' ' || unit == u'\t';
}

qsizetype runOf(QStringView text, QChar unit)
{
    return std::ranges::find_if(text, [unit](QChar other) { return other != unit; }) - text.begin();
}

/// Adds the value of what text begins with and gives its length. Spaces within quotes belong to the
/// value; of backslashes before a quote every second counts, and one that is left over makes the quote a character.
qsizetype readUnit(QStringView text, bool &quoted, QString &value)
{
    const qsizetype slashes = runOf(text, u'\\');
    const bool beforeQuote = slashes < text.size() && text[slashes] == u'"';
    value += text.first(beforeQuote ? slashes / 2 : slashes);
    if (!beforeQuote) {
        value += slashes == 0 ? QString(text.front()) : QString();
        return std::max(slashes, qsizetype(1));
    }
    if (slashes % 2 != 0) {
        value += u'"';
    } else {
        quoted = !quoted;
    }
    return slashes + 1;
}

Argument firstArgument(QStringView line)
{
    const qsizetype begin = std::ranges::find_if_not(line, isSpace) - line.begin();
    Argument argument{line.first(begin), {}, {}};
    bool quoted = false;
    qsizetype at = begin;
    while (at < line.size() && (quoted || !isSpace(line[at]))) {
        at += readUnit(line.sliced(at), quoted, argument.value);
    }
    argument.typed = line.sliced(begin, at - begin);
    return argument;
}

QList<Argument> argumentsOf(QStringView line)
{
    QList<Argument> arguments;
    while (!line.trimmed().isEmpty()) {
        arguments << firstArgument(line);
        line = line.sliced(arguments.last().spaces.size() + arguments.last().typed.size());
    }
    return arguments;
}

/// No backslash has a meaning in it.
qsizetype lengthOfProgramName(QStringView line)
{
    if (line.startsWith(u'"')) {
        const qsizetype end = line.indexOf(u'"', 1);
        return end < 0 ? line.size() : end + 1;
    }
    return std::ranges::find_if(line, isSpace) - line.begin();
}

/// Those whose values are left, in their order; all of them when that does not work out.
QList<Argument> argumentsLeft(const QList<Argument> &arguments, const QStringList &left)
{
    QList<Argument> kept;
    for (const Argument &argument : arguments) {
        if (kept.size() < left.size() && argument.value == left[kept.size()]) {
            kept << argument;
        }
    }
    return kept.size() == left.size() ? kept : arguments;
}

} // namespace

QString commandLineAsTyped(const QString &line, const QStringList &left)
{
    const QStringView rest = QStringView(line).sliced(lengthOfProgramName(line));
    QString text;
    for (const Argument &argument : argumentsLeft(argumentsOf(rest), left)) {
        text += text.isEmpty() ? QStringView() : argument.spaces;
        text += argument.typed;
    }
    return text;
}

QString commandLineText([[maybe_unused]] int argc, [[maybe_unused]] char **argv)
{
#ifdef Q_OS_WIN
    return commandLineAsTyped(QString::fromWCharArray(GetCommandLineW()), QCoreApplication::arguments().mid(1));
#else
    QByteArrayList arguments;
    for (const char *argument : std::span(argv, std::size_t(argc)).subspan(1)) {
        arguments << argument;
    }
    return fileNameFromBytes(arguments.join(' '));
#endif
}

QStringList commandLineArguments([[maybe_unused]] int argc, [[maybe_unused]] char **argv)
{
#ifdef Q_OS_WIN
    int count = 0; // argv has them in the ANSI code page only
    wchar_t **const all = CommandLineToArgvW(GetCommandLineW(), &count);
    QStringList arguments;
    for (int i = 1; i < count; ++i) {
        arguments << QString::fromWCharArray(all[i]);
    }
    LocalFree(all);
    return arguments;
#else
    QStringList arguments;
    for (const char *argument : std::span(argv, std::size_t(argc)).subspan(1)) {
        arguments << fileNameFromBytes(argument);
    }
    return arguments;
#endif
}
