#pragma once

#include "grid/cells/CellColours.h"
#include "grid/cells/CellMarks.h"
#include "grid/cells/CellType.h"
#include "grid/cells/GridBlock.h"
#include "grid/cells/TextChange.h"
#include "runtime/CellRow.h"

#include <QAbstractTableModel>
#include <QHash>

#include <functional>
#include <optional>
#include <span>
#include <vector>

/// The texts, types and colours of a spread grid. Its own routines count columns and rows from 1, as the grid does;
/// only Qt's (those with a QModelIndex or a section) count from 0.
///
/// A row is one CellRow, an immutable buffer with all its texts. Every change of texts builds new rows and swaps them
/// with the old ones in one place, which tells the views once and the observer what was there before:
///
///     SpreadModel model;
///     model.setColumnCount(3);
///     model.setRowCount(2);
///     model.setObserver([](const TextChange &change) { ... }); // change.before and change.after: one CellRow each
///     model.setText(2, 1, u"50.0"_s);    // row 1 becomes a new CellRow
///     model.text(2, 1);                  // a view into that row's buffer
///     model.data(model.cellIndex(2, 1)); // the same text, as Qt's views read it
class SpreadModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    using Observer = std::function<void(const TextChange &)>;
    using Origin = TextChange::Origin;
    using QAbstractTableModel::columnCount;
    using QAbstractTableModel::rowCount;

    explicit SpreadModel(QObject *parent = nullptr);

    /// It is called after every change of texts, whoever made it.
    void setObserver(Observer observer) { m_observer = std::move(observer); }

    void setRowCount(int rows);
    void setColumnCount(int columns);

    /// Without a copy, valid until the row's next change; empty outside the data cells.
    QStringView text(int column, int row) const;
    /// All texts of a row, one after another, without a copy.
    QStringView rowTexts(int row) const;
    QString headerText(int column) const; ///< column 0: above the row numbers
    void setHeaderText(int column, const QString &text);
    void setText(int column, int row, const QString &text, Origin origin = Origin::Program);
    void setRowTexts(int row, std::span<const QStringView> texts);
    /// The rows row1 to row2, which must be inside; valid until the next change.
    std::span<const CellRow> rows(int row1, int row2) const;
    /// Swaps the rows from row1 on, which must be inside, with those given.
    void exchangeRows(int row1, std::span<CellRow> rows) { exchange(row1, rows, 1, columnCount(), Origin::Program); }
    QString blockText(const GridBlock &block) const;
    void setBlockText(const GridBlock &block, QStringView text);
    void moveRowTexts(int row1, int row2, int target);
    /// Persistent indexes go along with their rows. False if the rows were in that order already.
    bool sortRows(int row1, int row2, int key);
    /// Gives each data cell of the block the text that textOf returns for (column, row).
    void setTexts(const GridBlock &block, const std::function<QStringView(int, int)> &textOf, Origin origin);
    /// Empties the data cells of the block as a change by the user.
    void clearCells(const GridBlock &block);

    void setCellType(int column, int row, const CellType &type); ///< row -1: the whole column
    const CellType &cellType(int column, int row) const;
    void setAlignment(int column, Qt::Alignment alignment);
    Qt::Alignment alignment(int column) const;
    void setTextColour(const GridBlock &block, const QColor &colour);
    /// The colours of the cells, which must be inside, for exchangeColours().
    std::vector<quint8> keptColours(const GridBlock &cells) const;
    /// Swaps the colours of the cells with those that keptColours() returned.
    void exchangeColours(const GridBlock &cells, std::vector<quint8> &kept);
    QColor textColour(int column, int row) const;
    /// Whether any cell of the row, which must be inside, has a colour.
    bool isColoured(int row) const { return m_colours.isColoured(row - 1); }

    /// What the cells are marked with; nullptr: none is. marks must outlive the model or its own replacement.
    void setMarks(CellMarks *marks) { m_marks = marks; }
    CellMark mark(int column, int row) const;
    QString markText(int column, int row) const;

    /// The data cells of a block: -1 means all, what is outside is cut off. std::nullopt if no cell is left.
    std::optional<GridBlock> dataCells(const GridBlock &block) const;

    /// The text with the most lines in a row; empty if all texts have one line.
    QStringView highestText(int row) const;

    /// Until the matching endBatch() views are not told of changed cells; then they are told once. Calls nest.
    void beginBatch() { ++m_batches; }
    void endBatch();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    QModelIndex cellIndex(int column, int row) const { return index(row - 1, column - 1); }

private:
    struct Column
    {
        CellType type;
        QString header;
        Qt::Alignment alignment = Qt::AlignLeft;
    };

    bool isCell(int column, int row) const { return column >= 1 && size_t(column) <= m_columns.size() && isRow(row); }
    QString boxName(int column, int row) const;
    bool isRow(int row) const { return row >= 1 && size_t(row) <= m_rows.size(); }
    void exchange(int row1, std::span<CellRow> rows, int column1, int column2, Origin origin);
    void notify(const TextChange &change) const;
    void movePersistentIndexes(int row1, std::span<const size_t> order);
    void addRows(int count);
    void dropRows(int count);
    CellRow initialRow() const;
    CellRow headerRow() const;
    qsizetype maxBlockTextSize(int row1, int row2) const;
    void cellsChanged(const GridBlock &block);

    std::vector<Column> m_columns;
    std::vector<CellRow> m_rows;
    QHash<QPair<int, int>, CellType> m_cellTypes;
    CellColours m_colours;
    QString m_cornerText;
    Observer m_observer;
    CellMarks *m_marks = nullptr;
    int m_batches = 0;
    std::optional<GridBlock> m_changed;
};
