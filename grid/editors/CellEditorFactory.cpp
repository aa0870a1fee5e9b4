#include "grid/editors/CellEditorFactory.h"

#include "grid/cells/CellType.h"
#include "grid/cells/LineEnds.h"
#include "grid/editors/CellLineEdit.h"
#include "grid/editors/CellListBox.h"
#include "grid/editors/CellTextBox.h"

CellEditor *newCellEditor(const CellType &type, const QString &text, QWidget *parent)
{
    if (type.kind == CellType::Kind::ComboBox) {
        return new CellListBox(type, text, parent);
    }
    if (LineEnds::areIn(text)) {
        return new CellTextBox(type, text, parent);
    }
    return new CellLineEdit(type, text, parent);
}

CellEditor *cellEditorOf(QWidget *widget)
{
    return dynamic_cast<CellEditor *>(widget);
}
