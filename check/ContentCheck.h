#pragma once

#include "check/Finding.h"
#include "document/FuncCodeText.h"
#include "document/PrRecord.h"

#include <QList>

/// What is wrong in itself in the rows of a document: numbers, ranges, factory settings, conditions, function codes,
/// help topics. labels: the label set that the document's file name gives it. codePage: the one of the document.
Findings checkContent(const QList<PrRecord> &rows, FunctionLabels labels, int codePage);
