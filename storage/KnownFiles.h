#pragma once

#include "runtime/Result.h"
#include "storage/FileStamp.h"

#include <QByteArrayView>
#include <QString>

#include <optional>

/// The document was read from those bytes. stamp: taken before they were read.
void noteReadFile(int docNo, const QString &fileName, const FileStamp &stamp, QByteArrayView bytes);

/// The document belongs to that file, whose present content it is taken to know: what a crash left behind.
void notePresentFile(int docNo, const QString &fileName);

/// The document has no file yet.
void noteNoFile(int docNo);

/// Looks after what others do to a file while one save of a document replaces it.
class ForeignChangeGuard
{
public:
    ForeignChangeGuard(int docNo, const QString &fileName) : m_docNo(docNo), m_fileName(fileName) { }

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
    /// The save has failed: what it left of its own in the file is no change by others.
    void noteLeftOver();

private:
    int m_docNo;
    QString m_fileName;
    std::optional<size_t> m_found; ///< hash of the content that check() looked at
    std::optional<size_t> m_agreed;
};

/// Forgets every document's file. For tests.
void forgetKnownFiles();
