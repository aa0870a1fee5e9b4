#pragma once

#include <QColor>

/// The colour itself, or a lighter or darker shade of it that can be read on that background.
QColor readableOn(const QColor &background, const QColor &colour);

/// A background with a shade of that colour in it.
QColor tinted(const QColor &background, const QColor &tint);
