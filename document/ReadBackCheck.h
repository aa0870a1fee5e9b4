#pragma once

#include "document/MachineInfo.h"
#include "document/PrRecord.h"
#include "runtime/Failure.h"

#include <QList>
#include <QString>

#include <optional>
#include <utility>

class AnsiCodePage;
struct RowFields;

/// Why a text does not come back from its file as it was.
enum class ReadBackFault {
    Comma, ///< it would end the field
    LineEnd, ///< likewise
    LeadingQuote, ///< the field would go on to the next quote
    EdgeSpaces, ///< they are dropped
    Character, ///< its bytes mean another character
    BoundDigits, ///< a bound of more than seven digits, or below 0.0001
    TooLong, ///< a value of the machine information is cut
    EnclosingQuotes, ///< they are taken off such a value
    EmptyEntry, ///< it ends its list
    ModelNameMissing, ///< nothing else of the machine information is read then
    CurrentMissing, ///< the file ends at the capacity
    CapacityMissing, ///< the current is not written
};

/// A cell, or a value of the machine information, that does not come back.
struct ReadBackFinding
{
    ReadBackFault fault;
    CellPosition cell = {}; ///< row 0: the machine information
    QString name; ///< the parameter's number, or the key of the machine information

    bool operator==(const ReadBackFinding &) const = default;
};

/// Finds what of a document would not be read back from its file as it is written. Texts that the code page lacks are
/// not looked for; they are never written.
class ReadBackCheck
{
public:
    explicit ReadBackCheck(const AnsiCodePage &page) : m_page(page) { }

    void checkMachine(const MachineInfo &info, bool hasRows);
    /// row: from 1.
    void checkRow(const RowFields &fields, int row);

    /// By row and column, in the order of the calls.
    QList<ReadBackFinding> takeFindings() { return std::exchange(m_findings, {}); }

private:
    const AnsiCodePage &m_page;
    QList<ReadBackFinding> m_findings;
};

/// Whether only reading can tell if a text comes back: nearly no text is of that kind.
bool mayChangeWhenRead(QStringView text);

/// The findings in a whole document: the machine information, then the rows.
QList<ReadBackFinding> findReadBackFaults(
    const MachineInfo &info, const QList<PrRecord> &records, const AnsiCodePage &page);

/// The cell of the row whose text has a character that the code page lacks; `std::nullopt` if there is none.
std::optional<CellPosition> findMissingCharacter(const RowFields &fields, int row, const AnsiCodePage &page);
