#include "storage/KnownFiles.h"

#include "runtime/WholeFile.h"

#include <QByteArray>
#include <QFileInfo>
#include <QHash>

namespace {

/// A file as a document knows it.
struct KnownFile
{
    QString path;
    FileStamp stamp;
    bool isSettled = false; ///< a later change cannot have left the stamp as it is
    std::optional<size_t> content; ///< its hash; nothing when there was no file or it could not be read
};

struct Knowledge
{
    QHash<int, KnownFile> files; ///< by document number
    QHash<QString, size_t> own; ///< by path: what this program wrote there last, whichever window did
};

Knowledge &knowledge()
{
    static Knowledge theKnowledge;
    return theKnowledge;
}

/// Other names and links of a file are the same file.
QString pathOf(const QString &fileName)
{
    const QFileInfo info(fileName);
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.absoluteFilePath() : canonical;
}

size_t contentHash(QByteArrayView bytes)
{
    return qHashBits(bytes.data(), size_t(bytes.size()), 0);
}

std::optional<size_t> hashOfFile(const QString &fileName)
{
    const auto bytes = readWholeFile(fileName);
    return bytes ? std::optional(contentHash(*bytes)) : std::nullopt;
}

void note(int docNo, const QString &fileName, const FileStamp &stamp, std::optional<size_t> content)
{
    knowledge().files.insert(
        docNo, {.path = pathOf(fileName), .stamp = stamp, .isSettled = !mayHideAChange(stamp), .content = content});
}

} // namespace

void noteReadFile(int docNo, const QString &fileName, const FileStamp &stamp, QByteArrayView bytes)
{
    note(docNo, fileName, stamp, contentHash(bytes));
}

void notePresentFile(int docNo, const QString &fileName)
{
    const FileStamp stamp = FileStamp::of(fileName);
    note(docNo, fileName, stamp, stamp.isFile ? hashOfFile(fileName) : std::nullopt);
}

void noteNoFile(int docNo)
{
    knowledge().files.remove(docNo);
}

Result<> ForeignChangeGuard::check()
{
    const FileStamp stamp = FileStamp::of(m_fileName);
    const QString path = pathOf(m_fileName);
    const KnownFile known = knowledge().files.value(m_docNo);
    const bool isKnown = known.path == path && known.content;
    // Of a file that could not be read when it was noted, the stamp is all that is known.
    const bool isAsNoted = known.path == path && known.stamp == stamp && (known.isSettled || !known.content);
    if (!stamp.isFile || isAsNoted) {
        return {};
    }
    m_found = hashOfFile(m_fileName);
    if (!m_found || m_found == m_agreed || (isKnown && m_found == known.content)
        || knowledge().own.value(path, ~*m_found) == *m_found) {
        return {};
    }
    return isKnown ? FailureCode::FileChanged : FailureCode::FileAppeared;
}

void ForeignChangeGuard::agreeToPresent()
{
    m_found = hashOfFile(m_fileName);
    agree();
}

void ForeignChangeGuard::noteWritten(QByteArrayView bytes)
{
    const size_t content = contentHash(bytes);
    note(m_docNo, m_fileName, FileStamp::of(m_fileName), content);
    knowledge().own.insert(pathOf(m_fileName), content);
}

void ForeignChangeGuard::noteLeftOver()
{
    const auto content = hashOfFile(m_fileName);
    if (content && content != m_found) {
        knowledge().own.insert(pathOf(m_fileName), *content);
    }
}

void forgetKnownFiles()
{
    knowledge() = {};
}
