#include "desktop/InputHold.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QWidget>

#include <algorithm>
#include <deque>
#include <memory>

namespace {

/// Something that is to be delivered, and to whom.
struct Waiting
{
    QPointer<QObject> receiver;
    std::function<void()> deliver;
};

/// Keeps the user's input from the windows while it is held back.
class InputGate : public QObject
{
public:
    void shut();
    void open();
    bool isShut() const { return m_holds > 0; }
    bool isWaiting() const { return !m_waiting.empty() || m_delivering; }
    void wait(QObject &receiver, std::function<void()> deliver);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void holdBack(QObject &receiver, QEvent &event);
    void holdBackInput(QObject &receiver, const std::shared_ptr<QEvent> &event);
    void deliverNext();
    void deliverSoon();

    int m_holds = 0;
    bool m_delivering = false;
    std::deque<Waiting> m_waiting;
};

InputGate &gate()
{
    static InputGate theGate;
    return theGate;
}

/// Events that the receiver gets later, unchanged.
bool isInput(QEvent::Type type)
{
    static constexpr QEvent::Type types[] = {QEvent::KeyPress, QEvent::KeyRelease, QEvent::Shortcut,
        QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick, QEvent::MouseMove,
        QEvent::Wheel, QEvent::ContextMenu, QEvent::InputMethod, QEvent::TouchBegin, QEvent::TouchUpdate,
        QEvent::TouchEnd};
    return std::ranges::find(types, type) != std::end(types);
}

/// Events for the widget that has the focus when they are delivered: the first key may open an editor for the next one.
bool isTyped(QEvent::Type type)
{
    return type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::InputMethod;
}

bool isDrop(QEvent::Type type)
{
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
}

/// Whether the object is in the modal window, or in a window that it opened.
bool isInModalWindow(const QObject &object)
{
    const QObject *const modal = QApplication::activeModalWidget();
    const QObject *ancestor = modal != nullptr ? &object : nullptr;
    while (ancestor != nullptr && ancestor != modal) {
        ancestor = ancestor->parent();
    }
    return ancestor != nullptr;
}

void InputGate::shut()
{
    if (m_holds++ == 0) {
        QCoreApplication::instance()->installEventFilter(this);
    }
}

void InputGate::open()
{
    if (--m_holds == 0) {
        QCoreApplication::instance()->removeEventFilter(this);
        deliverSoon();
    }
}

void InputGate::wait(QObject &receiver, std::function<void()> deliver)
{
    m_waiting.push_back({&receiver, std::move(deliver)});
}

bool InputGate::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    const bool isClose = type == QEvent::Close && watched->isWidgetType();
    // A QWindow passes its input on to a widget, where this filter sees it again.
    if (watched->isWindowType() || (!isInput(type) && !isClose && !isDrop(type)) || isInModalWindow(*watched)) {
        return false;
    }
    holdBack(*watched, *event);
    return true;
}

void InputGate::holdBack(QObject &receiver, QEvent &event)
{
    if (event.type() == QEvent::Close) {
        event.ignore();
        wait(receiver, [window = static_cast<QWidget *>(&receiver)] { window->close(); });
    } else if (isDrop(event.type())) {
        event.ignore();
    } else {
        event.accept(); // or it would be offered to the parent
        holdBackInput(receiver, std::shared_ptr<QEvent>(event.clone()));
    }
}

void InputGate::holdBackInput(QObject &receiver, const std::shared_ptr<QEvent> &event)
{
    if (isTyped(event->type()) && &receiver == QApplication::focusWidget()) {
        wait(*QCoreApplication::instance(), [event] {
            if (QWidget *focus = QApplication::focusWidget()) {
                QCoreApplication::sendEvent(focus, event.get());
            }
        });
    } else {
        wait(receiver, [&receiver, event] { QCoreApplication::sendEvent(&receiver, event.get()); });
    }
}

/// Delivers one event per turn of the event loop, as if the user acted now. If it opens a dialog, the next one follows
/// when the dialog is closed; if it begins another operation, the rest wait for the end of that.
void InputGate::deliverNext()
{
    if (m_delivering || isShut() || m_waiting.empty()) {
        return;
    }
    const Waiting next = std::move(m_waiting.front());
    m_waiting.pop_front();
    if (next.receiver) {
        const QScopedValueRollback delivering(m_delivering, true);
        next.deliver();
    }
    deliverSoon();
}

void InputGate::deliverSoon()
{
    QMetaObject::invokeMethod(this, &InputGate::deliverNext, Qt::QueuedConnection);
}

} // namespace

InputHold::InputHold()
{
    gate().shut();
}

InputHold::~InputHold()
{
    gate().open();
}

bool InputHold::isHeld()
{
    return gate().isShut();
}

bool InputHold::isWaiting()
{
    return gate().isWaiting();
}

bool InputHold::postpone(QObject &context, std::function<void()> action)
{
    if (!isHeld()) {
        return false;
    }
    gate().wait(context, std::move(action));
    return true;
}
