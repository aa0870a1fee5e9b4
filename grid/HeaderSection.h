#pragma once

class QPainter;
class QStyleOptionHeaderV2;
class QWidget;

/// Draws a section of a header, its text in the whole height and with an ellipsis where it is cut: what some styles
/// keep free above and below it leaves too little where rows are as high as their texts, and Qt 6.4 itself cuts without
/// one.
void drawHeaderSection(const QStyleOptionHeaderV2 &section, QPainter &painter, const QWidget &header);
