#pragma once

#include "check/CheckIds.h"
#include "runtime/Failure.h"

#include <QList>
#include <QStringList>

/// Something that a check found. It is worded where it is shown, in the user's language.
struct Finding
{
    CheckId id;
    CellPosition place = {}; ///< row 0: the machine information, or the file as a whole; column 0: the row as a whole
    QString name = {}; ///< the parameter's number, or the key of the "[Inverter]" section; empty for the file
    QStringList arguments = {}; ///< what fills the message's %3, %4 ...; %1 is the name, %2 the column's caption

    bool operator==(const Finding &) const = default;
};

using Findings = QList<Finding>;
