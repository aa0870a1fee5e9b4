#include "tests/support/UserPlaces.h"

#include "runtime/WindowsApi.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_WIN

constexpr auto dataVariable = "TABRIX_DATA_HOME";
constexpr auto settingsVariable = "TABRIX_SETTINGS";

/// Removes the keys that it is told of when the process ends.
class KeysToRemove
{
public:
    KeysToRemove() = default;
    ~KeysToRemove()
    {
        for (const QString &key : std::as_const(m_keys)) {
            RegDeleteTreeW(HKEY_CURRENT_USER, (uR"(Software\Tabrix\)"_s + key).toStdWString().c_str());
        }
    }
    Q_DISABLE_COPY_MOVE(KeysToRemove)

    void add(const QString &key) { m_keys << key; }

private:
    QStringList m_keys;
};

#else

constexpr auto dataVariable = "XDG_DATA_HOME";

#endif

} // namespace

void UserPlaces::setDataHome(const QString &folder)
{
    qputenv(dataVariable, folder.toLocal8Bit());
}

#ifdef Q_OS_WIN

void UserPlaces::setConfigHome(const QString &folder)
{
    static KeysToRemove keys;
    const QString key = u"Test "_s + QDir::cleanPath(folder).replace(u'/', u' ').remove(u':');
    keys.add(key);
    qputenv(settingsVariable, key.toLocal8Bit());
}

QSettings UserPlaces::settings()
{
    return {QSettings::NativeFormat, QSettings::UserScope, u"Tabrix"_s, qEnvironmentVariable(settingsVariable)};
}

QList<QByteArray> UserPlaces::settingsLines()
{
    QList<QByteArray> lines;
    QSettings store = settings();
    for (const QString &group : store.childGroups()) {
        lines << '[' + group.toUtf8().replace(' ', "%20") + ']';
        store.beginGroup(group);
        for (const QString &key : store.childKeys()) {
            lines << (key + u'=' + store.value(key).toString()).toUtf8();
        }
        store.endGroup();
    }
    return lines;
}

#else

void UserPlaces::setConfigHome(const QString &folder)
{
    qputenv("XDG_CONFIG_HOME", folder.toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
}

QSettings UserPlaces::settings()
{
    return {QSettings::NativeFormat, QSettings::UserScope, u"Tabrix"_s, u"Tabrix"_s};
}

QList<QByteArray> UserPlaces::settingsLines()
{
    QFile file(settings().fileName());
    return file.open(QIODevice::ReadOnly) ? file.readAll().split('\n') : QList<QByteArray>();
}

#endif
