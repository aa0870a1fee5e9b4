#include "tests/support/ThisSystem.h"

#include "runtime/WindowsApi.h"

#include <QFile>

#include <cerrno>
#include <stdexcept>

using namespace Qt::StringLiterals;

#ifdef Q_OS_WIN

QString ThisSystem::words(int error)
{
    switch (error) {
    case ENOENT:
        return qt_error_string(ERROR_FILE_NOT_FOUND);
    case EACCES:
    case EISDIR:
        return qt_error_string(ERROR_ACCESS_DENIED);
    case ENOTDIR:
        return qt_error_string(ERROR_DIRECTORY);
    case ENOSPC:
        return qt_error_string(ERROR_DISK_FULL);
    default:
        throw std::runtime_error("no words for error " + std::to_string(error));
    }
}

bool ThisSystem::hasLinks()
{
    return false;
}

bool ThisSystem::allowsBarsInNames()
{
    return false;
}

QString ThisSystem::sessionPlatform()
{
    return qEnvironmentVariable("QT_QPA_PLATFORM");
}

bool ThisSystem::hasFolderVariables()
{
    return false;
}

int ThisSystem::repetitions(int usual)
{
    constexpr int lessOften = 2; // with fewer, not every shape of a row occurs
    return usual / lessOften;
}

QString ThisSystem::fullDevice()
{
    return {};
}

#else

QString ThisSystem::words(int error)
{
    return qt_error_string(error);
}

bool ThisSystem::hasLinks()
{
    return true;
}

bool ThisSystem::allowsBarsInNames()
{
    return true;
}

QString ThisSystem::sessionPlatform()
{
    return u"xcb"_s;
}

bool ThisSystem::hasFolderVariables()
{
    return true;
}

int ThisSystem::repetitions(int usual)
{
    return usual;
}

QString ThisSystem::fullDevice()
{
    const QString device = u"/dev/full"_s;
    return QFile::exists(device) ? device : QString();
}

#endif
