#include "check/CheckIds.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

using enum CheckId;
using enum Severity;

constexpr CheckInfo infos[] = {
    // The file cannot be read, or not as a whole
    {NoParameterSection, Error, "no-parameter-section"_L1},
    {CountNotANumber, Error, "count-not-a-number"_L1},
    {NegativeCount, Error, "negative-count"_L1},
    {NumberTooLarge, Error, "number-too-large"_L1},
    {FileEndsInRow, Error, "file-ends-in-row"_L1},
    {TooManyRows, Error, "too-many-rows"_L1},
    {RowsMissing, Error, "rows-missing"_L1},
    {RowBeyondCount, Error, "row-beyond-count"_L1},
    {LastFieldOpen, Warning, "last-field-open"_L1},
    {NoModelName, Error, "no-model-name"_L1},
    // A save would lose or change something
    {CommaInText, Error, "comma-in-text"_L1},
    {LineEndInText, Error, "line-end-in-text"_L1},
    {LeadingQuote, Error, "leading-quote"_L1},
    {EdgeSpaces, Error, "edge-spaces"_L1},
    {EnclosingQuotes, Error, "enclosing-quotes"_L1},
    {OtherCharacter, Error, "other-character"_L1},
    {CharacterOutsidePage, Error, "character-outside-page"_L1},
    {BytesOutsidePage, Warning, "bytes-outside-page"_L1},
    {ValueCut, Error, "value-cut"_L1},
    {EmptyEntry, Error, "empty-entry"_L1},
    {CurrentMissing, Error, "current-missing"_L1},
    {CapacityMissing, Error, "capacity-missing"_L1},
    {BoundDigits, Error, "bound-digits"_L1},
    {BoundsReversed, Error, "bounds-reversed"_L1},
    {RangeChanged, Error, "range-changed"_L1},
    {ConditionsChanged, Error, "conditions-changed"_L1},
    {ValueChanged, Error, "value-changed"_L1},
    {LineDropped, Warning, "line-dropped"_L1},
    {SpelledOtherwise, Note, "spelled-otherwise"_L1},
    {LayoutDiffers, Note, "layout-differs"_L1},
    // The content is wrong in itself
    {NumberEmpty, Warning, "number-empty"_L1},
    {NumberTwice, Warning, "number-twice"_L1},
    {NumberOrder, Note, "number-order"_L1},
    {RangesOverlap, Warning, "ranges-overlap"_L1},
    {FactoryOutsideRanges, Warning, "factory-outside-ranges"_L1},
    {FactoryBetweenSteps, Warning, "factory-between-steps"_L1},
    {RangeCheckWithoutRange, Warning, "range-check-without-range"_L1},
    {ConditionOnMissing, Warning, "condition-on-missing"_L1},
    {ConditionOnItself, Warning, "condition-on-itself"_L1},
    {ConditionOutsideRange, Warning, "condition-outside-range"_L1},
    {ConditionAlways, Warning, "condition-always"_L1},
    {ConditionNever, Warning, "condition-never"_L1},
    {UnknownFunctionBits, Warning, "unknown-function-bits"_L1},
    {CapacityOrder, Warning, "capacity-order"_L1},
    {CapacityTwice, Warning, "capacity-twice"_L1},
    {NameTooLong, Note, "name-too-long"_L1},
    {ValueTooLongToPrint, Note, "value-too-long-to-print"_L1},
    {HelpIdShared, Note, "help-id-shared"_L1},
};

static_assert(
    [] {
        for (std::size_t i = 0; i < std::size(infos); ++i) {
            if (std::size_t(infos[i].id) != i) {
                return false;
            }
        }
        return std::size(infos) == checkCount;
    }(),
    "every check is there, in the order of CheckId");

constexpr QLatin1StringView severities[] = {"note"_L1, "warning"_L1, "error"_L1};

} // namespace

std::span<const CheckInfo> checkInfos()
{
    return infos;
}

const CheckInfo &checkInfo(CheckId id)
{
    return infos[std::size_t(id)];
}

std::optional<CheckId> checkNamed(QStringView name)
{
    const auto *found = std::ranges::find_if(infos, [name](const CheckInfo &info) { return info.name == name; });
    return found == std::end(infos) ? std::nullopt : std::optional(found->id);
}

QLatin1StringView severityName(Severity severity)
{
    return severities[std::size_t(severity)];
}

std::optional<Severity> severityNamed(QStringView name)
{
    const auto *found = std::ranges::find_if(severities, [name](QLatin1StringView known) { return known == name; });
    return found == std::end(severities) ? std::nullopt : std::optional(Severity(found - severities));
}
