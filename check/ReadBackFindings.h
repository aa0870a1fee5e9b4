#pragma once

#include "check/Finding.h"
#include "document/Document.h"

class AnsiCodePage;

/// What of the document could not be written, or would not be read back as it is: texts that its file cannot hold,
/// bytes and characters outside its code page, gaps in the lists of the machine information.
Findings checkReadBack(const Document &document);

/// The same for the machine information alone.
Findings checkMachineReadBack(const MachineInfo &machine, bool hasRows, const AnsiCodePage &page);

/// The same for one row, from 1.
Findings checkRowReadBack(const PrRecord &record, int row, const AnsiCodePage &page);
