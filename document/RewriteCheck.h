#pragma once

#include "runtime/Failure.h"

#include <QByteArray>
#include <QList>
#include <QString>

class AnsiCodePage;

/// A field of a file that the next save would write differently ("007" as "7").
struct RewriteFinding
{
    FilePosition position;
    QString inFile; ///< as it is there, with its quotes and spaces; empty if the file has no such field
    QString written; ///< empty if no such field would be written

    bool operator==(const RewriteFinding &) const = default;
};

/// The fields of a file's rows that a save would write differently although nobody has changed them, in their order: of
/// the rows that the file announces, up to the first that cannot be read. A pure function of the file's bytes; it takes
/// about as long as an open and a save, so nothing calls it unasked.
QList<RewriteFinding> findRewrites(const QByteArray &bytes, const AnsiCodePage &page);
