#pragma once

#include "document/MachineInfo.h"

#include <QList>

/// A line of the machine information page: the texts of its two fields, already cut to the length of a field.
struct MachineInfoLine
{
    QString first;
    QString second;

    bool operator==(const MachineInfoLine &) const = default;
};

/// Width of the page's left margin and of each of its two fields, in characters.
inline constexpr int MachineInfoMargin = 10;
inline constexpr int MachineInfoField = 20;

/// The lines of the page from top to bottom, empty ones included, in the language of the user interface. title, the
/// document's file name, is not cut; of all other texts the first 20 characters are kept.
QList<MachineInfoLine> machineInfoLines(const MachineInfo &info, const QString &title);
