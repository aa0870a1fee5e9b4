#pragma once

#include <QDialog>

class QProgressBar;

/// The box that stands while pages are produced, so that the user can stop it: by its button, by Escape, by its close
/// box. It blocks the other windows but does not wait.
class PrintAbortBox : public QDialog
{
    Q_OBJECT

public:
    PrintAbortBox(const QString &text, const QString &cancelText, const QFont &font, QWidget *owner);

    /// Shows how many of all pages are done, and lets pending events run.
    void setProgress(int pagesDone, int pages);
    bool isCancelled() const { return m_cancelled; }

public slots:
    void reject() override;

private:
    QProgressBar *m_progress;
    bool m_cancelled = false;
};
