#pragma once

#include "runtime/ProcessLock.h"

#include <QString>

#include <chrono>

/// Keeps every other Tabrix from storing settings, for as long as this object lives. Where that cannot be, both go on.
class SettingsTurn
{
public:
    /// lockFile: in a folder that exists.
    explicit SettingsTurn(const QString &lockFile);

    /// How long a turn is waited for. For tests on a machine that has no time.
    static void setLongestWait(std::chrono::milliseconds wait);

private:
    ProcessLock m_lock;
};
