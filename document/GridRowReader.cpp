#include "document/GridRowReader.h"

#include "document/FieldReader.h"
#include "document/FieldText.h"
#include "document/ParameterColumns.h"
#include "document/RecordReader.h"
#include "document/RecordTexts.h"
#include "runtime/AnsiText.h"

#include <algorithm>
#include <array>
#include <charconv>

GridRowReader::GridRowReader(FieldReader &in, const AnsiCodePage &page) : m_in(in), m_page(page), m_plain(page)
{
}

CellRow GridRowReader::read()
{
    if (m_plain.takeFirst(m_in.rest())) {
        m_in.passRow(m_plain.bytes().size());
        return shown(m_plain.row());
    }
    m_record = {};
    readRecord(m_in, m_record);
    return CellRow(RecordTexts(m_record).cells());
}

/// Each cell as its column shows it (parameterColumns).
CellRow GridRowReader::shown(const PlainRow &row)
{
    using namespace ParameterColumn;
    constexpr qsizetype digitsOfCode = 4; // no other cell is longer than its bytes
    m_units.resize(std::max(m_units.size(), std::size_t(row.bytes.size() + digitsOfCode)));
    m_at = m_units.data();
    std::array<quint32, ParameterColumn::Count> ends{};
    const auto endCell = [this, &ends](int column) { ends[std::size_t(column - 1)] = quint32(m_at - m_units.data()); };
    const auto putField = [&](int column) {
        put(row.text(fieldOf(column)));
        endCell(column);
    };
    const auto putStep = [&](int column) {
        putIncrement(row.text(fieldOf(column)));
        endCell(column);
    };
    putField(Number);
    putField(Name);
    putRanges(row);
    endCell(ParameterColumn::SettingRange);
    putField(RangeCheck);
    putStep(Min1);
    putStep(Min2);
    putStep(Min3);
    putField(Unit);
    putField(FactorySetting);
    putField(HelpId);
    putFunctionCode(row.text(fieldOf(FuncCode)));
    endCell(FuncCode);
    put(row.bytes.first(row.bytes.indexOf(',')));
    endCell(ConditionCount);
    putConditions(row);
    endCell(Condition);
    return CellRow(m_units.data(), ends);
}

/// Looks at the text in the same pass, so that the compiler can take several bytes at once.
void GridRowReader::put(QByteArrayView text)
{
    constexpr uchar highBit = 0x80;
    uchar all = 0;
    char16_t *const out = m_at;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto byte = uchar(text[i]);
        all |= byte;
        out[i] = byte;
    }
    m_at = out + ((all & highBit) == 0 ? text.size() : m_page.decodeTo(text, out));
}

void GridRowReader::putIncrement(QByteArrayView text)
{
    put(text.startsWith('-') ? QByteArrayView("No") : text);
}

void GridRowReader::putFunctionCode(QByteArrayView decimal)
{
    qint16 code = 0;
    std::from_chars(decimal.begin(), decimal.end(), code);
    m_at = writeFunctionCode(code, m_at);
}

/// As rangesToText()
void GridRowReader::putRanges(const PlainRow &row)
{
    for (const PlainRow::Range &range : row.ranges) {
        if (&range != row.ranges.data()) {
            put(u',');
        }
        put(range.lowerText);
        if (range.upper > range.lower) {
            put(u'-');
            put(range.upperText);
        } else if (range.upper == -1) {
            put(u'-');
        }
    }
}

/// As conditionsToText()
void GridRowReader::putConditions(const PlainRow &row)
{
    for (const PlainRow::Condition &condition : row.conditions) {
        if (&condition != row.conditions.data()) {
            put(u',');
        }
        put(condition.subject);
        put((condition.kind & PrCondition::NotEqual) != 0 ? u'/' : u'=');
        put(condition.value1);
        if ((condition.kind & PrCondition::HasRange) != 0) {
            put(u'-');
            put(condition.value2);
        }
    }
}
