#pragma once

#include <QString>

class PrintJob;
class QPagedPaintDevice;
class QPageLayout;
class QPrinter;
class QWidget;
class SpreadGrid;
enum class PrintOutcome;
struct MachineInfo;

/// Prints a document with SharedPrintSettings: its machine information, then its grid. A failure is shown in a message
/// box over parent; cancelling by the user is not.
class DocumentPrinter
{
public:
    /// title is the document's.
    DocumentPrinter(QWidget *parent, SpreadGrid &grid, const MachineInfo &machine, const QString &title);

    /// Why not a single page of the parameters will be printed although they were chosen, as a text for the user; empty
    /// if there is one.
    QString missingParameters(QPagedPaintDevice &paper) const;

    /// Prints both parts into the job. After another outcome than Done the caller ends it.
    PrintOutcome print(PrintJob &job) const;
    /// Prints the two parts as two jobs.
    void toPrinter(QPrinter &printer);
    /// Prints both parts into one file. Without a page, after a failure and if the user cancels the file stays as it
    /// was.
    void toPdf(const QString &fileName, const QPageLayout &layout);

private:
    using Content = PrintOutcome (DocumentPrinter::*)(PrintJob &) const;

    PrintOutcome runJob(QPrinter &printer, Content content) const;
    PrintOutcome printMachinePage(PrintJob &job) const;
    PrintOutcome printParameters(PrintJob &job) const;
    void report(const QString &reason) const;

    QWidget *m_parent;
    SpreadGrid &m_grid;
    const MachineInfo &m_machine;
    QString m_title;
};
