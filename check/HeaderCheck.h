#pragma once

#include "check/Finding.h"

#include <QByteArrayView>

class AnsiCodePage;

/// What a save would change above the rows: values that are cut or spelled otherwise, lines that are not written.
/// bytes: of the file; written: of a save of it.
Findings checkHeader(QByteArrayView bytes, QByteArrayView written, const AnsiCodePage &page);
