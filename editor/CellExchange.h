#pragma once

#include <QString>

class SpreadGrid;

/// Edits the functional list code of the active row in its dialog. fileName chooses the dialog's labels.
/// docNo counts from 1. A code beyond 16 bits is reported, and nothing changes.
void exchangeFuncCode(SpreadGrid &grid, int docNo, const QString &fileName);

/// Edits the read conditions of the active row in their dialog. docNo counts from 1.
void exchangePrCond(SpreadGrid &grid, int docNo);
