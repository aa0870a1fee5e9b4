#include "runtime/DataFolder.h"

#include <QDir>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

QString systemDataHome()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

#ifdef Q_OS_WIN

QString dataHome()
{
    const QString chosen = qEnvironmentVariable("TABRIX_DATA_HOME");
    return QDir::isAbsolutePath(chosen) ? QDir::fromNativeSeparators(chosen) : systemDataHome();
}

#else

QString dataHome()
{
    const QString base = systemDataHome();
    // Relative, it would be another folder wherever the program is started.
    return QDir::isAbsolutePath(base) ? base : QDir::homePath() + u"/.local/share"_s;
}

#endif

} // namespace

QString dataFolder()
{
    return dataHome() + u"/Tabrix"_s;
}
