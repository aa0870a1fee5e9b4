#include "app/FrameFileHost.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "desktop/MessageBox.h"

#include <QCoreApplication>

void FrameFileHost::showMessage(const QString &text)
{
    MessageBox::showPlain(&m_frame, text, ResString(Text::ProgramName));
}

void FrameFileHost::showFailure(const Failure &failure, const QString &title)
{
    MessageBox::showExclamation(&m_frame, failureText(failure), title);
}

bool FrameFileHost::askYesNo(const QString &question, const QString &title)
{
    return MessageBox::askYesNo(&m_frame, question, title);
}

void FrameFileHost::setBusy(bool busy)
{
    if (busy) {
        m_busy.emplace();
    } else {
        m_busy.reset();
    }
}

void FrameFileHost::runPendingEvents()
{
    // Once in a while, not for every row: asking the window system takes longer than a row does.
    constexpr qint64 interval = 5; // ms
    if (!m_sinceEvents.isValid() || m_sinceEvents.elapsed() >= interval) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        m_sinceEvents.start();
    }
}
