#pragma once

#include "grid/cells/CellType.h"
#include "grid/editors/CellEditor.h"

#include <QLineEdit>

/// Edits a cell of one line. It refuses what the cell type does not take while it is being typed.
class CellLineEdit final : public QLineEdit, public CellEditor
{
    Q_OBJECT

public:
    CellLineEdit(const CellType &type, const QString &text, QWidget *parent);

    QWidget *widget() override { return this; }
    QString text() const override;
    bool isAcceptable() const override { return hasAcceptableInput(); }
    bool isModified() const override { return QLineEdit::text() != m_original; }
    void alignText(Qt::Alignment alignment) override { setAlignment(alignment); }
    void clearText() override { clear(); }
    void goOn() override { end(false); }
    void redoTyping() override { redo(); }
    int neededHeight() const override { return fontMetrics().height() + 2; }
    bool needsKey(int /*key*/) const override { return false; }

private:
    class Validator;

    CellType m_type;
    QString m_original;
};
