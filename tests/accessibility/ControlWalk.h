#pragma once

#include <QImage>
#include <QList>
#include <QStringList>
#include <QWidget>

/// The visible controls of a window that can take the focus or be pressed, the window's own menus aside.
QList<QWidget *> controlsOf(const QWidget &window);

/// What a screen reader reads out for a control.
QString spokenName(QWidget &control);

/// The controls, windows and menu lines in and of the window whose spoken name is empty or shows an access key's "&".
QStringList badlyNamedIn(QWidget &window);

/// The controls that Tab can reach and that look the same with the focus and without it.
QStringList withoutVisibleFocusIn(QWidget &window);

/// The greatest contrast of a pixel with the colour that most pixels of the picture have.
double contrastIn(const QImage &picture);

QPalette lightPalette();
QPalette darkPalette();
