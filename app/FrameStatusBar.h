#pragma once

#include <QStatusBar>

class QLabel;
class SelectAllBox;

/// The frame's status bar: the parameter count and the box that jumps to a parameter number, at its right edge,
/// and at its left edge what a command has to say.
class FrameStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit FrameStatusBar(QWidget *parent = nullptr);

    void setCaptions(const QString &count, const QString &number);
    void showParameterCount(int count);
    void showPrNumber(const QString &number);
    /// Shows neither count nor number, because there is no document.
    void showNoDocument();
    /// Shows the message at the left edge and announces it to screen readers; an empty one ends what is shown.
    void showNotice(const QString &message);
    /// Gives the jump box the focus, its text selected.
    void enterJumpBox();

signals:
    /// Enter was pressed in the jump box.
    void jumpRequested(const QString &number);
    /// Escape was pressed in the jump box.
    void jumpGivenUp();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void placeControls();
    void placeNotice();
    void jump();
    void restorePrNumber();

    QLabel *m_lblNotice;
    QLabel *m_countCaption;
    QLabel *m_lblPrcount;
    QLabel *m_numberCaption;
    SelectAllBox *m_txtPr;
    QString m_notice;
    QString m_prNumber; ///< what m_txtPr shows while nothing is typed into it
};
