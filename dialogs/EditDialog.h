#pragma once

#include "resources/Texts.h"

#include <QDialog>

class ContentsArea;
class QHBoxLayout;
class QPushButton;

/// The name of element index of a control array, as its controls carry it: "chkFunc(3)".
QString elementName(const QString &array, int index);

/// A modal dialog with the buttons that all have in common: OK (also Enter), Cancel (also Escape and the close box)
/// and, where there is a help topic, Help (also F1). It fits its screen: where there is little room its lists shrink
/// and scroll, then all that is above the buttons; the buttons stay in view.
class EditDialog : public QDialog
{
    Q_OBJECT

protected:
    enum class Resizing { ByUser, Fixed };

    /// helpContext: the topic's context number; 0 for a dialog without a Help button.
    explicit EditDialog(QWidget *parent, int helpContext = 0);

    /// Puts the contents above the row of buttons. Tab reaches controls in the order in which they are made: those of
    /// the contents, furtherButtons, which stand on the left, and the common ones.
    void layOut(QLayout *contents, Resizing resizing, const QList<QPushButton *> &furtherButtons = {});
    /// The end of every opening's preparations, when all texts are set: captions of window and buttons, font, size
    /// and place.
    void prepare(Text caption);
    /// The same with a caption of the caller's, which is shown as it is.
    void prepare(const QString &caption);

private:
    struct Button
    {
        QPushButton *widget;
        Text caption;
    };

    void addCommonButtons();
    QPushButton *addButton(const QString &name, Text caption);
    void addHelp();
    void showHelp();
    void setEqualButtonWidths();
    void fitSize();
    QSize neededSize();

    int m_helpContext;
    ContentsArea *m_contents = nullptr;
    QHBoxLayout *m_buttonRow = nullptr;
    QList<Button> m_buttons; ///< OK, Cancel and, if there is one, Help
};
