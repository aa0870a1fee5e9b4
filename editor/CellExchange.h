#pragma once

class OpenDocument;
class SpreadGrid;

/// Edits the functional list code of the active row in its dialog. The document's title chooses the dialog's labels. A
/// code beyond 16 bits is reported, and nothing changes.
void exchangeFuncCode(SpreadGrid &grid, OpenDocument &document);

/// Edits the read conditions of the active row in their dialog.
void exchangePrCond(SpreadGrid &grid, OpenDocument &document);
