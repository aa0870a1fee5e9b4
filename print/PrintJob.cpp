#include "print/PrintJob.h"

#include <QPdfWriter>
#include <QPrinter>

PrintJob::PrintJob(QPagedPaintDevice &paper, const QString &name) : m_paper(paper), m_name(name)
{
    if (auto *printer = dynamic_cast<QPrinter *>(&paper)) {
        printer->setDocName(name);
    } else if (auto *pdf = dynamic_cast<QPdfWriter *>(&paper)) {
        pdf->setTitle(name);
    }
}

PrintJob::~PrintJob()
{
    end();
}

bool PrintJob::startPage()
{
    const bool started = m_painter.isActive() ? m_paper.newPage() : m_painter.begin(&m_paper);
    if (started) {
        ++m_pageCount;
    }
    return started;
}

bool PrintJob::end()
{
    return !m_painter.isActive() || m_painter.end();
}

void PrintJob::cancel()
{
    if (auto *printer = dynamic_cast<QPrinter *>(&m_paper)) {
        printer->abort();
    }
    end();
}
