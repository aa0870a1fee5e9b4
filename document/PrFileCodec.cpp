#include "document/PrFileCodec.h"

#include "document/AnsiBuffer.h"
#include "document/FieldReader.h"
#include "document/InverterSection.h"
#include "document/ParameterColumns.h"
#include "document/ReadBackCheck.h"
#include "runtime/AnsiText.h"
#include "runtime/PrivateProfile.h"

#include <algorithm>

namespace {

constexpr QByteArrayView sectionLine("[Paramater]");

/// A count of list entries that follow: a negative one cannot size a list.
qsizetype listSize(FieldReader &in, qint16 count)
{
    if (count < 0) {
        in.fail(FailureCode::SubscriptOutOfRange);
    }
    return in.hasFailed() ? 0 : count;
}

void readRanges(FieldReader &in, PrRecord &record)
{
    const qsizetype count = listSize(in, record.rangeCount);
    // What a row claims to hold costs nothing until it is there: each range has two separators at least.
    record.ranges.reserve(std::min(count, in.remaining() / 2 + 1));
    for (qsizetype i = 0; i < count && !in.hasFailed(); ++i) {
        const float lower = in.single();
        const float upper = in.single();
        record.ranges.append(SettingRange{upper, lower});
    }
}

PrCondition readCondition(FieldReader &in)
{
    PrCondition condition;
    condition.subject = in.text();
    condition.kind = in.byte();
    condition.value1 = in.text();
    if ((condition.kind & PrCondition::HasRange) != 0) {
        condition.value2 = in.text();
    }
    return condition;
}

void readConditions(FieldReader &in, PrRecord &record)
{
    const qsizetype count = listSize(in, record.conditionCount);
    record.conditions.reserve(std::min(count, in.remaining() / 3 + 1));
    for (qsizetype i = 0; i < count && !in.hasFailed(); ++i) {
        record.conditions.append(readCondition(in));
    }
}

void readRecord(FieldReader &in, PrRecord &record)
{
    in.beginRow();
    record.conditionCount = in.int16();
    for (const auto field : fileTexts) {
        record.*field = in.text();
    }
    record.rangeCount = in.int16();
    readRanges(in, record);
    readConditions(in, record);
}

/// Reads the rows of one file.
class RowsReader
{
public:
    RowsReader(FieldReader &in, qint16 announced, QList<PrRecord> &rows);

    Result<> read(const AfterRow &afterRow);
    ReadFindings findings() const;

private:
    Result<> readRow();

    FieldReader &m_in;
    QList<PrRecord> &m_rows;
    qsizetype m_room; ///< one more than the file announces
    ReadFindings m_findings;
};

RowsReader::RowsReader(FieldReader &in, qint16 announced, QList<PrRecord> &rows)
    : m_in(in), m_rows(rows), m_room(qsizetype(announced) + 1), m_findings{.rowsAnnounced = announced}
{
}

Result<> RowsReader::read(const AfterRow &afterRow)
{
    constexpr qsizetype shortestRow = 13;
    m_rows.clear();
    if (m_findings.rowsAnnounced < 0) {
        return FailureCode::SubscriptOutOfRange;
    }
    m_rows.reserve(std::min(m_room, m_in.remaining() / shortestRow + 1));
    while (!m_in.atEnd()) {
        if (m_rows.size() == m_room) {
            return Failure{.code = FailureCode::SubscriptOutOfRange,
                .position = FilePosition{.row = m_findings.rowsFound + 1, .offset = m_in.position()}};
        }
        if (auto read = readRow(); !read) {
            return read;
        }
        if (afterRow) {
            afterRow();
        }
    }
    m_rows.resize(m_room);
    return {};
}

Result<> RowsReader::readRow()
{
    const qsizetype rowAt = m_in.position();
    readRecord(m_in, m_rows.emplaceBack());
    ++m_findings.rowsFound;
    if (m_in.atEnd() && !m_in.fieldHasEnd()) {
        m_findings.cutRow = m_findings.rowsFound;
        m_findings.cutRowAt = rowAt;
    }
    return m_in.outcome();
}

ReadFindings RowsReader::findings() const
{
    ReadFindings findings = m_findings;
    findings.bytesUnread = m_in.remaining();
    findings.bytesUndecoded = m_in.undecoded();
    return findings;
}

void putRange(const SettingRange &range, AnsiBuffer &out)
{
    out.put(',');
    out.putSingle(range.lower);
    out.put(',');
    out.putSingle(range.upper);
}

void putCondition(const PrCondition &condition, AnsiBuffer &out)
{
    out.put(',');
    out.putText(condition.subject);
    out.put(',');
    out.putInteger(condition.kind);
    out.put(',');
    out.putText(condition.value1);
    if (!condition.value2.isEmpty()) {
        out.put(',');
        out.putText(condition.value2);
    }
}

/// A row with neither ranges nor conditions ends in a comma, without a line end: readers go by commas.
void putRecord(const PrRecord &record, AnsiBuffer &out)
{
    out.putInteger(record.conditionCount);
    out.put(',');
    for (const auto field : fileTexts) {
        out.putText(record.*field);
        out.put(',');
    }
    out.putInteger(record.rangeCount);
    for (const SettingRange &range : record.ranges) {
        putRange(range, out);
    }
    for (const PrCondition &condition : record.conditions) {
        putCondition(condition, out);
    }
    const bool endsLine = !record.ranges.isEmpty() || !record.conditions.isEmpty();
    out.put(endsLine ? QByteArrayView("\r\n") : QByteArrayView(","));
}

Result<> putRecords(const QList<PrRecord> &rows, const AnsiCodePage &page, AnsiBuffer &out, const AfterRow &afterRow)
{
    constexpr qsizetype typicalRow = 80;
    out.reserve(rows.size() * typicalRow);
    for (qsizetype i = 0; i < rows.size(); ++i) {
        putRecord(rows.at(i), out);
        if (const auto missing = out.missingCharacter()) {
            const int row = int(i + 1);
            return Failure{.code = FailureCode::RowCharacterMissing,
                .arguments = QStringList{QString::number(row)} + *missing,
                .cell = findMissingCharacter(rows.at(i), row, page)};
        }
        if (afterRow) {
            afterRow();
        }
    }
    return {};
}

} // namespace

PrFileDecoder::PrFileDecoder(const QByteArray &bytes, const AnsiCodePage &page) : m_bytes(bytes), m_page(page)
{
}

Result<> PrFileDecoder::decodeMachine(MachineInfo &machine) const
{
    return ReadInverterSection(PrivateProfile(m_bytes, m_page), machine);
}

Result<> PrFileDecoder::decodeRows(qint16 announced, QList<PrRecord> &rows, const AfterRow &afterRow)
{
    FieldReader in(m_bytes, m_page);
    if (!in.passLine(sectionLine)) {
        return FailureCode::NoParameterSection;
    }
    RowsReader reader(in, announced, rows);
    auto read = reader.read(afterRow);
    m_findings = reader.findings();
    return read;
}

DecodedPrFile decodePrFile(const QByteArray &bytes, const AnsiCodePage &page)
{
    PrFileDecoder decoder(bytes, page);
    DecodedPrFile decoded;
    Document &document = decoded.document;
    document.codePage = page.number();
    decoded.outcome = decoder.decodeMachine(document.machine);
    if (decoded.outcome) {
        decoded.outcome = decoder.decodeRows(document.machine.Paramater, document.rows);
        decoded.findings = decoder.findings();
    }
    return decoded;
}

EncodedPrFile encodePrFile(const Document &document, const AfterRow &afterRow)
{
    const AnsiCodePage &page = AnsiCodePage::page(document.codePage);
    AnsiBuffer out(page);
    EncodedPrFile encoded;
    out.put("[Inverter]\r\n");
    encoded.outcome = WriteInverterSection(document.machine, out);
    // More capacities than rated currents: what precedes the gap is still written.
    encoded.isPart = !encoded.outcome && encoded.outcome.failure().code == FailureCode::SubscriptOutOfRange;
    if (encoded.outcome) {
        out.put(sectionLine);
        out.put("\r\n");
        encoded.outcome = putRecords(document.rows, page, out, afterRow);
    }
    if (encoded.isWritable()) {
        encoded.bytes = out.takeBytes();
    }
    return encoded;
}
