#pragma once

#include <QObject>

class QDialog;

/// Makes the message boxes that one of Qt's own dialogs shows (a file exists already ...) show file names as they are,
/// never as markup. It goes with the dialog.
class PlainMessages : public QObject
{
    Q_OBJECT

public:
    explicit PlainMessages(QDialog &dialog);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
