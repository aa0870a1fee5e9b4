#pragma once

#include "document/FileHost.h"
#include "document/PrGrid.h"

#include <QString>

class SaveHost;

/// What a save takes from the windows.
struct PrFileSource
{
    qint16 docNo; ///< document number, from 1
    const PrGrid &grid;
    bool mayReplace = false; ///< the user has agreed that the file is replaced, whatever is in it
};

/// Reads fileName into MachineInfos[docNo] (docNo counts from 1) and PrRecords.
/// Returns true on FAILURE; the user has been told by then, except when the file has no parameter section.
/// What was read before a failure stays in both tables; what is missing in the file is in readFindings().
bool ReadPrFile(const QString &fileName, qint16 docNo, FileHost &host);

/// Writes the document to fileName and clears its changed flag. Returns true on FAILURE; the user has been told by
/// then, except when fileName is empty, in which case nothing is written. An existing file's content is kept in the
/// backups (storage/FileReplacement.h) before it is replaced.
///
/// Asks before it writes what would not be read back as it is, and before it replaces a file that another program
/// changed since this document was read from it or saved to it. No is a failure with everything left as it was.
bool WritePrFile(const QString &fileName, const PrFileSource &source, SaveHost &host);
