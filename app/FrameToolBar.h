#pragma once

#include <QList>
#include <QToolBar>

class QLabel;
class QTimer;
class RibbonButton;

/// The frame's tool bar with its tips. Tip numbers: 0 open, 1 save, 2 print, 10 to 17 the edit buttons 0 to 7.
class FrameToolBar : public QToolBar
{
    Q_OBJECT

public:
    explicit FrameToolBar(QWidget *frame);

    /// Gives every button its pictures and its spoken name.
    void loadPictures();
    void clearTip();

    /// Enables what acts on a document: save, print and the edit buttons.
    void enableDocumentButtons(bool enabled);
    void enablePasteButton(bool enabled);
    void enableAddPasteButton(bool enabled);

    /// Shows the tip of the button last moved over, or ends it when the mouse has left that button.
    void ShowTip();

signals:
    void openClicked();
    void saveClicked();
    void printClicked();
    /// index 0 to 7: cut, copy, paste, add-paste, add line, delete line, functional list code, machine information
    void editClicked(int index);

protected:
    bool event(QEvent *event) override;

private:
    struct TippedButton
    {
        RibbonButton *button;
        int tip;
    };

    RibbonButton *addButton(const QString &name, int tip);
    void startTip(const TippedButton &tipped);
    void placeTip();
    void endTip();

    RibbonButton *m_ssrbnOpen;
    RibbonButton *m_ssrbnSave;
    RibbonButton *m_ssrbnPrint;
    QList<RibbonButton *> m_ssrbnEdit;
    QList<TippedButton> m_tippedButtons;
    TippedButton m_tipped{nullptr, 0}; ///< the button that the mouse last moved over
    QLabel *m_sspnlToolTip;
    QTimer *m_timer1;
};
