#include "tests/longday/DayPeer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRasterWindow>
#include <QTimer>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 120'000; // ms

DayBox boxFrom(const QJsonObject &news)
{
    QStringList buttons;
    const QJsonArray names = news[u"buttons"_s].toArray();
    for (const auto &button : names) {
        buttons << button.toString();
    }
    return {news[u"kind"_s].toString(), news[u"title"_s].toString(), news[u"text"_s].toString(), buttons,
        news[u"default"_s].toString()};
}

} // namespace

void DayPeer::awaitWindowManager()
{
    QProcess tool;
    await("found a window manager", [&tool] {
        tool.start(u"xdotool"_s, {u"get_num_desktops"_s});
        return tool.waitForFinished() && tool.exitCode() == 0;
    });
}

DayPeer::DayPeer() = default;
DayPeer::~DayPeer() = default;

void DayPeer::start()
{
    if (!m_desk) {
        m_desk = std::make_unique<QRasterWindow>();
        m_desk->resize(1, 1);
        m_desk->show();
    }
    m_process = std::make_unique<QProcess>();
    m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process->start(QStringLiteral(TABRIX_DAY_CHILD), QStringList());
    m_window = heard()[u"window"_s].toString();
}

// The test's own events run meanwhile: it may own the clipboard.
void DayPeer::await(const char *what, const std::function<bool()> &condition)
{
    QTimer wake; // the process may end without a word
    wake.start(1000);
    QElapsedTimer time;
    time.start();
    while (!condition()) {
        if (time.hasExpired(patience)) {
            throw std::runtime_error(std::string("waited in vain until the program ") + what);
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

QJsonObject DayPeer::heard()
{
    await("answered", [this] { return m_process->canReadLine() || m_process->state() == QProcess::NotRunning; });
    if (!m_process->canReadLine()) {
        throw std::runtime_error("the program has died");
    }
    const QByteArray line = m_process->readLine();
    const QJsonDocument news = QJsonDocument::fromJson(line);
    if (!news.isObject()) {
        throw std::runtime_error("the program says " + line.toStdString());
    }
    return news.object();
}

void DayPeer::send(const QJsonObject &command)
{
    m_process->write(QJsonDocument(command).toJson(QJsonDocument::Compact) + '\n');
}

QJsonObject DayPeer::act(const QJsonObject &command, const Answers &answers)
{
    send(command);
    QJsonObject news = heard();
    while (news.contains(u"box"_s)) {
        send({{u"answer"_s, answers(boxFrom(news[u"box"_s].toObject()))}});
        news = heard();
    }
    if (news.contains(u"failure"_s)) {
        throw std::runtime_error(news[u"failure"_s].toString().toStdString());
    }
    if (!news.contains(u"state"_s)) {
        awaitEnd();
    }
    constexpr int attempts = 10;
    for (int attempt = 0; news[u"inBackground"_s].toBool(); ++attempt) {
        if (attempt == attempts) {
            throw std::runtime_error("the window manager does not give the frame the focus");
        }
        if (attempt > 0) { // the window manager takes it for the active one already
            activate(QString::number(m_desk->winId()));
        }
        bringToFront(); // a user would click into it
        send({{u"do"_s, u"look"_s}});
        news = heard();
    }
    return news[u"state"_s].toObject();
}

void DayPeer::awaitEnd()
{
    await("ended", [this] { return m_process->state() == QProcess::NotRunning; });
    if (m_process->exitStatus() != QProcess::NormalExit || m_process->exitCode() != 0) {
        throw std::runtime_error("the program has crashed on its way out");
    }
}

void DayPeer::kill()
{
    m_process->kill();
    await("was killed", [this] { return m_process->state() == QProcess::NotRunning; });
}

void DayPeer::bringToFront()
{
    activate(m_window);
}

void DayPeer::activate(const QString &window)
{
    QProcess tool;
    tool.start(u"xdotool"_s, {u"windowactivate"_s, window});
    await("was activated", [&tool] { return tool.state() == QProcess::NotRunning; });
    if (tool.exitStatus() != QProcess::NormalExit || tool.exitCode() != 0) {
        throw std::runtime_error("xdotool cannot activate the window");
    }
}
