#pragma once

#include <QString>

class QWidget;
class SpreadGrid;

/// The print command of an editor window: asks what to print and prints it, the machine information of document docNo
/// (from 1) first, then the grid. title is the window's caption, parent the window that the dialogs stand over.
///
/// Without a printer both go into one PDF file, whose name is asked for after the print dialog. Failures are told in a
/// message box, and so are parameters of which no page is printed (an empty page range, hidden columns); the user's
/// cancelling is not.
void printDocument(QWidget *parent, SpreadGrid &grid, int docNo, const QString &title);
