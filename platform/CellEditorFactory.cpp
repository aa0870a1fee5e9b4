#include "platform/CellEditorFactory.h"

#include "platform/CellLineEdit.h"
#include "platform/CellListBox.h"
#include "platform/CellTextBox.h"
#include "platform/CellType.h"
#include "platform/LineEnds.h"

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
