#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

/// The memory figure of the About box for a machine with that many bytes: kilobytes of what a signed 32-bit number of
/// bytes can say, so that from 2 gigabytes on it wraps.
qint32 memoryInKilobytes(quint64 bytes);

/// The About box.
class frmVersion : public QDialog
{
    Q_OBJECT

public:
    explicit frmVersion(QWidget *parent);

    /// Fills all texts.
    void CaptionSet();

private:
    void readUser();

    QLabel *m_picture;
    QLabel *m_lblSwName;
    QLabel *m_lblName;
    QLabel *m_lblMemory;
    QPushButton *m_cmdOK;
    QString m_userName;
    QString m_userCorp;
};
