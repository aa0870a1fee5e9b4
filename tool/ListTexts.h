#pragma once

#include "document/PrRecord.h"

#include <QList>
#include <QString>

// Ranges and conditions as one text each, without loss: as the grid shows them ("0-400,9999", "79=1-3,OP=A1") where
// that gives the same list back, else as a JSON array of arrays ("[[-10,10]]", "[[\"79\",2,\"10\",\"9\"]]").

QString rangesAsText(const QList<SettingRange> &ranges);
QString conditionsAsText(const QList<PrCondition> &conditions);

QList<SettingRange> rangesOfText(const QString &text);
QList<PrCondition> conditionsOfText(const QString &text);
