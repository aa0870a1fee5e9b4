#include "storage/KnownFile.h"

#include "runtime/FileName.h"
#include "runtime/WholeFile.h"

#include <QByteArray>
#include <QFileInfo>
#include <QHash>

namespace {

/// By path: what this program wrote there last, whichever window did.
QHash<QString, size_t> &writtenFiles()
{
    static QHash<QString, size_t> hashes;
    return hashes;
}

/// Other names and links of a file are the same file.
QString pathOf(const QString &fileName)
{
    const QFileInfo info(fileName);
    const QString canonical = info.canonicalFilePath();
    return fileNameKey(canonical.isEmpty() ? info.absoluteFilePath() : canonical);
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

KnownFile knownFile(const QString &fileName, const FileStamp &stamp, std::optional<size_t> content)
{
    return {.path = pathOf(fileName), .stamp = stamp, .isSettled = !mayHideAChange(stamp), .content = content};
}

} // namespace

KnownFile KnownFile::read(const QString &fileName, const FileStamp &stamp, QByteArrayView bytes)
{
    return knownFile(fileName, stamp, contentHash(bytes));
}

KnownFile KnownFile::present(const QString &fileName)
{
    const FileStamp stamp = FileStamp::of(fileName);
    return knownFile(fileName, stamp, stamp.isFile ? hashOfFile(fileName) : std::nullopt);
}

Result<> ForeignChangeGuard::check()
{
    const FileStamp stamp = FileStamp::of(m_fileName);
    const QString path = pathOf(m_fileName);
    const bool isKnown = m_known.path == path && m_known.content;
    // Of a file that could not be read when it was noted, the stamp is all that is known.
    const bool isAsNoted = m_known.path == path && m_known.stamp == stamp && (m_known.isSettled || !m_known.content);
    if (!stamp.isFile || isAsNoted) {
        return {};
    }
    m_found = hashOfFile(m_fileName);
    if (!m_found || m_found == m_agreed || (isKnown && m_found == m_known.content)
        || writtenFiles().value(path, ~*m_found) == *m_found) {
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
    m_known = knownFile(m_fileName, FileStamp::of(m_fileName), content);
    writtenFiles().insert(pathOf(m_fileName), content);
}

void ForeignChangeGuard::noteLeftOver()
{
    const auto content = hashOfFile(m_fileName);
    if (content && content != m_found) {
        writtenFiles().insert(pathOf(m_fileName), *content);
    }
}

void forgetWrittenFiles()
{
    writtenFiles().clear();
}
