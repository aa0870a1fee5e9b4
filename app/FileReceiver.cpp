#include "app/FileReceiver.h"

#include "app/MDIfrmTabrix.h"
#include "desktop/InputHold.h"

#include <QApplication>
#include <QEvent>
#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>

using namespace std::chrono_literals;

namespace {

constexpr auto nextLook = 100ms; // until it is looked again whether a file may be opened

/// It may be the one that is being heard.
void forget(QSocketNotifier *&notifier)
{
    if (notifier) {
        notifier->setEnabled(false);
        notifier->deleteLater();
        notifier = nullptr;
    }
}

} // namespace

FileReceiver::FileReceiver(HandOver &start, MDIfrmTabrix &frame)
    : m_name(start.name()), m_socket(start.takeSocket()), m_frame(frame)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &FileReceiver::openNext);
    m_frame.installEventFilter(this);
    if (!m_name.isEmpty()) {
        // Until then others wait for the end of the start, which may take longer than they wait for an answer.
        QMetaObject::invokeMethod(this, &FileReceiver::takeTurn, Qt::QueuedConnection);
    }
}

FileReceiver::~FileReceiver()
{
    end();
}

bool FileReceiver::eventFilter(QObject *watched, QEvent *event)
{
    // A spontaneous one only says that the frame is minimised.
    if (event->type() == QEvent::Hide && !event->spontaneous()) {
        end();
    }
    return QObject::eventFilter(watched, event);
}

/// Receives the files, or waits for the end of the program that does.
void FileReceiver::takeTurn()
{
    constexpr auto startTime = 1s;
    if (m_name.isEmpty()) {
        return;
    }
    if (!m_socket) {
        takeName();
    }
    if (m_socket) {
        watch(&FileReceiver::welcome);
        m_socket.listen();
        return;
    }
    auto other = ProgramSocket::to(m_name);
    if (other) {
        m_socket = std::move(*other);
        watch(&FileReceiver::noteEnd);
    } else if (other.failure().systemError == ECONNREFUSED) { // it is only starting, or has just ended
        QTimer::singleShot(startTime, this, &FileReceiver::takeTurn);
    }
}

void FileReceiver::takeName()
{
    if (auto socket = ProgramSocket::named(m_name)) {
        m_socket = std::move(*socket);
    }
}

void FileReceiver::watch(void (FileReceiver::*happened)())
{
    m_notifier = new QSocketNotifier(m_socket.handle(), QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, happened);
}

void FileReceiver::welcome()
{
    while (ProgramSocket socket = m_socket.accept()) {
        const auto visitor = m_visitors.insert(m_visitors.end(), {std::move(socket), nullptr, std::nullopt});
        visitor->notifier = new QSocketNotifier(visitor->socket.handle(), QSocketNotifier::Read, this);
        connect(visitor->notifier, &QSocketNotifier::activated, this, [this, visitor] { hear(visitor); });
    }
}

void FileReceiver::noteEnd()
{
    forget(m_notifier);
    m_socket = {};
    takeTurn();
}

void FileReceiver::hear(Visitors::iterator visitor)
{
    const std::optional<QByteArray> message = visitor->socket.receive();
    if (!message) {
        return;
    }
    visitor->file = HandedFile::fromMessage(*message);
    if (!visitor->file) { // it has ended, or says what nobody understands
        dismiss(visitor);
    } else if (mayOpen()) {
        m_timer.start(0ms);
    } else {
        visitor->socket.send(HandOverAnswer::Later);
        comeToFront(visitor->file->activationToken); // the user sees what is in the way
        m_timer.start(nextLook);
    }
}

void FileReceiver::openNext()
{
    const auto visitor = std::ranges::find_if(m_visitors, [](const Visitor &other) { return other.file.has_value(); });
    if (visitor == m_visitors.end()) {
        return;
    }
    if (!mayOpen()) {
        m_timer.start(nextLook);
        return;
    }
    const HandedFile file = *visitor->file;
    const bool isMine = visitor->socket.send(HandOverAnswer::Opened); // it may have lost its patience
    dismiss(visitor);
    m_timer.start(0ms);
    if (isMine) {
        comeToFront(file.activationToken);
        m_frame.documents().OpenPrFile(file.fileName);
    }
}

bool FileReceiver::mayOpen() const
{
    return m_frame.isVisible() && !QApplication::activeModalWidget() && !QApplication::activePopupWidget()
        && !InputHold::isHeld() && !InputHold::isWaiting();
}

void FileReceiver::comeToFront(const QByteArray &activationToken)
{
    if (!m_frame.isVisible()) {
        return;
    }
    if (!activationToken.isEmpty()) {
        qputenv("XDG_ACTIVATION_TOKEN", activationToken); // from where the toolkit takes it
    }
    m_frame.setWindowState(m_frame.windowState() & ~Qt::WindowMinimized);
    m_frame.raise();
    m_frame.activateWindow();
}

void FileReceiver::dismiss(Visitors::iterator visitor)
{
    forget(visitor->notifier);
    m_visitors.erase(visitor);
}

/// Whoever waits opens its file itself, and the name is free.
void FileReceiver::end()
{
    while (!m_visitors.empty()) {
        dismiss(m_visitors.begin());
    }
    forget(m_notifier);
    m_socket = {};
    m_name.clear();
}
