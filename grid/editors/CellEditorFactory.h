#pragma once

#include "grid/editors/CellEditor.h"

struct CellType;

/// The editor that fits the cell type and the text that stands in the cell; it shows that text already.
CellEditor *newCellEditor(const CellType &type, const QString &text, QWidget *parent);

/// The editor that this widget is; nullptr for other widgets.
CellEditor *cellEditorOf(QWidget *widget);
