#include "tool/Help.h"

#include "tool/Command.h"

using namespace Qt::StringLiterals;

QString programHelp()
{
    constexpr qsizetype nameWidth = 12;
    QString lines;
    for (const Command &command : toolCommands()) {
        lines += u"  "_s + QString(command.name).leftJustified(nameWidth) + toolText(command.summary) + u'\n';
    }
    return toolText(ToolText::ProgramSummary) + u"\n\n"_s + toolText(ToolText::CommandList, {lines});
}

QString commandUsage(const Command &command)
{
    return (command.name + u" [OPTION...] "_s + command.usage).trimmed();
}

QString commandHelp(const Command &command)
{
    const QString help = parserOf(command)->helpText();
    return toolText(ToolText::UsageLine, {commandUsage(command)}) + help.sliced(help.indexOf(u'\n'));
}

std::unique_ptr<QCommandLineParser> parserOf(const Command &command)
{
    auto parser = std::make_unique<QCommandLineParser>();
    parser->setApplicationDescription(toolText(command.summary));
    parser->addOptions(parserOptions(optionsOf(command)));
    if (!command.usage.isEmpty()) {
        parser->addPositionalArgument(command.usage, toolText(command.arguments), command.usage);
    }
    return parser;
}
