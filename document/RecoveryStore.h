#pragma once

#include <QByteArray>
#include <QList>
#include <QLockFile>
#include <QString>

#include <memory>

/// The recovery copies of one running program, each under a number of its own. They lie in a folder that is locked as
/// long as the program lives, so that another one takes over copies of the dead only. The folder is made with the first
/// copy. Where the disk refuses anything, there is just no copy.
class RecoveryStore
{
public:
    /// root: the folder of all programs' copies; it need not exist.
    explicit RecoveryStore(QString root = defaultRoot());
    /// Copies that are still there are left for the next start.
    ~RecoveryStore();
    Q_DISABLE_COPY_MOVE(RecoveryStore)

    static QString defaultRoot();

    /// A number that no copy has.
    int newNumber() { return ++m_lastNumber; }
    /// Makes or replaces a copy; it is never seen half-written. False when it could not be done: an earlier copy of
    /// that number is untouched then.
    bool write(int number, const QByteArray &bytes);
    /// Empty when there is none that can be read.
    QByteArray read(int number) const;
    void remove(int number);
    /// Takes a copy that is of no use out of every program's way, without destroying it.
    void setAside(int number);

    /// Makes the copies of programs that have died this program's own; returns their numbers, oldest first.
    QList<int> takeOver();

private:
    bool open();
    QList<int> moveFrom(const QString &folder);
    QString copyPath(int number) const;

    QString m_root;
    QString m_folder; ///< empty before the first copy
    std::unique_ptr<QLockFile> m_lock;
    int m_lastNumber = 0;
};
