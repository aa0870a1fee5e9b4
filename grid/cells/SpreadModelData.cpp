// What views and accessibility read from a SpreadModel, in Qt's roles.

#include "grid/cells/CellInput.h"
#include "grid/cells/LineEnds.h"
#include "grid/cells/SpreadModel.h"
#include "grid/cells/VisibleText.h"

#include <QBrush>

using namespace Qt::StringLiterals;

int SpreadModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int SpreadModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_columns.size());
}

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
    case Qt::AccessibleTextRole: // the box's own state is announced, not its "1"; nobody listens to a million letters
        return isCheckBox ? boxName(column, row) : VisibleText::beginning(text(column, row));
    case Qt::TextAlignmentRole:
        return int(alignment(column) | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        return foreColour(column, row).isValid() ? QVariant(QBrush(foreColour(column, row))) : QVariant();
    default:
        return {};
    }
}

// A box without a caption is what its column says.
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
