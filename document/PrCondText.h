#pragma once

#include <QString>

/// Appends the valid conditions of text ("79=1-3,MODE/0,OP=A1"), in text order, to PrConditions from position 0 and
/// returns their number. Items that do not fit are dropped. A text of blanks gives 0 and leaves PrConditions alone.
qint16 ParsePrCondText(QStringView text);

/// The condition text of PrRecords[rowIndex] (index from 0); empty when it has no conditions.
QString FormatPrCondText(int rowIndex);
