#include "tool/PrintCommand.h"

#include "document/ParameterColumn.h"
#include "runtime/FileName.h"
#include "runtime/SystemPath.h"
#include "tool/Files.h"
#include "tool/OtherProgram.h"
#include "tool/SheetFields.h"

using namespace Qt::StringLiterals;

namespace {

PrintRoutine printRoutine = nullptr;

QStringList columnNames()
{
    QStringList names;
    for (int column = 1; column <= ParameterColumn::Count; ++column) {
        names << fieldNameOfColumn(column);
    }
    return names;
}

PrintRequest requestOf(const QCommandLineParser &parser)
{
    const bool isPart = parser.isSet(u"machine"_s) != parser.isSet(u"parameters"_s);
    PrintRequest request;
    request.title = absoluteFileName(parser.positionalArguments().constFirst());
    request.columns = listIn(parser, u"columns"_s);
    request.paper = parser.value(u"paper"_s);
    request.printsMachine = !isPart || parser.isSet(u"machine"_s);
    request.printsParameters = !isPart || parser.isSet(u"parameters"_s);
    request.isLandscape = parser.isSet(u"landscape"_s);
    return request;
}

int printHere(const PrintRequest &request, const QCommandLineParser &parser, Session &session)
{
    const QString name = parser.positionalArguments().constFirst();
    const InputDocument input = decodeInput(readInput(name), session.codePage);
    if (input.failure) {
        session.say(ToolText::CannotRead, {shownFileName(name), *input.failure});
        return Failed;
    }
    const PdfBytes pdf = printRoutine(request, input.document);
    if (pdf.failure) {
        session.say(ToolText::CannotRead, {shownFileName(name), *pdf.failure});
        return Failed;
    }
    return deliver(parser, session, pdf.bytes);
}

int runPrint(const QCommandLineParser &parser, Session &session)
{
    return printRoutine ? printHere(requestOf(parser), parser, session) : runInstead(u"tabrix-print"_s, session);
}

void addPrintOptions(OptionList &options)
{
    addOutputOption(options);
    addSwitch(options, u"machine"_s, ToolText::PrintMachineOption);
    addSwitch(options, u"parameters"_s, ToolText::PrintParametersOption);
    addList(options, u"columns"_s, ToolText::PrintColumnsOption, u"COLUMNS"_s, columnNames());
    addChoice(options, u"paper"_s, ToolText::PrintPaperOption, u"PAPER"_s, paperNames());
    addSwitch(options, u"landscape"_s, ToolText::PrintLandscapeOption);
}

} // namespace

const Command printCommand{
    "print"_L1, ToolText::PrintSummary, ToolText::ArgumentFile, "FILE"_L1, 1, 1, addPrintOptions, runPrint};

const QStringList &paperNames()
{
    static const QStringList names = {
        u"A3"_s, u"A4"_s, u"A5"_s, u"JisB4"_s, u"JisB5"_s, u"Letter"_s, u"Legal"_s, u"Tabloid"_s};
    return names;
}

void setPrintRoutine(PrintRoutine routine)
{
    printRoutine = routine;
}
