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
        in.fail(RunTimeError::SubscriptOutOfRange);
    }
    return in.error() ? 0 : count;
}

void readRanges(FieldReader &in, PrRecord &record)
{
    const qsizetype count = listSize(in, record.rangeCount);
    // What a row claims to hold costs nothing until it is there: each range has two separators at least.
    record.ranges.reserve(std::min(count, in.remaining() / 2 + 1));
    for (qsizetype i = 0; i < count && !in.error(); ++i) {
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
    for (qsizetype i = 0; i < count && !in.error(); ++i) {
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

    std::optional<FileFailure> read(const AfterRow &afterRow);
    ReadFindings findings() const;

private:
    std::optional<FileFailure> readRow();
    FileFailure failureAt(RunTimeError error, int row, int field, qsizetype offset) const;

    FieldReader &m_in;
    QList<PrRecord> &m_rows;
    qsizetype m_room; ///< one more than the file announces
    ReadFindings m_findings;
};

RowsReader::RowsReader(FieldReader &in, qint16 announced, QList<PrRecord> &rows)
    : m_in(in), m_rows(rows), m_room(qsizetype(announced) + 1), m_findings{.rowsAnnounced = announced}
{
}

std::optional<FileFailure> RowsReader::read(const AfterRow &afterRow)
{
    constexpr qsizetype shortestRow = 13;
    m_rows.clear();
    if (m_findings.rowsAnnounced < 0) {
        return FileFailure::of(RunTimeError::SubscriptOutOfRange);
    }
    m_rows.reserve(std::min(m_room, m_in.remaining() / shortestRow + 1));
    while (!m_in.atEnd()) {
        if (m_rows.size() == m_room) {
            return failureAt(RunTimeError::SubscriptOutOfRange, m_findings.rowsFound + 1, 0, m_in.position());
        }
        if (auto failure = readRow()) {
            return failure;
        }
        if (afterRow) {
            afterRow();
        }
    }
    m_rows.resize(m_room);
    return std::nullopt;
}

std::optional<FileFailure> RowsReader::readRow()
{
    const qsizetype rowAt = m_in.position();
    readRecord(m_in, m_rows.emplaceBack());
    ++m_findings.rowsFound;
    if (m_in.atEnd() && !m_in.fieldHasEnd()) {
        m_findings.cutRow = m_findings.rowsFound;
        m_findings.cutRowAt = rowAt;
    }
    const auto error = m_in.error();
    return error ? std::optional(failureAt(*error, m_findings.rowsFound, m_in.fieldNo(), m_in.fieldAt()))
                 : std::nullopt;
}

FileFailure RowsReader::failureAt(RunTimeError error, int row, int field, qsizetype offset) const
{
    auto failure = FileFailure::of(error);
    failure.position = {.row = row, .field = field, .offset = offset};
    return failure;
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

std::optional<FileFailure> putRecords(
    const QList<PrRecord> &rows, const AnsiCodePage &page, AnsiBuffer &out, const AfterRow &afterRow)
{
    constexpr qsizetype usualRow = 80;
    out.reserve(rows.size() * usualRow);
    for (qsizetype i = 0; i < rows.size(); ++i) {
        putRecord(rows.at(i), out);
        if (const auto missing = out.missingCharacter()) {
            const int row = int(i + 1);
            return FileFailure{OwnText::RowCharacterMissing, QStringList{QString::number(row)} + *missing,
                findMissingCharacter(rows.at(i), row, page)};
        }
        if (afterRow) {
            afterRow();
        }
    }
    return std::nullopt;
}

/// Whether there are more capacities than rated currents: what precedes the gap is still written.
bool lacksCurrents(const MachineInfo &machine)
{
    return machine.Capacity.size() > machine.ICapacity.size();
}

} // namespace

PrFileDecoder::PrFileDecoder(const QByteArray &bytes, const AnsiCodePage &page) : m_bytes(bytes), m_page(page)
{
}

std::optional<FileFailure> PrFileDecoder::decodeMachine(MachineInfo &machine) const
{
    return ReadInverterSection(PrivateProfile(m_bytes, m_page), machine);
}

std::optional<FileFailure> PrFileDecoder::decodeRows(qint16 announced, QList<PrRecord> &rows, const AfterRow &afterRow)
{
    FieldReader in(m_bytes, m_page);
    if (!in.passLine(sectionLine)) {
        return FileFailure::silent();
    }
    RowsReader reader(in, announced, rows);
    auto failure = reader.read(afterRow);
    m_findings = reader.findings();
    return failure;
}

DecodedPrFile decodePrFile(const QByteArray &bytes, const AnsiCodePage &page)
{
    PrFileDecoder decoder(bytes, page);
    DecodedPrFile decoded;
    Document &document = decoded.document;
    document.codePage = page.number();
    decoded.failure = decoder.decodeMachine(document.machine);
    if (!decoded.failure) {
        decoded.failure = decoder.decodeRows(document.machine.Paramater, document.rows);
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
    encoded.failure = WriteInverterSection(document.machine, out);
    encoded.isPart = encoded.failure && !out.missingCharacter() && lacksCurrents(document.machine);
    if (!encoded.failure) {
        out.put(sectionLine);
        out.put("\r\n");
        encoded.failure = putRecords(document.rows, page, out, afterRow);
    }
    if (encoded.isWritable()) {
        encoded.bytes = out.takeBytes();
    }
    return encoded;
}
