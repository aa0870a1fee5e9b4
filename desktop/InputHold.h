#pragma once

#include <QObject>

#include <functional>

/// As long as one of these objects lives, nothing that the user does reaches a window: keys, clicks, wheel, shortcuts
/// and requests to close are delivered in their order after the last object is gone and control is back in the event
/// loop. Drops from other programs are refused. A modal window that is open takes its input as usual.
class InputHold
{
public:
    InputHold();
    ~InputHold();
    Q_DISABLE_COPY_MOVE(InputHold)

    static bool isHeld();
    /// Whether input is still waiting or being delivered.
    static bool isWaiting();

    /// Queues action after the input that is waiting. False if no input is held back: the caller then acts at once. The
    /// action is skipped if its context has been deleted by then.
    static bool postpone(QObject &context, std::function<void()> action);
};
