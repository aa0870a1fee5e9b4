#pragma once

#include <QStringList>
#include <QStringView>

#include <span>

/// What the command-line tool says. %1, %2 ... stand for what is filled in.
enum class ToolText : quint8 {
    // The program as a whole
    ProgramSummary,
    CommandList, ///< %1: a line for each command
    NoSuchCommand, ///< %1: the word
    UsageHint, ///< %1: the command
    NoFile,
    TooManyFiles,
    BadValue, ///< %1: option; %2: value; %3: what is allowed
    UsageLine, ///< %1: the command with its arguments
    // Options
    OptionHelp,
    OptionCodePage,
    OptionLanguage,
    OptionQuiet,
    OptionColor,
    OptionOutput,
    ArgumentFiles,
    ArgumentFile,
    Progress, ///< %1: files done; %2: files
    // Files
    CannotRead, ///< %1: file; %2: why
    CannotWrite, ///< %1: file; %2: why
    CannotWriteOutput, ///< %1: why
    InRow, ///< %1: row, from 1; %2: a sentence
    MachineInformation, ///< where a caption is expected
    // check
    CheckSummary,
    CheckFormatOption,
    CheckSeverityOption,
    CheckSelectOption,
    CheckIgnoreOption,
    CheckExplainOption,
    CheckNameOption,
    RuleOff, ///< %1: file; %2: rules file; %3: its reason
    RuleSeverity, ///< likewise; %4: severity
    RuleNone, ///< %1: file
    Explanation, ///< %1: id; %2: severity; %3: why it matters; %4: example; %5: what to do
    SeverityNote,
    SeverityWarning,
    SeverityError,
    // diff
    DiffSummary,
    DiffArguments,
    DiffFormatOption,
    DiffFieldsOption,
    DiffSummaryOption,
    DiffExactOption,
    DiffGitOption,
    DiffTwoFiles,
    DiffUnmerged, ///< %1: path
    DiffCounts, ///< %1: changed; %2: added; %3: removed; %4: moved
    DiffTitle, ///< %1, %2: the files
    DiffNothing,
    DiffPlace, ///< a column's caption
    DiffBefore, ///< likewise
    DiffAfter, ///< likewise
    DiffAdded,
    DiffRemoved,
    DiffMoved, ///< %1: the entry that it is after now
    DiffMovedFirst,
    PartMachine,
    PartCapacity,
    PartOption,
    PartParameter,
    // text, format, show
    TextSummary,
    FormatSummary,
    FormatInPlaceOption,
    FormatCheckOption,
    FormatForceOption,
    FormatWouldLose, ///< %1: file; %2: number of errors
    FormatOneFile,
    FormatNoInput,
    ShowSummary,
    // patch
    PatchSummary,
    PatchArguments,
    PatchExactOption,
    PatchNotAChangeList, ///< %1: file; %2: why
    PatchRejected, ///< %1: part; %2: key; %3: what does not fit
    RejectMissing,
    RejectPresent,
    RejectOtherValue, ///< %1: field; %2: value expected; %3: value found
    RejectNoPredecessor, ///< %1: the entry that it was to come after
    // merge
    MergeSummary,
    MergeArguments,
    MergeNameOption,
    ConflictValue, ///< %1: part; %2: key; %3: field; %4 to %6: base, ours, theirs
    ConflictRemovedByUs, ///< %1: part; %2: key
    ConflictRemovedByThem, ///< likewise
    ConflictOrder, ///< likewise
    NoValue, ///< in place of a value where there is none
    // convert
    ConvertSummary,
    ConvertArguments,
    ConvertFromOption,
    ConvertToOption,
    XlsxParameters,
    XlsxSoftwareVersion,
    XlsxCodePage,
    ConvertUnknownFormat, ///< %1: file; %2: the formats
    // help and the manual
    HelpSummary,
    HelpArguments,
    HelpFormatOption,
    ManualPurpose,
    ManualDescriptionText, ///< a paragraph a line
    ManualExitStatusList, ///< lists have "what TAB text", a line each
    ManualEnvironmentList,
    ManualFilesList,
    ManualExampleList,
    ManualSeeAlsoList, ///< one line
    ManualName, ///< headings, as manual pages have them
    ManualSynopsis,
    ManualDescription,
    ManualOptions,
    ManualCommands,
    ManualExitStatus,
    ManualEnvironment,
    ManualFiles,
    ManualExamples,
    ManualSeeAlso,
    // What is not in the form of JSON that a command takes
    JsonError, ///< %1: line; %2: column; %3: the system's own description
    JsonFormat, ///< %1: format; %2: version
    JsonNotAnArray, ///< %1: place; %2: name
    JsonMissing, ///< likewise
    JsonUnknown, ///< likewise
    JsonBadChange, ///< %1: place; %2: value
    JsonOldAndNew, ///< %1: place; %2: name
    JsonTooManyRows,
    JsonBadList, ///< %1: place; %2: name; %3: value
    JsonCodePage,
    // What is not in the form of CSV. %1: line; %2: column
    CsvQuoteInside,
    CsvTextAfterQuote,
    CsvQuoteOpen,
    CsvNotUtf8,
    CsvHeader, ///< %3: the columns
    CsvTooManyRows,
    CsvFieldCount, ///< %3: number of fields; %4: how many there should be
    CsvOverflow,
    CsvUnknownKey, ///< %3: key
    CsvNoCodePage,
    // print
    PrintSummary,
    PrintMachineOption,
    PrintParametersOption,
    PrintColumnsOption,
    PrintPaperOption,
    PrintLandscapeOption,
    CannotStart, ///< %1: program; %2: why
    // git-setup
    SetupSummary,
    SetupGlobalOption,
    SetupPrintOption,
    SetupRemoveOption,
    SetupFailed, ///< %1: the command; %2: what it said
};

struct ToolTextEntry
{
    ToolText id;
    QStringView english;
    QStringView japanese;
};

/// Every text, in the order of ToolText.
std::span<const ToolTextEntry> toolTextEntries();

/// Whether the interface's language is Japanese.
bool isJapanese();

/// The text in the interface's language, with the arguments filled in.
QString toolText(ToolText text, const QStringList &arguments = {});
