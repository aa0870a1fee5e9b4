#pragma once

#include "document/PrGrid.h"
#include "document/PrRecord.h"

#include <QList>
#include <QStringList>

/// A parameter grid of plain texts.
class FakeGrid : public PrGrid
{
public:
    static constexpr int columns = 13;

    FakeGrid() = default;
    /// The first count records as the editor shows them.
    FakeGrid(const QList<PrRecord> &records, qsizetype count);

    int rowCount() const override { return static_cast<int>(rows.size()); }
    QStringView cellText(int column, int row) const override { return rows[row - 1][column - 1]; }

    /// A row whose cells all hold what a new row holds.
    static QStringList emptyRow();

    QList<QStringList> rows; ///< 13 texts each
};
