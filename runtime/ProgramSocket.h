#pragma once

#include "runtime/Result.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QtGlobal>

#include <optional>

/// A socket by which programs of one user reach each other, under a name that ends with its program, however that ends.
/// Programs of other users are neither reached nor listened to. Messages arrive whole and in order. Nothing here waits,
/// unless it says so. Systems other than Linux have no such sockets: every call fails there.
class ProgramSocket
{
public:
    ProgramSocket() = default;
    ProgramSocket(ProgramSocket &&other) noexcept;
    ProgramSocket &operator=(ProgramSocket &&other) noexcept;
    Q_DISABLE_COPY(ProgramSocket)
    ~ProgramSocket();

    /// Takes the name, which only one program has at a time. Fails with EADDRINUSE if it is taken.
    static Result<ProgramSocket> named(QByteArrayView name);
    /// Connects to the program of that name. Fails with ECONNREFUSED if there is none or if it does not listen yet.
    static Result<ProgramSocket> to(QByteArrayView name);

    explicit operator bool() const { return m_handle >= 0; }
    /// What the system calls it, to be watched.
    qintptr handle() const { return m_handle; }

    bool listen() const;
    /// The next program that wants to connect; none if there is no further one.
    ProgramSocket accept() const;

    /// False if the other program has ended or takes no more messages.
    bool send(QByteArrayView message) const;
    /// The next message: empty at the end of the connection, `std::nullopt` if none is there yet.
    std::optional<QByteArray> receive() const;
    /// Waits for a message or the end of the connection, so many ms at most; -1: as long as it takes.
    void waitForMessage(int longestWait) const;
    /// Takes no more messages: from now on the other's send() fails. Those that are there can still be received.
    void refuseMessages() const;

private:
    explicit ProgramSocket(int handle) : m_handle(handle) { }

    int m_handle = -1;
};
