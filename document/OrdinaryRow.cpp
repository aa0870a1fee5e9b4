#include "document/OrdinaryRow.h"

#include "document/FieldText.h"
#include "document/ParameterColumns.h"
#include "document/ReadBackCheck.h"
#include "runtime/AnsiText.h"
#include "runtime/Digits.h"
#include "runtime/NumberText.h"

#include <QtEndian>

#include <algorithm>
#include <charconv>

namespace {

/// Takes texts apart unit by unit.
class Scanner
{
public:
    explicit Scanner(QStringView text) : m_at(text.utf16()), m_end(m_at + text.size()) { }

    bool atEnd() const { return m_at == m_end; }
    bool take(char16_t unit)
    {
        const bool isThere = m_at != m_end && *m_at == unit;
        m_at += isThere ? 1 : 0;
        return isThere;
    }
    bool take(QStringView word)
    {
        const bool isThere = QStringView(m_at, m_end).startsWith(word);
        m_at += isThere ? word.size() : 0;
        return isThere;
    }
    QStringView takeDigits()
    {
        const char16_t *const first = m_at;
        while (m_at != m_end && isDigit(*m_at)) {
            ++m_at;
        }
        return QStringView(first, m_at);
    }
    bool atItemEnd() const { return m_at == m_end || *m_at == u','; }
    QStringView takeBound();

private:
    const char16_t *m_at;
    const char16_t *m_end;
};

/// A bound that a single gives back digit by digit: up to five of them, three behind the point at most, no zeros that
/// could be left out. Empty for others.
QStringView Scanner::takeBound()
{
    constexpr qsizetype maxDigits = 5;
    constexpr qsizetype maxDecimals = 3;
    const char16_t *const first = m_at;
    const QStringView whole = takeDigits();
    bool isShortest = !whole.isEmpty() && (whole.size() == 1 || whole.front() != u'0');
    qsizetype digits = whole.size();
    if (take(u'.')) {
        const QStringView decimals = takeDigits();
        isShortest = isShortest && !decimals.isEmpty() && decimals.size() <= maxDecimals && decimals.back() != u'0';
        digits += decimals.size();
    }
    return isShortest && digits <= maxDigits ? QStringView(first, m_at) : QStringView();
}

/// A comma or a control character
bool isSeparator(QChar unit)
{
    return unit == u',' || unit < u' ';
}

/// Writes a text that has neither commas nor controls nor other characters than ASCII; false if it has. Four units are
/// taken in one step.
bool writePlainAscii(QStringView text, char *out)
{
    constexpr quint64 ones = 0x0001'0001'0001'0001;
    constexpr quint64 highBits = ones * 0x80;
    constexpr quint64 beyondAscii = ones * 0xFF80;
    constexpr quint64 everySecond = 0x0000'FFFF'0000'FFFF;
    constexpr qsizetype step = sizeof(quint64) / sizeof(char16_t);
    const char16_t *const units = text.utf16();
    quint64 odd = 0;
    qsizetype i = 0;
    for (; text.size() - i >= step; i += step) {
        quint64 word = qFromUnaligned<quint64>(units + i);
        const quint64 commas = word ^ (ones * ',');
        // Of ASCII, subtracting sets a high bit where a unit is too small.
        odd |= (word & beyondAscii) | ((word - ones * ' ') & highBits) | ((commas - ones) & highBits);
        word = (word | (word >> 8)) & everySecond;
        qToUnaligned(quint32(word | (word >> 16)), out + i);
    }
    for (; i < text.size(); ++i) {
        out[i] = char(units[i]);
        odd |= isSeparator(units[i]) || units[i] >= 0x80 ? 1 : 0;
    }
    return odd == 0;
}

/// Writes the fields of one row. Each routine is false for a cell that is not of the ordinary kind.
class RowWriter
{
public:
    RowWriter(const CellTexts &cells, const AnsiCodePage &page, char *out)
        : m_cells(cells), m_page(page), m_out(out) { }

    bool write();
    char *end() const { return m_out; }

private:
    QStringView cell(int column) const { return m_cells[std::size_t(column - 1)]; }

    void put(char ascii) { *m_out++ = ascii; }
    void put(QStringView ascii)
    {
        char *out = m_out;
        for (const QChar character : ascii) {
            *out++ = char(character.unicode());
        }
        m_out = out;
    }
    bool putCount(QStringView list);
    bool putText(int column);
    bool putIncrement(QStringView inFile);
    bool putFactorySetting();
    bool putFunctionCode();
    bool putRangeCheck();
    bool putList(QStringView list, bool (RowWriter::*putItem)(Scanner &scanner));
    bool putRange(Scanner &scanner);
    bool putCondition(Scanner &scanner);

    const CellTexts &m_cells;
    const AnsiCodePage &m_page;
    char *m_out;
};

/// In the order of the file; each field but the last one is followed by a comma.
bool RowWriter::write()
{
    using namespace ParameterColumn;
    using namespace ColumnConversions;
    const QStringView ranges = cell(ParameterColumn::SettingRange);
    const QStringView conditions = cell(ParameterColumn::Condition);
    const bool isOrdinary = putCount(conditions) && putText(Number) && putText(HelpId) && putText(Name) && putText(Unit)
        && putIncrement(firstIncrement(cell(Min1))) && putIncrement(otherIncrement(cell(Min2)))
        && putIncrement(otherIncrement(cell(Min3))) && putFactorySetting() && putFunctionCode() && putRangeCheck()
        && putCount(ranges) && putList(ranges, &RowWriter::putRange) && putList(conditions, &RowWriter::putCondition);
    if (isOrdinary && !(ranges.isEmpty() && conditions.isEmpty())) {
        m_out[-1] = '\r'; // instead of the comma
        put('\n');
    }
    return isOrdinary;
}

/// How many items a list has: one more than commas. Lists of ten and more are rare.
bool RowWriter::putCount(QStringView list)
{
    const auto count = list.isEmpty() ? 0 : 1 + std::ranges::count(list, u',');
    put(char('0' + std::min<qsizetype>(count, 9)));
    put(',');
    return count <= 9;
}

bool RowWriter::putIncrement(QStringView inFile)
{
    put(inFile);
    put(',');
    return true;
}

bool RowWriter::putText(int column)
{
    const QStringView text = cell(column);
    bool isPlain = text.isEmpty() || (text.front() != u' ' && text.front() != u'"' && text.back() != u' ');
    if (writePlainAscii(text, m_out)) {
        m_out += text.size();
    } else {
        const AnsiCodePage::Encoded encoded = m_page.encodeTo(text, m_out);
        m_out = encoded.end;
        isPlain = isPlain && encoded.missing < 0 && std::ranges::none_of(text, isSeparator) && !mayChangeWhenRead(text);
    }
    put(',');
    return isPlain;
}

bool RowWriter::putFactorySetting()
{
    const QStringView text = cell(ParameterColumn::FactorySetting);
    const bool isNormal = isNormalizedNum(text);
    put(isNormal ? text : QStringView());
    put(',');
    return isNormal;
}

bool RowWriter::putFunctionCode()
{
    const auto code = hexToInt16(cell(ParameterColumn::FuncCode));
    m_out = std::to_chars(m_out, m_out + numberTextLength, code ? *code : 0).ptr;
    put(',');
    return bool(code);
}

bool RowWriter::putRangeCheck()
{
    const QStringView text = cell(ParameterColumn::RangeCheck);
    const bool isBox = text.size() == 1 && (text.front() == u'0' || text.front() == u'1');
    put(isBox ? text : QStringView());
    put(',');
    return isBox;
}

/// A list of items with commas between them. putItem: writes one of them
bool RowWriter::putList(QStringView list, bool (RowWriter::*putItem)(Scanner &scanner))
{
    Scanner scanner(list);
    bool isOrdinary = scanner.atEnd() || (this->*putItem)(scanner);
    while (isOrdinary && !scanner.atEnd()) {
        isOrdinary = scanner.take(u',') && (this->*putItem)(scanner);
    }
    return isOrdinary;
}

/// "5" is (5, 0), "5-" is (5, -1).
bool RowWriter::putRange(Scanner &scanner)
{
    const QStringView lower = scanner.takeBound();
    put(lower);
    put(',');
    QStringView upper = u"0";
    if (scanner.take(u'-')) {
        upper = scanner.atItemEnd() ? QStringView(u"-1") : scanner.takeBound();
    }
    put(upper);
    put(',');
    return !lower.isEmpty() && !upper.isEmpty();
}

/// "MODE=1", "160/2" and "160=1-3"; of two values the smaller text comes first already.
bool RowWriter::putCondition(Scanner &scanner)
{
    constexpr qsizetype maxDigits = 9;
    const bool isMode = scanner.take(u"MODE");
    const QStringView subject = isMode ? QStringView(u"MODE") : scanner.takeDigits();
    const bool isUnequal = scanner.take(u'/');
    const bool hasRelation = isUnequal || scanner.take(u'=');
    const QStringView value1 = scanner.takeDigits();
    const bool isRange = !isMode && scanner.take(u'-');
    const QStringView value2 = isRange ? scanner.takeDigits() : QStringView();
    put(subject);
    put(',');
    put(char('0' + (isUnequal ? PrCondition::NotEqual : 0) + (isRange ? PrCondition::HasRange : 0)));
    put(',');
    put(value1);
    put(',');
    if (isRange) {
        put(value2);
        put(',');
    }
    const bool isShort = std::max({subject.size(), value1.size(), value2.size()}) <= maxDigits;
    return hasRelation && isShort && !subject.isEmpty() && !value1.isEmpty() && (!isRange || value1 <= value2);
}

} // namespace

// Items of lists may become longer by two bytes for two units, and the last ones have no comma; there are the
// separators, counts, increments and the code besides.
qsizetype maxOrdinaryRowBytes(const CellTexts &cells)
{
    constexpr qsizetype besides = 128;
    qsizetype units = 0;
    for (const QStringView text : cells) {
        units += text.size();
    }
    return AnsiCodePage::maxBytesPerUnit * units + besides;
}

char *encodeOrdinaryRow(const CellTexts &cells, const AnsiCodePage &page, char *out)
{
    RowWriter writer(cells, page, out);
    return writer.write() ? writer.end() : nullptr;
}
