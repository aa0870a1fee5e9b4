#pragma once

#include <QString>
#include <QStringList>

/// The content of a file's "[Inverter]" section; the fields are named after its keys and hold the texts found there.
struct MachineInfo
{
    QString Name; ///< model name, untrimmed
    QString TypeCode;
    QString VCapacity; ///< voltage class code
    QString Code; ///< machine code
    QStringList Capacity; ///< kW, one entry per capacity
    QStringList ICapacity; ///< rated currents in A, parallel to Capacity
    QStringList Option; ///< plug-in options; the single entry "xx" means none
    qint16 Paramater = 0; ///< number of parameter rows
    QString SoftWareVersion;

    bool operator==(const MachineInfo &) const = default;
};
