#pragma once

#include <QPainter>
#include <QString>

class QPagedPaintDevice;

/// One job on a printer or into a PDF file. It begins with its first page, so that a job without pages spools nothing,
/// and ends when this object is destroyed.
class PrintJob
{
public:
    /// name is shown in the printer's queue, and is the title of a PDF file.
    PrintJob(QPagedPaintDevice &paper, const QString &name);
    ~PrintJob();
    Q_DISABLE_COPY_MOVE(PrintJob)

    QPagedPaintDevice &paper() { return m_paper; }
    const QString &name() const { return m_name; }

    /// Begins a page. False if the printer or the file takes no more pages; nothing can be painted then.
    bool startPage();
    /// Paints on the current page. The origin is the top left corner of the printable area.
    QPainter &painter() { return m_painter; }
    int pageCount() const { return m_pageCount; }

    /// Ends the job. False if the last page was not taken.
    bool end();
    /// Ends the job and drops what the printer has not printed yet.
    void cancel();

private:
    QPagedPaintDevice &m_paper;
    QString m_name;
    QPainter m_painter;
    int m_pageCount = 0;
};
