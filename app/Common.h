#pragma once

class QDialog;
class QFont;
class QLineEdit;
class QWidget;

/// UserFont as a Qt font.
QFont userFont();

/// Applies UserFont to the dialog's controls and puts its inner area's half size left of and above the screen's
/// centre, so that it sits lower and more to the right than the exact centre by half its frame.
void PrepareDialog(QDialog &dialog);

/// Sets UserFont on every control of the window.
void ApplyUserFont(QWidget &window);

/// Selects the whole text of the box.
void SelectAllText(QLineEdit &textBox);

/// Shows the topic of a context number (1 contents, 50 functional list code, 60 read conditions, 100 machine
/// information) of the language's help file; a message when that file is missing.
void ShowHelp(QWidget *window, int contextId);
