#include "tool/Progress.h"

#include "tool/Terminal.h"

namespace {

constexpr QByteArrayView toLineBegin = "\r\x1B[K";

} // namespace

Progress::Progress(Session &session, qsizetype files)
    : m_session(session), m_files(files), m_isShown(!session.isQuiet && isErrorTerminal())
{
    m_time.start();
}

void Progress::update(qsizetype done)
{
    constexpr qint64 longWork = 500; // milliseconds
    if (!m_isShown || done == m_done || m_time.elapsed() < longWork) {
        return;
    }
    m_done = done;
    m_hasLine = true;
    m_session.err.put(toLineBegin);
    m_session.err.put(toolText(ToolText::Progress, {QString::number(done), QString::number(m_files)}));
    m_session.err.flush();
}

void Progress::clear()
{
    if (m_hasLine) {
        m_session.err.put(toLineBegin);
        m_session.err.flush();
        m_hasLine = false;
        m_done = -1;
    }
}
