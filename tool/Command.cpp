#include "tool/Command.h"

#include "runtime/FileName.h"
#include "tool/Files.h"

#include <algorithm>

using namespace Qt::StringLiterals;

void addValueOption(QCommandLineParser &parser, const QString &name, ToolText text, const QString &valueName,
    const QString &defaultValue)
{
    parser.addOption(QCommandLineOption(name, toolText(text), valueName, defaultValue));
}

void addSwitch(QCommandLineParser &parser, const QString &name, ToolText text)
{
    parser.addOption(QCommandLineOption(name, toolText(text)));
}

void addOutputOption(QCommandLineParser &parser)
{
    parser.addOption(QCommandLineOption({u"o"_s, u"output"_s}, toolText(ToolText::OptionOutput), u"FILE"_s));
}

std::optional<QString> chosenValue(
    const QCommandLineParser &parser, const QString &name, const QStringList &allowed, Session &session)
{
    QString value = parser.value(name);
    if (!allowed.contains(value)) {
        session.say(ToolText::BadValue, {u"--"_s + name, value, allowed.join(u", "_s)});
        return std::nullopt;
    }
    return value;
}

std::optional<QStringList> chosenList(
    const QCommandLineParser &parser, const QString &name, const QStringList &allowed, Session &session)
{
    QStringList pieces = parser.value(name).split(u',', Qt::SkipEmptyParts);
    const auto unknown =
        std::ranges::find_if_not(pieces, [&allowed](const QString &one) { return allowed.contains(one); });
    if (unknown != pieces.end()) {
        session.say(ToolText::BadValue, {u"--"_s + name, *unknown, allowed.join(u", "_s)});
        return std::nullopt;
    }
    return pieces;
}

int deliver(const QCommandLineParser &parser, Session &session, const QByteArray &bytes)
{
    return deliverTo(parser.value(u"output"_s), session, bytes);
}

int deliverTo(const QString &fileName, Session &session, const QByteArray &bytes)
{
    if (fileName.isEmpty() || fileName == "-"_L1) {
        session.out.put(bytes);
        return Fine;
    }
    if (const auto failure = writeOutput(fileName, bytes)) {
        session.say(ToolText::CannotWrite, {shownFileName(fileName), *failure});
        return Failed;
    }
    return Fine;
}
