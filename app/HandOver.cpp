#include "app/HandOver.h"

#include "runtime/Country.h"
#include "runtime/DataFolder.h"
#include "runtime/FileName.h"
#include "runtime/FileStamp.h"
#include "runtime/SettingsFile.h"
#include "runtime/SystemFile.h"
#include "runtime/SystemPath.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QThread>

#include <cerrno>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Part of the meeting name: programs that would not understand each other do not meet.
constexpr QByteArrayView messageForm = "1";

bool staysByItself()
{
    const QByteArray wish = qgetenv("TABRIX_SEPARATE");
    return !wish.isEmpty() && wish != "0";
}

/// In a container, other files may have the names that they have here.
QByteArray rootFolder()
{
    const FileStamp root = FileStamp::of(u"/"_s);
    return QByteArray::number(root.device) + ':' + QByteArray::number(root.inode);
}

} // namespace

QByteArray HandedFile::message() const
{
    return activationToken + '\0' + fileNameBytes(fileName);
}

std::optional<HandedFile> HandedFile::fromMessage(const QByteArray &message)
{
    const qsizetype end = message.indexOf('\0');
    if (end < 0) {
        return std::nullopt;
    }
    return HandedFile{fileNameFromBytes(QByteArrayView(message).sliced(end + 1)), message.first(end)};
}

QByteArray meetingName()
{
    if (staysByItself()) {
        return {};
    }
    const QByteArrayList samenesses = {
        messageForm.toByteArray(),
        QCoreApplication::applicationDirPath().toUtf8(),
        rootFolder(),
        dataFolder().toUtf8(),
        SettingsFile::path().toUtf8(),
        QByteArray::number(countryCode()),
        QGuiApplication::platformName().toUtf8(),
        qgetenv("DISPLAY"),
        qgetenv("WAYLAND_DISPLAY"),
    };
    return QCryptographicHash::hash(samenesses.join('\0'), QCryptographicHash::Sha1).toHex();
}

void HandOver::setPatience(std::chrono::milliseconds silence, std::chrono::milliseconds start)
{
    m_silence = silence;
    m_start = start;
}

bool HandOver::give(const QString &fileName)
{
    constexpr unsigned long pause = 10; // ms
    const QString file = absoluteFileName(fileName);
    const QDeadlineTimer start(isRegularFile(file) ? m_start : 0ms);
    while (!m_name.isEmpty() && !takeName() && !start.hasExpired()) {
        const auto other = ProgramSocket::to(m_name);
        if (other) {
            return giveTo(*other, {file, qgetenv("XDG_ACTIVATION_TOKEN")});
        }
        if (other.failure().systemError != ECONNREFUSED) {
            return false;
        }
        QThread::msleep(pause); // it has the name, but is only starting
    }
    return false;
}

/// True also if there are no names to be had.
bool HandOver::takeName()
{
    auto socket = ProgramSocket::named(m_name);
    if (!socket) {
        return socket.failure().systemError != EADDRINUSE;
    }
    m_socket = std::move(*socket);
    return true;
}

bool HandOver::giveTo(const ProgramSocket &other, const HandedFile &file) const
{
    QDeadlineTimer silence(m_silence);
    bool isWaiting = other.send(file.message());
    while (isWaiting) {
        other.waitForMessage(int(silence.remainingTime()));
        isWaiting = !silence.hasExpired();
        if (!isWaiting) {
            other.refuseMessages(); // so that it does not open the file as well when it comes round
        }
        const std::optional<QByteArray> answer = other.receive();
        if (answer == HandOverAnswer::Later) {
            silence = QDeadlineTimer(QDeadlineTimer::Forever);
        } else if (answer) {
            return *answer == HandOverAnswer::Opened;
        }
    }
    return false;
}
