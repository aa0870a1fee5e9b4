#include "runtime/ProgramSocket.h"

#include <cerrno>
#include <utility>

#ifdef Q_OS_LINUX
#include "runtime/Uninterrupted.h"

#include <algorithm>
#include <cstddef>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#endif

ProgramSocket::ProgramSocket(ProgramSocket &&other) noexcept : m_handle(std::exchange(other.m_handle, -1))
{
}

ProgramSocket &ProgramSocket::operator=(ProgramSocket &&other) noexcept
{
    std::swap(m_handle, other.m_handle);
    return *this;
}

#ifdef Q_OS_LINUX

namespace {

constexpr int waitingPrograms = 64; // that want to connect at the same moment
constexpr qsizetype longestMessage = 64 * 1024; // bytes

/// A name of the system's own, without a file: nothing is left of it when its program ends. Each user has names apart.
struct Address
{
    explicit Address(QByteArrayView name)
    {
        const QByteArray mine = "tabrix-" + QByteArray::number(::geteuid()) + '-' + name.toByteArray();
        value.sun_family = AF_UNIX;
        const auto count = std::min(std::size_t(mine.size()), sizeof value.sun_path - 1);
        std::copy_n(mine.data(), count, value.sun_path + 1); // the first byte stays 0
        size = socklen_t(offsetof(sockaddr_un, sun_path) + 1 + count);
    }
    const sockaddr *data() const { return reinterpret_cast<const sockaddr *>(&value); }

    sockaddr_un value{};
    socklen_t size = 0;
};

int newSocket()
{
    return ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
}

/// Anybody can take a name, and connect to any.
bool isOfThisUser(int handle)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(handle, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

} // namespace

ProgramSocket::~ProgramSocket()
{
    if (m_handle >= 0) {
        ::close(m_handle);
    }
}

Result<ProgramSocket> ProgramSocket::named(QByteArrayView name)
{
    ProgramSocket socket(newSocket());
    const Address address(name);
    if (!socket || ::bind(socket.m_handle, address.data(), address.size) != 0) {
        return Failure::system(errno);
    }
    return socket;
}

Result<ProgramSocket> ProgramSocket::to(QByteArrayView name)
{
    ProgramSocket socket(newSocket());
    const Address address(name);
    if (!socket || ::connect(socket.m_handle, address.data(), address.size) != 0) {
        return Failure::system(errno);
    }
    if (!isOfThisUser(socket.m_handle)) {
        return Failure::system(EPERM);
    }
    return socket;
}

bool ProgramSocket::listen() const
{
    return ::listen(m_handle, waitingPrograms) == 0;
}

ProgramSocket ProgramSocket::accept() const
{
    for (;;) {
        ProgramSocket other(
            uninterrupted([this] { return ::accept4(m_handle, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK); }));
        if (!other || isOfThisUser(other.m_handle)) {
            return other;
        }
    }
}

bool ProgramSocket::send(QByteArrayView message) const
{
    return uninterrupted([&] { return ::send(m_handle, message.data(), std::size_t(message.size()), MSG_NOSIGNAL); })
        == message.size();
}

std::optional<QByteArray> ProgramSocket::receive() const
{
    QByteArray message(longestMessage, Qt::Uninitialized);
    const auto count =
        uninterrupted([&] { return ::recv(m_handle, message.data(), std::size_t(message.size()), MSG_DONTWAIT); });
    if (count < 0) {
        return errno == EAGAIN ? std::nullopt : std::optional(QByteArray());
    }
    message.truncate(count);
    return message;
}

void ProgramSocket::waitForMessage(int longestWait) const
{
    pollfd watched{.fd = m_handle, .events = POLLIN, .revents = 0};
    ::poll(&watched, 1, longestWait);
}

void ProgramSocket::refuseMessages() const
{
    ::shutdown(m_handle, SHUT_RD);
}

#else

ProgramSocket::~ProgramSocket() = default;

Result<ProgramSocket> ProgramSocket::named(QByteArrayView /*name*/)
{
    return Failure::system(ENOTSUP);
}

Result<ProgramSocket> ProgramSocket::to(QByteArrayView /*name*/)
{
    return Failure::system(ENOTSUP);
}

bool ProgramSocket::listen() const
{
    return false;
}

ProgramSocket ProgramSocket::accept() const
{
    return {};
}

bool ProgramSocket::send(QByteArrayView /*message*/) const
{
    return false;
}

std::optional<QByteArray> ProgramSocket::receive() const
{
    return QByteArray();
}

void ProgramSocket::waitForMessage(int /*longestWait*/) const
{
}

void ProgramSocket::refuseMessages() const
{
}

#endif
