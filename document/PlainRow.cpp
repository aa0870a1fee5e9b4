#include "document/PlainRow.h"

#include "document/FieldReader.h"
#include "document/RecordReader.h"
#include "runtime/AnsiText.h"
#include "runtime/DecimalValue.h"
#include "runtime/Digits.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace {

/// As operator==, without a call
bool isEqual(QByteArrayView text, std::string_view other)
{
    return std::string_view(text.data(), std::size_t(text.size())) == other;
}

/// As many as a double holds at most
bool isDigits(QByteArrayView text)
{
    constexpr qsizetype exactDigits = 15;
    return !text.isEmpty() && text.size() <= exactDigits && std::ranges::all_of(text, isDigit<char>);
}

/// A count that a list can have; -1 for any other text.
int listCount(QByteArrayView text)
{
    const int count = smallNumber(text);
    return count <= std::numeric_limits<qint16>::max() ? count : -1;
}

QByteArrayView withoutSign(QByteArrayView text)
{
    return text.startsWith('-') ? text.sliced(1) : text;
}

/// A number from 0 that is written with no zero too many.
struct PlainNumber
{
    qint64 mantissa = 0;
    int digits = 0; ///< 0: the text is not of that kind
    int decimals = 0;

    double value() const { return double(mantissa) / exactPowersOfTen[decimals]; }
};

PlainNumber plainNumber(QByteArrayView text)
{
    constexpr qsizetype longest = 16;
    PlainNumber number;
    const char *point = nullptr;
    if (text.isEmpty() || text.size() > longest) {
        return {};
    }
    for (const char &byte : text) {
        if (isDigit(byte)) {
            number.mantissa = number.mantissa * 10 + (byte - '0');
            ++number.digits;
        } else if (byte == '.' && point == nullptr) {
            point = &byte;
        } else {
            return {};
        }
    }
    const bool hasPoint = point != nullptr;
    const auto whole = (hasPoint ? point : text.end()) - text.begin();
    number.decimals = number.digits - int(whole);
    const bool isWholePlain = whole == 1 || (whole > 1 && text.front() != '0');
    const bool isFractionPlain = !hasPoint || (number.decimals > 0 && text.back() != '0');
    return isWholePlain && isFractionPlain ? number : PlainNumber();
}

/// Whether a save writes the factory setting as it is.
bool isPlainSetting(QByteArrayView text, const PlainNumber &number)
{
    constexpr int exactDigits = 14;
    constexpr int mostDecimals = 3; // a number below 0.0001 is written with an exponent
    return number.digits > 0 && number.digits <= exactDigits && number.decimals <= mostDecimals && !isEqual(text, "-0");
}

/// Whether the function code is what its hexadecimal digits in the grid are saved as.
bool isPlainCode(QByteArrayView text)
{
    const bool isNegative = text.startsWith('-');
    const int code = smallNumber(withoutSign(text));
    return isNegative ? code > 0 && code <= -std::numeric_limits<qint16>::min()
                      : code >= 0 && code <= std::numeric_limits<qint16>::max();
}

bool isStep(QByteArrayView text)
{
    return isEqual(text, "1") || isEqual(text, "0.1") || isEqual(text, "0.01") || isEqual(text, "0.001");
}

/// Whether a bound is a number from 0 that a single holds, and writes as it is here.
bool isPlainBound(const PlainNumber &number)
{
    constexpr int singleDigits = 7;
    constexpr int mostDecimals = 3;
    return number.digits > 0 && number.digits <= singleDigits && number.decimals <= mostDecimals;
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
    if (isEqual(condition.subject, "OP")) {
        return !hasRange && isPlainOption(condition.value1);
    }
    if (isEqual(condition.subject, "MODE")) {
        return !hasRange && isPlainValue(condition.value1);
    }
    return isDigits(condition.subject) && isPlainValue(condition.value1)
        && (!hasRange || (isPlainValue(condition.value2) && condition.value1 <= condition.value2));
}

/// The positions of a row's texts in the file, from 0.
enum Field { Min1 = 4, Min2, Min3, Setting, Code, RangeCheck };

} // namespace

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

bool PlainRowReader::takeFirst(QByteArrayView rows)
{
    m_at = rows.begin();
    m_end = rows.end();
    return next();
}

bool PlainRowReader::decodeNext(PrRecord &record)
{
    FieldReader in(QByteArrayView(m_at, m_end), m_page, FieldReader::Storage::Separate);
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
    const char *at = m_at;
    while (at != m_end && *at != ',' && *at != '\r' && *at != '\n') {
        ++at;
    }
    field = QByteArrayView(m_at, at);
    m_at = at;
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
    const char *at = m_at;
    uchar all = 0;
    bool isOdd = false;
    for (; at != m_end && *at != ','; ++at) {
        const auto byte = uchar(*at);
        all |= byte;
        isOdd |= byte < ' ';
    }
    if (at == m_end || isOdd) {
        return false;
    }
    text = QByteArrayView(m_at, at);
    m_at = at + 1;
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
    const PlainNumber setting = plainNumber(withoutSign(texts[Setting]));
    m_row.setting = texts[Setting].startsWith('-') ? -setting.value() : setting.value();
    m_row.settingDecimals = setting.decimals;
    const auto isOptional = [](QByteArrayView text) { return isEqual(text, "-1") || isStep(text); };
    return isStep(texts[Min1]) && isOptional(texts[Min2]) && isOptional(texts[Min3])
        && isPlainSetting(texts[Setting], setting) && isPlainCode(texts[Code])
        && (isEqual(texts[RangeCheck], "0") || isEqual(texts[RangeCheck], "1"));
}

/// Ranges that are the same again after they have been shown as a text.
bool PlainRowReader::takeRanges(int count)
{
    constexpr float openEnd = -1;
    m_row.ranges.clear();
    for (int i = 0; i < count; ++i) {
        QByteArrayView lower;
        QByteArrayView upper;
        if (!takeEntry(lower) || !takeEntry(upper)) {
            return false;
        }
        const bool isOpen = isEqual(upper, "-1");
        const PlainNumber first = plainNumber(lower);
        const PlainNumber last = plainNumber(upper);
        if (!isPlainBound(first) || (!isOpen && !isPlainBound(last))) {
            return false;
        }
        const PlainRow::Range range{
            {.upper = isOpen ? openEnd : float(last.value()), .lower = float(first.value())}, lower, upper};
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
    const int number = smallNumber(kind);
    if (number < 0 || number > mostKinds) {
        return false;
    }
    condition.kind = quint8(number);
    return (condition.kind & PrCondition::HasRange) == 0 || takeEntry(condition.value2);
}

/// A row with neither ranges nor conditions ends in a comma, without a line end.
bool PlainRowReader::takeEnd()
{
    if (m_row.ranges.empty() && m_row.conditions.empty()) {
        return takeSeparator();
    }
    const bool isLineEnd = m_end - m_at > 1 && m_at[0] == '\r' && m_at[1] == '\n';
    m_at += isLineEnd ? 2 : 0;
    return isLineEnd;
}

QByteArrayView rowsOfFile(QByteArrayView bytes)
{
    FieldReader in(bytes, AnsiCodePage::page(0), FieldReader::Storage::Separate);
    return in.passLine(rowsLine) ? bytes.sliced(in.position()) : QByteArrayView();
}
