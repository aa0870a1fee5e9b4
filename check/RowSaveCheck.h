#pragma once

#include "check/Finding.h"
#include "document/PrRecord.h"

#include <QByteArrayView>
#include <QList>

#include <vector>

class AnsiCodePage;

/// A file's bytes and the rows that are read from them.
struct RowsOfFile
{
    QByteArrayView bytes;
    const QList<PrRecord> &rows;
};

/// What an open and a save would change in the rows: in each cell that has no error already. known: what was found so
/// far.
Findings checkSavedRows(
    const RowsOfFile &original, const RowsOfFile &saved, const AnsiCodePage &page, const Findings &known);

/// One row of a file, from 1, and what a save makes of it.
struct SavedRow
{
    int row;
    PrRecord read;
    PrRecord saved;
    QByteArrayView bytes;
    QByteArray written;
};

/// The same for some of a file's rows.
Findings checkSavedRows(const std::vector<SavedRow> &rows, const AnsiCodePage &page, const Findings &known);

/// The same for one row (from 1) as a save has just written it. known: what was found in that row; without an error, so
/// that the record is what is read of it.
Findings checkRowSavedAgain(const PrRecord &record, int row, const AnsiCodePage &page, const Findings &known);
