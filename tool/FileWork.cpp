#include "tool/FileWork.h"

#include "runtime/FileName.h"
#include "tool/Progress.h"

#include <QDeadlineTimer>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <algorithm>
#include <atomic>
#include <thread>
#include <utility>
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

/// Files that are worked on by several threads, each taking the next one as soon as it is free.
class SharedWork
{
public:
    SharedWork(const QStringList &names, const FileWork &work)
        : m_names(names), m_work(work), m_results(std::size_t(names.size()))
    {
    }

    /// Works on the next file. False if none is left.
    bool doNext();
    /// What working on a file came to, if that is done.
    std::optional<FileResult> takeIfDone(qsizetype index);
    /// Waits for it, as long as other threads work on it.
    FileResult take(qsizetype index, Progress &progress);

private:
    const QStringList &m_names;
    const FileWork &m_work;
    std::atomic<qsizetype> m_next = 0;
    qsizetype m_done = 0;
    QMutex m_mutex;
    QWaitCondition m_changed;
    std::vector<std::optional<FileResult>> m_results;
};

bool SharedWork::doNext()
{
    const qsizetype index = m_next++;
    if (index >= m_names.size()) {
        return false;
    }
    FileResult result = resultOf(m_names[index], m_work);
    const QMutexLocker lock(&m_mutex);
    m_results[std::size_t(index)] = std::move(result);
    ++m_done;
    m_changed.wakeAll();
    return true;
}

std::optional<FileResult> SharedWork::takeIfDone(qsizetype index)
{
    const QMutexLocker lock(&m_mutex);
    return std::exchange(m_results[std::size_t(index)], std::nullopt);
}

FileResult SharedWork::take(qsizetype index, Progress &progress)
{
    constexpr unsigned long step = 100; // milliseconds between two looks at the progress
    const QMutexLocker lock(&m_mutex);
    while (!m_results[std::size_t(index)]) {
        m_changed.wait(&m_mutex, progress.isShown() ? QDeadlineTimer(step) : QDeadlineTimer(QDeadlineTimer::Forever));
        progress.update(m_done);
    }
    return std::move(*m_results[std::size_t(index)]);
}

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
    SharedWork shared(names, work);
    // This thread writes the results in turn. It works itself while it has nothing to write, unless it has to show
    // how far the work is.
    const bool isWorker = !progress.isShown();
    const qsizetype threads = std::min<qsizetype>(names.size(), QThread::idealThreadCount());
    std::vector<std::jthread> others;
    while (qsizetype(others.size()) < threads - (isWorker ? 1 : 0)) {
        others.emplace_back([&shared] {
            while (shared.doNext()) { }
        });
    }
    int status = Fine;
    bool isFirst = true;
    for (qsizetype i = 0; i < names.size(); ++i) {
        std::optional<FileResult> result = shared.takeIfDone(i);
        while (!result && isWorker && shared.doNext()) {
            result = shared.takeIfDone(i);
        }
        if (!result) {
            result = shared.take(i, progress);
        }
        isFirst = !write(*result, session, isFirst ? QByteArrayView() : separator, progress) && isFirst;
        status = std::max(status, result->status);
    }
    return status;
}
