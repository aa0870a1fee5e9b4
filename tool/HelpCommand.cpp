#include "tool/HelpCommand.h"

#include "tool/Completion.h"
#include "tool/Help.h"
#include "tool/Manual.h"

using namespace Qt::StringLiterals;

namespace {

int runHelp(const QCommandLineParser &parser, Session &session)
{
    const QString name = parser.positionalArguments().value(0);
    const Command *command = commandNamed(name);
    if (!name.isEmpty() && command == nullptr) {
        session.say(ToolText::NoSuchCommand, {name});
        return Failed;
    }
    const QString format = parser.value(u"format"_s);
    if (format == "text"_L1) {
        return deliver(parser, session, (command == nullptr ? programHelp() : commandHelp(*command)).toUtf8());
    }
    return deliver(parser, session, (format == "man"_L1 ? manualPage() : bashCompletion()).toUtf8());
}

void addHelpOptions(OptionList &options)
{
    addChoice(
        options, u"format"_s, ToolText::HelpFormatOption, u"FORMAT"_s, {u"text"_s, u"man"_s, u"bash"_s}, u"text"_s);
    addOutputOption(options);
}

} // namespace

const Command helpCommand{
    "help"_L1, ToolText::HelpSummary, ToolText::HelpArguments, "[COMMAND]"_L1, 0, 1, addHelpOptions, runHelp};
