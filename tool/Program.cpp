#include "tool/Program.h"

#include "app/services/Language.h"
#include "tool/Command.h"
#include "tool/Help.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

void takeCommonOptions(const QCommandLineParser &parser, Session &session)
{
    const QString page = parser.value(u"code-page"_s);
    session.codePage = page == "auto"_L1 ? std::nullopt : std::optional(page.toInt());
    const QString color = parser.value(u"color"_s);
    session.color = color == "always"_L1 ? ColorUse::Always : color == "never"_L1 ? ColorUse::Never : ColorUse::Auto;
    session.isQuiet = parser.isSet(u"quiet"_s);
}

/// The language has to be known before the options are described in it.
bool setLanguage(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.addOption({u"language"_s, {}, u"LANGUAGE"_s});
    SelectLanguage();
    QStringList own = {u"tabrix-tool"_s};
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--language"_L1 && i + 1 < arguments.size()) {
            own << arguments[i] << arguments[i + 1];
        } else if (arguments[i].startsWith("--language="_L1)) {
            own << arguments[i];
        }
    }
    parser.parse(own);
    const QString language = parser.value(u"language"_s);
    if (!language.isEmpty()) {
        LanguageBase = language == "ja"_L1 ? JapaneseBase : EnglishBase;
    }
    return language.isEmpty() || language == "ja"_L1 || language == "en"_L1;
}

int failWithHint(const Command &command, const QString &reason, Session &session)
{
    session.say(reason);
    session.say(ToolText::UsageHint, {command.name});
    return Failed;
}

int runCommand(const Command &command, const QStringList &arguments, Session &session)
{
    const std::unique_ptr<QCommandLineParser> own = parserOf(command);
    QCommandLineParser &parser = *own;
    if (!parser.parse(QStringList{u"tabrix-tool"_s} + arguments)) {
        return failWithHint(command, parser.errorText(), session);
    }
    if (parser.isSet(u"help"_s)) {
        session.out.put(commandHelp(command));
        return Fine;
    }
    if (const auto wrong = wrongValue(parser, optionsOf(command))) {
        session.say(*wrong);
        return Failed;
    }
    takeCommonOptions(parser, session);
    const int files = int(parser.positionalArguments().size());
    if (files < command.minFiles) {
        return failWithHint(command, toolText(ToolText::NoFile), session);
    }
    if (files > command.maxFiles) {
        return failWithHint(command, toolText(ToolText::TooManyFiles), session);
    }
    return command.run(parser, session);
}

int runNamed(const QString &name, const QStringList &arguments, Session &session)
{
    const Command *command = commandNamed(name);
    if (command == nullptr) {
        session.say(ToolText::NoSuchCommand, {name});
        return Failed;
    }
    return runCommand(*command, arguments, session);
}

int run(const QStringList &arguments, Session &session)
{
    if (!setLanguage(arguments)) {
        session.say(ToolText::BadValue, {u"--language"_s, QString(), u"en, ja"_s});
        return Failed;
    }
    const QString first = arguments.value(0);
    if (first == "--version"_L1) {
        session.out.put(u"tabrix-tool "_s + QCoreApplication::applicationVersion() + u'\n');
        return Fine;
    }
    if (first.isEmpty() || first == "--help"_L1 || first == "-h"_L1) {
        session.out.put(programHelp());
        return first.isEmpty() ? Failed : Fine;
    }
    return runNamed(first, arguments.sliced(1), session);
}

} // namespace

int runProgram(const QStringList &arguments)
{
    Session session;
    session.commandLine = arguments;
    const int status = run(arguments, session);
    session.out.flush();
    if (const auto failure = session.out.failure()) {
        session.say(ToolText::CannotWriteOutput, {*failure});
        return Failed;
    }
    return status;
}
