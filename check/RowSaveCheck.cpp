#include "check/RowSaveCheck.h"

#include "check/SavedForm.h"
#include "check/SettingIntervals.h"
#include "document/FieldReader.h"
#include "document/FieldText.h"
#include "document/ParameterColumns.h"
#include "document/PlainRow.h"
#include "document/PrCondText.h"
#include "document/PrFileCodec.h"
#include "document/RecordReader.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"

#include <QSet>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using Cell = std::pair<int, int>; ///< row and column

/// The bytes of one row's fields, as they are in the file, without separators.
struct RawRow
{
    QByteArrayView conditionCount;
    std::array<QByteArrayView, fileTexts.size()> texts;
    QByteArrayView rangeCount;
    QByteArray ranges; ///< the bounds, joined with commas
    QByteArray conditions; ///< likewise

    bool operator==(const RawRow &) const = default;
};

QByteArrayView trimmed(QByteArrayView bytes)
{
    const auto isSpace = [](char byte) { return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n'; };
    while (!bytes.isEmpty() && isSpace(bytes.back())) {
        bytes.chop(1);
    }
    while (!bytes.isEmpty() && isSpace(bytes.front())) {
        bytes = bytes.sliced(1);
    }
    return bytes;
}

/// Takes a file's rows apart, by the reader that reads them.
class RawRows
{
public:
    RawRows(QByteArrayView rows, const AnsiCodePage &page) : m_in(rows, page, FieldReader::Storage::Separate)
    {
        m_in.setTrace(&m_fields);
    }

    /// The next row, which is there.
    RawRow next();

private:
    /// Empty if the row has ended before: what was written of a text with a comma is read as other fields.
    QByteArrayView field(qsizetype index) const
    {
        return index < m_fields.size() ? trimmed(m_fields[index].bytes) : QByteArrayView();
    }
    QByteArray joined(qsizetype begin, qsizetype end) const;

    FieldReader m_in;
    QList<FileField> m_fields; ///< of the row read last
};

RawRow RawRows::next()
{
    constexpr qsizetype rangeCountAt = fileTexts.size() + 1;
    constexpr qsizetype rangesAt = rangeCountAt + 1;
    m_fields.clear();
    PrRecord record;
    readRecord(m_in, record);
    const qsizetype conditionsAt = rangesAt + 2 * record.ranges.size();
    RawRow row{.conditionCount = field(0),
        .texts = {},
        .rangeCount = field(rangeCountAt),
        .ranges = joined(rangesAt, conditionsAt),
        .conditions = joined(conditionsAt, m_fields.size())};
    for (std::size_t i = 0; i < row.texts.size(); ++i) {
        row.texts[i] = field(qsizetype(i) + 1);
    }
    return row;
}

QByteArray RawRows::joined(qsizetype begin, qsizetype end) const
{
    QByteArrayList parts;
    for (qsizetype i = begin; i < end; ++i) {
        parts << field(i).toByteArray();
    }
    return parts.join(',');
}

bool isSameNumber(const QString &left, const QString &right)
{
    const auto value = numericValue(left);
    return value && value == numericValue(right);
}

/// Whether the field means the same as what is saved for it.
bool isSameValue(const ColumnInfo &column, const QString &read, const QString &saved)
{
    if (column.column == ParameterColumn::FuncCode) {
        constexpr int bits = 0x10000;
        const auto value = numericValue(read);
        const auto savedValue = numericValue(saved);
        return value && savedValue && (*value == *savedValue || *value - bits == *savedValue);
    }
    return read == saved || (!column.isAsTyped && isSameNumber(read, saved));
}

/// Whether both say the same ranges: what is above no bound may be written in several ways.
bool isSameRanges(const PrRecord &read, const PrRecord &saved)
{
    return read.ranges.size() == saved.ranges.size() && settingIntervals(read.ranges) == settingIntervals(saved.ranges);
}

/// Whether the lists differ in the last digits of bounds alone.
bool isRounded(const QList<SettingRange> &read, const QList<SettingRange> &saved)
{
    const auto isNear = [](float left, float right) {
        constexpr double tolerance = 1e-5;
        return std::abs(double(left) - double(right)) <= tolerance * std::abs(double(left));
    };
    return std::ranges::equal(read, saved, [isNear](const SettingRange &left, const SettingRange &right) {
        return isNear(left.lower, right.lower) && isNear(left.upper, right.upper);
    });
}

/// Whether a bound has digits that a single does not hold: what is written is another number.
bool losesDigits(const QByteArray &read, const QByteArray &saved)
{
    const QList<QByteArray> before = read.split(',');
    const QList<QByteArray> after = saved.split(',');
    return before.size() == after.size()
        && !std::equal(
            before.begin(), before.end(), after.begin(), [](const QByteArray &left, const QByteArray &right) {
                return leadingNumber(QByteArrayView(left)) == leadingNumber(QByteArrayView(right));
            });
}

QList<PrCondition> inTextOrder(QList<PrCondition> conditions)
{
    for (PrCondition &condition : conditions) {
        if ((condition.kind & PrCondition::HasRange) != 0 && condition.value2 < condition.value1) {
            condition.value1.swap(condition.value2);
        }
    }
    return conditions;
}

/// Compares the rows of a file with what a save would write.
class RowSaveCheck
{
public:
    RowSaveCheck(const AnsiCodePage &page, const Findings &known);

    /// row: from 1.
    void check(int row, const PrRecord &read, const PrRecord &saved, const RawRow &raw, const RawRow &written);
    Findings findings;

private:
    void checkTexts(const PrRecord &read, const PrRecord &saved, const RawRow &raw, const RawRow &written);
    void checkRanges(const PrRecord &read, const PrRecord &saved, const RawRow &raw, const RawRow &written);
    void checkConditions(const PrRecord &read, const PrRecord &saved, const RawRow &raw, const RawRow &written);
    void checkSpelling(int column, QByteArrayView raw, QByteArrayView written);
    void add(CheckId id, int column, const QString &before, const QString &after);
    bool hasError(int column) const { return m_errors.contains({m_row, column}); }

    const AnsiCodePage &m_page;
    QSet<Cell> m_errors;
    int m_row = 0;
    QString m_number;
};

RowSaveCheck::RowSaveCheck(const AnsiCodePage &page, const Findings &known) : m_page(page)
{
    for (const Finding &finding : known) {
        if (checkInfo(finding.id).severity == Severity::Error) {
            m_errors.insert({finding.place.row, finding.place.column});
        }
    }
}

void RowSaveCheck::check(int row, const PrRecord &read, const PrRecord &saved, const RawRow &raw, const RawRow &written)
{
    m_row = row;
    if (raw == written) {
        return;
    }
    m_number = read.number;
    checkTexts(read, saved, raw, written);
    checkRanges(read, saved, raw, written);
    checkConditions(read, saved, raw, written);
}

void RowSaveCheck::checkTexts(const PrRecord &read, const PrRecord &saved, const RawRow &raw, const RawRow &written)
{
    for (const ColumnInfo &column : parameterColumns) {
        if (column.field == nullptr || hasError(column.column)) {
            continue;
        }
        const QString &before = read.*column.field;
        const QString &after = saved.*column.field;
        if (!isSameValue(column, before, after)) {
            add(CheckId::ValueChanged, column.column, before, after);
        } else {
            checkSpelling(column.column, raw.texts.at(column.fileField - 1), written.texts.at(column.fileField - 1));
        }
    }
}

void RowSaveCheck::checkRanges(const PrRecord &read, const PrRecord &saved, const RawRow &raw, const RawRow &written)
{
    constexpr int column = ParameterColumn::SettingRange;
    if (hasError(column)) {
        return;
    }
    const bool isSame = isSameRanges(read, saved);
    if (isSame ? losesDigits(raw.ranges, written.ranges) && isRounded(read.ranges, saved.ranges)
               : isRounded(read.ranges, saved.ranges)) {
        findings.append(
            {CheckId::BoundDigits, {.row = m_row, .column = column}, m_number, {m_page.decode(raw.ranges)}});
    } else if (!isSame) {
        add(CheckId::RangeChanged, column, m_page.decode(raw.ranges), m_page.decode(written.ranges));
    } else {
        checkSpelling(column, raw.ranges, written.ranges);
        checkSpelling(column, raw.rangeCount, written.rangeCount);
    }
}

void RowSaveCheck::checkConditions(
    const PrRecord &read, const PrRecord &saved, const RawRow &raw, const RawRow &written)
{
    constexpr int column = ParameterColumn::Condition;
    if (hasError(column)) {
        return;
    }
    if (inTextOrder(read.conditions) != inTextOrder(saved.conditions)) {
        add(CheckId::ConditionsChanged, column, conditionText(read), conditionText(saved));
    } else {
        checkSpelling(column, raw.conditions, written.conditions);
        checkSpelling(ParameterColumn::ConditionCount, raw.conditionCount, written.conditionCount);
    }
}

void RowSaveCheck::checkSpelling(int column, QByteArrayView raw, QByteArrayView written)
{
    if (raw != written) {
        add(CheckId::SpelledOtherwise, column, m_page.decode(raw), m_page.decode(written));
    }
}

void RowSaveCheck::add(CheckId id, int column, const QString &before, const QString &after)
{
    findings.append({id, {.row = m_row, .column = column}, m_number, {before, after}});
}

QByteArray bytesOf(const PrRecord &record, const AnsiCodePage &page)
{
    return encodeRow(record, page).value_or(QByteArray());
}

} // namespace

Findings checkSavedRows(
    const RowsOfFile &original, const RowsOfFile &saved, const AnsiCodePage &page, const Findings &known)
{
    RawRows raw(rowsOfFile(original.bytes), page);
    RawRows written(rowsOfFile(saved.bytes), page);
    RowSaveCheck check(page, known);
    for (qsizetype i = 0; i < original.rows.size() && i < saved.rows.size(); ++i) {
        const RawRow row = raw.next();
        check.check(int(i + 1), original.rows[i], saved.rows[i], row, written.next());
    }
    return std::move(check.findings);
}

Findings checkSavedRows(const std::vector<SavedRow> &rows, const AnsiCodePage &page, const Findings &known)
{
    RowSaveCheck check(page, known);
    for (const SavedRow &row : rows) {
        check.check(row.row, row.read, row.saved, RawRows(row.bytes, page).next(), RawRows(row.written, page).next());
    }
    return std::move(check.findings);
}

Findings checkRowSavedAgain(const PrRecord &record, int row, const AnsiCodePage &page, const Findings &known)
{
    const auto saved = savedForm(record);
    if (!saved || *saved == record) {
        return {};
    }
    const QByteArray bytes = bytesOf(record, page);
    const QByteArray bytesSaved = bytesOf(*saved, page);
    RowSaveCheck check(page, known);
    check.check(row, record, *saved, RawRows(bytes, page).next(), RawRows(bytesSaved, page).next());
    return std::move(check.findings);
}
