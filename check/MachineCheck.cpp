#include "check/MachineCheck.h"

#include "runtime/NumberText.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

QString numbered(const QString &key, qsizetype index)
{
    return key + QString::number(index);
}

void checkCapacities(const QStringList &capacities, Findings &findings)
{
    QList<double> earlier;
    for (qsizetype i = 0; i < capacities.size(); ++i) {
        const std::optional<double> value = numericValue(capacities[i]);
        if (!value) {
            continue;
        }
        const qsizetype same = earlier.indexOf(*value);
        if (same >= 0) {
            findings.append({CheckId::CapacityTwice, {}, numbered(u"Capacity"_s, i), {capacities[i]}});
        } else if (!earlier.isEmpty() && *value < earlier.last()) {
            findings.append(
                {CheckId::CapacityOrder, {}, numbered(u"Capacity"_s, i), {capacities[i], capacities[i - 1]}});
        }
        earlier.append(*value);
    }
}

/// The print-out's page of machine information has fields of this many characters.
void checkPrintedLength(const QString &key, const QString &value, Findings &findings)
{
    constexpr qsizetype printedLength = 20;
    if (value.size() > printedLength) {
        findings.append(
            {CheckId::ValueTooLongToPrint, {}, key, {QString::number(value.size()), QString::number(printedLength)}});
    }
}

void checkPrintedLengths(const QString &key, const QStringList &values, Findings &findings)
{
    for (qsizetype i = 0; i < values.size(); ++i) {
        checkPrintedLength(numbered(key, i), values[i], findings);
    }
}

} // namespace

Findings checkMachine(const MachineInfo &info)
{
    Findings findings;
    checkCapacities(info.Capacity, findings);
    checkPrintedLength(u"Name"_s, info.Name, findings);
    checkPrintedLength(u"TypeCode"_s, info.TypeCode, findings);
    checkPrintedLength(u"VCapacity"_s, info.VCapacity, findings);
    checkPrintedLength(u"Code"_s, info.Code, findings);
    checkPrintedLengths(u"Capacity"_s, info.Capacity, findings);
    checkPrintedLengths(u"ICapacity"_s, info.ICapacity, findings);
    checkPrintedLengths(u"Option"_s, info.Option, findings);
    return findings;
}
