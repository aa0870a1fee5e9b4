#pragma once

#include <QLatin1StringView>

#include <optional>
#include <span>

/// Everything that a check can find. Each has a name, by which users switch it off and look it up.
enum class CheckId : quint8 {
    // The file cannot be read, or not as a whole
    NoParameterSection,
    CountNotANumber,
    NegativeCount,
    NumberTooLarge,
    FileEndsInRow,
    TooManyRows,
    RowsMissing,
    RowBeyondCount,
    LastFieldOpen,
    NoModelName,
    // A save would lose or change something
    CommaInText,
    LineEndInText,
    LeadingQuote,
    EdgeSpaces,
    EnclosingQuotes,
    OtherCharacter,
    CharacterOutsidePage,
    BytesOutsidePage,
    ValueCut,
    EmptyEntry,
    CurrentMissing,
    CapacityMissing,
    BoundDigits,
    BoundsReversed,
    RangeChanged,
    ConditionsChanged,
    ValueChanged,
    LineDropped,
    SpelledOtherwise,
    LayoutDiffers,
    // The content is wrong in itself
    NumberEmpty,
    NumberTwice,
    NumberOrder,
    RangesOverlap,
    FactoryOutsideRanges,
    FactoryBetweenSteps,
    RangeCheckWithoutRange,
    ConditionOnMissing,
    ConditionOnItself,
    ConditionOutsideRange,
    ConditionAlways,
    ConditionNever,
    UnknownFunctionBits,
    CapacityOrder,
    CapacityTwice,
    NameTooLong,
    ValueTooLongToPrint,
    HelpIdShared,
    Count ///< comes last
};

enum class Severity : quint8 {
    Note, ///< a save makes it uniform, or it is only unusual
    Warning, ///< wrong in itself, but nothing is lost
    Error, ///< data is lost, or would be lost by a save
};

struct CheckInfo
{
    CheckId id;
    Severity severity;
    QLatin1StringView name; ///< lower case, words joined with "-"
};

/// How many there are.
inline constexpr std::size_t checkCount = std::size_t(CheckId::Count);

/// Every check, in the order of CheckId.
std::span<const CheckInfo> checkInfos();

const CheckInfo &checkInfo(CheckId id);

/// The check of that name; std::nullopt if there is none.
std::optional<CheckId> checkNamed(QStringView name);

/// "note", "warning" or "error".
QLatin1StringView severityName(Severity severity);
std::optional<Severity> severityNamed(QStringView name);
