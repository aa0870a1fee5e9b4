#include "tests/longday/DayLine.h"

#include <QJsonDocument>
#include <QSocketNotifier>

#include <array>
#include <cstdio>
#include <unistd.h>
#include <utility>

DayLine::DayLine(QObject *parent) : QObject(parent)
{
    connect(new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this), &QSocketNotifier::activated, this,
        &DayLine::read);
}

void DayLine::say(const QJsonObject &news)
{
    std::printf("%s\n", QJsonDocument(news).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

void DayLine::read()
{
    std::array<char, 65536> part;
    const ssize_t length = ::read(STDIN_FILENO, part.data(), part.size());
    if (length <= 0) {
        ::_exit(1); // the test is dead
    }
    m_bytes.append(part.data(), length);
    for (qsizetype end = m_bytes.indexOf('\n'); end >= 0; end = m_bytes.indexOf('\n')) {
        const QJsonObject said = QJsonDocument::fromJson(m_bytes.left(end)).object();
        m_bytes.remove(0, end + 1);
        if (m_receiver) {
            std::exchange(m_receiver, nullptr)(said);
        } else {
            emit commanded(said);
        }
    }
}
