#include "check/FileRows.h"

#include "check/ConditionCheck.h"
#include "check/NumberKey.h"
#include "document/FieldReader.h"
#include "document/ParameterColumns.h"
#include "document/RecordReader.h"
#include "runtime/AnsiText.h"
#include "runtime/Digits.h"
#include "runtime/NumberText.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr int numberField = fieldOf(ParameterColumn::Number);
constexpr int helpField = fieldOf(ParameterColumn::HelpId);
constexpr int nameField = fieldOf(ParameterColumn::Name);
constexpr int codeField = fieldOf(ParameterColumn::FuncCode);
constexpr int rangeCheckField = fieldOf(ParameterColumn::RangeCheck);
constexpr std::array stepFields = {
    fieldOf(ParameterColumn::Min1), fieldOf(ParameterColumn::Min2), fieldOf(ParameterColumn::Min3)};

/// The decimals of the smallest of the row's steps, which are powers of ten.
int stepDecimals(const PlainRow &row)
{
    constexpr int point = 2; // "0." before them; a step that has none is "1", or "-1" for no step
    int most = 0;
    for (const int field : stepFields) {
        most = std::max(most, int(row.text(field).size()) - point);
    }
    return most;
}

/// Whether one of the conditions says the opposite of another, or seems to. Of very many that is not found out here.
bool hasOpposites(const std::vector<PlainRow::Condition> &conditions)
{
    constexpr std::size_t mostCompared = 16;
    if (conditions.size() > mostCompared) {
        return true;
    }
    for (auto one = conditions.begin(); one != conditions.end(); ++one) {
        const bool isThere = std::any_of(conditions.begin(), one, [one](const PlainRow::Condition &other) {
            return one->kind != other.kind && one->value1 == other.value1 && one->subject == other.subject;
        });
        if (isThere) {
            return true;
        }
    }
    return false;
}

} // namespace

FileRows::FileRows(const ContentBasis &basis)
    : m_basis(basis)
    , m_page(AnsiCodePage::page(basis.codePage))
    , m_knownBits(quint16(codeOfGroups(groupsOfCode(-1, basis.labels), basis.labels)))
{
}

bool FileRows::read(QByteArrayView rows)
{
    constexpr qsizetype typicalRow = 80;
    m_rows.reserve(std::size_t(rows.size() / typicalRow));
    PlainRowReader reader(rows, m_page);
    while (!reader.atEnd()) {
        if (reader.next()) {
            add(reader.row());
            continue;
        }
        Decoded row{.row = rowCount(), .bytes = {}, .record = {}};
        if (!reader.decodeNext(row.record)) {
            return false;
        }
        row.bytes = reader.bytes();
        add(row);
        m_decoded.push_back(std::move(row));
    }
    return true;
}

void FileRows::add(const Decoded &row)
{
    const QList<SettingInterval> intervals = settingIntervals(row.record.ranges);
    m_intervals.insert(m_intervals.end(), intervals.begin(), intervals.end());
    m_numbers.enter(numberKey(row.record.number), row.row);
    m_helpIds.enter(row.record.helpId, row.row);
    m_rows.push_back({.bytes = row.bytes,
        .name = {},
        .number = smallNumber(row.record.number),
        .helpId = -1,
        .intervalsEnd = m_intervals.size(),
        .decoded = int(m_decoded.size()),
        .isOdd = true});
}

void FileRows::add(const PlainRow &row)
{
    const int at = rowCount();
    const QByteArrayView helpId = row.text(helpField);
    Row &added = m_rows.emplace_back(Row{.bytes = row.bytes,
        .name = row.text(nameField),
        .number = smallNumber(row.text(numberField)),
        .helpId = helpId.isEmpty() ? 0 : smallNumber(helpId),
        .intervalsEnd = 0,
        .decoded = -1,
        .isOdd = false});
    if (added.number >= 0) {
        m_numbers.enter(added.number, at);
    } else {
        m_numbers.enter(numberKey(m_page.decode(row.text(numberField))), at);
    }
    if (added.helpId >= 0) {
        m_helpIds.enter(added.helpId, at);
    } else {
        m_helpIds.enter(m_page.decode(helpId), at);
    }
    const bool areIntervalsOdd = addIntervals(row);
    const bool areConditionsOdd = addConditions(row);
    added.intervalsEnd = m_intervals.size();
    added.isOdd = added.number < 0 || added.helpId < 0 || added.name.size() > printedNameWidth || areIntervalsOdd
        || areConditionsOdd || (row.ranges.empty() && row.text(rangeCheckField) == "1") || isOddCode(row)
        || isOddSetting(row, intervalsOf(at));
}

/// True if they have something in common.
bool FileRows::addIntervals(const PlainRow &row)
{
    const auto first = std::ptrdiff_t(m_intervals.size());
    std::ranges::transform(row.ranges, std::back_inserter(m_intervals), settingInterval);
    if (row.ranges.size() < 2) {
        return false;
    }
    const std::span own(m_intervals.begin() + first, m_intervals.end());
    std::ranges::stable_sort(own, {}, &SettingInterval::lowest);
    return std::ranges::adjacent_find(own, [](const SettingInterval &one, const SettingInterval &next) {
        return next.lowest <= one.highest;
    }) != own.end();
}

/// True if something may be wrong with one of them.
bool FileRows::addConditions(const PlainRow &row)
{
    bool isOdd = row.conditions.size() > 1 && hasOpposites(row.conditions);
    for (const PlainRow::Condition &condition : row.conditions) {
        isOdd = addCondition(condition) || isOdd;
    }
    return isOdd;
}

bool FileRows::addCondition(const PlainRow::Condition &condition)
{
    if (condition.subject == "OP") {
        return false; // a plug-in option may have any name
    }
    const double first = leadingNumber(condition.value1);
    if (condition.subject == "MODE") {
        return first > lastOperationMode;
    }
    const bool hasRange = (condition.kind & PrCondition::HasRange) != 0;
    const double second = hasRange ? leadingNumber(condition.value2) : first;
    const int subject = smallNumber(condition.subject);
    m_conditions.push_back({.row = rowCount() - 1,
        .subject = subject,
        .named = {std::min(first, second), std::max(first, second)},
        .hasRange = hasRange});
    return subject < 0;
}

/// Steps are powers of ten: a setting with more decimals than the smallest of them is between two.
bool FileRows::isOddSetting(const PlainRow &row, std::span<const SettingInterval> permitted) const
{
    return !permitted.empty()
        && (row.settingDecimals > stepDecimals(row) || !containsValue(permitted, double(float(row.setting))));
}

bool FileRows::isOddCode(const PlainRow &row) const
{
    const QByteArrayView text = row.text(codeField);
    int code = 0;
    std::from_chars(text.begin(), text.end(), code);
    return (quint16(code) & ~m_knownBits) != 0;
}

Findings FileRows::checkContent()
{
    for (const Condition &condition : m_conditions) {
        Row &row = m_rows[std::size_t(condition.row)];
        row.isOdd = row.isOdd || isOdd(condition);
    }
    Findings findings;
    for (int row = 0; row < rowCount(); ++row) {
        if (m_rows[std::size_t(row)].isOdd || isOddAmongOthers(row)) {
            findings += ::checkContent(recordOf(row), row, *this, m_basis);
        }
    }
    return findings;
}

bool FileRows::isOdd(const Condition &condition) const
{
    const int row = condition.subject < 0 ? -1 : m_numbers.rowOf(condition.subject);
    if (row < 0 || condition.subject == m_rows[std::size_t(condition.row)].number) {
        return true;
    }
    const std::span<const SettingInterval> permitted = intervalsOf(row);
    const bool isWithin = containsValue(permitted, condition.named.lowest)
        && containsValue(permitted, condition.named.highest)
        && !(condition.hasRange && isCoveredBy(permitted, condition.named));
    return !permitted.empty() && !isWithin;
}

/// Whether its number or help ID may be wrong in the light of the other rows.
bool FileRows::isOddAmongOthers(int row) const
{
    const Row &own = m_rows[std::size_t(row)];
    if (m_numbers.rowOf(own.number) != row) {
        return true;
    }
    const int previous = row > 0 ? m_rows[std::size_t(row - 1)].number : 0;
    return previous < 0 || own.number < previous || (own.helpId != 0 && sharesHelp(own));
}

/// Whether it has the help ID of a row that has another name, or may have.
bool FileRows::sharesHelp(const Row &row) const
{
    const Row &first = m_rows[std::size_t(m_helpIds.rowOf(row.helpId))];
    return first.helpId != row.helpId || first.name != row.name;
}

std::span<const SettingInterval> FileRows::intervalsOf(int row) const
{
    const std::size_t begin = row == 0 ? 0 : m_rows[std::size_t(row - 1)].intervalsEnd;
    return std::span(m_intervals).subspan(begin, m_rows[std::size_t(row)].intervalsEnd - begin);
}

PrRecord FileRows::recordOf(int row) const
{
    if (const int decoded = m_rows[std::size_t(row)].decoded; decoded >= 0) {
        return m_decoded[std::size_t(decoded)].record;
    }
    FieldReader in(m_rows[std::size_t(row)].bytes, m_page, FieldReader::Storage::Separate);
    PrRecord record;
    readRecord(in, record);
    return record;
}

int FileRows::rowOf(const QString &number) const
{
    return m_numbers.rowOf(numberKey(number));
}

QString FileRows::number(int row) const
{
    const int known = m_rows[std::size_t(row)].number;
    return known >= 0 ? QString::number(known) : recordOf(row).number;
}

QString FileRows::name(int row) const
{
    const QByteArrayView name = m_rows[std::size_t(row)].name;
    return name.isNull() ? recordOf(row).name : m_page.decode(name);
}

QList<SettingInterval> FileRows::intervals(int row) const
{
    const std::span<const SettingInterval> own = intervalsOf(row);
    return {own.begin(), own.end()};
}
