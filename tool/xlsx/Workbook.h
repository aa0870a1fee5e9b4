#pragma once

#include <QList>
#include <QString>

/// A cell of a workbook.
struct WorkbookCell
{
    QString text;
    bool isNumber = false; ///< text is a number in C's form, to be stored as such

    bool operator==(const WorkbookCell &) const = default;
};

/// A row, which may be a heading.
struct WorkbookRow
{
    QList<WorkbookCell> cells;
    bool isHeading = false;
};

/// A sheet of a workbook.
struct WorkbookSheet
{
    QString title;
    QList<WorkbookRow> rows;
    QList<int> widths; ///< of the columns, in characters
    bool isTable = false; ///< the first row is the heading of all others: it stays in view and filters them
};

/// What is written as an .xlsx file.
struct Workbook
{
    QList<WorkbookSheet> sheets;
    qint64 created = 0; ///< seconds since 1970, not 0; the same content and time give the same bytes
};

/// Writes the workbook to a new file of that name; temporary files are put into folder. failure becomes the reason of a
/// failure, and empty if all went well. It is looked up by its name in a library of its own, because the libraries that
/// it needs would make every start of the program half as long again.
using WriteWorkbook = void(
    const Workbook &workbook, const QByteArray &fileName, const QByteArray &folder, QString &failure);
