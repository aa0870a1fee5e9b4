#include "storage/RecoveryStore.h"

#include "runtime/DataFolder.h"
#include "runtime/WholeFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype keptDamaged = 20;

/// The lock is beside its folder, so that there is no moment at which a folder has an owner and no lock.
QString lockName(const QString &folder)
{
    return folder + u".lock"_s;
}

/// A name that no other store has had, of this or any program.
QString newFolderName()
{
    static int count = 0;
    const QString time = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd-HHmmss-zzz"_s);
    return u"%1-%2-%3"_s.arg(time).arg(QCoreApplication::applicationPid()).arg(++count);
}

// The names that are this store's; everything else is somebody else's.
constexpr auto folderPattern = "[0-9]{8}(-[0-9]+)+"_L1;
constexpr auto lockPattern = "[0-9]{8}(-[0-9]+)+\\.lock"_L1;
constexpr auto damagedPattern = "[0-9]{8}(-[0-9]+)+\\.damaged"_L1;
constexpr auto copyPattern = "[0-9]{6,9}\\.copy"_L1;
constexpr auto unfinishedPattern = "[0-9]{6,9}\\.copy\\.[A-Za-z0-9-]+"_L1; // its program died while writing

bool isNamed(const FolderEntry &entry, QLatin1StringView pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(entry.name).hasMatch();
}

bool isThere(const QList<FolderEntry> &entries, const QString &name)
{
    return std::ranges::any_of(entries, [&](const FolderEntry &entry) { return entry.name == name; });
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

Result<> RecoveryStore::open()
{
    if (!m_lock) {
        if (auto made = makeOwnFolder(m_root); !made) {
            return made;
        }
        keepForUser(m_root);
        const QString folder = m_root + u'/' + newFolderName();
        auto lock = std::make_unique<ProcessLock>(lockName(folder));
        if (auto locked = lock->lock(); !locked) {
            return locked;
        }
        m_folder = folder;
        m_lock = std::move(lock);
    }
    return makeOwnFolder(m_folder);
}

bool RecoveryStore::write(int number, const QByteArray &bytes)
{
    return open() && putOwnFile(copyPath(number), bytes);
}

bool RecoveryStore::has(int number) const
{
    return !m_folder.isEmpty() && findOwnKind(copyPath(number)) == FileKind::File;
}

Result<QByteArray> RecoveryStore::read(int number) const
{
    constexpr qint64 largestCopy = 4 * largestFile; // texts in UTF-16, and what each cell has besides
    return readWholeFile(copyPath(number), largestCopy);
}

void RecoveryStore::remove(int number)
{
    QFile::remove(copyPath(number));
}

void RecoveryStore::setAside(int number)
{
    static_cast<void>(
        renameOwnFileOnce(copyPath(number), m_root + u"/%1-%2.damaged"_s.arg(newFolderName()).arg(number)));
}

QList<int> RecoveryStore::takeOver()
{
    QList<int> numbers;
    m_lastTakeOver = {};
    FolderListing listing;
    const auto kind = findKind(m_root);
    note(kind);
    if (kind == FileKind::Folder) {
        listing = listFolder(m_root);
        note(listing.outcome);
    }
    const QList<FolderEntry> &entries = listing.entries;
    for (const FolderEntry &entry : entries) {
        const QString folder = m_root + u'/' + entry.name;
        if (entry.kind == FileKind::Folder && isNamed(entry, folderPattern) && folder != m_folder) {
            takeOverFrom(folder, numbers);
        } else if (entry.kind == FileKind::File && isNamed(entry, lockPattern)) {
            removeLock(folder.chopped(lockName({}).size()), entries);
        }
    }
    dropOldDamaged(entries);
    return numbers;
}

void RecoveryStore::takeOverFrom(const QString &folder, QList<int> &numbers)
{
    ProcessLock lock(lockName(folder));
    const auto locked = lock.lock();
    if (!locked) {
        if (locked.failure().code != FailureCode::LockHeld) { // else its owner lives
            note(locked);
        }
        return;
    }
    // Another start may have taken it over just before.
    const auto kind = findOwnKind(folder);
    note(kind);
    if (kind == FileKind::Folder) {
        moveFrom(folder, numbers);
    }
}

/// Copies move one by one, each from a folder that the next start looks into to another such: a program that dies
/// meanwhile leaves them to it.
void RecoveryStore::moveFrom(const QString &folder, QList<int> &numbers)
{
    const FolderListing listing = listFolder(folder);
    note(listing.outcome);
    for (const FolderEntry &entry : listing.entries) {
        const QString path = folder + u'/' + entry.name;
        if (entry.kind == FileKind::File && isNamed(entry, copyPattern)) {
            moveCopy(path, numbers);
        } else if (entry.kind == FileKind::File && isNamed(entry, unfinishedPattern)) {
            QFile::remove(path);
        }
    }
    QDir().rmdir(folder); // stays when something is left in it
}

void RecoveryStore::moveCopy(const QString &path, QList<int> &numbers)
{
    const int number = newNumber();
    auto moved = open();
    if (moved) {
        moved = renameOwnFileOnce(path, copyPath(number));
    }
    keepForUser(copyPath(number));
    if (moved || has(number)) { // also if only the wait for the disk has failed
        numbers << number;
    } else {
        note(moved);
    }
}

/// The first failure is the one that is told.
void RecoveryStore::note(const Result<> &outcome)
{
    if (m_lastTakeOver) {
        m_lastTakeOver = outcome;
    }
}

void RecoveryStore::note(const Result<FileKind> &kind)
{
    if (!kind) {
        note(Result<>(kind.failure()));
    }
}

/// Removes the lock of a program that died when its folder was gone already.
void RecoveryStore::removeLock(const QString &folder, const QList<FolderEntry> &entries) const
{
    if (folder != m_folder && !isThere(entries, folder.sliced(m_root.size() + 1))) {
        ProcessLock lock(lockName(folder));
        static_cast<void>(lock.lock()); // gives it back at once, and removes its file
    }
}

/// Nobody may ever look at what was set aside.
void RecoveryStore::dropOldDamaged(const QList<FolderEntry> &entries) const
{
    QStringList names;
    for (const FolderEntry &entry : entries) {
        if (entry.kind == FileKind::File && isNamed(entry, damagedPattern)) {
            names << entry.name;
        }
    }
    while (names.size() > keptDamaged) {
        QFile::remove(m_root + u'/' + names.takeFirst());
    }
}
