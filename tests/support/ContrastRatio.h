#pragma once

class QColor;

/// Contrast ratio after WCAG 2, 1 to 21.
double contrastRatio(const QColor &colour1, const QColor &colour2);
