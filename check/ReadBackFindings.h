#pragma once

#include "check/Finding.h"
#include "document/Document.h"

/// What of the document could not be written, or would not be read back as it is: texts that its file cannot hold,
/// bytes and characters outside its code page, gaps in the lists of the machine information.
Findings checkReadBack(const Document &document);
