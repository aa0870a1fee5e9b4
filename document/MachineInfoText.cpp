#include "document/MachineInfoText.h"

#include "document/FieldText.h"
#include "runtime/NumberText.h"

using namespace Qt::StringLiterals;

QString optionText(const QStringList &options)
{
    return options.value(0) == "xx"_L1 ? QString() : options.join(u',');
}

QStringList optionsOfText(const QString &text)
{
    const QStringList options = text.trimmed().isEmpty() ? QStringList() : text.split(u',', Qt::SkipEmptyParts);
    return options.isEmpty() ? QStringList{u"xx"_s} : options;
}

bool isMachineCode(const QString &text)
{
    return isNumeric(u"&H"_s + text);
}

std::optional<CapacityTexts> storedCapacity(const CapacityTexts &row)
{
    if (!isNumeric(row.capacity) || !isNumeric(row.current)) {
        return std::nullopt;
    }
    return CapacityTexts{NormalizeNumText(row.capacity), NormalizeNumText(row.current)};
}
