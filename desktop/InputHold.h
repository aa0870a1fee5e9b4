#pragma once

#include <QObject>

#include <functional>

/// While one of these lives, nothing that the user does reaches a window: keys, clicks, wheel, shortcuts and requests
/// to close wait, in their order, until the last one is gone and control is back in the event loop. What is dropped
/// from another program is refused instead. A modal window that is up takes its input as ever.
class InputHold
{
public:
    InputHold();
    ~InputHold();
    Q_DISABLE_COPY_MOVE(InputHold)

    static bool isHeld();
    /// Whether something still waits, held back or on its way.
    static bool isWaiting();

    /// Lets action wait in the same row. False when nothing is held back: the caller then goes on at once. An action
    /// whose context is gone by then is left out.
    static bool postpone(QObject &context, std::function<void()> action);
};
