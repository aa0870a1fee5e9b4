#include "runtime/SettingsTurn.h"

#include <QDeadlineTimer>

using namespace std::chrono_literals;

namespace {

std::chrono::milliseconds longestWait = 2s; // storing takes some milliseconds

} // namespace

SettingsTurn::SettingsTurn(const QString &lockFile) : m_lock(lockFile)
{
    constexpr auto memory = 60s;
    // Who holds the turn that long has been stopped: he must not hold up the next acts of the user as well.
    static QDeadlineTimer impatient;
    const bool waits = impatient.hasExpired();
    const auto locked = m_lock.lock(waits ? longestWait : 0s);
    if (!locked && locked.failure().code == FailureCode::LockHeld && waits) {
        impatient.setRemainingTime(memory);
    }
}

void SettingsTurn::setLongestWait(std::chrono::milliseconds wait)
{
    longestWait = wait;
}
