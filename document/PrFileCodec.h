#pragma once

#include "document/Document.h"
#include "document/ReadBackCheck.h"
#include "document/ReadFindings.h"
#include "runtime/CellRow.h"
#include "runtime/Result.h"

#include <QByteArray>

#include <functional>
#include <optional>
#include <vector>

class AnsiCodePage;
class PrGrid;

/// Called after each row, so that a window stays responsive.
using AfterRow = std::function<void()>;

/// Decodes a parameter file step by step, into what the caller has: after a failure that holds what was read before.
class PrFileDecoder
{
public:
    PrFileDecoder(const QByteArray &bytes, const AnsiCodePage &page);

    /// First the machine information. Fields that the file does not name stay as they are.
    Result<> decodeMachine(MachineInfo &machine) const;

    /// Then the rows. They are sized by the number that the file announces, plus one: those that it does not have are
    /// empty, and a second row too many is a failure. So is a file without a "[Paramater]" line, which leaves rows
    /// untouched and has no findings.
    Result<> decodeRows(qint16 announced, QList<PrRecord> &rows, const AfterRow &afterRow = {});
    /// The same rows as a grid shows them, a buffer each, which is what a window opens.
    Result<> decodeRows(qint16 announced, std::vector<CellRow> &rows, const AfterRow &afterRow = {});
    const std::optional<ReadFindings> &findings() const { return m_findings; }

private:
    template <typename Target>
    Result<> decode(qint16 announced, typename Target::Rows &rows, const AfterRow &afterRow);

    QByteArray m_bytes;
    const AnsiCodePage &m_page;
    std::optional<ReadFindings> m_findings;
};

/// What decoding a file came to. After a failure the document holds what was read before it.
struct DecodedPrFile
{
    Document document;
    std::optional<ReadFindings> findings; ///< `std::nullopt` if decoding did not get as far as the rows
    Result<> outcome;
};

/// Decodes a whole parameter file, as PrFileDecoder does.
DecodedPrFile decodePrFile(const QByteArray &bytes, const AnsiCodePage &page);

/// What encoding a document came to.
struct EncodedPrFile
{
    QByteArray bytes;
    /// The failure that keeps the document from being written, or, if isPart is set, cut it short: bytes is then what
    /// precedes a capacity without its current, which is still written.
    Result<> outcome;
    bool isPart = false;

    bool isWritable() const { return outcome || isPart; }
};

/// Encodes a document in its own code page. Its row count is written as machine.Paramater has it.
EncodedPrFile encodePrFile(const Document &document, const AfterRow &afterRow = {});

/// The bytes of one row; std::nullopt if the page does not have one of its characters.
std::optional<QByteArray> encodeRow(const PrRecord &record, const AnsiCodePage &page);

/// A document whose rows are a grid's.
struct GridDocument
{
    const MachineInfo &machine;
    const PrGrid &grid;
    int codePage;
};

/// The file of a grid's document, and what of it would not be read back.
struct EncodedGrid : EncodedPrFile
{
    QList<ReadBackFinding> findings;
};

/// Encodes a grid's document row by row from the grid's own texts. A cell that its field cannot hold (an overflow)
/// comes before every other failure. The grid must stay as it is while afterRow() runs.
EncodedGrid encodePrFile(const GridDocument &document, const AfterRow &afterRow = {});
