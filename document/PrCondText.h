#pragma once

#include "document/PrRecord.h"

#include <QList>
#include <QString>

#include <span>

/// The valid conditions of text ("79=1-3,MODE/0,OP=A1") in text order. Items that do not fit the grammar are dropped.
QList<PrCondition> conditionsFromText(QStringView text);

/// The text of conditions; its inverse, except that range values come back in text order.
QString conditionsToText(std::span<const PrCondition> conditions);
/// The condition text of a record: of as many conditions as it says and has.
QString conditionText(const PrRecord &record);
