#include "editor/CellExchange.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "desktop/MessageBox.h"
#include "dialogs/frmFunc.h"
#include "dialogs/frmPrCond.h"
#include "document/FieldText.h"
#include "editor/OpenDocument.h"
#include "editor/ParameterGrid.h"
#include "grid/SpreadGrid.h"
#include "grid/UndoStep.h"
#include "runtime/NumberText.h"

#include <QPointer>

namespace {

QString trimmedCell(const SpreadGrid &grid, int column)
{
    const QString text = grid.text(column, grid.activeRow());
    return text.trimmed().isEmpty() ? QString() : text;
}

/// The program's only dialog of this kind. It is kept between calls, because with nothing left to build it returns the
/// text that it built last.
frmPrCond &prCondDialog(QWidget *window)
{
    static QPointer<frmPrCond> dialog;
    if (!dialog) {
        dialog = new frmPrCond(window);
    }
    return *dialog;
}

} // namespace

void exchangeFuncCode(SpreadGrid &grid, OpenDocument &document)
{
    grid.commitEdit();
    const int row = grid.activeRow();
    if (row == 0) {
        return;
    }
    const auto shown = hexToInt16(grid.text(ParameterColumn::FuncCode, row));
    if (!shown) {
        MessageBox::showExclamation(grid.window(), failureText(shown.failure()), ResString(Text::ProgramName));
        return;
    }
    qint16 code = *shown;
    if (frmFunc(grid.window()).ShowFuncCode(grid.text(ParameterColumn::Number, row), code, document.title())) {
        const UndoStep step(grid.history());
        document.markChanged();
        grid.setText(ParameterColumn::FuncCode, row, functionCodeText(code));
    }
}

void exchangePrCond(SpreadGrid &grid, OpenDocument &document)
{
    grid.commitEdit();
    const int row = grid.activeRow();
    if (row == 0) {
        return;
    }
    qint16 count = toInt16(leadingNumber(trimmedCell(grid, ParameterColumn::ConditionCount))).valueOr(0);
    QString conditions = trimmedCell(grid, ParameterColumn::Condition);
    if (prCondDialog(grid.window()).ShowPrCond(grid.text(ParameterColumn::Number, row), count, conditions)) {
        const UndoStep step(grid.history());
        document.markChanged();
        grid.setText(ParameterColumn::ConditionCount, row, QString::number(count));
        grid.setText(ParameterColumn::Condition, row, conditions);
    }
}
