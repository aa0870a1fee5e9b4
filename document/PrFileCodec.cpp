#include "document/PrFileCodec.h"

#include "document/AnsiBuffer.h"
#include "document/FieldReader.h"
#include "document/GridRowReader.h"
#include "document/InverterSection.h"
#include "document/OrdinaryRow.h"
#include "document/ReadBackCheck.h"
#include "document/RecordReader.h"
#include "document/RecordTexts.h"
#include "document/RowCollector.h"
#include "runtime/AnsiText.h"
#include "runtime/PrivateProfile.h"

#include <algorithm>

namespace {

/// Rows that are read as records.
class RecordTarget
{
public:
    using Rows = QList<PrRecord>;
    static constexpr auto storage = FieldReader::Storage::Shared;

    RecordTarget(FieldReader &in, const AnsiCodePage &) : m_in(in) { }
    void read(Rows &rows) { readRecord(m_in, rows.emplaceBack()); }
    static void fill(Rows &rows, qsizetype count) { rows.resize(count); }

private:
    FieldReader &m_in;
};

/// Rows that are read as a grid shows them.
class GridTarget
{
public:
    using Rows = std::vector<CellRow>;
    static constexpr auto storage = FieldReader::Storage::Separate; // of nearly no row

    GridTarget(FieldReader &in, const AnsiCodePage &page) : m_reader(in, page) { }
    void read(Rows &rows) { rows.push_back(m_reader.read()); }
    static void fill(Rows &rows, qsizetype count)
    {
        rows.resize(std::size_t(count), CellRow(RecordTexts(PrRecord()).cells()));
    }

private:
    GridRowReader m_reader;
};

/// Reads the rows of one file.
template <typename Target>
class RowsReader
{
public:
    using Rows = typename Target::Rows;

    RowsReader(FieldReader &in, const AnsiCodePage &page, qint16 announced, Rows &rows);

    Result<> read(const AfterRow &afterRow);
    ReadFindings findings() const;

private:
    Result<> readRow();

    qsizetype rowCount() const { return qsizetype(m_rows.size()); }

    FieldReader &m_in;
    Target m_target;
    Rows &m_rows;
    qsizetype m_maxRows; ///< one more than the file announces
    ReadFindings m_findings;
};

template <typename Target>
RowsReader<Target>::RowsReader(FieldReader &in, const AnsiCodePage &page, qint16 announced, Rows &rows)
    : m_in(in)
    , m_target(in, page)
    , m_rows(rows)
    , m_maxRows(qsizetype(announced) + 1)
    , m_findings{.rowsAnnounced = announced}
{
}

template <typename Target>
Result<> RowsReader<Target>::read(const AfterRow &afterRow)
{
    constexpr qsizetype minRowBytes = RowFields::textCount + 3; // separators, and a digit for each of the counts
    m_rows.clear();
    if (m_findings.rowsAnnounced < 0) {
        return FailureCode::SubscriptOutOfRange;
    }
    using Size = decltype(m_rows.size());
    m_rows.reserve(Size(std::min(m_maxRows, m_in.remaining() / minRowBytes + 1)));
    while (!m_in.atEnd()) {
        if (rowCount() == m_maxRows) {
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
    Target::fill(m_rows, m_maxRows);
    return {};
}

template <typename Target>
Result<> RowsReader<Target>::readRow()
{
    const qsizetype rowAt = m_in.position();
    m_target.read(m_rows);
    ++m_findings.rowsFound;
    if (m_in.atEnd() && !m_in.fieldHasEnd()) {
        m_findings.cutRow = m_findings.rowsFound;
        m_findings.cutRowAt = rowAt;
    }
    return m_in.outcome();
}

template <typename Target>
ReadFindings RowsReader<Target>::findings() const
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
void putFields(const RowFields &fields, AnsiBuffer &out)
{
    out.putInteger(fields.conditionCount);
    out.put(',');
    for (const QStringView text : fields.texts) {
        out.putText(text);
        out.put(',');
    }
    out.putInteger(fields.rangeCount);
    for (const SettingRange &range : fields.ranges) {
        putRange(range, out);
    }
    for (const PrCondition &condition : fields.conditions) {
        putCondition(condition, out);
    }
    const bool endsLine = !fields.ranges.empty() || !fields.conditions.empty();
    out.put(endsLine ? QByteArrayView("\r\n") : QByteArrayView(","));
}

/// Puts a file together; nothing is put after the first failure.
class Encoder
{
public:
    explicit Encoder(const AnsiCodePage &page) : m_page(page), m_out(page) { }

    void putMachine(const MachineInfo &machine, qsizetype rowCount);
    void putRow(const RowFields &fields, int row);
    /// False for a row that is not ordinary: nothing is put then.
    bool putOrdinaryRow(const CellTexts &cells);
    bool hasFailed() const { return !m_outcome; }
    EncodedPrFile finish();

private:
    const AnsiCodePage &m_page;
    AnsiBuffer m_out;
    Result<> m_outcome;
    bool m_isPart = false;
};

void Encoder::putMachine(const MachineInfo &machine, qsizetype rowCount)
{
    constexpr qsizetype typicalRow = 80;
    m_out.reserve(rowCount * typicalRow);
    m_out.put("[Inverter]\r\n");
    m_outcome = WriteInverterSection(machine, m_out);
    // More capacities than rated currents: what precedes the gap is still written.
    m_isPart = !m_outcome && m_outcome.failure().code == FailureCode::SubscriptOutOfRange;
    if (m_outcome) {
        m_out.put(rowsLine);
        m_out.put("\r\n");
    }
}

void Encoder::putRow(const RowFields &fields, int row)
{
    if (hasFailed()) {
        return;
    }
    putFields(fields, m_out);
    if (const auto missing = m_out.missingCharacter()) {
        m_outcome = Failure{.code = FailureCode::RowCharacterMissing,
            .arguments = QStringList{QString::number(row)} + *missing,
            .cell = findMissingCharacter(fields, row, m_page)};
    }
}

bool Encoder::putOrdinaryRow(const CellTexts &cells)
{
    const char *const end = encodeOrdinaryRow(cells, m_page, m_out.room(maxOrdinaryRowBytes(cells)));
    if (end != nullptr && !hasFailed()) {
        m_out.advanceTo(end);
    }
    return end != nullptr;
}

EncodedPrFile Encoder::finish()
{
    return {
        .bytes = m_outcome || m_isPart ? m_out.takeBytes() : QByteArray(), .outcome = m_outcome, .isPart = m_isPart};
}

} // namespace

PrFileDecoder::PrFileDecoder(const QByteArray &bytes, const AnsiCodePage &page) : m_bytes(bytes), m_page(page)
{
}

Result<> PrFileDecoder::decodeMachine(MachineInfo &machine) const
{
    return ReadInverterSection(PrivateProfile(m_bytes, m_page), machine);
}

template <typename Target>
Result<> PrFileDecoder::decode(qint16 announced, typename Target::Rows &rows, const AfterRow &afterRow)
{
    FieldReader in(m_bytes, m_page, Target::storage);
    if (!in.passLine(rowsLine)) {
        return FailureCode::NoParameterSection;
    }
    RowsReader<Target> reader(in, m_page, announced, rows);
    auto read = reader.read(afterRow);
    m_findings = reader.findings();
    return read;
}

Result<> PrFileDecoder::decodeRows(qint16 announced, QList<PrRecord> &rows, const AfterRow &afterRow)
{
    return decode<RecordTarget>(announced, rows, afterRow);
}

Result<> PrFileDecoder::decodeRows(qint16 announced, std::vector<CellRow> &rows, const AfterRow &afterRow)
{
    return decode<GridTarget>(announced, rows, afterRow);
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
    Encoder encoder(AnsiCodePage::page(document.codePage));
    encoder.putMachine(document.machine, document.rows.size());
    for (qsizetype i = 0; i < document.rows.size() && !encoder.hasFailed(); ++i) {
        encoder.putRow(fieldsOf(document.rows.at(i)), int(i + 1));
        if (afterRow && !encoder.hasFailed()) {
            afterRow();
        }
    }
    return encoder.finish();
}

std::optional<QByteArray> encodeRow(const PrRecord &record, const AnsiCodePage &page)
{
    AnsiBuffer out(page);
    putFields(fieldsOf(record), out);
    return out.missingCharacter() ? std::nullopt : std::optional(out.takeBytes());
}

EncodedGrid encodePrFile(const GridDocument &document, const AfterRow &afterRow)
{
    const AnsiCodePage &page = AnsiCodePage::page(document.codePage);
    const int rowCount = document.grid.rowCount();
    Encoder encoder(page);
    encoder.putMachine(document.machine, rowCount);
    ReadBackCheck check(page);
    check.checkMachine(document.machine, rowCount > 0);
    RowCollector rows(document.grid);
    for (int row = 1; row <= rowCount; ++row) {
        if (!encoder.putOrdinaryRow(document.grid.rowTexts(row))) {
            if (auto collected = rows.collect(row); !collected) {
                return {{.bytes = {}, .outcome = collected}, {}};
            }
            check.checkRow(rows.fields(), row);
            encoder.putRow(rows.fields(), row);
        }
        if (afterRow && !encoder.hasFailed()) {
            afterRow();
        }
    }
    return {encoder.finish(), check.takeFindings()};
}
