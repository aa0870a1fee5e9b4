#include "document/PlainRow.h"

#include "document/FieldReader.h"
#include "document/RecordReader.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"

#include <algorithm>
#include <limits>

namespace {

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

/// As many as a double holds at most
bool isDigits(QByteArrayView text)
{
    constexpr qsizetype exactDigits = 15;
    return !text.isEmpty() && text.size() <= exactDigits && std::ranges::all_of(text, isDigit);
}

/// The number of a text of at most five digits without a zero too many; -1 for any other.
int wholeNumber(QByteArrayView text)
{
    constexpr qsizetype mostDigits = 5;
    if (text.isEmpty() || text.size() > mostDigits || (text.front() == '0' && text.size() > 1) || !isDigits(text)) {
        return -1;
    }
    int number = 0;
    for (const char digit : text) {
        number = number * 10 + (digit - '0');
    }
    return number;
}

/// A count that a list can have; -1 for any other text.
int listCount(QByteArrayView text)
{
    const int count = wholeNumber(text);
    return count <= std::numeric_limits<qint16>::max() ? count : -1;
}

QByteArrayView withoutSign(QByteArrayView text)
{
    return text.startsWith('-') ? text.sliced(1) : text;
}

/// Whether a save writes the factory setting as it is.
bool isPlainSetting(QByteArrayView text)
{
    constexpr qsizetype exactDigits = 15;
    constexpr qsizetype mostDecimals = 3; // a number below 0.0001 is written with an exponent
    const QByteArrayView number = withoutSign(text);
    const qsizetype point = number.indexOf('.');
    return number.size() <= exactDigits && isPlainNumber(number) && text != "-0"
        && (point < 0 || number.size() - point - 1 <= mostDecimals);
}

/// Whether the function code is what its hexadecimal digits in the grid are saved as.
bool isPlainCode(QByteArrayView text)
{
    const bool isNegative = text.startsWith('-');
    const int code = wholeNumber(withoutSign(text));
    return isNegative ? code > 0 && code <= -std::numeric_limits<qint16>::min()
                      : code >= 0 && code <= std::numeric_limits<qint16>::max();
}

bool isStep(QByteArrayView text)
{
    return text == "1" || text == "0.1" || text == "0.01" || text == "0.001";
}

/// Whether a bound is a number from 0 that a single holds, and writes as it is here.
bool isPlainBound(QByteArrayView text)
{
    constexpr qsizetype singleDigits = 7;
    constexpr qsizetype mostDecimals = 3;
    const qsizetype point = text.indexOf('.');
    return point < 0
        ? text.size() <= singleDigits && isPlainNumber(text)
        : text.size() - 1 <= singleDigits && text.size() - point - 1 <= mostDecimals && isPlainNumber(text);
}

/// Whether the value of a condition stays a number's text, and in one piece, in the text of all conditions.
bool isPlainValue(QByteArrayView text)
{
    const qsizetype point = text.indexOf('.');
    return point < 0 ? isDigits(text) : isDigits(text.first(point)) && isDigits(text.sliced(point + 1));
}

bool isPlainOption(QByteArrayView text)
{
    return !text.isEmpty() && std::ranges::all_of(text, [](char byte) {
        return isDigit(byte) || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    });
}

bool isPlainCondition(const PlainRow::Condition &condition)
{
    const bool hasRange = (condition.kind & PrCondition::HasRange) != 0;
    if (condition.subject == "OP") {
        return !hasRange && isPlainOption(condition.value1);
    }
    if (condition.subject == "MODE") {
        return !hasRange && isPlainValue(condition.value1);
    }
    return isDigits(condition.subject) && isPlainValue(condition.value1)
        && (!hasRange || (isPlainValue(condition.value2) && condition.value1 <= condition.value2));
}

/// The positions of a row's texts in the file, from 0.
enum Field { Min1 = 4, Min2, Min3, Setting, Code, RangeCheck };

} // namespace

bool isPlainNumber(QByteArrayView text)
{
    const qsizetype point = text.indexOf('.');
    const QByteArrayView whole = point < 0 ? text : text.first(point);
    const QByteArrayView fraction = point < 0 ? QByteArrayView() : text.sliced(point + 1);
    return isDigits(whole) && (whole.size() == 1 || whole.front() != '0')
        && (point < 0 || (isDigits(fraction) && fraction.back() != '0'));
}

bool PlainRowReader::next()
{
    const char *const first = m_at;
    const bool isPlain = takeRow();
    if (isPlain) {
        m_row.bytes = QByteArrayView(first, m_at);
    } else {
        m_at = first;
    }
    return isPlain;
}

bool PlainRowReader::decodeNext(PrRecord &record)
{
    FieldReader in(QByteArrayView(m_at, m_end), m_page);
    record = {};
    readRecord(in, record);
    m_row.bytes = QByteArrayView(m_at, in.position());
    m_at += in.position();
    return !in.hasFailed() && in.fieldHasEnd();
}

bool PlainRowReader::takeRow()
{
    int conditions = 0;
    int ranges = 0;
    return takeCount(conditions) && takeSeparator() && takeTexts() && takeCount(ranges) && takeRanges(ranges)
        && takeConditions(conditions) && takeEnd();
}

bool PlainRowReader::takeSeparator()
{
    return m_at != m_end && *m_at++ == ',';
}

bool PlainRowReader::takeCount(int &count)
{
    QByteArrayView field;
    takeField(field);
    count = listCount(field);
    return count >= 0;
}

/// Up to the next comma or line end, which stays.
void PlainRowReader::takeField(QByteArrayView &field)
{
    const char *const first = m_at;
    while (m_at != m_end && *m_at != ',' && *m_at != '\r' && *m_at != '\n') {
        ++m_at;
    }
    field = QByteArrayView(first, m_at);
}

/// A field of a list, after its comma.
bool PlainRowReader::takeEntry(QByteArrayView &field)
{
    const bool isThere = takeSeparator();
    if (isThere) {
        takeField(field);
    }
    return isThere;
}

/// A text with its comma. Control characters, and what is not a character of the page, is left to the full road.
bool PlainRowReader::takeText(QByteArrayView &text)
{
    const char *const first = m_at;
    uchar all = 0;
    bool isOdd = false;
    for (; m_at != m_end && *m_at != ','; ++m_at) {
        const uchar byte = uchar(*m_at);
        all |= byte;
        isOdd |= byte < ' ';
    }
    if (m_at == m_end || isOdd) {
        return false;
    }
    text = QByteArrayView(first, m_at++);
    if (!text.isEmpty() && (text.front() == ' ' || text.front() == '"' || text.back() == ' ')) {
        return false;
    }
    constexpr uchar highBit = 0x80;
    return (all & highBit) == 0 || m_page.fitOf(text).isWhole;
}

bool PlainRowReader::takeTexts()
{
    auto &texts = m_row.texts;
    for (QByteArrayView &text : texts) {
        if (!takeText(text)) {
            return false;
        }
    }
    const auto isOptional = [](QByteArrayView text) { return text == "-1" || isStep(text); };
    return isStep(texts[Min1]) && isOptional(texts[Min2]) && isOptional(texts[Min3]) && isPlainSetting(texts[Setting])
        && isPlainCode(texts[Code]) && (texts[RangeCheck] == "0" || texts[RangeCheck] == "1");
}

/// Ranges that are the same again after they have been shown as a text.
bool PlainRowReader::takeRanges(int count)
{
    m_row.ranges.clear();
    for (int i = 0; i < count; ++i) {
        QByteArrayView lower;
        QByteArrayView upper;
        if (!takeEntry(lower) || !takeEntry(upper)) {
            return false;
        }
        const bool isOpen = upper == "-1";
        if (!isPlainBound(lower) || (!isOpen && !isPlainBound(upper))) {
            return false;
        }
        const SettingRange range{.upper = float(leadingNumber(upper)), .lower = float(leadingNumber(lower))};
        if (!isOpen && range.upper <= range.lower && range.upper != 0) {
            return false;
        }
        m_row.ranges.push_back(range);
    }
    return true;
}

bool PlainRowReader::takeConditions(int count)
{
    m_row.conditions.clear();
    for (int i = 0; i < count; ++i) {
        PlainRow::Condition condition;
        if (!takeCondition(condition) || !isPlainCondition(condition)) {
            return false;
        }
        m_row.conditions.push_back(condition);
    }
    return true;
}

bool PlainRowReader::takeCondition(PlainRow::Condition &condition)
{
    constexpr int mostKinds = PrCondition::NotEqual | PrCondition::HasRange;
    QByteArrayView kind;
    if (!takeEntry(condition.subject) || !takeEntry(kind) || !takeEntry(condition.value1)) {
        return false;
    }
    const int number = wholeNumber(kind);
    if (number < 0 || number > mostKinds) {
        return false;
    }
    condition.kind = quint8(number);
    return (condition.kind & PrCondition::HasRange) == 0 || takeEntry(condition.value2);
}

/// A row with neither ranges nor conditions ends in a comma, without a line end.
bool PlainRowReader::takeEnd()
{
    constexpr QByteArrayView lineEnd = "\r\n";
    const QByteArrayView end = m_row.ranges.empty() && m_row.conditions.empty() ? QByteArrayView(",") : lineEnd;
    if (!QByteArrayView(m_at, m_end).startsWith(end)) {
        return false;
    }
    m_at += end.size();
    return true;
}

QByteArrayView rowsOfFile(QByteArrayView bytes)
{
    FieldReader in(bytes, AnsiCodePage::page(0));
    return in.passLine(rowsLine) ? bytes.sliced(in.position()) : QByteArrayView();
}
