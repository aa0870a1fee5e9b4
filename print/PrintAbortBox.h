#pragma once

#include <QDialog>

class QProgressBar;

/// The box that is open while pages are produced, so that the user can stop printing: by its button, Escape or its
/// close box. It blocks the other windows, but show() returns at once.
class PrintAbortBox : public QDialog
{
    Q_OBJECT

public:
    PrintAbortBox(const QString &text, const QString &cancelText, const QFont &font, QWidget *owner);

    /// Shows how many pages are done, and processes pending events.
    void setProgress(int pagesDone, int pages);
    bool isCancelled() const { return m_cancelled; }

public slots:
    void reject() override;

private:
    QProgressBar *m_progress;
    bool m_cancelled = false;
};
