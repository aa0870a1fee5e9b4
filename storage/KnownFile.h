#pragma once

#include "runtime/FileStamp.h"
#include "runtime/Result.h"

#include <QByteArrayView>
#include <QString>

#include <optional>

/// What a document knows of its file: the content that it was read from or saved as. By default, that it has none.
struct KnownFile
{
    QString path;
    FileStamp stamp;
    bool isSettled = false; ///< a later change cannot have left the stamp as it is
    std::optional<size_t> content; ///< its hash; `std::nullopt` if there was no file or it could not be read

    /// A document was read from those bytes. stamp: taken before they were read.
    static KnownFile read(const QString &fileName, const FileStamp &stamp, QByteArrayView bytes);
    /// A document belongs to that file, whose present content it is taken to know: after a crash.
    static KnownFile present(const QString &fileName);
};

/// Looks after what others do to a file while one save of a document replaces it.
class ForeignChangeGuard
{
public:
    /// known: the document's; brought up to date by a save.
    ForeignChangeGuard(KnownFile &known, const QString &fileName) : m_known(known), m_fileName(fileName) { }

    /// Fails with FileChanged or FileAppeared if another program's content would be lost: the file holds neither what
    /// the document, or this program, knows, nor what the user has agreed to. A file that is not there or cannot be
    /// read is the save's to deal with.
    Result<> check();
    /// The user agrees that what check() came upon goes.
    void agree() { m_agreed = m_found; }
    /// The user has agreed to that already, whatever is in the file now.
    void agreeToPresent();

    /// The save has written bytes.
    void noteWritten(QByteArrayView bytes);
    /// The save has failed: what it left of its own in the file is not a change by others.
    void noteLeftOver();

private:
    KnownFile &m_known;
    QString m_fileName;
    std::optional<size_t> m_found; ///< hash of the content that check() looked at
    std::optional<size_t> m_agreed;
};

/// Forgets what this program wrote to which file. For tests.
void forgetWrittenFiles();
