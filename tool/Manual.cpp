#include "tool/Manual.h"

#include "tool/Command.h"
#include "tool/Help.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

/// A text as groff shows it: nothing in it is a request.
QString escaped(const QString &text)
{
    QString result = text;
    result.replace(u'\\', u"\\e"_s).replace(u'-', u"\\-"_s);
    return result.startsWith(u'.') || result.startsWith(u'\'') ? u"\\&"_s + result : result;
}

/// A text as an argument of a request
QString quoted(const QString &text)
{
    return u'"' + escaped(text).replace(u'"', u"\\(dq"_s) + u'"';
}

QString heading(ToolText caption)
{
    return u".SH "_s + quoted(toolText(caption)) + u'\n';
}

/// A paragraph for each line of the text
QString paragraphs(const QString &text)
{
    QString result;
    for (const QString &line : text.split(u'\n')) {
        result += u".PP\n"_s + escaped(line) + u'\n';
    }
    return result;
}

QString tagged(const QString &tag, const QString &text)
{
    return u".TP\n.B "_s + quoted(tag) + u'\n' + escaped(text) + u'\n';
}

QString optionTag(const Option &option)
{
    QStringList names;
    for (const QString &name : option.names) {
        names << (name.size() == 1 ? u"-"_s : u"--"_s) + name;
    }
    return names.join(u", "_s) + (option.valueName.isEmpty() ? QString() : u' ' + option.valueName);
}

/// The description; what a list can have is told unless that is a long list of its own (the checks).
QString optionText(const Option &option)
{
    constexpr qsizetype maxShown = 30;
    const bool isShown = option.value == OptionValue::List && option.choices.size() <= maxShown;
    return isShown ? option.description + u" ("_s + option.choices.join(u", "_s) + u')' : option.description;
}

QString optionsText(const OptionList &options)
{
    QString text;
    for (const Option &option : options) {
        text += tagged(optionTag(option), optionText(option));
    }
    return text;
}

QString commandText(const Command &command)
{
    OptionList options;
    command.addOptions(options);
    QString text = u".SS "_s + quoted(commandUsage(command)) + u'\n' + escaped(toolText(command.summary)) + u'\n';
    if (!command.usage.isEmpty()) {
        text += tagged(command.usage, toolText(command.arguments));
    }
    return text + optionsText(options);
}

QString commandsText()
{
    QString text = heading(ToolText::ManualCommands);
    for (const Command &command : toolCommands()) {
        text += commandText(command);
    }
    return text;
}

/// A list of "tag TAB text", a line each
QString listText(ToolText caption, ToolText list)
{
    QString text = heading(caption);
    for (const QString &line : toolText(list).split(u'\n')) {
        text += tagged(line.section(u'\t', 0, 0), line.section(u'\t', 1));
    }
    return text;
}

} // namespace

QString manualPage()
{
    const QString version = u"Tabrix "_s + QCoreApplication::applicationVersion();
    return u".TH TABRIX\\-TOOL 1 \"\" "_s + quoted(version) + u" \"Tabrix\"\n.ad l\n"_s + heading(ToolText::ManualName)
        + u"tabrix\\-tool \\- "_s + escaped(toolText(ToolText::ManualPurpose)) + u'\n'
        + heading(ToolText::ManualSynopsis) + u".B tabrix\\-tool\n"_s + escaped(u"COMMAND [OPTION...] FILE..."_s)
        + u'\n' + heading(ToolText::ManualDescription) + paragraphs(toolText(ToolText::ManualDescriptionText))
        + heading(ToolText::ManualOptions) + optionsText(commonOptions()) + commandsText()
        + listText(ToolText::ManualExitStatus, ToolText::ManualExitStatusList)
        + listText(ToolText::ManualEnvironment, ToolText::ManualEnvironmentList)
        + listText(ToolText::ManualFiles, ToolText::ManualFilesList)
        + listText(ToolText::ManualExamples, ToolText::ManualExampleList) + heading(ToolText::ManualSeeAlso)
        + escaped(toolText(ToolText::ManualSeeAlsoList)) + u'\n';
}
