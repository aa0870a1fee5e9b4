#include "document/ReadBackCheck.h"

#include "document/AnsiBuffer.h"
#include "document/FieldReader.h"
#include "document/ParameterColumns.h"
#include "document/RowCollector.h"
#include "runtime/AnsiText.h"
#include "runtime/PrivateProfile.h"
#include "runtime/Spaces.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// What is written as it was typed; the other fields are put together from numbers.
constexpr auto typedColumns = [] {
    constexpr auto count = std::ranges::count_if(parameterColumns, &ColumnInfo::isAsTyped);
    std::array<ColumnInfo, count> columns{};
    std::ranges::copy_if(parameterColumns, columns.begin(), &ColumnInfo::isAsTyped);
    return columns;
}();

constexpr QString PrCondition::*conditionTexts[] = {&PrCondition::subject, &PrCondition::value1, &PrCondition::value2};

bool isLineEnd(QChar character)
{
    return character == u'\r' || character == u'\n';
}

bool hasLineEnd(QStringView text)
{
    return std::ranges::any_of(text, isLineEnd);
}

ReadBackFault faultOf(QStringView text)
{
    if (hasLineEnd(text)) {
        return ReadBackFault::LineEnd;
    }
    if (trimSpaces(text).startsWith(u'"')) {
        return ReadBackFault::LeadingQuote;
    }
    if (text.contains(u',')) {
        return ReadBackFault::Comma;
    }
    return text != trimSpaces(text) ? ReadBackFault::EdgeSpaces : ReadBackFault::Character;
}

/// Searches the rows of a document.
class RowCheck
{
public:
    RowCheck(const AnsiCodePage &page, QList<ReadBackFinding> &findings) : m_page(page), m_findings(findings) { }

    void check(const RowFields &fields, int row);

private:
    std::optional<ReadBackFault> textFault(QStringView text) const;
    std::optional<ReadBackFault> conditionFault(const RowFields &fields) const;
    bool comesBack(float bound) const;
    bool comesBack(const SettingRange &range) const { return comesBack(range.lower) && comesBack(range.upper); }
    void add(ReadBackFault fault, int column);

    const AnsiCodePage &m_page;
    QList<ReadBackFinding> &m_findings;
    QStringView m_number; ///< of the row's parameter
    int m_row = 0;
};

void RowCheck::check(const RowFields &fields, int row)
{
    m_number = fields.text(parameterColumns[ParameterColumn::Number - 1].fileField);
    m_row = row;
    for (const ColumnInfo &typed : typedColumns) {
        if (const auto fault = textFault(fields.text(typed.fileField))) {
            add(*fault, typed.column);
        }
    }
    if (!std::ranges::all_of(fields.ranges, [this](const SettingRange &range) { return comesBack(range); })) {
        add(ReadBackFault::BoundDigits, ParameterColumn::SettingRange);
    }
    if (const auto fault = conditionFault(fields)) {
        add(*fault, ParameterColumn::Condition);
    }
}

void RowCheck::add(ReadBackFault fault, int column)
{
    m_findings.append({.fault = fault, .cell = {.row = m_row, .column = column}, .name = m_number.toString()});
}

/// A text comes back when the reader's own field is the text, and ends where the text does.
std::optional<ReadBackFault> RowCheck::textFault(QStringView text) const
{
    if (!mayChangeWhenRead(text)) {
        return std::nullopt;
    }
    AnsiBuffer written(m_page);
    written.putText(text);
    written.put(',');
    FieldReader reader(written.bytes(), m_page, FieldReader::Storage::Separate);
    const bool isSame = reader.text() == text && reader.atEnd();
    return isSame ? std::nullopt : std::optional(faultOf(text));
}

std::optional<ReadBackFault> RowCheck::conditionFault(const RowFields &fields) const
{
    for (const PrCondition &condition : fields.conditions) {
        for (const auto text : conditionTexts) {
            if (const auto fault = textFault(condition.*text)) {
                return fault;
            }
        }
    }
    return std::nullopt;
}

/// Whole numbers of up to seven digits come back, and with fewer digits those with up to four decimals; of others the
/// text is looked at. One with a negative exponent would be taken for a range as soon as the grid shows it.
bool RowCheck::comesBack(float bound) const
{
    constexpr double maxValue = 1e7;
    constexpr double decimals = 1e4;
    if (std::abs(bound) < maxValue && float(int(bound)) == bound) {
        return true;
    }
    const double shifted = std::nearbyint(double(bound) * decimals);
    if (std::abs(shifted) < maxValue && float(shifted / decimals) == bound) {
        return true;
    }
    AnsiBuffer written(m_page);
    written.putSingle(bound);
    const bool isRange = written.bytes().contains("E-");
    return !isRange && FieldReader(written.bytes(), m_page, FieldReader::Storage::Separate).single() == bound;
}

QString numbered(const QString &key, qsizetype index)
{
    return key + QString::number(index);
}

/// Whether a value of the "[Inverter]" section is seen to come back: few printable characters of ASCII without quotes
/// or spaces around them.
bool isOrdinary(QStringView value)
{
    constexpr qsizetype few = 20;
    const auto isPrintable = [](QChar character) { return character >= u' ' && character <= u'~'; };
    const auto isOdd = [](QChar character) { return character == u' ' || character == u'"' || character == u'\''; };
    return value.isEmpty()
        || (value.size() <= few && !isOdd(value.front()) && !isOdd(value.back())
            && std::ranges::all_of(value, isPrintable));
}

/// Searches the values of the "[Inverter]" section.
class MachineCheck
{
public:
    MachineCheck(const AnsiCodePage &page, QList<ReadBackFinding> &findings) : m_page(page), m_findings(findings) { }

    void check(const MachineInfo &info, bool hasRows);

private:
    void checkPairs(const MachineInfo &info);
    void checkList(const QString &key, const QStringList &values);
    void checkValue(const QString &key, const QString &value);
    bool comesBack(const QString &key, const QString &value) const;
    ReadBackFault valueFault(const QString &value) const;
    void add(ReadBackFault fault, const QString &key) { m_findings.append({.fault = fault, .name = key}); }

    const AnsiCodePage &m_page;
    QList<ReadBackFinding> &m_findings;
};

void MachineCheck::check(const MachineInfo &info, bool hasRows)
{
    MachineInfo nothing;
    nothing.Paramater = info.Paramater;
    if (info.Name.isEmpty() && (hasRows || info != nothing)) {
        add(ReadBackFault::ModelNameMissing, u"Name"_s);
    }
    checkValue(u"Name"_s, info.Name);
    checkValue(u"TypeCode"_s, info.TypeCode);
    checkValue(u"VCapacity"_s, info.VCapacity);
    checkValue(u"Code"_s, info.Code);
    checkPairs(info);
    checkList(u"Option"_s, info.Option);
    checkValue(u"SoftWareVersion"_s, info.SoftWareVersion);
}

void MachineCheck::checkPairs(const MachineInfo &info)
{
    const QString capacity = u"Capacity"_s;
    const QString current = u"ICapacity"_s;
    checkList(capacity, info.Capacity);
    checkList(current, info.ICapacity);
    for (qsizetype i = info.ICapacity.size(); i < info.Capacity.size(); ++i) {
        add(ReadBackFault::CurrentMissing, numbered(capacity, i));
    }
    for (qsizetype i = info.Capacity.size(); i < info.ICapacity.size(); ++i) {
        add(ReadBackFault::CapacityMissing, numbered(current, i));
    }
}

void MachineCheck::checkList(const QString &key, const QStringList &values)
{
    for (qsizetype i = 0; i < values.size(); ++i) {
        if (values[i].isEmpty()) {
            add(ReadBackFault::EmptyEntry, numbered(key, i));
        } else {
            checkValue(numbered(key, i), values[i]);
        }
    }
}

void MachineCheck::checkValue(const QString &key, const QString &value)
{
    if (!comesBack(key, value)) {
        add(valueFault(value), key);
    }
}

bool MachineCheck::comesBack(const QString &key, const QString &value) const
{
    if (isOrdinary(value)) {
        return true;
    }
    const QString section = u"Inverter"_s;
    AnsiBuffer written(m_page);
    written.putText(u"[%1]\r\n%2="_s.arg(section, key));
    written.putText(value);
    const auto back = PrivateProfile(written.bytes().toByteArray(), m_page).text(section, key);
    return back.value_or(QString()) == value;
}

ReadBackFault MachineCheck::valueFault(const QString &value) const
{
    constexpr qsizetype maxBytes = 127;
    if (hasLineEnd(value)) {
        return ReadBackFault::LineEnd;
    }
    if (m_page.byteLength(value) > maxBytes) {
        return ReadBackFault::TooLong;
    }
    if (value.size() > 1 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'')) {
        return ReadBackFault::EnclosingQuotes;
    }
    return value != value.trimmed() ? ReadBackFault::EdgeSpaces : ReadBackFault::Character;
}

bool isMissingIn(QStringView text, const AnsiCodePage &page)
{
    AnsiBuffer written(page);
    written.putText(text);
    return written.missingCharacter().has_value();
}

} // namespace

// Every character is looked at alike, so that the compiler can take several at once.
bool mayChangeWhenRead(QStringView text)
{
    constexpr char16_t firstByteCharacter = 0xF780; // represent bytes that are not a character of the page
    constexpr char16_t lastByteCharacter = 0xF7FF;
    if (text.isEmpty()) {
        return false;
    }
    bool isOdd = text.front() == u' ' || text.front() == u'"' || text.back() == u' ';
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        isOdd |= unit == u',' || unit == u'\n' || (unit >= firstByteCharacter && unit <= lastByteCharacter);
    }
    return isOdd;
}

void ReadBackCheck::checkMachine(const MachineInfo &info, bool hasRows)
{
    MachineCheck(m_page, m_findings).check(info, hasRows);
}

void ReadBackCheck::checkRow(const RowFields &fields, int row)
{
    RowCheck(m_page, m_findings).check(fields, row);
}

QList<ReadBackFinding> findReadBackFaults(
    const MachineInfo &info, const QList<PrRecord> &records, const AnsiCodePage &page)
{
    ReadBackCheck check(page);
    check.checkMachine(info, !records.isEmpty());
    for (qsizetype i = 0; i < records.size(); ++i) {
        check.checkRow(fieldsOf(records.at(i)), int(i + 1));
    }
    return check.takeFindings();
}

std::optional<CellPosition> findMissingCharacter(const RowFields &fields, int row, const AnsiCodePage &page)
{
    for (const ColumnInfo &typed : typedColumns) {
        if (isMissingIn(fields.text(typed.fileField), page)) {
            return CellPosition{.row = row, .column = typed.column};
        }
    }
    for (const PrCondition &condition : fields.conditions) {
        for (const auto text : conditionTexts) {
            if (isMissingIn(condition.*text, page)) {
                return CellPosition{.row = row, .column = ParameterColumn::Condition};
            }
        }
    }
    return std::nullopt;
}
