#pragma once

#include <QColor>
#include <QPalette>

class QWidget;

/// The colour itself, or a lighter or darker shade of it that can be read on that background.
QColor readableOn(const QColor &background, const QColor &colour);

/// The same for the lines between cells, which need less contrast than texts.
QColor lineOn(const QColor &background, const QColor &colour);

/// A palette with which the style draws check boxes and options that are visible on that background, unticked ones too.
/// The style derives the colour of their frames from the window's colour. If own is valid, frames and ticks have that
/// colour.
QPalette boxPalette(QPalette palette, const QColor &background, const QColor &own = {});

/// Makes the check boxes and options visible in one of Qt's own windows.
void showBoxesOf(QWidget &window);

/// The background, tinted with that colour.
QColor tinted(const QColor &background, const QColor &tint);
