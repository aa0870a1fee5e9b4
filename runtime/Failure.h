#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// Where something is in a document.
struct CellPosition
{
    int row = 0; ///< from 1; 0: the machine information
    int column = 0; ///< the grid's, from 1; 0: the machine information

    bool operator==(const CellPosition &) const = default;
};

/// Where something is in a file.
struct FilePosition
{
    int row = 0; ///< from 1; 0: the machine information
    int field = 0; ///< from 1, in the order of the row's fields; 0: the row, or the machine information, as a whole
    qsizetype offset = 0; ///< the byte, from 0, that it begins with

    bool operator==(const FilePosition &) const = default;
};

/// What went wrong. Each code says what its failure's arguments are.
enum class FailureCode : quint8 {
    // Conversions
    Overflow,
    TypeMismatch,
    SubscriptOutOfRange,
    InputPastEnd,
    PrinterError,
    // Files
    System, ///< systemError says what
    LockHeld, ///< by another program
    NotAFile, ///< a pipe, a socket or a device
    FileTooLarge, ///< for the program, not for the disk; 1: the most megabytes that a file may have
    FileChanging, ///< another program is writing to it
    // Reading
    NoParameterSection, ///< silent
    // Saving
    NoFileName, ///< silent
    RowCharacterMissing, ///< 1: row, from 1; 2: the character; 3: its code; 4: number of the code page without it
    KeyCharacterMissing, ///< 1: key of the "[Inverter]" section; 2 to 4: as above
    FileBeingSaved, ///< by another program
    FileChanged, ///< by another program, since the document was read or saved
    FileAppeared, ///< where the document never had one
    VersionNotKept, ///< of what the file holds; 1: the folder for it; 2: the system's reason
    Declined, ///< by the user; silent
    // Rules for checks (tabrix-check.ini). 1: the rules file
    RulesNotRead, ///< 2: the system's reason
    RulesNotIni,
    RulesTwice, ///< 2: the section, or the section and the key
    RulesUnknownId, ///< 2: the section
    RulesUnknownKey, ///< 2: the key
    RulesUnknownSeverity, ///< 2: the section; 3: the severity
    RulesWithoutReason, ///< 2: the section
    // Recovery
    CopiesNotRead, ///< 1: their folder; 2: the system's reason
};

/// Why something could not be done. It is worded where it is shown (app/services/Messages.h), in the user's language.
struct Failure
{
    FailureCode code;
    QStringList arguments = {};
    int systemError = 0; ///< errno, or 0x100000 + a code of Windows only; the nearest one for files that are refused
    std::optional<CellPosition> cell = {}; ///< the text that cannot be written
    std::optional<FilePosition> position = {}; ///< what cannot be read

    static Failure system(int error) { return {.code = FailureCode::System, .systemError = error}; }
    /// The failure of the system call made last. To be called before anything else is done.
    static Failure lastSystemCall();

    /// The system's description of systemError, in the system's language; never empty.
    QString reason() const;
    /// Whether the user is told nothing of it.
    bool isSilent() const;

    bool operator==(const Failure &) const = default;
};
