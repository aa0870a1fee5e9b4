#include "storage/BackupTidying.h"

#include "runtime/DataFolder.h"
#include "runtime/OwnFiles.h"
#include "runtime/WholeFile.h"
#include "storage/FileBackup.h"
#include "storage/VersionFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct KeptVersion
{
    Version version;
    qint64 bytes;
};

/// A folder of versions, as it is to stay.
struct KeptDocument
{
    VersionFolder folder;
    QList<KeptVersion> versions; ///< oldest first

    QDateTime lastKept() const { return versions.last().version.time; }
    QDateTime firstKept() const { return versions.first().version.time; }
};

bool isFolderName(const QString &name)
{
    static const QRegularExpression pattern(QRegularExpression::anchoredPattern(u".+-[0-9a-f]{16}"_s));
    return pattern.match(name).hasMatch();
}

/// Whether the document is gone although its folder is there. One on a drive that is not there now may come back.
bool hasVanished(const QString &folder)
{
    const auto path = readWholeFile(documentNote(folder));
    if (!path || path->isEmpty()) {
        return false;
    }
    const QString document = QString::fromUtf8(*path);
    return findKind(document) == FileKind::Nothing && findKind(QFileInfo(document).path()) == FileKind::Folder;
}

class Tidying
{
public:
    Tidying(const BackupBounds &bounds, const QDateTime &now) : m_bounds(bounds), m_now(now) { }

    void run();

private:
    void readAll();
    void read(const QString &folder);
    void dropVanished(KeptDocument &document);
    void dropOldVersions(KeptDocument &document);
    void dropBeyondBytes();
    void drop(KeptDocument &document, qsizetype count);
    void dropAll(KeptDocument &document) { drop(document, document.versions.size()); }
    void forgetEmpty();
    KeptDocument *withOldestSpare();

    BackupBounds m_bounds;
    QDateTime m_now;
    QList<KeptDocument> m_documents;
    qint64 m_bytes = 0; ///< of all their versions
};

void Tidying::run()
{
    readAll();
    for (KeptDocument &document : m_documents) {
        dropVanished(document);
        dropOldVersions(document);
    }
    forgetEmpty();
    std::ranges::sort(m_documents, {}, &KeptDocument::lastKept);
    const qsizetype tooMany = std::max<qsizetype>(m_documents.size() - m_bounds.documents, 0);
    for (qsizetype i = 0; i < tooMany; ++i) {
        dropAll(m_documents[i]);
    }
    forgetEmpty();
    dropBeyondBytes();
    forgetEmpty();
}

void Tidying::readAll()
{
    keepForUser(dataFolder());
    keepForUser(backupRoot());
    const FolderListing listing = listFolder(backupRoot()); // what is not listed stays
    for (const FolderEntry &entry : listing.entries) {
        if (entry.kind == FileKind::Folder && isFolderName(entry.name)) {
            read(backupRoot() + u'/' + entry.name);
        }
    }
}

void Tidying::read(const QString &folder)
{
    const FolderListing listing = listFolder(folder);
    if (!listing.outcome) {
        return;
    }
    removeUnfinished(folder, listing.entries, {});
    keepForUser(folder);
    KeptDocument document{VersionFolder(folder), {}};
    for (const Version &version : VersionFolder::versionsIn(listing.entries)) {
        const QString path = document.folder.pathOf(version);
        keepForUser(path);
        document.versions << KeptVersion{version, QFileInfo(path).size()};
        m_bytes += document.versions.last().bytes;
    }
    m_documents << document;
}

void Tidying::dropVanished(KeptDocument &document)
{
    if (!document.versions.isEmpty() && document.lastKept().daysTo(m_now) > m_bounds.daysOfVanished
        && hasVanished(document.folder.path())) {
        dropAll(document);
    }
}

void Tidying::dropOldVersions(KeptDocument &document)
{
    while (document.versions.size() > 1 && document.firstKept().daysTo(m_now) > m_bounds.daysOfVersion) {
        drop(document, 1);
    }
}

/// The earlier versions go first, then the documents that were kept longest ago; never what was kept last.
void Tidying::dropBeyondBytes()
{
    while (m_bytes > m_bounds.bytes) {
        KeptDocument *const spare = withOldestSpare();
        if (!spare) {
            break;
        }
        drop(*spare, 1);
    }
    for (qsizetype i = 0; m_bytes > m_bounds.bytes && i + 1 < m_documents.size(); ++i) {
        dropAll(m_documents[i]);
    }
}

/// The document that has the oldest of all versions that are not the newest of theirs.
KeptDocument *Tidying::withOldestSpare()
{
    KeptDocument *found = nullptr;
    for (KeptDocument &document : m_documents) {
        if (document.versions.size() > 1 && (!found || document.firstKept() < found->firstKept())) {
            found = &document;
        }
    }
    return found;
}

void Tidying::drop(KeptDocument &document, qsizetype count)
{
    for (; count > 0; --count) {
        const KeptVersion oldest = document.versions.takeFirst();
        m_bytes -= oldest.bytes;
        QFile::remove(document.folder.pathOf(oldest.version));
    }
}

/// Removes the folders that hold nothing any more; what somebody else has put there keeps its folder.
void Tidying::forgetEmpty()
{
    m_documents.removeIf([](const KeptDocument &document) {
        const QString &folder = document.folder.path();
        if (document.versions.isEmpty() && QDir().rmdir(folder)) {
            QFile::remove(documentNote(folder));
        }
        return document.versions.isEmpty();
    });
}

} // namespace

void tidyBackups(const BackupBounds &bounds, const QDateTime &now)
{
    Tidying(bounds, now).run();
}
