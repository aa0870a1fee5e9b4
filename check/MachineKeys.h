#pragma once

#include "document/MachineInfo.h"

#include <QList>
#include <QString>

#include <span>
#include <utility>

/// A value of the machine information that is one text.
struct MachineTextKey
{
    QLatin1StringView key; ///< in the file
    QString MachineInfo::*field;
};
std::span<const MachineTextKey> machineTextKeys();

/// The machine information as keys and values, in the order of the file and with its keys; without the number of rows.
QList<std::pair<QString, QString>> machineValues(const MachineInfo &machine);

/// Sets the value of a key that machineValues() gives; entries of a list come in their order. False for any other key.
bool setMachineValue(MachineInfo &machine, const QString &key, const QString &value);
