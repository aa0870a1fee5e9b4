#pragma once

#include <QString>

class QWidget;
class SpreadGrid;
struct MachineInfo;

/// The print command of an editor window: asks what to print and prints the document's machine information, then its
/// grid. title is the document's, parent the window that the dialogs belong to.
///
/// Without a printer both are printed into one PDF file, whose name is asked for after the print dialog. Failures are
/// shown in a message box, and so is the reason if the parameters were chosen but have no page to print (an empty page
/// range, hidden columns). Cancelling by the user is not.
void printDocument(QWidget *parent, SpreadGrid &grid, const MachineInfo &machine, const QString &title);
