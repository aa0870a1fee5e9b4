#pragma once

#include "document/PrGrid.h"
#include "runtime/CellRow.h"

#include <QString>

#include <vector>

class FileHost;
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
/// What was read before a failure stays in both tables; what is missing in the file is in
/// documentOrigin(docNo).findings.
bool ReadPrFile(const QString &fileName, qint16 docNo, FileHost &host);

/// The same with the rows as a grid shows them, which is what the windows open: it needs no PrRecords.
bool ReadPrFile(const QString &fileName, qint16 docNo, std::vector<CellRow> &rows, FileHost &host);

/// Rebuilds PrRecords from the grid, writes the document to fileName and clears its changed flag. Returns true on
/// FAILURE; the user has been told by then, except when fileName is empty, in which case nothing is written. Everything
/// else is as saveDocument() (document/DocumentFile.h) does it, which is what the windows save by: it needs no
/// PrRecords.
bool WritePrFile(const QString &fileName, const PrFileSource &source, SaveHost &host);
