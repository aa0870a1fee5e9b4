#pragma once

#include "document/MachineInfo.h"
#include "document/PrRecord.h"
#include "runtime/Failure.h"

#include <QList>
#include <QString>

#include <optional>

class AnsiCodePage;

/// Why a text does not come back from its file as it was.
enum class ReadBackFault {
    Comma, ///< it would end the field
    LineEnd, ///< likewise
    LeadingQuote, ///< the field would go on to the next quote
    EdgeBlanks, ///< they are dropped
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

/// What of a document would not be read back from its file as it is written: by row and column, after the machine
/// information. Texts that the code page lacks are not looked for; they are never written.
QList<ReadBackFinding> findReadBackFaults(
    const MachineInfo &info, const QList<PrRecord> &records, const AnsiCodePage &page);

/// The cell of the record, in that row, whose text has a character that the code page lacks; `std::nullopt` if there is
/// none.
std::optional<CellPosition> findMissingCharacter(const PrRecord &record, int row, const AnsiCodePage &page);
