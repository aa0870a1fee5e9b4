#pragma once

#include <QLockFile>
#include <QString>

/// Keeps every other Tabrix of this user from replacing a file while it lives. The lock stands in the per-user data
/// folder, not beside the file, and is void when its owner has died.
class SaveLock
{
public:
    /// Waits until others are done with the file, a few seconds at most.
    explicit SaveLock(const QString &fileName);

    /// Whether another program still saves the file. Where no lock can be made (the home folder is full or read-only)
    /// the save goes on without.
    bool isTaken() const { return m_isTaken; }
    void release() { m_lock.unlock(); }

private:
    QLockFile m_lock;
    bool m_isTaken = false;
};
