#pragma once

#include <QObject>

class QDialog;

/// Makes the message boxes of one of Qt's own dialogs ("... already exists") show file names as they are, never as
/// markup. The dialog owns this object.
class PlainMessages : public QObject
{
    Q_OBJECT

public:
    explicit PlainMessages(QDialog &dialog);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
