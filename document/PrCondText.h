#pragma once

#include "document/PrRecord.h"

#include <QList>
#include <QString>

#include <span>

/// The valid conditions of text ("79=1-3,MODE/0,OP=A1") in text order. Items that do not fit the grammar are dropped.
QList<PrCondition> conditionsFromText(QStringView text);

/// The text of conditions; its inverse, except that range values come back in text order.
QString conditionsToText(std::span<const PrCondition> conditions);

/// Puts the conditions of text into PrConditions from position 0, with one spare element behind them, and returns their
/// number (32767 at most). A text of blanks gives 0 and leaves PrConditions alone.
qint16 ParsePrCondText(QStringView text);

/// The condition text of PrRecords[rowIndex] (index from 0); empty when it has no conditions.
QString FormatPrCondText(int rowIndex);
