#pragma once

#include "resources/Texts.h"

#include <QStringView>

#include <span>
#include <variant>

/// What the program says beyond its table of numbered texts (resources/StringTable.h). Each is a whole sentence or
/// caption; %1, %2 ... stand for what is filled in.
enum class OwnText : quint16 {
    // Run-time errors
    Overflow,
    TypeMismatch,
    SubscriptOutOfRange,
    InputPastEnd,
    PrinterError,
    // Files
    SystemReason, ///< %1: the system's own description, in the system's language
    RowCharacterMissing, ///< %1: row, from 1; %2: the character; %3: its code; %4: number of the code page
    KeyCharacterMissing, ///< %1: key of the "[Inverter]" section; %2 to %4: as above
    FileBeingSaved,
    NotAFile,
    FileTooLarge, ///< %1: the most megabytes that a file may have
    FileChanging,
    NotAHelpFile,
    // Saving
    FileChangedQuestion,
    FileAppearedQuestion,
    ReadBackQuestion, ///< %1: number of findings; %2: a line for each
    ReadBackQuestionOfMany, ///< %1: number of findings; %2: a line for each of the first
    ChangesNotKept,
    // What would not be read back of a cell. %1: row, from 1; %2: parameter number; %3: the column's caption
    CellHasComma,
    CellHasLineEnd,
    CellHasLeadingQuote,
    CellHasEdgeSpaces,
    CellHasOtherCharacter,
    CellHasLongBound,
    // What would not be read back of the machine information. %1: key of the "[Inverter]" section
    ValueHasLineEnd,
    ValueHasEdgeSpaces,
    ValueHasOtherCharacter,
    ValueIsTooLong,
    ValueHasEnclosingQuotes,
    ValueIsEmpty,
    ModelNameMissing,
    CurrentMissing,
    CapacityMissing,
    // Backups
    SaveWithoutVersion, ///< a question; %1: folder; %2: the system's description
    // Rules for checks (tabrix-check.ini). %1: the rules file
    RulesNotRead, ///< %2: the system's reason
    RulesNotIni,
    RulesTwice, ///< %2: the section, or the section and the key
    RulesUnknownId, ///< %2: the section
    RulesUnknownKey, ///< %2: the key
    RulesUnknownSeverity, ///< %2: the section; %3: the severity
    RulesWithoutReason, ///< %2: the section
    // Recovery
    CopiesNotRead, ///< %1: folder; %2: the system's description
    // Grid
    DeleteAllRowsQuestion, ///< %1: how many
    WholeNumberLimits, ///< %1, %2: the smallest and the greatest
    NumberLimits, ///< likewise
    TextLimit, ///< %1: the most characters
    // What a check finds in the grid
    FindingError, ///< %1: the finding, a sentence; %2: the name of its check
    FindingWarning, ///< likewise
    FindingReached, ///< %1: which one, from 1; %2: of how many; %3: what was found
    FindingHidden, ///< %1: the caption of its column; %2: what was found
    NoFinding,
    MachineInformation, ///< as a finding about it calls it
    // Why nothing was filled. %1: row, from 1; %2: the column's caption
    FillNotInRange, ///< %3, %4: smallest and largest number
    FillTooLong, ///< %3: most characters
    FillNoChoice, ///< %3: what can be chosen
    FillLineBreak,
    FillSeriesEnd,
    // Printing
    NoPageToPrint, ///< %1, %2: first and last page of the range; %3: number of pages
    NoColumnToPrint,
    Count ///< comes last
};

/// A caption, from whichever of the two tables has it.
using Caption = std::variant<Text, OwnText>;

/// One text in both languages.
struct OwnTextEntry
{
    OwnText id;
    QStringView english;
    QStringView japanese;
};

/// Every text, in the order of OwnText.
std::span<const OwnTextEntry> ownTextEntries();
