#include "document/SaveLock.h"

#include "document/DataFolder.h"
#include "runtime/OwnFiles.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

QString lockFolder()
{
    return dataFolder() + u"/locks"_s;
}

/// All names of a file have one lock. A file that is not there yet goes by its folder.
QString lockPath(const QString &fileName)
{
    constexpr int hashLength = 16;
    const QFileInfo info(fileName);
    QString path = info.canonicalFilePath();
    if (path.isEmpty()) {
        path = info.dir().canonicalPath() + u'/' + info.fileName();
    }
    const QByteArray hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256).toHex();
    return lockFolder() + u'/' + QString::fromLatin1(hash.left(hashLength)) + u".lock"_s;
}

/// In even steps: the longer and longer ones of the lock itself would let a program wait in vain beside a busy one.
bool lockWithin(QLockFile &lock, QDeadlineTimer deadline)
{
    constexpr unsigned long step = 10; // ms
    while (!lock.tryLock(0)) {
        if (lock.error() != QLockFile::LockFailedError || deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(step);
    }
    return true;
}

} // namespace

SaveLock::SaveLock(const QString &fileName) : m_lock(lockPath(fileName))
{
    constexpr qint64 longest = 3'000; // ms
    // A program that is killed while it makes the lock leaves one without an owner's name: only its age makes that
    // void. The lock of a living program cannot be removed, however old it is.
    constexpr int oldAge = 1'000; // ms
    m_lock.setStaleLockTime(oldAge);
    makeOwnFolder(lockFolder());
    m_isTaken = !lockWithin(m_lock, QDeadlineTimer(longest)) && m_lock.error() == QLockFile::LockFailedError;
}
