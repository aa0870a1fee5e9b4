#pragma once

#include <QImage>
#include <QRect>
#include <QStringList>
#include <QWidget>

/// The parts of a window that a page of the guide names below its picture, in the order of their numbers. The page is
/// where they are written down: each line of that list begins with an anchor "part-NAME".
QStringList namedParts(const QString &page, const QString &picture);

/// Where a part stands in its window: a control or a tool bar's command by its name, or what has no name of its
/// own ("menuBar", "heading(COLUMN)", "rowNumber(ROW)", "cell(COLUMN,ROW)"). Null when the window shows no such part.
QRect partPlace(QWidget &window, const QString &name);

/// What would make a picture out of date when it changes: the names of the controls that the window shows, and the
/// captions of its buttons and boxes.
QString contentsOf(const QWidget &window);

/// A picture of the window with its parts numbered from 1. It carries the parts' names and the window's contents as
/// texts ("Parts", "Contents"), by which a picture that is out of date is found.
QImage numberedPicture(QWidget &window, const QStringList &parts);
