#pragma once

#include <QList>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>

/// Answers the modal windows that appear while it lives, in the order in which they appear. A window that nobody
/// expects fails the test and is closed; so does an answer that is never asked for.
class ModalScript
{
public:
    using Answer = std::function<void(QWidget &window)>;

    ModalScript();
    ~ModalScript();
    Q_DISABLE_COPY_MOVE(ModalScript)

    ModalScript &then(Answer answer);
    /// Clicks the button of that object name or text in a message box whose text is that.
    ModalScript &thenMessage(const QString &text, const QString &button);
    /// Types a name into a file dialog and presses Enter.
    ModalScript &thenFile(const QString &fileName);
    /// Presses Escape.
    ModalScript &thenEscape();

    /// The windows that appeared so far.
    int asked() const { return m_asked; }

private:
    void poll();

    QTimer m_timer;
    QList<Answer> m_answers;
    QList<QPointer<QWidget>> m_seen;
    int m_asked = 0;
};
