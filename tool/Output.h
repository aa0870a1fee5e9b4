#pragma once

#include <QByteArray>
#include <QString>

#include <cstdio>
#include <optional>

/// A standard stream, written to in UTF-8. A reader that closes its end early ends the output quietly.
class Output
{
public:
    explicit Output(std::FILE *stream) : m_stream(stream) { }
    ~Output() { flush(); }
    Q_DISABLE_COPY_MOVE(Output)

    void put(QByteArrayView bytes);
    void put(QStringView text) { put(QByteArrayView(text.toUtf8())); }
    void flush();

    /// Why not everything could be written: the system's description. A closed reader is not a failure.
    const std::optional<QString> &failure() const { return m_failure; }

private:
    void write(QByteArrayView bytes);

    std::FILE *m_stream;
    QByteArray m_waiting;
    bool m_isClosed = false;
    std::optional<QString> m_failure;
};
