#include "runtime/SettingsFile.h"

#ifndef Q_OS_WIN

#include "runtime/OwnFiles.h"
#include "runtime/SettingsTurn.h"
#include "runtime/WholeFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// QSettings takes a relative one as a folder below the home folder. That is decided before its first use.
bool leaveOutRelativeHome()
{
    const QString home = qEnvironmentVariable("XDG_CONFIG_HOME");
    const bool isRelative = !home.isEmpty() && QDir::isRelativePath(home);
    if (isRelative) {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QDir::homePath() + u"/.config"_s);
    }
    return isRelative;
}

/// Whether the store can be read into memory: what is larger, or does not end at all, is none of ours.
bool isSane(const QString &store)
{
    constexpr qint64 largestStore = qint64(16) * 1024 * 1024;
    const QFileInfo file(store);
    return !file.exists() || (file.isFile() && file.size() <= largestStore);
}

/// Writes a file that nobody needs after a power cut.
bool writeDraft(const QString &name, const QByteArray &content)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(content) == content.size();
}

/// Whether the file gives back what settings holds. name: one that no QSettings of this program has had, since it would
/// remember the content.
bool isWhole(const QSettings &settings, const QString &name)
{
    const QSettings written(name, QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    bool same = written.allKeys() == keys;
    for (const QString &key : keys) {
        same = same && written.value(key) == settings.value(key);
    }
    return same;
}

/// What the settings file is to hold after the change; `std::nullopt` if that is not certain. QSettings makes it in
/// a folder of its own: it takes a file for written that a full disk has cut off, and waits for ever for a lock that
/// cannot be removed.
std::optional<QByteArray> changedContent(const QByteArray &content, const std::function<void(QSettings &)> &change)
{
    const QTemporaryDir folder;
    const QString draft = folder.filePath(u"draft.conf"_s);
    const QString result = folder.filePath(u"result.conf"_s);
    if (!folder.isValid() || !writeDraft(draft, content)) {
        return std::nullopt;
    }
    QSettings settings(draft, QSettings::IniFormat);
    change(settings);
    settings.sync();
    if (!QFile::rename(draft, result)) {
        return std::nullopt;
    }
    auto bytes = readWholeFile(result);
    return bytes && isWhole(settings, result) ? std::optional(*std::move(bytes)) : std::nullopt;
}

/// QSettings tells by time and size whether a file is the one that it remembers.
void makeDistinct(const QString &fileName, const QString &from)
{
    const QDateTime former = QFileInfo(from).lastModified();
    QFile file(fileName);
    if (QFileInfo(fileName).lastModified() <= former && file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
        file.setFileTime(former.addMSecs(1), QFileDevice::FileModificationTime);
    }
}

/// Replaces the settings file, or the one that it links to, by bytes.
bool replaceStore(const QString &store, const QByteArray &bytes)
{
    const QString linked = QFileInfo(store).canonicalFilePath();
    const QString target = linked.isEmpty() ? store : linked;
    const QString unfinished = unfinishedName(target + u'.');
    if (!writeOwnFile(unfinished, bytes)) {
        return false;
    }
    makeDistinct(unfinished, target);
    if (!renameOwnFile(unfinished, target)) {
        QFile::remove(unfinished); // nothing if the name was changed already
        return false;
    }
    return true;
}

/// The content of the store, empty if there is none.
Result<QByteArray> readStore(const QString &store)
{
    const auto kind = findKind(store);
    if (!kind) {
        return kind.failure();
    }
    return *kind == FileKind::Nothing ? QByteArray() : readWholeFile(store);
}

bool changeStore(const QString &store, const std::function<void(QSettings &)> &change)
{
    if (!isSane(store)) {
        return false;
    }
    const auto content = readStore(store);
    if (!content) {
        return false; // what cannot be read is not lost by being written
    }
    const auto bytes = changedContent(*content, change);
    return bytes && (*bytes == *content || replaceStore(store, *bytes));
}

void removeLeftOvers(const QString &store)
{
    const QFileInfo info(store);
    removeUnfinished(info.path(), listFolder(info.path()).entries, info.fileName() + u'.');
}

} // namespace

QString SettingsFile::path()
{
    [[maybe_unused]] static const bool decided = leaveOutRelativeHome();
    // Asked of one that does not exist, since QSettings reads a store whole before it says where that is.
    const QSettings beside(QSettings::NativeFormat, QSettings::UserScope, u"Tabrix"_s, u"Tabrix.place"_s);
    return QString(beside.fileName()).replace("Tabrix.place"_L1, "Tabrix"_L1);
}

void SettingsFile::read(const std::function<void(const QSettings &)> &read)
{
    const QString store = path();
    keepForUser(QFileInfo(store).path());
    keepForUser(store);
    // A store that is not sane is not opened; one that does not exist takes its place.
    const QString name = isSane(store) ? u"Tabrix"_s : u"Tabrix.place"_s;
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, u"Tabrix"_s, name);
    settings.setFallbacksEnabled(false);
    read(settings);
}

bool SettingsFile::change(const std::function<void(QSettings &)> &change)
{
    const QString store = path();
    if (!makeOwnFolder(QFileInfo(store).path())) {
        return false;
    }
    keepForUser(QFileInfo(store).path());
    const SettingsTurn turn(store + u".turn"_s);
    removeLeftOvers(store);
    return changeStore(store, change);
}

#endif
