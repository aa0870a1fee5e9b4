#include "tool/Command.h"

#include "runtime/FileName.h"
#include "tool/Files.h"

using namespace Qt::StringLiterals;

OptionList commonOptions()
{
    OptionList options;
    options.append({.names = {u"h"_s, u"help"_s}, .description = toolText(ToolText::OptionHelp)});
    addChoice(
        options, u"code-page"_s, ToolText::OptionCodePage, u"PAGE"_s, {u"auto"_s, u"932"_s, u"1252"_s}, u"auto"_s);
    addChoice(options, u"language"_s, ToolText::OptionLanguage, u"LANGUAGE"_s, {u"en"_s, u"ja"_s});
    addChoice(options, u"color"_s, ToolText::OptionColor, u"WHEN"_s, {u"auto"_s, u"always"_s, u"never"_s}, u"auto"_s);
    addSwitch(options, u"quiet"_s, ToolText::OptionQuiet);
    return options;
}

OptionList optionsOf(const Command &command)
{
    OptionList options = commonOptions();
    command.addOptions(options);
    return options;
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
