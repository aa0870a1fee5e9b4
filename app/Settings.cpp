#include "app/Settings.h"

#include "runtime/NumberText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSettings>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

UserFontSettings UserFont;
std::array<bool, 14> ListVisualState{};

namespace {

constexpr auto recentSection = "Recent Files"_L1;
constexpr auto fontSection = "FontInf"_L1;
constexpr auto windowSection = "WindowInf"_L1;
constexpr qint16 maximised = 2;
constexpr float defaultFontSize = 12;
constexpr int recentFileCount = 4;
constexpr std::size_t storedColumns = 13;
constexpr bool hiddenByDefault[storedColumns] = {
    false, false, false, false, false, false, true, true, false, false, true, false, true};

/// The per-user store of the program. Every value is a text.
class Store
{
public:
    Store() : m_settings(QSettings::NativeFormat, QSettings::UserScope, u"Tabrix"_s, u"Tabrix"_s)
    {
        m_settings.setFallbacksEnabled(false);
    }

    /// Where the store stands; what is no absolute path is no file.
    QString fileName() const { return m_settings.fileName(); }
    QString text(QLatin1StringView section, const QString &key) const
    {
        return m_settings.value(section + u'/' + key).toString();
    }
    void setText(QLatin1StringView section, const QString &key, const QString &text)
    {
        m_settings.setValue(section + u'/' + key, text);
    }
    /// A text that is no boolean counts as missing.
    bool flag(QLatin1StringView section, const QString &key, bool otherwise) const
    {
        const Converted<bool> value = toBoolean(text(section, key));
        const bool *flag = std::get_if<bool>(&value);
        return flag ? *flag : otherwise;
    }
    void setFlag(QLatin1StringView section, const QString &key, bool flag)
    {
        setText(section, key, flag ? u"True"_s : u"False"_s);
    }

private:
    QSettings m_settings;
};

/// Keeps every other Tabrix from storing, for as long as this object lives. Where that cannot be, both go on.
class StoreLock
{
public:
    StoreLock() : StoreLock(Store().fileName()) { }

private:
    explicit StoreLock(const QString &store) : m_lock(store + u".turn"_s)
    {
        constexpr int longestWait = 2000;
        // One who dies before his name is in a lock file would keep all others out for the half minute that Qt grants;
        // storing takes some milliseconds.
        m_lock.setStaleLockTime(500);
        const QFileInfo file(store);
        if (file.isAbsolute() && QDir().mkpath(file.path()) && m_lock.tryLock(longestWait)) {
            QFile::remove(store + u".lock"_s); // Qt's own; whoever holds it now is dead, as nobody else may store
        }
    }

    QLockFile m_lock;
};

QString recentKey(int number)
{
    return u"RecentFile"_s + QString::number(number);
}

QString columnKey(std::size_t index)
{
    return u"ListVisualState"_s + QString::number(index);
}

/// The stored size as a single; the default for a text that is no number or none that a single can hold.
float fontSizeFrom(const QString &text)
{
    const double size = numericValue(text).value_or(defaultFontSize);
    return std::abs(size) <= std::numeric_limits<float>::max() ? float(size) : defaultFontSize;
}

qint16 windowStateFrom(const QString &text)
{
    if (text.isEmpty()) {
        return maximised;
    }
    const Converted<qint16> state = toInt16(leadingNumber(text));
    const qint16 *fits = std::get_if<qint16>(&state);
    return fits ? *fits : maximised;
}

} // namespace

void LoadWindowSettings(qint16 &windowState)
{
    const Store store;
    windowState = windowStateFrom(store.text(windowSection, u"WindowState"_s));
    for (std::size_t i = 0; i < storedColumns; ++i) {
        ListVisualState[i] = store.flag(windowSection, columnKey(i), hiddenByDefault[i]);
    }
}

void SaveWindowSettings(qint16 windowState)
{
    const StoreLock lock;
    Store store;
    store.setText(windowSection, u"WindowState"_s, QString::number(windowState));
    for (std::size_t i = 0; i < storedColumns; ++i) {
        store.setFlag(windowSection, columnKey(i), ListVisualState[i]);
    }
}

void LoadUserFont(QString &name, float &size, bool &italic, bool &bold)
{
    const Store store;
    name = store.text(fontSection, u"FontName"_s);
    if (name.isEmpty()) {
        name = u"System"_s;
    }
    size = fontSizeFrom(store.text(fontSection, u"FontSize"_s));
    italic = store.flag(fontSection, u"FontItalic"_s, false);
    bold = store.flag(fontSection, u"FontBold"_s, false);
}

void SaveUserFont(const QString &name, float size, bool italic, bool bold)
{
    const StoreLock lock;
    Store store;
    store.setText(fontSection, u"FontName"_s, name);
    store.setText(fontSection, u"FontSize"_s, singleText(size));
    store.setFlag(fontSection, u"FontItalic"_s, italic);
    store.setFlag(fontSection, u"FontBold"_s, bold);
}

QStringList recentFiles()
{
    const Store store;
    QStringList files;
    for (int number = 1; number <= recentFileCount; ++number) {
        const QString file = store.text(recentSection, recentKey(number));
        if (number == 1 && file.isEmpty()) {
            return {};
        }
        if (!file.isEmpty()) {
            files << file;
        }
    }
    return files;
}

void StoreRecentFile(const QString &fileName)
{
    const StoreLock lock; // released after the store has been written
    Store store;
    for (int number = recentFileCount - 1; number >= 1; --number) {
        const QString file = store.text(recentSection, recentKey(number));
        if (!file.isEmpty()) {
            store.setText(recentSection, recentKey(number + 1), file);
        }
    }
    store.setText(recentSection, recentKey(1), fileName);
}
