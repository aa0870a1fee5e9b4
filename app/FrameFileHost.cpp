#include "app/FrameFileHost.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "desktop/MessageBox.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>

namespace {

constexpr qint16 programNameId = 9;

/// The ordinary pointer, also over an hourglass, for as long as this object lives.
class OrdinaryPointer
{
public:
    OrdinaryPointer() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~OrdinaryPointer() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(OrdinaryPointer)
};

} // namespace

void FrameFileHost::showMessage(const QString &text)
{
    const OrdinaryPointer pointer;
    MessageBox::showPlain(&m_frame, text, ResString(programNameId));
}

void FrameFileHost::showFailure(const FileFailure &failure, const QString &title)
{
    const OrdinaryPointer pointer;
    MessageBox::showExclamation(&m_frame, failureText(failure), title);
}

bool FrameFileHost::askYesNo(const FileFailure &question, const QString &title)
{
    const OrdinaryPointer pointer;
    return MessageBox::askYesNo(&m_frame, failureText(question), title);
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
