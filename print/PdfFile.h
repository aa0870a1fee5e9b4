#pragma once

#include <QPdfWriter>
#include <QSaveFile>

/// The PDF file that a document is printed into unless the user names another: of the document's name, in its folder.
/// title is the editor window's caption.
QString pdfFileName(const QString &title);

/// A PDF file to print into. The file of that name is replaced when everything has been written, not before: an error
/// or a cancelled print-out leaves it as it was (unless its folder takes no new files: then it is written in place).
class PdfFile
{
public:
    PdfFile(const QString &fileName, const QPageLayout &layout);
    Q_DISABLE_COPY_MOVE(PdfFile)

    /// False when no file can be written there; see errorString().
    bool open();
    QPagedPaintDevice &paper() { return m_writer; }
    /// Call when the print job has ended. False when the file could not be written whole.
    bool commit();
    /// The system's description of what went wrong; empty when it was not the file.
    QString errorString() const { return m_file.error() == QFileDevice::NoError ? QString() : m_file.errorString(); }

private:
    QSaveFile m_file;
    QPdfWriter m_writer;
};
