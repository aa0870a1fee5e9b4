#pragma once

#include "runtime/OwnFiles.h"
#include "runtime/ProcessLock.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>

/// The recovery copies of one running program, each under a number of its own. They are in a folder that is locked as
/// long as the program lives, so that another one takes over the copies of crashed instances only. The folder is made
/// with the first copy.
///
/// Whatever in the folder of all programs is not named as this class names it is somebody else's and left alone; links
/// are never followed, and no folder is removed that is not empty.
class RecoveryStore
{
public:
    /// root: the folder of all programs' copies; it need not exist.
    explicit RecoveryStore(QString root = defaultRoot());
    /// Copies that are still there are left for the next start.
    ~RecoveryStore();
    Q_DISABLE_COPY_MOVE(RecoveryStore)

    static QString defaultRoot();
    const QString &root() const { return m_root; }

    /// A number that no copy has.
    int newNumber() { return ++m_lastNumber; }
    /// Makes or replaces a copy; it is never seen half-written. True when it is on the disk; else an earlier copy of
    /// that number, if there was one, is still there or this one is.
    bool write(int number, const QByteArray &bytes);
    /// Whether there is a copy of that number.
    bool has(int number) const;
    /// The bytes of a copy. Fails if it cannot be read now.
    Result<QByteArray> read(int number) const;
    void remove(int number);
    /// Takes a copy that is of no use out of every program's way, without destroying it.
    void setAside(int number);

    /// Makes the copies of programs that have died this program's own; returns their numbers, oldest first. What cannot
    /// be taken over now stays for the next start.
    QList<int> takeOver();
    /// Fails if not all copies could be taken over the last time.
    const Result<> &lastTakeOver() const { return m_lastTakeOver; }

private:
    Result<> open();
    void takeOverFrom(const QString &folder, QList<int> &numbers);
    void moveFrom(const QString &folder, QList<int> &numbers);
    void moveCopy(const QString &path, QList<int> &numbers);
    void note(const Result<> &outcome);
    void note(const Result<FileKind> &kind);
    void removeLock(const QString &folder, const QList<FolderEntry> &entries) const;
    void dropOldDamaged(const QList<FolderEntry> &entries) const;
    QString copyPath(int number) const;

    QString m_root;
    QString m_folder; ///< empty before the first copy
    std::unique_ptr<ProcessLock> m_lock;
    int m_lastNumber = 0;
    Result<> m_lastTakeOver;
};
