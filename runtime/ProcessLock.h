#pragma once

#include <QString>

#include <chrono>
#include <memory>

/// A lock between programs, as a file. It ends with its program, however that ends: what stands in the file, how old it
/// is and whether it can be removed do not matter.
class ProcessLock
{
public:
    explicit ProcessLock(QString fileName);
    /// Gives the lock back.
    ~ProcessLock();
    Q_DISABLE_COPY_MOVE(ProcessLock)

    enum class Result {
        Locked,
        Held, ///< by another program, to the end of the wait
        Failed ///< the system gives no lock there
    };
    Result lock(std::chrono::milliseconds longestWait = std::chrono::milliseconds(0));

    /// Why the last lock was not given, as the system says it.
    QString reason() const { return m_reason; }

private:
    struct Holder;

    QString m_fileName;
    QString m_reason;
    std::unique_ptr<Holder> m_holder; ///< while locked
};
