#pragma once

#include "grid/cells/CellType.h"
#include "grid/editors/CellEditor.h"

#include <QPlainTextEdit>

/// Edits a text that already has several lines, from a file or pasted as a whole. It takes no further line ends,
/// because a file with a line end in a text cannot be read back.
class CellTextBox final : public QPlainTextEdit, public CellEditor
{
    Q_OBJECT

public:
    CellTextBox(const CellType &type, const QString &text, QWidget *parent);

    QWidget *widget() override { return this; }
    QString text() const override;
    bool isAcceptable() const override;
    bool isModified() const override { return rawLines() != m_originalLines; }
    void alignText(Qt::Alignment /*alignment*/) override { }
    void clearText() override { clear(); }
    void goOn() override { moveCursor(QTextCursor::End); }
    void redoTyping() override { redo(); }
    int neededHeight() const override;
    bool needsKey(int key) const override;

protected:
    void insertFromMimeData(const QMimeData *source) override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    QString rawLines() const;
    void cutOverhang();

    CellType m_type;
    QString m_lineEnd;
    QString m_originalLines;
    qsizetype m_maxLength = 0; ///< 0 for no limit
};
