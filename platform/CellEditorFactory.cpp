#include "platform/CellEditorFactory.h"

#include "platform/CellLineEdit.h"
#include "platform/CellListBox.h"
#include "platform/CellTextBox.h"
#include "platform/CellType.h"

CellEditor *newCellEditor(const CellType &type, const QString &text, QWidget *parent)
{
    if (type.kind == CellType::Kind::ComboBox) {
        return new CellListBox(type, text, parent);
    }
    if (text.contains(u'\n') || text.contains(u'\r')) {
        return new CellTextBox(type, text, parent);
    }
    return new CellLineEdit(type, text, parent);
}

CellEditor *cellEditorOf(QWidget *widget)
{
    return dynamic_cast<CellEditor *>(widget);
}
