#pragma once

#include "tool/SheetDiff.h"
#include "tool/Terminal.h"

#include <QByteArray>
#include <QString>

/// The two files that were compared, as users are shown their names.
struct DiffNames
{
    QString before;
    QString after;
};

/// The differences for a terminal, a line each. Empty if there are none.
QByteArray diffAsText(const SheetDiff &diff, const DiffNames &names, const Painter &paint);

/// A page of its own, to be kept with a release and printed.
QByteArray diffAsHtml(const SheetDiff &diff, const DiffNames &names);
