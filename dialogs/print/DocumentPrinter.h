#pragma once

#include <QString>

class PrintJob;
class QPagedPaintDevice;
class QPageLayout;
class QPrinter;
class QWidget;
class SpreadGrid;
enum class PrintOutcome;

/// Prints a document as SharedPrintSettings say: its machine information, then its grid. A failure is told in a message
/// box over parent; the user's cancelling is not.
class DocumentPrinter
{
public:
    /// docNo counts from 1; title is the editor window's caption.
    DocumentPrinter(QWidget *parent, SpreadGrid &grid, int docNo, const QString &title);

    /// Why no page of the parameters is printed although they are to be, for the user; empty when there is one.
    QString missingParameters(QPagedPaintDevice &paper) const;

    /// As two jobs.
    void toPrinter(QPrinter &printer);
    /// Both into one file, which is left alone when nothing is printed, on failure and when the user cancels.
    void toPdf(const QString &fileName, const QPageLayout &layout);

private:
    using Content = PrintOutcome (DocumentPrinter::*)(PrintJob &) const;

    PrintOutcome runJob(QPrinter &printer, Content content) const;
    PrintOutcome printMachinePage(PrintJob &job) const;
    PrintOutcome printParameters(PrintJob &job) const;
    void report(const QString &reason) const;

    QWidget *m_parent;
    SpreadGrid &m_grid;
    int m_docNo;
    QString m_title;
};
