#include "check/CheckIds.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

using enum CheckId;
using enum Severity;

constexpr CheckInfo infos[] = {
    // The file cannot be read, or not as a whole
    {NoParameterSection, "no-parameter-section"_L1, Error},
    {CountNotANumber, "count-not-a-number"_L1, Error},
    {NegativeCount, "negative-count"_L1, Error},
    {NumberTooLarge, "number-too-large"_L1, Error},
    {FileEndsInRow, "file-ends-in-row"_L1, Error},
    {TooManyRows, "too-many-rows"_L1, Error},
    {RowsMissing, "rows-missing"_L1, Error},
    {RowBeyondCount, "row-beyond-count"_L1, Error},
    {LastFieldOpen, "last-field-open"_L1, Warning},
    {NoModelName, "no-model-name"_L1, Error},
    // A save would lose or change something
    {CommaInText, "comma-in-text"_L1, Error},
    {LineEndInText, "line-end-in-text"_L1, Error},
    {LeadingQuote, "leading-quote"_L1, Error},
    {EdgeSpaces, "edge-spaces"_L1, Error},
    {EnclosingQuotes, "enclosing-quotes"_L1, Error},
    {OtherCharacter, "other-character"_L1, Error},
    {CharacterOutsidePage, "character-outside-page"_L1, Error},
    {BytesOutsidePage, "bytes-outside-page"_L1, Warning},
    {ValueCut, "value-cut"_L1, Error},
    {EmptyEntry, "empty-entry"_L1, Error},
    {CurrentMissing, "current-missing"_L1, Error},
    {CapacityMissing, "capacity-missing"_L1, Error},
    {BoundDigits, "bound-digits"_L1, Error},
    {BoundsReversed, "bounds-reversed"_L1, Error},
    {RangeChanged, "range-changed"_L1, Error},
    {ConditionsChanged, "conditions-changed"_L1, Error},
    {ValueChanged, "value-changed"_L1, Error},
    {LineDropped, "line-dropped"_L1, Warning},
    {SpelledOtherwise, "spelled-otherwise"_L1, Note},
    {LayoutDiffers, "layout-differs"_L1, Note},
    // The content is wrong in itself
    {NumberEmpty, "number-empty"_L1, Warning},
    {NumberTwice, "number-twice"_L1, Warning},
    {NumberOrder, "number-order"_L1, Note},
    {RangesOverlap, "ranges-overlap"_L1, Warning},
    {FactoryOutsideRanges, "factory-outside-ranges"_L1, Warning},
    {FactoryBetweenSteps, "factory-between-steps"_L1, Warning},
    {RangeCheckWithoutRange, "range-check-without-range"_L1, Warning},
    {ConditionOnMissing, "condition-on-missing"_L1, Warning},
    {ConditionOnItself, "condition-on-itself"_L1, Warning},
    {ConditionOutsideRange, "condition-outside-range"_L1, Warning},
    {ConditionAlways, "condition-always"_L1, Warning},
    {ConditionNever, "condition-never"_L1, Warning},
    {UnknownFunctionBits, "unknown-function-bits"_L1, Warning},
    {CapacityOrder, "capacity-order"_L1, Warning},
    {CapacityTwice, "capacity-twice"_L1, Warning},
    {NameTooLong, "name-too-long"_L1, Note},
    {ValueTooLongToPrint, "value-too-long-to-print"_L1, Note},
    {HelpIdShared, "help-id-shared"_L1, Note},
};

static_assert(
    [] {
        for (std::size_t i = 0; i < std::size(infos); ++i) {
            if (std::size_t(infos[i].id) != i) {
                return false;
            }
        }
        return std::size(infos) == std::size_t(HelpIdShared) + 1;
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
