#pragma once

#include <QDialog>

class QHBoxLayout;
class QPushButton;

/// The name of element index of a control array, as its controls carry it: "chkFunc(3)".
QString elementName(const QString &array, int index);

/// A modal dialog with the buttons that all have in common: OK (also Enter), Cancel (also Escape and the close box)
/// and, where there is a help topic, Help (also F1).
class EditDialog : public QDialog
{
    Q_OBJECT

protected:
    /// helpContext: the topic's context number; 0 for a dialog without a Help button.
    explicit EditDialog(QWidget *parent, int helpContext = 0);

    /// Makes the row of buttons. Tab reaches controls in the order in which they are made, so the row comes last.
    QHBoxLayout *createButtonRow();
    /// The end of every opening's preparations, when all texts are set: captions of window and buttons, font, size
    /// and place.
    void prepare(qint16 captionText);

private:
    struct Button
    {
        QPushButton *widget;
        qint16 captionText;
    };

    QPushButton *addButton(QHBoxLayout &row, const QString &name, qint16 captionText);
    void addHelp(QHBoxLayout &row);
    void showHelp();
    void setEqualButtonWidths();
    void fitSize();

    int m_helpContext;
    QList<Button> m_buttons; ///< OK, Cancel and, if there is one, Help
};
