#include "tool/DocumentCsv.h"

#include "check/MachineKeys.h"
#include "check/SavedForm.h"
#include "document/ParameterColumns.h"
#include "document/RecordTexts.h"
#include "document/RowCollector.h"
#include "tool/Csv.h"
#include "tool/SheetFields.h"
#include "tool/ToolTexts.h"

#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto codePageKey = "CodePage"_L1;

QStringList columnNames()
{
    QStringList names;
    for (int column = 1; column <= ParameterColumn::Count; ++column) {
        names << fieldNameOfColumn(column);
    }
    return names;
}

QStringList cellsOf(const PrRecord &record)
{
    const RecordTexts texts(record);
    QStringList cells;
    for (const QStringView cell : texts.cells()) {
        cells << cell.toString();
    }
    return cells;
}

bool isEmptyLine(const CsvRecord &record)
{
    return record.fields.size() == 1 && record.fields.first().isEmpty();
}

/// The cells of a table's lines, as a grid.
class CsvGrid : public PrGrid
{
public:
    /// places: for each column, from 1 at index 0, its place in a line.
    CsvGrid(QList<CsvRecord> lines, const std::array<qsizetype, ParameterColumn::Count> &places)
        : m_lines(std::move(lines)), m_places(places)
    {
    }

    int rowCount() const override { return int(m_lines.size()); }
    QStringView cellText(int column, int row) const override { return m_lines[row - 1].fields[placeOf(column)]; }
    /// The place of a column, from 1, in a line, from 0.
    qsizetype placeOf(int column) const { return m_places.at(std::size_t(column - 1)); }

private:
    QList<CsvRecord> m_lines;
    std::array<qsizetype, ParameterColumn::Count> m_places;
};

/// The column, from 1, whose cell in that row holds a number that its field cannot.
int overflowingColumn(const PrGrid &grid, int row)
{
    CollectedRow collected;
    const auto overflows = [&](const ColumnInfo &column) {
        return !column.collect(column, grid.cellText(column.column, row), collected);
    };
    return std::ranges::find_if(parameterColumns, overflows)->column;
}

/// The place, from 0, of the first title that is not one of names or is there twice, or of the last if one is missing;
/// std::nullopt if all are there once.
std::optional<qsizetype> firstWrongColumn(const QStringList &header, const QStringList &names)
{
    for (qsizetype i = 0; i < header.size(); ++i) {
        if (!names.contains(header[i]) || header.indexOf(header[i]) < i) {
            return i;
        }
    }
    return header.size() == names.size() ? std::nullopt : std::optional(std::max<qsizetype>(header.size() - 1, 0));
}

/// Makes a document of the lines of a CSV file.
class DocumentReader
{
public:
    explicit DocumentReader(const QList<CsvRecord> &lines) : m_lines(lines) { }

    ReadDocument read();

private:
    void readRows(const QList<CsvRecord> &lines);
    void readMachine(const QList<CsvRecord> &lines);
    void readValue(const CsvRecord &line);
    void collect(const CsvGrid &grid, const QList<CsvRecord> &lines);
    void failByCount(const CsvRecord &line, qsizetype needed);
    void fail(ToolText what, const CsvPlace &place, const QStringList &more = {});

    const QList<CsvRecord> &m_lines;
    ReadDocument m_read;
};

ReadDocument DocumentReader::read()
{
    const auto gap = std::ranges::find_if(m_lines, isEmptyLine) - m_lines.begin();
    readRows(m_lines.first(gap));
    readMachine(m_lines.sliced(std::min(gap + 1, m_lines.size())));
    if (m_read.document.codePage == 0) {
        fail(ToolText::CsvNoCodePage, m_lines.isEmpty() ? CsvPlace() : m_lines.last().places.first());
    }
    m_read.document.machine.Paramater = qint16(m_read.document.rows.size());
    return std::move(m_read);
}

void DocumentReader::readRows(const QList<CsvRecord> &lines)
{
    const QStringList names = columnNames();
    const QStringList header = lines.isEmpty() ? QStringList() : lines.first().fields;
    if (const auto wrong = firstWrongColumn(header, names)) {
        fail(ToolText::CsvHeader, lines.isEmpty() ? CsvPlace() : lines.first().places[*wrong], {names.join(u',')});
        return;
    }
    std::array<qsizetype, ParameterColumn::Count> places{};
    std::ranges::transform(names, places.begin(), [&header](const QString &name) { return header.indexOf(name); });
    const QList<CsvRecord> rows = lines.sliced(1);
    if (rows.size() > std::numeric_limits<qint16>::max()) {
        fail(ToolText::CsvTooManyRows, rows.last().places.first());
        return;
    }
    const auto wrong =
        std::ranges::find_if(rows, [&names](const CsvRecord &row) { return row.fields.size() != names.size(); });
    if (wrong != rows.end()) {
        failByCount(*wrong, names.size());
        return;
    }
    collect(CsvGrid(rows, places), rows);
}

void DocumentReader::collect(const CsvGrid &grid, const QList<CsvRecord> &lines)
{
    m_read.document.rows.resize(lines.size());
    RowCollector collector(grid);
    for (int row = 0; row < grid.rowCount(); ++row) {
        if (!collector.collect(row + 1)) {
            fail(ToolText::CsvOverflow, lines[row].places[grid.placeOf(overflowingColumn(grid, row + 1))]);
            return;
        }
        takeFields(collector.fields(), m_read.document.rows[row]);
    }
}

void DocumentReader::readMachine(const QList<CsvRecord> &lines)
{
    for (const CsvRecord &line : lines) {
        constexpr qsizetype keyAndValue = 2;
        if (line.fields.size() == keyAndValue) {
            readValue(line);
        } else {
            failByCount(line, keyAndValue);
        }
    }
}

void DocumentReader::readValue(const CsvRecord &line)
{
    const QString &key = line.fields[0];
    const QString &value = line.fields[1];
    if (key == codePageKey && (value == "932"_L1 || value == "1252"_L1)) {
        m_read.document.codePage = value.toInt();
    } else if (!setMachineValue(m_read.document.machine, key, value)) {
        fail(ToolText::CsvUnknownKey, line.places.first(), {key});
    }
}

/// A line has too few or too many fields.
void DocumentReader::failByCount(const CsvRecord &line, qsizetype needed)
{
    const CsvPlace place = line.places[std::min(needed, line.places.size() - 1)];
    fail(ToolText::CsvFieldCount, place, {QString::number(line.fields.size()), QString::number(needed)});
}

void DocumentReader::fail(ToolText what, const CsvPlace &place, const QStringList &more)
{
    if (!m_read.failure) {
        m_read.failure = toolText(what, QStringList{QString::number(place.line), QString::number(place.column)} + more);
    }
}

} // namespace

QByteArray documentAsCsv(const Document &document)
{
    QList<QStringList> lines = {columnNames()};
    std::ranges::transform(document.rows, std::back_inserter(lines), cellsOf);
    lines << QStringList{QString()};
    for (const auto &[key, value] : machineValues(document.machine)) {
        lines << QStringList{key, value};
    }
    lines << QStringList{codePageKey, QString::number(document.codePage)};
    return csvOf(lines);
}

ReadDocument documentFromCsv(const QByteArray &bytes)
{
    const CsvInput input = readCsv(bytes);
    return input.failure ? ReadDocument{{}, input.failure} : DocumentReader(input.records).read();
}
