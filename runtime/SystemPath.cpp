#include "runtime/SystemPath.h"

#include "runtime/FileName.h"

#include <QDir>
#include <QFileInfo>

#include <system_error>

using namespace Qt::StringLiterals;

#ifdef Q_OS_WIN

std::filesystem::path systemPath(const QString &name)
{
    constexpr qsizetype alwaysTaken = 240; // folders are to have room for a short name
    const QString whole = name.size() < alwaysTaken ? name : QFileInfo(name).absoluteFilePath();
    const QString native = QDir::toNativeSeparators(whole);
    if (whole.size() < alwaysTaken || native.startsWith("\\\\?\\"_L1)) {
        return native.toStdWString();
    }
    const bool isShare = native.startsWith("\\\\"_L1);
    const QString prefixed = isShare ? u"\\\\?\\UNC"_s + native.sliced(1) : u"\\\\?\\"_s + native;
    return prefixed.toStdWString();
}

QString fileNameFromPath(const std::filesystem::path &path)
{
    return QString::fromStdWString(path.wstring());
}

#else

std::filesystem::path systemPath(const QString &name)
{
    return fileNameBytes(name).toStdString();
}

QString fileNameFromPath(const std::filesystem::path &path)
{
    return fileNameFromBytes(QByteArrayView(path.native()));
}

#endif

// Without "." and "..", unless a link on the way makes them lead somewhere else.
QString absoluteFileName(const QString &name)
{
    const std::filesystem::path typed = systemPath(name);
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(typed, error);
    if (name.isEmpty() || typed.is_absolute() || error || !std::filesystem::exists(whole, error)) {
        return name;
    }
    const std::filesystem::path plain = whole.lexically_normal();
    return fileNameFromPath(std::filesystem::equivalent(whole, plain, error) ? plain : whole);
}
