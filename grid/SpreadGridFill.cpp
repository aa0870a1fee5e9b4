// What gives several cells of a SpreadGrid their texts at once.

#include "grid/SpreadDelegate.h"
#include "grid/SpreadGrid.h"
#include "grid/UndoStep.h"
#include "grid/cells/CellInput.h"
#include "grid/cells/SpreadModel.h"
#include "grid/editors/CellEditor.h"

#include <QMetaMethod>

void SpreadGrid::setTexts(const GridBlock &block, const std::function<QStringView(int, int)> &textOf)
{
    m_model->setTexts(block, textOf, SpreadModel::Origin::Program);
}

bool SpreadGrid::toggleSelectedCheckBoxes()
{
    const auto cells = m_model->dataCells(selectedBlock());
    if (activeRow() == 0 || !cells) {
        return false;
    }
    const auto isBox = [this](int column, int row) {
        return isColumnShown(column) && m_model->cellType(column, row).kind == CellType::Kind::CheckBox;
    };
    int boxes = 0;
    int ticked = 0;
    for (int row = cells->row1; row <= cells->row2; ++row) {
        for (int column = cells->column1; column <= cells->column2; ++column) {
            boxes += isBox(column, row) ? 1 : 0;
            ticked += isBox(column, row) && CellInput::isTicked(cellText(column, row)) ? 1 : 0;
        }
    }
    const bool ticks = ticked < boxes;
    const auto textOf = [&](int column, int row) -> QStringView {
        const QStringView text = cellText(column, row);
        return !isBox(column, row) || CellInput::isTicked(text) == ticks ? text : ticks ? u"1" : u"0";
    };
    if (boxes > 0) {
        const UndoStep step(*m_history);
        m_history->keepSelection();
        m_model->setTexts(*cells, textOf, SpreadModel::Origin::User);
    }
    return boxes > 0;
}

// Where nobody fills, as in the lists of dialogs, Ctrl+Enter ends the edit of the one cell.
bool SpreadGrid::fillFromEditor()
{
    const bool fills = isBlockSelected() && isSignalConnected(QMetaMethod::fromSignal(&SpreadView::fillRequested));
    if (fills) {
        emit fillRequested(Fill::Selection);
    }
    return fills;
}

std::optional<QString> SpreadGrid::editorText() const
{
    const CellEditor *editor = m_delegate->editor();
    return editor ? std::optional(editor->text()) : std::nullopt;
}

void SpreadGrid::dropEdit()
{
    m_delegate->dropEdit();
}
