#pragma once

#include "document/MachineInfo.h"
#include "document/PrGrid.h"
#include "document/PrRecord.h"
#include "document/ReadFindings.h"
#include "runtime/CellRow.h"
#include "runtime/Result.h"
#include "storage/KnownFile.h"

#include <QList>
#include <QString>

#include <optional>
#include <vector>

class FileHost;
class SaveHost;

// Reading and saving for a window: with events between rows, questions, versions in the backups. All that a document
// knows is the caller's; no table is touched.

/// What a document knows of the file that it comes from.
struct DocumentOrigin
{
    KnownFile file = {}; ///< unknown for an untitled document
    int codePage = 0; ///< number of the page that it is written in; 0: the system's
    std::optional<ReadFindings> findings = {}; ///< of the last reading, a failed one included; none once it is saved

    /// The number of the code page, never 0.
    int codePageNumber() const;
};

/// Where a file is read to, but for its rows. What the file does not name stays as it is; what was read before a
/// failure stays, too.
struct ReadTarget
{
    MachineInfo &machine;
    DocumentOrigin &origin;
};

/// Reads a file, and one row more than it announces. Nothing is shown to the user.
Result<> readDocument(const QString &fileName, const ReadTarget &target, QList<PrRecord> &rows, FileHost &host);
/// The same with the rows as a grid shows them.
Result<> readDocument(const QString &fileName, const ReadTarget &target, std::vector<CellRow> &rows, FileHost &host);

/// What is saved.
struct SaveSource
{
    MachineInfo &machine; ///< is given the grid's row count
    const PrGrid &grid; ///< stays as it is while host runs pending events
    DocumentOrigin &origin; ///< knows the saved file afterwards
    bool mayReplace = false; ///< the user has agreed that the file is replaced, whatever is in it
};

/// Saves a document, under the busy cursor. An existing file's content is kept in the backups first. Asks before it
/// writes what would not be read back as it is, and before it replaces a file that another program changed since this
/// document was read from it or saved to it; a No fails with Declined, and everything is left as it was. Without a file
/// name this fails with NoFileName. The failure is not shown yet (tellOfFailure()).
Result<> saveDocument(const QString &fileName, const SaveSource &source, SaveHost &host);

/// Shows a failed save, unless it is a silent one, and leads to the cell that it is about.
void tellOfFailure(const Failure &failure, const QString &fileName, SaveHost &host);
