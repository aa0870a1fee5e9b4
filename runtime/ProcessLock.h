#pragma once

#include "runtime/Result.h"

#include <QString>

#include <chrono>
#include <memory>

/// A lock between programs, as a file. It ends with its program, however that ends: the content of the file, its age
/// and whether it can be removed do not matter.
class ProcessLock
{
public:
    explicit ProcessLock(QString fileName);
    /// Gives the lock back.
    ~ProcessLock();
    Q_DISABLE_COPY_MOVE(ProcessLock)

    /// Fails with LockHeld if another program has the lock to the end of the wait, and with what the system says if it
    /// gives no lock there.
    Result<> lock(std::chrono::milliseconds longestWait = std::chrono::milliseconds(0));

private:
    struct Holder;

    QString m_fileName;
    std::unique_ptr<Holder> m_holder; ///< while locked
};
