#pragma once

#include <QString>

class QDialog;
class QFont;
class QLineEdit;
class QWidget;
struct CellType;

/// What a user may type into cells of that type, as a sentence; empty if anything may be typed.
QString limitText(const CellType &type);

/// UserFont as a Qt font; 12 points when its size cannot be shown (below 1 or above 512). A family that the system does
/// not have is replaced by the system's choice, for Japanese text by a font with Japanese characters.
QFont userFont();

/// Applies UserFont to the dialog's controls and places the dialog on the screen that its parent is on: its outer top
/// left corner half its inner size left of and above the screen's centre. So it sits lower and more to the right than
/// the exact centre by half its frame, unless it would leave the screen there. Call it when the dialog is built and
/// filled, before it is shown.
void PrepareDialog(QDialog &dialog);

/// Sets UserFont on every control of the window, grids included; not on its menus nor on dialogs that it owns.
void ApplyUserFont(QWidget &window);

/// Selects the whole text of the box.
void SelectAllText(QLineEdit &textBox);

/// Shows the topic of a context number (1 contents, 50 functional list code, 60 read conditions, 100 machine
/// information) of the language's help file; a message when that file is missing.
void ShowHelp(QWidget *window, int contextId);
