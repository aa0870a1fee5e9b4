#include "tool/FileWork.h"

#include "runtime/FileName.h"
#include "tool/Progress.h"

#include <QDeadlineTimer>
#include <QMutex>
#include <QThreadPool>
#include <QWaitCondition>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

FileResult resultOf(const QString &name, const FileWork &work)
{
    const InputFile input = readInput(name);
    if (input.failure) {
        return {{}, {toolText(ToolText::CannotRead, {shownFileName(name), *input.failure})}, Failed};
    }
    return work(input);
}

/// The results of files that are worked on by several threads.
class Results
{
public:
    explicit Results(qsizetype count) : m_results(std::size_t(count)) { }

    void put(std::size_t index, FileResult result)
    {
        const QMutexLocker lock(&m_mutex);
        m_results[index] = std::move(result);
        ++m_done;
        m_changed.wakeAll();
    }
    FileResult take(std::size_t index, Progress &progress)
    {
        constexpr unsigned long step = 100; // milliseconds between two looks at the progress
        const QMutexLocker lock(&m_mutex);
        while (!m_results[index]) {
            m_changed.wait(
                &m_mutex, progress.isShown() ? QDeadlineTimer(step) : QDeadlineTimer(QDeadlineTimer::Forever));
            progress.update(m_done);
        }
        return std::move(*m_results[index]);
    }

private:
    QMutex m_mutex;
    QWaitCondition m_changed;
    std::vector<std::optional<FileResult>> m_results;
    qsizetype m_done = 0;
};

/// Writes what came of one file. Returns whether there was output.
bool write(const FileResult &result, Session &session, QByteArrayView separator, Progress &progress)
{
    const bool hasOutput = !result.output.isEmpty();
    if (hasOutput || !result.messages.isEmpty()) {
        progress.clear();
    }
    if (hasOutput) {
        session.out.put(separator);
        session.out.put(result.output);
    }
    if (result.inTurn) {
        result.inTurn();
    }
    if (!result.messages.isEmpty() || progress.isShown()) {
        session.out.flush(); // so that both streams stay in the order of the files where they meet
    }
    for (const QString &message : result.messages) {
        session.say(message);
    }
    return hasOutput;
}

} // namespace

int workOnFiles(const QStringList &names, const FileWork &work, Session &session, QByteArrayView separator)
{
    Progress progress(session, names.size());
    Results results(names.size());
    QThreadPool pool;
    if (names.size() > 1) {
        for (qsizetype i = 0; i < names.size(); ++i) {
            pool.start([&results, &names, &work, i] { results.put(std::size_t(i), resultOf(names[i], work)); });
        }
    }
    int status = Fine;
    bool isFirst = true;
    for (qsizetype i = 0; i < names.size(); ++i) {
        const FileResult result = names.size() > 1 ? results.take(std::size_t(i), progress) : resultOf(names[i], work);
        isFirst = !write(result, session, isFirst ? QByteArrayView() : separator, progress) && isFirst;
        status = std::max(status, result.status);
    }
    return status;
}
