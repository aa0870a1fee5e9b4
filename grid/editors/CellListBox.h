#pragma once

#include "grid/cells/CellType.h"
#include "grid/editors/CellEditor.h"

#include <QComboBox>

/// Edits a cell by a drop-down list. A text that is not among the items is listed before them.
class CellListBox final : public QComboBox, public CellEditor
{
    Q_OBJECT

public:
    CellListBox(const CellType &type, const QString &text, QWidget *parent);

    QWidget *widget() override { return this; }
    QString text() const override { return currentText(); }
    bool isAcceptable() const override { return true; }
    bool isModified() const override { return currentText() != m_original; }
    void alignText(Qt::Alignment /*alignment*/) override { }
    void clearText() override { goOn(); }
    void goOn() override { showPopup(); }
    void redoTyping() override { }
    int neededHeight() const override { return sizeHint().height(); }
    bool needsKey(int key) const override;

    void hidePopup() override;

signals:
    /// The list is closed again, whether an item was chosen or not.
    void closed();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString m_original;
    QStringList m_unlisted;
};
