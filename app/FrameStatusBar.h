#pragma once

#include <QStatusBar>

class QLabel;
class SelectAllBox;

/// The frame's status bar: the parameter count and the box that jumps to a parameter number, at its right edge.
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
    void jump();
    void restorePrNumber();

    QLabel *m_countCaption;
    QLabel *m_lblPrcount;
    QLabel *m_numberCaption;
    SelectAllBox *m_txtPr;
    QString m_prNumber; ///< what m_txtPr shows while nothing is typed into it
};
