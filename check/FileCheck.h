#pragma once

#include "check/Finding.h"

#include <QByteArray>

class AnsiCodePage;

/// Everything that there is to say about a parameter file: what keeps it from being opened, what an open and a save
/// would lose or change, what is wrong in itself. By row and column, the machine information first.
///
/// fileName decides the set of function groups. Without a finding of an error or about what a save writes, an open and
/// a save give exactly these bytes.
Findings checkFile(const QByteArray &bytes, const AnsiCodePage &page, const QString &fileName);

/// The same by decoding and saving the whole file, which checkFile() leaves out where nothing can come of it.
Findings checkDecodedFile(const QByteArray &bytes, const AnsiCodePage &page, const QString &fileName);

/// Why decoding failed: the finding that checkFile() has for it.
Finding readFailureFinding(const Failure &failure);
