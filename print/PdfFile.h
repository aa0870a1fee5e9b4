#pragma once

#include <QPdfWriter>
#include <QSaveFile>

/// The PDF file that a document is printed into unless the user names another: of the document's name, in its folder.
/// title is the editor window's caption.
QString pdfFileName(const QString &title);

/// Makes a PDF of the pages that are printed; all that Tabrix makes are set up alike.
void setUpPdf(QPdfWriter &writer, const QPageLayout &layout);

/// A PDF file to print into. An existing file is replaced after everything has been written: errors and cancelling
/// leave it as it was, unless its folder takes no new files, in which case it is written in place.
class PdfFile
{
public:
    PdfFile(const QString &fileName, const QPageLayout &layout);
    Q_DISABLE_COPY_MOVE(PdfFile)

    /// False if no file can be written there; see errorString().
    bool open();
    QPagedPaintDevice &paper() { return m_writer; }
    /// Call it after the print job has ended. False if the file could not be written completely.
    bool commit();
    /// The system's description of what went wrong; empty if that was not the file.
    QString errorString() const { return m_file.error() == QFileDevice::NoError ? QString() : m_file.errorString(); }

private:
    QSaveFile m_file;
    QPdfWriter m_writer;
};
