#pragma once

#include <QString>

struct Failure;

/// What reading and writing need of the desktop.
class FileHost
{
public:
    virtual ~FileHost() = default;

    /// A message with an OK button and the program's default title.
    virtual void showMessage(const QString &text) = 0;
    /// A message with an OK button, the exclamation icon and that title.
    virtual void showFailure(const Failure &failure, const QString &title) = 0;
    /// A question with Yes and No, the exclamation icon and that title; true for Yes. Enter and Escape mean No.
    virtual bool askYesNo(const QString &question, const QString &title) = 0;
    /// The busy cursor, on and off.
    virtual void setBusy(bool busy) = 0;
    /// Lets paint and timer events run; user input stays in the queue.
    virtual void runPendingEvents() = 0;
};

/// The busy cursor of a host, for as long as this object lives.
class HostBusy
{
public:
    explicit HostBusy(FileHost &host) : m_host(host) { m_host.setBusy(true); }
    ~HostBusy() { m_host.setBusy(false); }
    Q_DISABLE_COPY_MOVE(HostBusy)

private:
    FileHost &m_host;
};
