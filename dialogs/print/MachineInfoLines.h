#pragma once

#include "document/MachineInfo.h"

#include <QList>

/// A line of the machine information page: the texts of its two fields, cut already to what a field holds.
struct MachineInfoLine
{
    QString first;
    QString second;

    bool operator==(const MachineInfoLine &) const = default;
};

/// Width of the page's left margin and of each of its two fields, in characters.
inline constexpr int MachineInfoMargin = 10;
inline constexpr int MachineInfoField = 20;

/// The page's lines from top to bottom, empty lines included, in the language of the interface. title, the document's
/// file name, is not cut; every other text keeps its first 20 characters.
QList<MachineInfoLine> machineInfoLines(const MachineInfo &info, const QString &title);
