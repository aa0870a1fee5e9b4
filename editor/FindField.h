#pragma once

#include <QLineEdit>

/// The small field that takes what is searched for. It stands without any label.
class FindField : public QLineEdit
{
    Q_OBJECT

public:
    explicit FindField(QWidget *parent);

    /// Shows by its ground whether there is what it asks for.
    void showFound(bool found);

    QSize sizeHint() const override;

signals:
    void nextRequested();
    void previousRequested();
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void colour();

    bool m_found = true;
};
