#pragma once

#include <QStatusBar>

class QLabel;
class QLineEdit;

/// The frame's status bar: the parameter count and the box that jumps to a parameter number, at its right edge.
class FrameStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    explicit FrameStatusBar(QWidget *parent = nullptr);

    void setCaptions(const QString &count, const QString &number);
    void showParameterCount(int count);
    void showPrNumber(const QString &number);
    /// Gives the jump box the focus, its text selected.
    void enterJumpBox();

signals:
    /// Enter was pressed in the jump box.
    void jumpRequested(const QString &number);

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void placeControls();

    QLabel *m_countCaption;
    QLabel *m_lblPrcount;
    QLabel *m_numberCaption;
    QLineEdit *m_txtPr;
};
