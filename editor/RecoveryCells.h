#pragma once

#include "document/RecoveryCopy.h"

#include <QString>

#include <optional>

class SpreadGrid;

/// A parameter grid's cells for a recovery copy: with what is being typed at this moment, which no other part of the
/// program takes for the cell's text yet.
class RecoveryCells : public RecoveryGrid
{
public:
    explicit RecoveryCells(const SpreadGrid &grid);

    int rowCount() const override;
    QStringView cellText(int column, int row) const override;
    bool isCellChanged(int column, int row) const override;

private:
    bool isTyped(int column, int row) const;

    const SpreadGrid &m_grid;
    std::optional<QString> m_typed;
};

/// Puts a kept document's texts and colours into a grid that is laid out for its rows.
void restoreCells(SpreadGrid &grid, const RecoveryCopy &copy);
