#include "print/PdfFile.h"

#include <QCoreApplication>

PdfFile::PdfFile(const QString &fileName, const QPageLayout &layout) : m_file(fileName), m_writer(&m_file)
{
    // A folder that takes no new file may still hold a file that can be written.
    m_file.setDirectWriteFallback(true);
    m_writer.setPageLayout(layout);
    m_writer.setCreator(QCoreApplication::applicationName());
}

bool PdfFile::open()
{
    return m_file.open(QIODevice::WriteOnly);
}

bool PdfFile::commit()
{
    return m_file.commit();
}
