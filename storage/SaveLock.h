#pragma once

#include "runtime/ProcessLock.h"

#include <QString>

/// Keeps every other Tabrix of this user from replacing a file while it lives. The lock is in the per-user data
/// folder, not beside the file, and ends with its program.
class SaveLock
{
public:
    /// Waits until others are done with the file, a few seconds at most.
    explicit SaveLock(const QString &fileName);

    /// Whether another program still saves the file. Where no lock can be made (the home folder is full or read-only)
    /// the save goes on without.
    bool isTaken() const { return m_isTaken; }

private:
    ProcessLock m_lock;
    bool m_isTaken;
};
