#include "tool/ShowCommand.h"

#include "app/services/FindingTexts.h"
#include "document/MachineInfoText.h"
#include "document/ParameterColumn.h"
#include "document/RecordTexts.h"
#include "runtime/FileName.h"
#include "tool/FileWork.h"
#include "tool/Terminal.h"
#include "tool/TextWidth.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Table = QList<QStringList>;

/// The cells side by side in columns as wide as their widest text.
QStringList aligned(const Table &table)
{
    constexpr auto gap = "  "_L1;
    QList<int> widths;
    for (const QStringList &row : table) {
        widths.resize(std::max(widths.size(), row.size()));
        for (qsizetype i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], textWidth(row[i]));
        }
    }
    QStringList lines;
    for (const QStringList &row : table) {
        QString line;
        for (qsizetype i = 0; i < row.size(); ++i) {
            line += (i == 0 ? ""_L1 : gap) + paddedText(row[i], widths[i]);
        }
        while (line.endsWith(u' ')) {
            line.chop(1);
        }
        lines << line;
    }
    return lines;
}

QStringList rowOf(const PrRecord &record)
{
    const RecordTexts texts(record);
    QStringList row;
    for (const QStringView cell : texts.cells()) {
        row << printable(cell.toString());
    }
    return row;
}

Table machineTable(const MachineInfo &machine)
{
    Table table = {{u"Name"_s, printable(machine.Name)}, {u"TypeCode"_s, printable(machine.TypeCode)},
        {u"VCapacity"_s, printable(machine.VCapacity)}, {u"Code"_s, printable(machine.Code)},
        {u"Option"_s, printable(optionText(machine.Option))},
        {u"SoftWareVersion"_s, printable(machine.SoftWareVersion)}};
    for (qsizetype i = 0; i < machine.Capacity.size(); ++i) {
        table.append({u"Capacity"_s + QString::number(i),
            printable(machine.Capacity[i] + u" kW, "_s + machine.ICapacity.value(i) + u" A"_s)});
    }
    return table;
}

QByteArray shown(const InputFile &input, const Document &document, const Painter &paint)
{
    Table rows;
    QStringList captions;
    for (int column = 1; column <= ParameterColumn::Count; ++column) {
        captions << columnCaption(column);
    }
    rows.append(captions);
    std::ranges::transform(document.rows, std::back_inserter(rows), rowOf);
    QStringList table = aligned(rows);
    table.first() = paint(TextStyle::Bold, table.first());
    const QStringList lines = QStringList{paint(TextStyle::Bold, printable(shownFileName(input.name))), QString()}
        + aligned(machineTable(document.machine)) + QStringList(QString()) + table;
    return (lines.join(u'\n') + u'\n').toUtf8();
}

int runShow(const QCommandLineParser &parser, Session &session)
{
    const Painter paint = session.painter();
    const auto work = [&session, &paint](const InputFile &input) -> FileResult {
        const InputDocument decoded = decodeInput(input, session.codePage);
        if (decoded.failure) {
            return {{}, {toolText(ToolText::CannotRead, {shownFileName(input.name), *decoded.failure})}, Failed};
        }
        return {shown(input, decoded.document, paint)};
    };
    return workOnFiles(parser.positionalArguments(), work, session, "\n");
}

void addShowOptions(OptionList &)
{
}

} // namespace

const Command showCommand{
    "show"_L1, ToolText::ShowSummary, ToolText::ArgumentFiles, "FILE..."_L1, 1, manyFiles, addShowOptions, runShow};
