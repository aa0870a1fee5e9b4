#include "document/RecoveryStore.h"

#include "document/DataFolder.h"
#include "runtime/WholeFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The lock stands beside its folder, so that there is no moment at which a folder has an owner and no lock.
std::unique_ptr<QLockFile> lockOf(const QString &folder)
{
    auto lock = std::make_unique<QLockFile>(folder + u".lock"_s);
    lock->setStaleLockTime(0); // not its age but the death of its owner makes it void
    return lock;
}

QString newFolderName()
{
    const QString time = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd-HHmmss-zzz"_s);
    return u"%1-%2"_s.arg(time).arg(QCoreApplication::applicationPid());
}

} // namespace

RecoveryStore::RecoveryStore(QString root) : m_root(std::move(root))
{
}

RecoveryStore::~RecoveryStore()
{
    if (!m_folder.isEmpty()) {
        QDir().rmdir(m_folder); // stays when a copy is in it
    }
}

QString RecoveryStore::defaultRoot()
{
    return dataFolder() + u"/recovery"_s;
}

QString RecoveryStore::copyPath(int number) const
{
    constexpr int digits = 6;
    return m_folder + u"/%1.copy"_s.arg(number, digits, 10, QLatin1Char('0'));
}

bool RecoveryStore::open()
{
    if (!m_lock) {
        const QString folder = m_root + u'/' + newFolderName();
        auto lock = lockOf(folder);
        if (!QDir().mkpath(m_root) || !lock->tryLock()) {
            return false;
        }
        m_folder = folder;
        m_lock = std::move(lock);
    }
    return QDir().mkpath(m_folder);
}

bool RecoveryStore::write(int number, const QByteArray &bytes)
{
    if (!open()) {
        return false;
    }
    QSaveFile file(copyPath(number));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

QByteArray RecoveryStore::read(int number) const
{
    QByteArray bytes;
    return readWholeFile(copyPath(number), bytes) ? QByteArray() : bytes;
}

void RecoveryStore::remove(int number)
{
    QFile::remove(copyPath(number));
}

void RecoveryStore::setAside(int number)
{
    QFile::rename(copyPath(number), m_root + u"/%1-%2.damaged"_s.arg(newFolderName()).arg(number));
}

QList<int> RecoveryStore::takeOver()
{
    QList<int> numbers;
    for (const QString &name : QDir(m_root).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString folder = m_root + u'/' + name;
        const auto lock = lockOf(folder);
        if (folder != m_folder && lock->tryLock() && open()) {
            numbers << moveFrom(folder);
        }
    }
    return numbers;
}

QList<int> RecoveryStore::moveFrom(const QString &folder)
{
    QList<int> numbers;
    QDir from(folder);
    bool emptied = true;
    for (const QString &name : from.entryList({u"*.copy"_s}, QDir::Files, QDir::Name)) {
        const int number = newNumber();
        if (QFile::rename(from.filePath(name), copyPath(number))) {
            numbers << number;
        } else {
            emptied = false;
        }
    }
    if (emptied) {
        from.removeRecursively(); // what is left was never finished
    }
    return numbers;
}
