#include "tool/Options.h"

#include <algorithm>

using namespace Qt::StringLiterals;

void addSwitch(OptionList &options, const QString &name, ToolText text)
{
    options.append({.names = {name}, .description = toolText(text)});
}

void addValueOption(OptionList &options, const QString &name, ToolText text, const QString &valueName)
{
    options.append(
        {.names = {name}, .description = toolText(text), .valueName = valueName, .value = OptionValue::Text});
}

void addChoice(OptionList &options, const QString &name, ToolText text, const QString &valueName,
    const QStringList &choices, const QString &defaultValue)
{
    options.append({.names = {name},
        .description = toolText(text),
        .valueName = valueName,
        .defaultValue = defaultValue,
        .choices = choices,
        .value = OptionValue::Choice});
}

void addList(
    OptionList &options, const QString &name, ToolText text, const QString &valueName, const QStringList &choices)
{
    options.append({.names = {name},
        .description = toolText(text),
        .valueName = valueName,
        .choices = choices,
        .value = OptionValue::List});
}

void addOutputOption(OptionList &options)
{
    options.append({.names = {u"o"_s, u"output"_s},
        .description = toolText(ToolText::OptionOutput),
        .valueName = u"FILE"_s,
        .value = OptionValue::File});
}

QList<QCommandLineOption> parserOptions(const OptionList &options)
{
    QList<QCommandLineOption> result;
    for (const Option &option : options) {
        result.append(QCommandLineOption(option.names, option.description, option.valueName, option.defaultValue));
    }
    return result;
}

std::optional<QString> wrongValue(const QCommandLineParser &parser, const OptionList &options)
{
    for (const Option &option : options) {
        const QString &name = option.names.last();
        if (option.choices.isEmpty() || !parser.isSet(name)) {
            continue;
        }
        const QStringList given =
            option.value == OptionValue::List ? listIn(parser, name) : QStringList(parser.value(name));
        const auto unknown =
            std::ranges::find_if_not(given, [&option](const QString &one) { return option.choices.contains(one); });
        if (unknown != given.end()) {
            return toolText(ToolText::BadValue, {u"--"_s + name, *unknown, option.choices.join(u", "_s)});
        }
    }
    return std::nullopt;
}

QStringList listIn(const QCommandLineParser &parser, const QString &name)
{
    return parser.value(name).split(u',', Qt::SkipEmptyParts);
}
