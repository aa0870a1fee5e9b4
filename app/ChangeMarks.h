#pragma once

class OpenDocument;
class QWidget;

/// Shows by the window's icon, from now on, whether the document has unsaved changes.
void showChangesByIcon(QWidget &window, const OpenDocument &document);
