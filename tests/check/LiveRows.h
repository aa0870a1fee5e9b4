#pragma once

#include "check/LiveCheck.h"
#include "document/Document.h"
#include "document/ParameterColumn.h"
#include "tests/document/RandomDocument.h"

#include <array>
#include <vector>

/// A parameter table as plain texts, that is edited at random while a LiveCheck follows.
class LiveRows : public PrGrid
{
public:
    using Row = std::array<QString, ParameterColumn::Count>;

    LiveRows(quint32 seed, int codePage, bool canBeSaved);

    int rowCount() const override { return int(m_rows.size()); }
    QStringView cellText(int column, int row) const override
    {
        return m_rows.at(std::size_t(row - 1)).at(std::size_t(column - 1));
    }

    /// One act at random: cells typed, filled or emptied, rows put in, taken out, copied, moved or sorted, or the undo
    /// of what was before.
    void edit(LiveCheck &check);
    void replaceRows(LiveCheck &check, int first, int removed, const std::vector<Row> &added);
    void setText(LiveCheck &check, int column, int row, const QString &text);

    /// What a save writes, with that machine information.
    Document document(const MachineInfo &machine) const;

    RandomDocument random;

private:
    const QString &anyText(int column);
    Row newRow();
    int anyRow() { return random.number(rowCount() - 1); }
    void typeSome(LiveCheck &check);
    void moveRows(LiveCheck &check);
    void goBack(LiveCheck &check);
    /// Tells of the rows that differ from former.
    void tell(LiveCheck &check, const std::vector<Row> &former) const;

    int m_codePage;
    bool m_canBeSaved; ///< no text is typed that a file cannot hold
    std::vector<Row> m_rows;
    std::vector<std::vector<Row>> m_earlier; ///< for undo
};
