#include "tool/DocumentXlsx.h"

#include "app/services/FindingTexts.h"
#include "app/services/Language.h"
#include "document/ParameterColumn.h"
#include "document/RecordTexts.h"
#include "runtime/StandardStreams.h"
#include "tool/SheetFields.h"
#include "tool/TextWidth.h"
#include "tool/ToolTexts.h"
#include "tool/Wording.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibrary>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype maxDigits = 11; // of a number that spreadsheets show in full

/// Whether a spreadsheet, which drops zeros that say nothing, shows the number by the same text.
bool isShownAsNumber(const QString &text)
{
    static const QRegularExpression number(u"^(?!-0$)-?(0|[1-9][0-9]*)(\\.[0-9]*[1-9])?$"_s);
    return text.size() <= maxDigits && number.match(text).hasMatch();
}

bool isNumberColumn(int column)
{
    const auto fields = sheetPart(SheetPart::Parameters).fields;
    const auto field = std::ranges::find(fields, column, &SheetField::column);
    return column == ParameterColumn::Number || column == ParameterColumn::ConditionCount
        || (field != fields.end() && field->kind == FieldKind::Number);
}

WorkbookCell numberCell(const QString &text)
{
    return {text, isShownAsNumber(text)};
}

QString titleOf(Text text)
{
    QString title = ResString(text);
    title.chop(title.endsWith(u':') ? 1 : 0);
    return title;
}

WorkbookRow heading(const QStringList &titles)
{
    WorkbookRow row{{}, true};
    std::ranges::transform(
        titles, std::back_inserter(row.cells), [](const QString &title) { return WorkbookCell{title}; });
    return row;
}

WorkbookRow rowOf(const PrRecord &record)
{
    const RecordTexts texts(record);
    WorkbookRow row;
    for (int column = 1; column <= ParameterColumn::Count; ++column) {
        const QString text = texts.cells().at(std::size_t(column - 1)).toString();
        row.cells << WorkbookCell{text, isNumberColumn(column) && isShownAsNumber(text)};
    }
    return row;
}

/// As wide as the widest text, but not so wide that one long text pushes all others out of view.
void fitWidths(WorkbookSheet &sheet)
{
    constexpr int least = 6;
    constexpr int most = 60;
    constexpr int filterButton = 3;
    for (const WorkbookRow &row : sheet.rows) {
        sheet.widths.resize(std::max(sheet.widths.size(), row.cells.size()), least);
        for (qsizetype i = 0; i < row.cells.size(); ++i) {
            const int width = textWidth(row.cells[i].text) + (row.isHeading ? filterButton : 1);
            sheet.widths[i] = std::clamp(width, sheet.widths[i], most);
        }
    }
}

WorkbookSheet parameterSheet(const Document &document)
{
    WorkbookSheet sheet{toolText(ToolText::XlsxParameters), {}, {}, true};
    QStringList titles;
    for (int column = 1; column <= ParameterColumn::Count; ++column) {
        titles << columnCaption(column);
    }
    sheet.rows << heading(titles);
    std::ranges::transform(document.rows, std::back_inserter(sheet.rows), rowOf);
    fitWidths(sheet);
    return sheet;
}

WorkbookSheet machineSheet(const Document &document)
{
    const MachineInfo &machine = document.machine;
    WorkbookSheet sheet{toolText(ToolText::PartMachine), {}, {}, false};
    const std::pair<QString, QString> values[] = {{titleOf(Text::PageType), machine.Name},
        {titleOf(Text::PageTypeCode), machine.TypeCode}, {titleOf(Text::PageVoltageCode), machine.VCapacity},
        {titleOf(Text::PageMachineCode), machine.Code},
        {toolText(ToolText::XlsxSoftwareVersion), machine.SoftWareVersion},
        {toolText(ToolText::XlsxCodePage), QString::number(document.codePage)}};
    for (const auto &[title, value] : values) {
        sheet.rows << WorkbookRow{{WorkbookCell{title}, WorkbookCell{value}}};
    }
    sheet.rows << WorkbookRow{} << heading({titleOf(Text::CapacityHeading), titleOf(Text::CurrentHeading)});
    for (qsizetype i = 0; i < machine.Capacity.size(); ++i) {
        sheet.rows << WorkbookRow{{numberCell(machine.Capacity[i]), numberCell(machine.ICapacity.value(i))}};
    }
    sheet.rows << WorkbookRow{} << heading({titleOf(Text::PageOptions)});
    for (const QString &option : machine.Option) {
        sheet.rows << WorkbookRow{{WorkbookCell{option}}};
    }
    fitWidths(sheet);
    return sheet;
}

/// The time that the build that calls this works at; else the first that an archive can name.
qint64 creationTime()
{
    constexpr qint64 firstOfArchives = 315532800; // 1980-01-01
    bool isNumber = false;
    const qint64 given = qEnvironmentVariable("SOURCE_DATE_EPOCH").toLongLong(&isNumber);
    return isNumber && given > 0 ? given : firstOfArchives;
}

} // namespace

Workbook workbookOf(const Document &document)
{
    return {{parameterSheet(document), machineSheet(document)}, creationTime()};
}

XlsxBytes documentAsXlsx(const Document &document)
{
    QLibrary library(QCoreApplication::applicationDirPath() + u"/tabrix-xlsx"_s);
    auto *write = reinterpret_cast<WriteWorkbook *>(library.resolve("writeWorkbook"));
    if (!write) {
        return {{}, library.errorString()};
    }
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        return {{}, folder.errorString()};
    }
    QFile file(folder.filePath(u"workbook.xlsx"_s));
    QString failure;
    {
        // The library reports its failures there too, and names files that users know nothing of.
        const QuietErrors quiet;
        write(workbookOf(document), QFile::encodeName(file.fileName()), QFile::encodeName(folder.path()), failure);
    }
    if (!failure.isEmpty()) {
        return {{}, failure};
    }
    if (!file.open(QFile::ReadOnly)) {
        return {{}, file.errorString()};
    }
    return {file.readAll(), {}};
}
