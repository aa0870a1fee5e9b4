#include "tool/Program.h"

#include "app/services/Language.h"
#include "runtime/FileName.h"
#include "tool/Command.h"

#include <QCoreApplication>

#include <algorithm>
#include <csignal>
#include <span>

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

int showCommands(Session &session)
{
    constexpr qsizetype nameWidth = 12;
    QString lines;
    for (const Command &command : toolCommands()) {
        lines += u"  "_s + QString(command.name).leftJustified(nameWidth) + toolText(command.summary) + u'\n';
    }
    session.out.put(toolText(ToolText::ProgramSummary) + u"\n\n"_s + toolText(ToolText::CommandList, {lines}));
    return Fine;
}

int showHelp(const Command &command, const QCommandLineParser &parser, Session &session)
{
    const QString usage = toolText(ToolText::UsageLine, {command.name + u" [OPTION...] "_s + command.usage});
    const QString help = parser.helpText();
    session.out.put(usage + help.sliced(help.indexOf(u'\n')));
    return Fine;
}

int failWithHint(const Command &command, const QString &reason, Session &session)
{
    session.say(reason);
    session.say(ToolText::UsageHint, {command.name});
    return Failed;
}

int runCommand(const Command &command, const QStringList &arguments, Session &session)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(toolText(command.summary));
    const OptionList options = optionsOf(command);
    parser.addOptions(parserOptions(options));
    if (!command.usage.isEmpty()) {
        parser.addPositionalArgument(command.usage, toolText(command.arguments), command.usage);
    }
    if (!parser.parse(QStringList{u"tabrix-tool"_s} + arguments)) {
        return failWithHint(command, parser.errorText(), session);
    }
    if (parser.isSet(u"help"_s)) {
        return showHelp(command, parser, session);
    }
    if (const auto wrong = wrongValue(parser, options)) {
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
    const auto all = toolCommands();
    const auto found = std::ranges::find_if(all, [&name](const Command &command) { return command.name == name; });
    if (found == all.end()) {
        session.say(ToolText::NoSuchCommand, {name});
        return Failed;
    }
    return runCommand(*found, arguments, session);
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
    if (first.isEmpty() || first == "--help"_L1 || first == "-h"_L1 || first == "help"_L1) {
        const int status = showCommands(session);
        return first.isEmpty() ? Failed : status;
    }
    return runNamed(first, arguments.sliced(1), session);
}

} // namespace

void prepareStreams()
{
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);
#endif
}

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (const char *argument : std::span(argv, std::size_t(argc)).subspan(1)) {
        arguments << fileNameFromBytes(argument);
    }
    return arguments;
}

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
