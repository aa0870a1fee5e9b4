#include "check/ReadBackFindings.h"

#include "check/MachineKeys.h"
#include "document/FieldText.h"
#include "document/ParameterColumns.h"
#include "document/ReadBackCheck.h"
#include "document/RowCollector.h"
#include "runtime/AnsiText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

CheckId checkOf(ReadBackFault fault)
{
    switch (fault) {
    case ReadBackFault::Comma:
        return CheckId::CommaInText;
    case ReadBackFault::LineEnd:
        return CheckId::LineEndInText;
    case ReadBackFault::LeadingQuote:
        return CheckId::LeadingQuote;
    case ReadBackFault::EdgeSpaces:
        return CheckId::EdgeSpaces;
    case ReadBackFault::Character:
        return CheckId::OtherCharacter;
    case ReadBackFault::BoundDigits:
        return CheckId::BoundDigits;
    case ReadBackFault::TooLong:
        return CheckId::ValueCut;
    case ReadBackFault::EnclosingQuotes:
        return CheckId::EnclosingQuotes;
    case ReadBackFault::EmptyEntry:
        return CheckId::EmptyEntry;
    case ReadBackFault::ModelNameMissing:
        return CheckId::NoModelName;
    case ReadBackFault::CurrentMissing:
        return CheckId::CurrentMissing;
    case ReadBackFault::CapacityMissing:
        return CheckId::CapacityMissing;
    }
    Q_UNREACHABLE();
}

QStringList lengthOf(const QString &key, const MachineInfo &machine, const AnsiCodePage &page)
{
    const auto texts = machineValues(machine);
    const auto found = std::ranges::find(texts, key, &std::pair<QString, QString>::first);
    return {QString::number(found == texts.end() ? 0 : page.byteLength(found->second))};
}

bool isMissingIn(const QString &text, const AnsiCodePage &page)
{
    QByteArray bytes;
    return page.encode(text, bytes).has_value();
}

void checkMachineTexts(const MachineInfo &machine, const AnsiCodePage &page, Findings &findings)
{
    for (const auto &[key, text] : machineValues(machine)) {
        if (const qsizetype bytes = undecodedBytes(text); bytes > 0) {
            findings.append(
                {CheckId::BytesOutsidePage, {}, key, {QString::number(bytes), QString::number(page.number())}});
        }
        if (isMissingIn(text, page)) {
            findings.append({CheckId::CharacterOutsidePage, {}, key, {QString::number(page.number())}});
        }
    }
}

/// The texts of a record by column: those that are written as they were typed.
class RowTexts
{
public:
    RowTexts(const AnsiCodePage &page, Findings &findings) : m_page(page), m_findings(findings) { }

    void check(const PrRecord &record, int row);

private:
    void add(const PrRecord &record, int row, int column, qsizetype bytes);

    const AnsiCodePage &m_page;
    Findings &m_findings;
};

void RowTexts::check(const PrRecord &record, int row)
{
    for (const ColumnInfo &column : parameterColumns) {
        if (column.field != nullptr) {
            add(record, row, column.column, undecodedBytes(record.*column.field));
        }
    }
    qsizetype inConditions = 0;
    for (const PrCondition &condition : record.conditions) {
        inConditions +=
            undecodedBytes(condition.subject) + undecodedBytes(condition.value1) + undecodedBytes(condition.value2);
    }
    add(record, row, ParameterColumn::Condition, inConditions);
    if (const auto place = findMissingCharacter(fieldsOf(record), row, m_page)) {
        m_findings.append({CheckId::CharacterOutsidePage, *place, record.number, {QString::number(m_page.number())}});
    }
}

void RowTexts::add(const PrRecord &record, int row, int column, qsizetype bytes)
{
    if (bytes > 0) {
        m_findings.append({CheckId::BytesOutsidePage, {.row = row, .column = column}, record.number,
            {QString::number(bytes), QString::number(m_page.number())}});
    }
}

} // namespace

Findings checkReadBack(const Document &document)
{
    const AnsiCodePage &page = AnsiCodePage::page(document.codePage);
    Findings findings = checkMachineReadBack(document.machine, !document.rows.isEmpty(), page);
    for (qsizetype i = 0; i < document.rows.size(); ++i) {
        findings += checkRowReadBack(document.rows[i], int(i + 1), page);
    }
    return findings;
}

Findings checkMachineReadBack(const MachineInfo &machine, bool hasRows, const AnsiCodePage &page)
{
    ReadBackCheck check(page);
    check.checkMachine(machine, hasRows);
    Findings findings;
    for (const ReadBackFinding &fault : check.takeFindings()) {
        const bool isTooLong = fault.fault == ReadBackFault::TooLong;
        findings.append(
            {checkOf(fault.fault), {}, fault.name, isTooLong ? lengthOf(fault.name, machine, page) : QStringList()});
    }
    checkMachineTexts(machine, page, findings);
    return findings;
}

Findings checkRowReadBack(const PrRecord &record, int row, const AnsiCodePage &page)
{
    ReadBackCheck check(page);
    check.checkRow(fieldsOf(record), row);
    Findings findings;
    for (const ReadBackFinding &fault : check.takeFindings()) {
        const bool isBound = fault.fault == ReadBackFault::BoundDigits;
        findings.append({checkOf(fault.fault), fault.cell, fault.name,
            isBound ? QStringList{settingRangeText(record)} : QStringList()});
    }
    RowTexts(page, findings).check(record, row);
    return findings;
}
