#pragma once

#include <QString>

class QPrinter;
class QWidget;

/// The printer that print-outs go to, with its set-up (paper, orientation, copies), for as long as the program runs.
/// It is the system's default printer until the user chooses another. The user interface thread only.
namespace CurrentPrinter {

QPrinter &printer();

/// True while the machine has a printer to send jobs to. Without one, printer() only holds the page set-up.
bool isPresent();

/// Name of the printer; empty without one.
QString deviceName();

/// Lets the user choose printer, paper and orientation; nothing is printed, and cancelling changes nothing. On a
/// machine without printers a PDF file can be named there: fileName is what it is preset to. title is the window's.
void showSetup(
    QWidget *parent, const QString &title, const QString &okText, const QString &cancelText, const QString &fileName);

/// The PDF file that the user named in the set-up instead of the preset one, and forgets it; empty for none.
QString takeChosenFile();

} // namespace CurrentPrinter
