#pragma once

#include "tool/ToolTexts.h"

#include <QCommandLineParser>

#include <optional>

/// What an option takes.
enum class OptionValue {
    None,
    Text,
    File,
    Choice, ///< one of its choices
    List, ///< some of its choices, separated by commas
};

/// An option of a command. The parser, the help, the manual and the completion are made of these.
struct Option
{
    QStringList names; ///< without their dashes; those of one letter first
    QString description;
    QString valueName = {}; ///< as the help calls the value; empty for none
    QString defaultValue = {};
    QStringList choices = {};
    OptionValue value = OptionValue::None;
};

using OptionList = QList<Option>;

/// Adds an option that is given or not.
void addSwitch(OptionList &options, const QString &name, ToolText text);
/// Adds an option that takes a text.
void addValueOption(OptionList &options, const QString &name, ToolText text, const QString &valueName);
/// Adds an option that takes one of choices; defaultValue is empty for none.
void addChoice(OptionList &options, const QString &name, ToolText text, const QString &valueName,
    const QStringList &choices, const QString &defaultValue = {});
/// Adds an option that takes some of choices, separated by commas.
void addList(
    OptionList &options, const QString &name, ToolText text, const QString &valueName, const QStringList &choices);
/// Adds the option --output, which deliver() goes by.
void addOutputOption(OptionList &options);

/// The options as Qt's parser takes them.
QList<QCommandLineOption> parserOptions(const OptionList &options);

/// Says which option has a value that is none of its choices, and what they are; std::nullopt if none has.
std::optional<QString> wrongValue(const QCommandLineParser &parser, const OptionList &options);

/// The pieces of the value of an option that takes a list.
QStringList listIn(const QCommandLineParser &parser, const QString &name);
