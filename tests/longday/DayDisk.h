#pragma once

#include <QString>

/// A small disk of the test's own, which can be full. Where the system lets no test mount one, the folder is an
/// ordinary one that never is.
class DayDisk
{
public:
    /// To be called first in main, while the process has one thread: makes mounts of this process's own possible.
    static void prepare();

    /// Mounts a disk on an empty folder.
    explicit DayDisk(QString folder);
    ~DayDisk();
    Q_DISABLE_COPY_MOVE(DayDisk)

    bool canBeFull() const { return m_isMounted; }
    bool isFull() const { return m_isFull; }
    /// Leaves no byte free.
    void fill();
    void makeRoom();

private:
    QString filler() const { return m_folder + QStringLiteral("/.filler"); }

    QString m_folder;
    bool m_isMounted = false;
    bool m_isFull = false;
};
