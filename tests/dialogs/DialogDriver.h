#pragma once

#include <QDialog>
#include <QObject>
#include <QString>

#include <functional>

class SpreadGrid;

/// English texts and a font of a known size, as every dialog test starts.
void useEnglish();
void useJapanese();

/// Runs act once the dialog's exec() shows it. A dialog that act leaves open fails the test and is cancelled.
void whileShown(QDialog &dialog, const std::function<void()> &act);

/// The same for the next modal dialog to be opened, whoever opens it.
void whileNextIsShown(const std::function<void(QDialog &)> &act);

/// A click with the left mouse button, on the named control in root.
void click(const QObject &root, const QString &name);

/// Types key by key into the control that has the focus.
void type(const QString &text);
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Name of the control that has the focus; a control that a name-less part belongs to counts as focused.
QString focusedName();

/// The names that Tab visits, beginning with the focused control, until it comes round.
QStringList tabOrder();

/// Clicks a cell; column and row from 1.
void clickCell(SpreadGrid &grid, int column, int row);

/// Clicks a cell, types text over it and leaves the edit open.
void typeIntoCell(SpreadGrid &grid, int column, int row, const QString &text);

/// The same and Enter, which ends the edit.
void enterIntoCell(SpreadGrid &grid, int column, int row, const QString &text);

/// The texts of all rows, cells joined by "|".
QStringList rowsOf(const SpreadGrid &grid);
