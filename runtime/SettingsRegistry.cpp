#include "runtime/SettingsFile.h"

#ifdef Q_OS_WIN

#include "runtime/DataFolder.h"
#include "runtime/OwnFiles.h"
#include "runtime/SettingsTurn.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

QString application()
{
    return qEnvironmentVariable("TABRIX_SETTINGS", u"Tabrix"_s);
}

} // namespace

QString SettingsFile::path()
{
    return QSettings(QSettings::NativeFormat, QSettings::UserScope, u"Tabrix"_s, application()).fileName();
}

void SettingsFile::read(const std::function<void(const QSettings &)> &read)
{
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, u"Tabrix"_s, application());
    settings.setFallbacksEnabled(false);
    read(settings);
}

bool SettingsFile::change(const std::function<void(QSettings &)> &change)
{
    const QString folder = dataFolder();
    static_cast<void>(makeOwnFolder(folder)); // without it nobody gets a turn, and settings are stored all the same
    const SettingsTurn turn(folder + u"/settings.turn"_s);
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, u"Tabrix"_s, application());
    settings.setFallbacksEnabled(false);
    change(settings);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

#endif
