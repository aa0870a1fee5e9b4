#include "print/PdfFile.h"

#include "runtime/FileName.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

QString pdfFileName(const QString &title)
{
    // Qt writes PDF files itself and cannot use names that are not UTF-8.
    const QFileInfo document(shownFileName(title));
    const bool isUsable = document.isAbsolute() && shownFileName(QFileInfo(title).path()) == QFileInfo(title).path();
    const QString folder = isUsable ? document.absolutePath() : QDir::homePath();
    return folder + u'/' + document.completeBaseName() + u".pdf"_s;
}

void setUpPdf(QPdfWriter &writer, const QPageLayout &layout)
{
    writer.setPageLayout(layout);
    writer.setCreator(QCoreApplication::applicationName());
}

PdfFile::PdfFile(const QString &fileName, const QPageLayout &layout) : m_file(fileName), m_writer(&m_file)
{
    // In a folder that takes no new files an existing file may still be writable.
    m_file.setDirectWriteFallback(true);
    setUpPdf(m_writer, layout);
}

bool PdfFile::open()
{
    return m_file.open(QIODevice::WriteOnly);
}

bool PdfFile::commit()
{
    return m_file.commit();
}
