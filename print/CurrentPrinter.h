#pragma once

#include <QString>

class QPrinter;
class QWidget;

/// The printer that documents are printed to, with its set-up (paper, orientation, copies), until the program ends. It
/// is the system's default printer until the user chooses another. For the user interface thread only.
namespace CurrentPrinter {

QPrinter &printer();

/// Whether the machine has a printer at the moment. Without one, printer() only holds the page set-up.
bool isPresent();

/// The name of the printer; empty if there is none.
QString deviceName();

/// Lets the user choose printer, paper and orientation. Nothing is printed, and cancelling changes nothing. On a
/// machine without printers the dialog asks for a PDF file, preset to fileName. title is the dialog's.
void showSetup(
    QWidget *parent, const QString &title, const QString &okText, const QString &cancelText, const QString &fileName);

/// Returns the PDF file that the user named in the set-up instead of the preset one, and forgets it; empty if there is
/// none.
QString takeChosenFile();

} // namespace CurrentPrinter
