#pragma once

#include <QColor>
#include <QPalette>

class QWidget;

/// The colour itself, or a lighter or darker shade of it that can be read on that background.
QColor readableOn(const QColor &background, const QColor &colour);

/// The same for the lines between cells, which are to be seen but not to be looked at.
QColor lineOn(const QColor &background, const QColor &colour);

/// The palette with which the style draws check boxes and options that can be seen on that background, unticked too:
/// it takes the colour of their frames from the window's. Frames and ticks have the colour own where it is valid.
QPalette boxPalette(QPalette palette, const QColor &background, const QColor &own = {});

/// Lets the boxes and options of a window of Qt's own be seen on it.
void showBoxesOf(QWidget &window);

/// A background with a shade of that colour in it.
QColor tinted(const QColor &background, const QColor &tint);
