#include "tool/Sheet.h"

#include "check/MachineKeys.h"
#include "document/FieldText.h"
#include "document/PrCondText.h"
#include "runtime/NumberText.h"
#include "tool/ListTexts.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

PrRecord recordOf(const SheetEntry &entry)
{
    PrRecord record;
    record.number = entry.key.text;
    QString *const texts[] = {&record.helpId, &record.name, &record.unit, &record.min1, &record.min2, &record.min3,
        &record.factorySetting, &record.functionCode, &record.rangeCheck};
    for (std::size_t i = 0; i < std::size(texts); ++i) {
        *texts[i] = entry.values.value(qsizetype(i));
    }
    record.ranges = rangesOfText(entry.values.value(std::size(texts)));
    record.conditions = conditionsOfText(entry.values.value(std::size(texts) + 1));
    record.rangeCount = qint16(record.ranges.size());
    record.conditionCount = qint16(record.conditions.size());
    return record;
}

} // namespace

QStringList parameterValues(const PrRecord &record)
{
    return {record.helpId, record.name, record.unit, record.min1, record.min2, record.min3, record.factorySetting,
        record.functionCode, record.rangeCheck, rangesAsText(record.ranges), conditionsAsText(record.conditions)};
}

size_t qHash(const EntryKey &key, size_t seed)
{
    return qHashMulti(seed, key.text, key.occurrence);
}

void countOccurrences(QList<SheetEntry> &entries)
{
    QHash<QString, int> counts;
    counts.reserve(entries.size());
    for (SheetEntry &entry : entries) {
        entry.key.occurrence = ++counts[entry.key.text];
    }
}

Sheet sheetOf(const Document &document)
{
    return sheetOf(document, QList<bool>(document.rows.size(), true));
}

Sheet sheetOf(const Document &document, const QList<bool> &needsValues)
{
    Sheet sheet;
    sheet.codePage = document.codePage;
    const MachineInfo &machine = document.machine;
    for (const MachineTextKey &text : machineTextKeys()) {
        sheet.part(SheetPart::Machine).append(SheetEntry{{text.key}, {machine.*text.field}});
    }
    for (qsizetype i = 0; i < machine.Capacity.size(); ++i) {
        sheet.part(SheetPart::Capacities).append(SheetEntry{{machine.Capacity[i]}, {machine.ICapacity.value(i)}});
    }
    for (const QString &option : machine.Option) {
        sheet.part(SheetPart::Options).append(SheetEntry{{option}, {}});
    }
    auto &parameters = sheet.part(SheetPart::Parameters);
    parameters.reserve(document.rows.size());
    for (qsizetype row = 0; row < document.rows.size(); ++row) {
        const PrRecord &record = document.rows[row];
        parameters.append(SheetEntry{{record.number}, needsValues[row] ? parameterValues(record) : QStringList()});
    }
    for (auto &part : sheet.parts) {
        countOccurrences(part);
    }
    return sheet;
}

Document documentOf(const Sheet &sheet)
{
    Document document;
    document.codePage = sheet.codePage;
    MachineInfo &machine = document.machine;
    for (const SheetEntry &entry : sheet.part(SheetPart::Machine)) {
        setMachineValue(machine, entry.key.text, entry.values.value(0));
    }
    for (const SheetEntry &entry : sheet.part(SheetPart::Capacities)) {
        machine.Capacity.append(entry.key.text);
        machine.ICapacity.append(entry.values.value(0));
    }
    for (const SheetEntry &entry : sheet.part(SheetPart::Options)) {
        machine.Option.append(entry.key.text);
    }
    for (const SheetEntry &entry : sheet.part(SheetPart::Parameters)) {
        document.rows.append(recordOf(entry));
    }
    machine.Paramater = qint16(document.rows.size());
    return document;
}
