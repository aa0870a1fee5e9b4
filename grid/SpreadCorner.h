#pragma once

#include <QObject>

class QAbstractButton;
class SpreadModel;
class QTableView;

/// The cell above the row numbers. It shows a text, which the view's own corner button cannot, and like every column
/// heading it selects nothing.
class SpreadCorner final : public QObject
{
    Q_OBJECT

public:
    SpreadCorner(QTableView &view, const SpreadModel &model);

signals:
    void doubleClicked();
    void rightClicked(const QPoint &globalPosition);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void paint() const;
    void showText();
    void nameButton();

    QAbstractButton *m_button;
    const SpreadModel &m_model;
};
