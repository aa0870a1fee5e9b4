#include "check/ContentCheck.h"

#include "check/ConditionCheck.h"
#include "check/ParameterIndex.h"
#include "document/FieldText.h"
#include "document/ParameterColumn.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// Looks at one row of a document.
class ContentCheck
{
public:
    ContentCheck(const PrRecord &record, int row, const OtherRows &others, const ContentBasis &basis);

    Findings check();

private:
    void checkNumber();
    void checkName();
    void checkHelpId();
    void checkRanges();
    void checkFactorySetting();
    void checkSteps(double value);
    void checkFunctionCode();
    void add(CheckId id, int column, const QStringList &arguments = {});

    const PrRecord &m_record;
    int m_row; ///< from 0
    const OtherRows &m_others;
    FunctionLabels m_labels;
    const AnsiCodePage &m_page;
    QList<SettingInterval> m_intervals;
    Findings m_findings;
};

ContentCheck::ContentCheck(const PrRecord &record, int row, const OtherRows &others, const ContentBasis &basis)
    : m_record(record)
    , m_row(row)
    , m_others(others)
    , m_labels(basis.labels)
    , m_page(AnsiCodePage::page(basis.codePage))
    , m_intervals(settingIntervals(record.ranges))
{
}

Findings ContentCheck::check()
{
    checkNumber();
    checkName();
    checkHelpId();
    checkRanges();
    checkFactorySetting();
    checkFunctionCode();
    checkConditions(m_record, m_row + 1, m_others, m_findings);
    return std::move(m_findings);
}

void ContentCheck::add(CheckId id, int column, const QStringList &arguments)
{
    m_findings.append({id, {.row = m_row + 1, .column = column}, m_record.number, arguments});
}

void ContentCheck::checkNumber()
{
    const QString &number = m_record.number;
    if (number.trimmed().isEmpty()) {
        add(CheckId::NumberEmpty, ParameterColumn::Number);
        return;
    }
    const int first = m_others.rowOf(number);
    if (first != m_row) {
        add(CheckId::NumberTwice, ParameterColumn::Number, {QString::number(first + 1)});
    } else if (m_row > 0) {
        const QString previous = m_others.number(m_row - 1);
        const auto value = numericValue(number);
        const auto previousValue = numericValue(previous);
        if (value && previousValue && *value < *previousValue) {
            add(CheckId::NumberOrder, ParameterColumn::Number, {previous});
        }
    }
}

void ContentCheck::checkName()
{
    const QString &name = m_record.name;
    const qsizetype width = name.size() * 2 > printedNameWidth ? m_page.byteLength(name) : 0;
    if (width > printedNameWidth) {
        add(CheckId::NameTooLong, ParameterColumn::Name, {QString::number(width), QString::number(printedNameWidth)});
    }
}

void ContentCheck::checkHelpId()
{
    const QString &helpId = m_record.helpId;
    if (helpId.isEmpty() || helpId == "0"_L1) {
        return;
    }
    const int first = m_others.rowOfHelp(helpId);
    if (const QString name = m_others.name(first); name != m_record.name) {
        add(CheckId::HelpIdShared, ParameterColumn::HelpId, {helpId, QString::number(first + 1), name});
    }
}

void ContentCheck::checkRanges()
{
    for (const SettingRange &range : m_record.ranges) {
        if (isReversed(range)) {
            add(CheckId::BoundsReversed, ParameterColumn::SettingRange,
                {SingleToText(range.lower), SingleToText(range.upper)});
        }
    }
    double highest = -std::numeric_limits<double>::infinity();
    for (const SettingInterval &interval : m_intervals) {
        if (interval.lowest <= highest) {
            add(CheckId::RangesOverlap, ParameterColumn::SettingRange,
                {settingRangeText(m_record), SingleToText(float(interval.lowest))});
            break;
        }
        highest = std::max(highest, interval.highest);
    }
    if (m_record.rangeCheck == "1"_L1 && m_record.ranges.isEmpty()) {
        add(CheckId::RangeCheckWithoutRange, ParameterColumn::RangeCheck);
    }
}

void ContentCheck::checkFactorySetting()
{
    const auto value = numericValue(m_record.factorySetting);
    if (!value || m_intervals.isEmpty()) {
        return;
    }
    if (!containsValue(m_intervals, double(float(*value)))) { // the bounds are of single precision too
        add(CheckId::FactoryOutsideRanges, ParameterColumn::FactorySetting,
            {m_record.factorySetting, settingRangeText(m_record)});
    } else {
        checkSteps(*value);
    }
}

/// The steps are powers of ten: a multiple of one of them is a multiple of the smallest.
void ContentCheck::checkSteps(double value)
{
    constexpr double tolerance = 1e-6;
    double smallest = 0;
    QString smallestText;
    for (const QString &text : {m_record.min1, m_record.min2, m_record.min3}) {
        const double step = leadingNumber(text);
        if (step > 0 && (smallest == 0 || step < smallest)) {
            smallest = step;
            smallestText = text;
        }
    }
    if (smallest == 0) {
        return;
    }
    const double steps = value / smallest;
    if (std::abs(steps - std::nearbyint(steps)) > tolerance * std::max(1.0, std::abs(steps))) {
        add(CheckId::FactoryBetweenSteps, ParameterColumn::FactorySetting, {m_record.factorySetting, smallestText});
    }
}

void ContentCheck::checkFunctionCode()
{
    const qint16 code = storedFunctionCode(m_record.functionCode);
    const auto unknown = qint16(code ^ codeOfGroups(groupsOfCode(code, m_labels), m_labels));
    if (unknown != 0) {
        add(CheckId::UnknownFunctionBits, ParameterColumn::FuncCode,
            {functionCodeText(code), functionCodeText(unknown)});
    }
}

} // namespace

Findings checkContent(const PrRecord &record, int row, const OtherRows &others, const ContentBasis &basis)
{
    return ContentCheck(record, row, others, basis).check();
}

Findings checkContent(const QList<PrRecord> &rows, const ContentBasis &basis)
{
    const ParameterIndex index(rows);
    Findings findings;
    for (int row = 0; row < rows.size(); ++row) {
        findings += checkContent(rows[row], row, index, basis);
    }
    return findings;
}
