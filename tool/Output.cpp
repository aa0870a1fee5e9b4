#include "tool/Output.h"

#include "runtime/Failure.h"

#include <cerrno>

void Output::put(QByteArrayView bytes)
{
    constexpr qsizetype enough = 65536;
    m_waiting.append(bytes);
    if (m_waiting.size() > enough) {
        flush();
    }
}

void Output::flush()
{
    if (!m_waiting.isEmpty()) {
        write(m_waiting);
        m_waiting.clear();
    }
}

void Output::write(QByteArrayView bytes)
{
    if (m_isClosed || m_failure) {
        return;
    }
    errno = 0;
    const bool isWritten =
        std::fwrite(bytes.data(), 1, std::size_t(bytes.size()), m_stream) == std::size_t(bytes.size())
        && std::fflush(m_stream) == 0;
    if (isWritten) {
        return;
    }
    const Failure failure = Failure::lastSystemCall();
    m_isClosed = failure.systemError == EPIPE;
    if (!m_isClosed) {
        m_failure = failure.reason();
    }
}
