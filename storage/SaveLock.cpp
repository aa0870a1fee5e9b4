#include "storage/SaveLock.h"

#include "runtime/DataFolder.h"
#include "runtime/FileName.h"
#include "runtime/OwnFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

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
    const QByteArray hash = QCryptographicHash::hash(fileNameKey(path).toUtf8(), QCryptographicHash::Sha256).toHex();
    return lockFolder() + u'/' + QString::fromLatin1(hash.left(hashLength)) + u".lock"_s;
}

} // namespace

SaveLock::SaveLock(const QString &fileName) : m_lock(lockPath(fileName))
{
    constexpr auto longest = 3s;
    static_cast<void>(makeOwnFolder(lockFolder())); // without it, there is no lock
    const auto locked = m_lock.lock(longest);
    m_isTaken = !locked && locked.failure().code == FailureCode::LockHeld;
}
