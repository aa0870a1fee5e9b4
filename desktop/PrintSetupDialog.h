#pragma once

#include <QString>

class QWidget;

/// Whether the desktop's print dialog can be used without a printer, to choose a file and the paper. Windows' own
/// cannot.
bool printSetupTakesFiles();

/// Asks for the name of a PDF file to print to instead; whether it may be replaced is not asked. Empty if the dialog
/// was cancelled.
QString askForPdfName(QWidget *parent, const QString &title, const QString &fileName);
