#pragma once

#include <QJsonObject>
#include <QObject>
#include <QQueue>

#include <functional>

/// The child's end of the line to the test: one JSON object per line, commands in, news out.
class DayLine : public QObject
{
    Q_OBJECT

public:
    explicit DayLine(QObject *parent = nullptr);

    static void say(const QJsonObject &news);
    /// The next thing that the test says, now or later, is for that receiver alone; once.
    void nextIsFor(std::function<void(const QJsonObject &)> receiver) { m_receiver = std::move(receiver); }

signals:
    void commanded(const QJsonObject &command);

private:
    void read();

    QByteArray m_bytes;
    std::function<void(const QJsonObject &)> m_receiver;
};
