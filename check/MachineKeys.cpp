#include "check/MachineKeys.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

struct ListKey
{
    QLatin1StringView key;
    QStringList MachineInfo::*list;
};

constexpr MachineTextKey textKeys[] = {{"Name"_L1, &MachineInfo::Name}, {"TypeCode"_L1, &MachineInfo::TypeCode},
    {"VCapacity"_L1, &MachineInfo::VCapacity}, {"Code"_L1, &MachineInfo::Code},
    {"SoftWareVersion"_L1, &MachineInfo::SoftWareVersion}};
constexpr ListKey listKeys[] = {{"Capacity"_L1, &MachineInfo::Capacity}, {"ICapacity"_L1, &MachineInfo::ICapacity},
    {"Option"_L1, &MachineInfo::Option}};

} // namespace

std::span<const MachineTextKey> machineTextKeys()
{
    return textKeys;
}

QList<std::pair<QString, QString>> machineValues(const MachineInfo &machine)
{
    QList<std::pair<QString, QString>> values;
    for (const MachineTextKey &text : textKeys) {
        values.append({text.key, machine.*text.field});
    }
    for (const ListKey &list : listKeys) {
        const QStringList &entries = machine.*list.list;
        for (qsizetype i = 0; i < entries.size(); ++i) {
            values.append({list.key + QString::number(i), entries[i]});
        }
    }
    return values;
}

bool setMachineValue(MachineInfo &machine, const QString &key, const QString &value)
{
    const auto *text = std::ranges::find_if(textKeys, [&key](const MachineTextKey &known) { return key == known.key; });
    if (text != std::end(textKeys)) {
        machine.*text->field = value;
        return true;
    }
    const auto *list = std::ranges::find_if(listKeys, [&machine, &key](const ListKey &known) {
        return key == known.key + QString::number((machine.*known.list).size());
    });
    if (list != std::end(listKeys)) {
        (machine.*list->list).append(value);
    }
    return list != std::end(listKeys);
}
