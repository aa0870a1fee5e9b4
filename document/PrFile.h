#pragma once

#include "document/FileHost.h"
#include "document/PrGrid.h"

#include <QString>

/// What a save takes from the windows.
struct PrFileSource
{
    qint16 docNo; ///< document number, from 1
    const PrGrid &grid;
    QString parameterCount; ///< the text of the frame's parameter-count label
};

/// Reads fileName into MachineInfos[docNo] (docNo counts from 1) and PrRecords.
/// Returns true on FAILURE; the user has been told by then, except when the file has no parameter section.
/// What was read before a failure stays in both tables.
bool ReadPrFile(const QString &fileName, qint16 docNo, FileHost &host);

/// Writes the document to fileName and clears its changed flag. Returns true on FAILURE; the user has been told by
/// then, except when fileName is empty, in which case nothing is written. An existing file's content is kept in the
/// backups (document/FileBackup.h) before it is replaced.
bool WritePrFile(const QString &fileName, const PrFileSource &source, FileHost &host);
