#include "grid/cells/SpreadModel.h"

#include "grid/cells/BlockText.h"
#include "grid/cells/CellInput.h"
#include "grid/cells/CellRows.h"
#include "grid/cells/LineEnds.h"
#include "grid/cells/VisibleText.h"

#include <QBrush>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

SpreadModel::SpreadModel(QObject *parent) : QAbstractTableModel(parent)
{
}

// Size

int SpreadModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int SpreadModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_columns.size());
}

void SpreadModel::setRowCount(int rows)
{
    const int more = std::max(rows, 0) - rowCount();
    if (more > 0) {
        addRows(more);
    } else if (more < 0) {
        dropRows(-more);
    }
}

void SpreadModel::addRows(int count)
{
    const int first = rowCount() + 1;
    beginInsertRows({}, first - 1, first + count - 2);
    m_rows.resize(m_rows.size() + size_t(count), initialRow());
    m_colours.resize(columnCount(), rowCount());
    endInsertRows();
    notify({.firstRow = first, .before = {}, .after = rows(first, rowCount())});
}

void SpreadModel::dropRows(int count)
{
    const int first = rowCount() - count + 1;
    beginRemoveRows({}, first - 1, rowCount() - 1);
    std::vector<CellRow> dropped(
        std::make_move_iterator(m_rows.begin() + (first - 1)), std::make_move_iterator(m_rows.end()));
    m_rows.resize(size_t(first - 1));
    m_colours.resize(columnCount(), rowCount());
    m_cellTypes.removeIf([first](const auto &entry) { return entry.key().second >= first; });
    endRemoveRows();
    notify({.firstRow = first, .before = dropped, .after = {}});
}

// All new rows share one block of memory.
CellRow SpreadModel::initialRow() const
{
    std::vector<QStringView> texts(m_columns.size());
    std::ranges::transform(m_columns, texts.begin(), [](const Column &column) { return column.type.initial; });
    return CellRow(texts);
}

void SpreadModel::setColumnCount(int columns)
{
    beginResetModel();
    m_columns.resize(size_t(std::max(columns, 0)));
    m_colours.resize(columnCount(), rowCount());
    endResetModel();
}

// Texts

std::span<const CellRow> SpreadModel::rows(int row1, int row2) const
{
    return std::span(m_rows).subspan(size_t(row1 - 1), size_t(row2 - row1 + 1));
}

QStringView SpreadModel::text(int column, int row) const
{
    return isCell(column, row) ? m_rows[size_t(row - 1)].text(column - 1) : QStringView();
}

QStringView SpreadModel::rowTexts(int row) const
{
    return isRow(row) ? m_rows[size_t(row - 1)].allTexts() : QStringView();
}

// Every change of texts in existing rows is made here.
void SpreadModel::exchange(int row1, std::span<CellRow> rows, int column1, int column2, Origin origin)
{
    std::ranges::swap_ranges(rows, std::span(m_rows).subspan(size_t(row1 - 1), rows.size()));
    const int row2 = row1 + int(rows.size()) - 1;
    cellsChanged({column1, row1, column2, row2});
    notify({.origin = origin, .firstRow = row1, .before = rows, .after = this->rows(row1, row2)});
}

void SpreadModel::notify(const TextChange &change) const
{
    if (m_observer) {
        m_observer(change);
    }
}

void SpreadModel::setText(int column, int row, const QString &text, Origin origin)
{
    if (row == 0) {
        setHeaderText(column, text);
    } else if (isCell(column, row)) {
        const QStringView view = text;
        CellRow changed = CellRows::replaced(m_rows[size_t(row - 1)], columnCount(), column - 1, std::span(&view, 1));
        exchange(row, std::span(&changed, 1), column, column, origin);
    }
}

void SpreadModel::setRowTexts(int row, std::span<const QStringView> texts)
{
    if (isRow(row) && columnCount() > 0) {
        CellRow changed = CellRows::replaced(m_rows[size_t(row - 1)], columnCount(), 0, texts);
        exchange(row, std::span(&changed, 1), 1, columnCount(), Origin::Program);
    }
}

QString SpreadModel::blockText(const GridBlock &block) const
{
    const int column1 = block.column1 < 0 ? 1 : block.column1;
    const int column2 = block.column2 < 0 ? columnCount() : std::min(block.column2, columnCount());
    const int row1 = block.row1 < 0 ? 1 : block.row1;
    const int row2 = block.row2 < 0 ? rowCount() : std::min(block.row2, rowCount());
    if (column1 > column2 || row1 > row2) {
        return {};
    }
    QString text(maxBlockTextSize(row1, row2), Qt::Uninitialized);
    QChar *out = text.data();
    for (int row = row1; row <= row2; ++row) {
        if (row > row1) {
            out = std::ranges::copy(QStringView(BlockText::rowEnd), out).out;
        }
        if (column1 == 0) {
            out = std::ranges::copy(row == 0 ? m_cornerText : QString::number(row), out).out;
            out = std::fill_n(out, column2 > 0 ? 1 : 0, QChar(BlockText::cellEnd));
        }
        const CellRow &cells = row == 0 ? headerRow() : m_rows[size_t(row - 1)];
        out = CellRows::writeCells(out, cells, std::max(column1, 1) - 1, column2 - 1);
    }
    text.truncate(out - text.constData());
    return text;
}

// An upper limit for the size of these rows' block text.
qsizetype SpreadModel::maxBlockTextSize(int row1, int row2) const
{
    constexpr int numberAndLineEnd = 16;
    qsizetype units = row1 == 0 ? m_cornerText.size() + headerRow().allTexts().size() : 0;
    units += qsizetype(row2 - row1 + 1) * (columnCount() + numberAndLineEnd);
    for (int row = std::max(row1, 1); row <= row2; ++row) {
        units += m_rows[size_t(row - 1)].allTexts().size();
    }
    return units;
}

void SpreadModel::setBlockText(const GridBlock &block, QStringView text)
{
    if (const auto cells = dataCells(block)) {
        const int skipped = block.column1 == 0 ? 1 : 0;
        auto changed = CellRows::withBlockText(
            rows(cells->row1, cells->row2), columnCount(), cells->column1 - 1, cells->column2 - 1, skipped, text);
        exchange(cells->row1, changed, cells->column1, cells->column2, Origin::Program);
    }
}

void SpreadModel::moveRowTexts(int row1, int row2, int target)
{
    // Rows whose target is outside the grid are dropped.
    const int distance = target - row1;
    const int first = std::max({row1, 1, 1 - distance});
    const int last = std::min({row2, rowCount(), rowCount() - distance});
    if (first <= last && distance != 0) {
        const auto source = rows(first, last);
        std::vector<CellRow> moved(source.begin(), source.end());
        exchange(first + distance, moved, 1, columnCount(), Origin::Program);
    }
}

bool SpreadModel::sortRows(int row1, int row2, int key)
{
    const int first = std::max(row1, 1);
    const int last = std::min(row2, rowCount());
    if (first >= last) {
        return false;
    }
    const auto before = rows(first, last);
    const std::vector<size_t> order = CellRows::orderByNumber(before, key - 1);
    if (std::ranges::is_sorted(order)) {
        return false;
    }
    std::vector<CellRow> sorted(order.size());
    std::ranges::transform(order, sorted.begin(), [before](size_t at) { return before[at]; });
    movePersistentIndexes(first, order);
    exchange(first, sorted, 1, columnCount(), Origin::Program);
    return true;
}

// order[i] is the former index, from row1 on, of the row that is now at index i.
void SpreadModel::movePersistentIndexes(int row1, std::span<const size_t> order)
{
    std::vector<int> newRows(order.size());
    for (size_t at = 0; at < order.size(); ++at) {
        newRows[order[at]] = row1 + int(at);
    }
    const QModelIndexList kept = persistentIndexList();
    QModelIndexList moved = kept;
    for (QModelIndex &index : moved) {
        const int at = index.row() + 1 - row1;
        if (at >= 0 && size_t(at) < newRows.size()) {
            index = cellIndex(index.column() + 1, newRows[size_t(at)]);
        }
    }
    changePersistentIndexList(kept, moved);
}

void SpreadModel::setTexts(const GridBlock &block, const std::function<QStringView(int, int)> &textOf, Origin origin)
{
    if (const auto cells = dataCells(block)) {
        auto changed = CellRows::withTexts(rows(cells->row1, cells->row2), columnCount(), cells->column1 - 1,
            cells->column2 - 1, [&](int column, int index) { return textOf(column + 1, cells->row1 + index); });
        exchange(cells->row1, changed, cells->column1, cells->column2, origin);
    }
}

void SpreadModel::clearCells(const GridBlock &block)
{
    const auto emptyText = [this](int column, int row) {
        return cellType(column, row).kind == CellType::Kind::CheckBox ? QStringView(u"0") : QStringView();
    };
    setTexts(block, emptyText, Origin::User);
}

QStringView SpreadModel::highestText(int row) const
{
    QStringView highest;
    if (!isRow(row) || !LineEnds::areIn(m_rows[size_t(row - 1)].allTexts())) {
        return highest;
    }
    for (int column = 1; column <= columnCount(); ++column) {
        if (LineEnds::count(text(column, row)) > LineEnds::count(highest)) {
            highest = text(column, row);
        }
    }
    return highest;
}

// Headers

CellRow SpreadModel::headerRow() const
{
    std::vector<QStringView> texts(m_columns.size());
    std::ranges::transform(m_columns, texts.begin(), &Column::header);
    return CellRow(texts);
}

QString SpreadModel::headerText(int column) const
{
    if (column == 0) {
        return m_cornerText;
    }
    return column >= 1 && column <= columnCount() ? m_columns[size_t(column - 1)].header : QString();
}

void SpreadModel::setHeaderText(int column, const QString &text)
{
    if (column == 0) {
        m_cornerText = text;
        emit headerDataChanged(Qt::Horizontal, 0, 0);
    } else if (column >= 1 && column <= columnCount()) {
        m_columns[size_t(column - 1)].header = text;
        emit headerDataChanged(Qt::Horizontal, column - 1, column - 1);
    }
}

// Types and looks

void SpreadModel::setCellType(int column, int row, const CellType &type)
{
    if (row < 0 && column >= 1 && column <= columnCount()) {
        m_columns[size_t(column - 1)].type = type;
    } else if (isCell(column, row)) {
        m_cellTypes.insert({column, row}, type);
    }
    cellsChanged({column, row, column, row});
}

const CellType &SpreadModel::cellType(int column, int row) const
{
    static const CellType none;
    if (!m_cellTypes.isEmpty()) {
        const auto found = m_cellTypes.constFind({column, row});
        if (found != m_cellTypes.cend()) {
            return *found;
        }
    }
    return column >= 1 && column <= columnCount() ? m_columns[size_t(column - 1)].type : none;
}

void SpreadModel::setAlignment(int column, Qt::Alignment alignment)
{
    if (column >= 1 && column <= columnCount()) {
        m_columns[size_t(column - 1)].alignment = alignment;
        cellsChanged({column, -1, column, -1});
    }
}

Qt::Alignment SpreadModel::alignment(int column) const
{
    return column >= 1 && column <= columnCount() ? m_columns[size_t(column - 1)].alignment
                                                  : Qt::Alignment(Qt::AlignCenter);
}

void SpreadModel::setTextColour(const GridBlock &block, const QColor &colour)
{
    if (const auto cells = dataCells(block)) {
        m_colours.fill(cells->column1 - 1, cells->row1 - 1, cells->column2 - 1, cells->row2 - 1, colour);
        cellsChanged(*cells);
    }
}

std::vector<quint8> SpreadModel::keptColours(const GridBlock &cells) const
{
    return m_colours.kept(cells.column1 - 1, cells.row1 - 1, cells.column2 - 1, cells.row2 - 1);
}

void SpreadModel::exchangeColours(const GridBlock &cells, std::vector<quint8> &kept)
{
    m_colours.exchange(cells.column1 - 1, cells.row1 - 1, cells.column2 - 1, cells.row2 - 1, kept);
    cellsChanged(cells);
}

QColor SpreadModel::textColour(int column, int row) const
{
    return isCell(column, row) ? m_colours.colour(column - 1, row - 1) : QColor();
}

CellMark SpreadModel::mark(int column, int row) const
{
    return m_marks && isCell(column, row) ? m_marks->mark(column, row) : CellMark::None;
}

QString SpreadModel::markText(int column, int row) const
{
    return mark(column, row) == CellMark::None ? QString() : m_marks->text(column, row);
}

std::optional<GridBlock> SpreadModel::dataCells(const GridBlock &block) const
{
    const GridBlock cells{std::max(block.column1, 1), std::max(block.row1, 1),
        block.column2 < 0 ? columnCount() : std::min(block.column2, columnCount()),
        block.row2 < 0 ? rowCount() : std::min(block.row2, rowCount())};
    return cells.column1 <= cells.column2 && cells.row1 <= cells.row2 ? std::optional(cells) : std::nullopt;
}

// What views and screen readers read, in Qt's roles

Qt::ItemFlags SpreadModel::flags(const QModelIndex &index) const
{
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const bool isCheckBox = cellType(index.column() + 1, index.row() + 1).kind == CellType::Kind::CheckBox;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren
        | (isCheckBox ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

QVariant SpreadModel::data(const QModelIndex &index, int role) const
{
    const int column = index.column() + 1;
    const int row = index.row() + 1;
    if (!isCell(column, row)) {
        return {};
    }
    const bool isCheckBox = cellType(column, row).kind == CellType::Kind::CheckBox;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return text(column, row).toString();
    case Qt::CheckStateRole:
        return isCheckBox ? QVariant(CellInput::isTicked(text(column, row)) ? Qt::Checked : Qt::Unchecked) : QVariant();
    case Qt::AccessibleTextRole: // the box's state is announced, not its "1"; nobody listens to a million letters
        return isCheckBox ? boxName(column, row) : VisibleText::beginning(text(column, row));
    case Qt::AccessibleDescriptionRole:
        return markText(column, row);
    case Qt::TextAlignmentRole:
        return int(alignment(column) | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        return textColour(column, row).isValid() ? QVariant(QBrush(textColour(column, row))) : QVariant();
    default:
        return {};
    }
}

// A box without a caption is named as its column.
QString SpreadModel::boxName(int column, int row) const
{
    const QString caption = cellType(column, row).caption;
    return caption.isEmpty() ? headerText(column) : caption;
}

bool SpreadModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const int column = index.column() + 1;
    const int row = index.row() + 1;
    if (!isCell(column, row) || (role != Qt::EditRole && role != Qt::CheckStateRole)) {
        return false;
    }
    const QString text = role == Qt::EditRole ? value.toString() : value.toInt() == Qt::Unchecked ? u"0"_s : u"1"_s;
    setText(column, row, text, Origin::User);
    return true;
}

QVariant SpreadModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole) {
        return role == Qt::TextAlignmentRole ? QVariant(int(Qt::AlignCenter)) : QVariant();
    }
    return orientation == Qt::Horizontal ? headerText(section + 1) : QString::number(section + 1);
}

// Notifying views

void SpreadModel::cellsChanged(const GridBlock &block)
{
    const auto cells = dataCells(block);
    if (!cells) {
        return;
    }
    if (m_batches == 0) {
        emit dataChanged(cellIndex(cells->column1, cells->row1), cellIndex(cells->column2, cells->row2));
    } else if (!m_changed) {
        m_changed = cells;
    } else {
        m_changed = GridBlock{std::min(m_changed->column1, cells->column1), std::min(m_changed->row1, cells->row1),
            std::max(m_changed->column2, cells->column2), std::max(m_changed->row2, cells->row2)};
    }
}

void SpreadModel::endBatch()
{
    if (m_batches > 0 && --m_batches == 0 && m_changed) {
        cellsChanged(*std::exchange(m_changed, std::nullopt));
    }
}
