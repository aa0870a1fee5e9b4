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
    lines << MachineInfoLine{cutToField(ResString(Text::PageFileName)), title};
    lines << line({}) << line(ResString(Text::PageMachineInfo)) << line({});
}

void addCodes(QList<MachineInfoLine> &lines, const MachineInfo &info)
{
    lines << line(ResString(Text::PageType), info.Name) << line(ResString(Text::PageTypeCode), info.TypeCode);
    lines << line(ResString(Text::PageVoltageCode), info.VCapacity)
          << line(ResString(Text::PageMachineCode), info.Code);
}

void addCapacities(QList<MachineInfoLine> &lines, const MachineInfo &info)
{
    lines << line({}) << line(ResString(Text::CapacityHeading), ResString(Text::CurrentHeading));
    for (qsizetype i = 0; i < info.Capacity.size(); ++i) {
        lines << line(info.Capacity.at(i), info.ICapacity.value(i));
    }
}

void addOptions(QList<MachineInfoLine> &lines, const MachineInfo &info)
{
    lines << line({}) << line(ResString(Text::PageOptions));
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
    lines << line({}) << line(ResString(Text::ParameterCount), QString::number(info.Paramater));
    return lines;
}
