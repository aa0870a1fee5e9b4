#include "app/services/Settings.h"

#include "document/ParameterColumns.h"
#include "runtime/NumberText.h"
#include "runtime/SettingsFile.h"

#include <QSettings>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

UserFontSettings UserFont;
std::array<bool, 14> ListVisualState{};
static_assert(ListVisualState.size() > parameterColumns.size(), "every column has its entry, and one is never stored");

namespace {

constexpr auto recentSection = "Recent Files"_L1;
constexpr auto fontSection = "FontInf"_L1;
constexpr auto windowSection = "WindowInf"_L1;
constexpr qint16 maximised = 2;
constexpr float defaultFontSize = 12;
constexpr int recentFileCount = 4;

QString fullKey(QLatin1StringView section, const QString &key)
{
    return section + u'/' + key;
}

// Every value is a text.

QString storedText(const QSettings &store, QLatin1StringView section, const QString &key)
{
    return store.value(fullKey(section, key)).toString();
}

void setText(QSettings &store, QLatin1StringView section, const QString &key, const QString &text)
{
    store.setValue(fullKey(section, key), text);
}

/// A text that is not a boolean counts as missing.
bool storedFlag(const QSettings &store, QLatin1StringView section, const QString &key, bool otherwise)
{
    return toBoolean(storedText(store, section, key)).valueOr(otherwise);
}

void setFlag(QSettings &store, QLatin1StringView section, const QString &key, bool flag)
{
    setText(store, section, key, flag ? u"True"_s : u"False"_s);
}

QString recentKey(int number)
{
    return u"RecentFile"_s + QString::number(number);
}

QStringList recentFilesIn(const QSettings &store)
{
    QStringList files;
    for (int number = 1; number <= recentFileCount; ++number) {
        files << storedText(store, recentSection, recentKey(number));
    }
    if (files.first().isEmpty()) {
        return {};
    }
    files.removeAll(QString());
    return files;
}

QString columnKey(std::size_t index)
{
    return u"ListVisualState"_s + QString::number(index);
}

/// The stored size as a single; the default for a text that is not a number or that a single cannot hold.
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
    return toInt16(leadingNumber(text)).valueOr(maximised);
}

} // namespace

void LoadWindowSettings(qint16 &windowState)
{
    SettingsFile::read([&](const QSettings &store) {
        windowState = windowStateFrom(storedText(store, windowSection, u"WindowState"_s));
        for (const ColumnInfo &column : parameterColumns) {
            const auto i = std::size_t(column.column - 1);
            ListVisualState.at(i) = storedFlag(store, windowSection, columnKey(i), column.isHidden);
        }
    });
}

void SaveWindowSettings(qint16 windowState)
{
    SettingsFile::change([&](QSettings &store) {
        setText(store, windowSection, u"WindowState"_s, QString::number(windowState));
        for (std::size_t i = 0; i < parameterColumns.size(); ++i) {
            setFlag(store, windowSection, columnKey(i), ListVisualState.at(i));
        }
    });
}

void LoadUserFont(QString &name, float &size, bool &italic, bool &bold)
{
    SettingsFile::read([&](const QSettings &store) {
        name = storedText(store, fontSection, u"FontName"_s);
        if (name.isEmpty()) {
            name = u"System"_s;
        }
        size = fontSizeFrom(storedText(store, fontSection, u"FontSize"_s));
        italic = storedFlag(store, fontSection, u"FontItalic"_s, false);
        bold = storedFlag(store, fontSection, u"FontBold"_s, false);
    });
}

void SaveUserFont(const QString &name, float size, bool italic, bool bold)
{
    SettingsFile::change([&](QSettings &store) {
        setText(store, fontSection, u"FontName"_s, name);
        setText(store, fontSection, u"FontSize"_s, singleText(size));
        setFlag(store, fontSection, u"FontItalic"_s, italic);
        setFlag(store, fontSection, u"FontBold"_s, bold);
    });
}

QStringList recentFiles()
{
    QStringList files;
    SettingsFile::read([&](const QSettings &store) { files = recentFilesIn(store); });
    return files;
}

void StoreRecentFile(const QString &fileName)
{
    SettingsFile::change([&](QSettings &store) {
        if (recentFilesIn(store).contains(fileName)) {
            return;
        }
        for (int number = recentFileCount - 1; number >= 1; --number) {
            const QString file = storedText(store, recentSection, recentKey(number));
            if (!file.isEmpty()) {
                setText(store, recentSection, recentKey(number + 1), file);
            }
        }
        setText(store, recentSection, recentKey(1), fileName);
    });
}
