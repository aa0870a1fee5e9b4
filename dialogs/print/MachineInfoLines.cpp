#include "dialogs/print/MachineInfoLines.h"

#include "app/services/Language.h"

namespace {

QString cutToField(const QString &text)
{
    const bool splitsPair = text.size() > MachineInfoField && text.at(MachineInfoField - 1).isHighSurrogate();
    return text.left(splitsPair ? MachineInfoField - 1 : MachineInfoField);
}

MachineInfoLine line(const QString &first, const QString &second = {})
{
    return {cutToField(first), cutToField(second)};
}

void addHead(QList<MachineInfoLine> &lines, const QString &title)
{
    lines << line({}) << line({});
    lines << MachineInfoLine{cutToField(ResString(202)), title};
    lines << line({}) << line(ResString(208)) << line({});
}

void addCodes(QList<MachineInfoLine> &lines, const MachineInfo &info)
{
    lines << line(ResString(203), info.Name) << line(ResString(204), info.TypeCode);
    lines << line(ResString(206), info.VCapacity) << line(ResString(205), info.Code);
}

void addCapacities(QList<MachineInfoLine> &lines, const MachineInfo &info)
{
    lines << line({}) << line(ResString(128), ResString(129));
    for (qsizetype i = 0; i < info.Capacity.size(); ++i) {
        lines << line(info.Capacity.at(i), info.ICapacity.value(i));
    }
}

void addOptions(QList<MachineInfoLine> &lines, const MachineInfo &info)
{
    lines << line({}) << line(ResString(207));
    for (const QString &option : info.Option) {
        lines << line(option);
    }
}

} // namespace

QList<MachineInfoLine> machineInfoLines(const MachineInfo &info, const QString &title)
{
    QList<MachineInfoLine> lines;
    addHead(lines, title);
    addCodes(lines, info);
    addCapacities(lines, info);
    addOptions(lines, info);
    lines << line({}) << line(ResString(71), QString::number(info.Paramater));
    return lines;
}
