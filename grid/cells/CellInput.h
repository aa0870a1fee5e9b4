#pragma once

#include "grid/cells/CellType.h"

#include <QValidator>

/// What a user may type into a cell of a type.
namespace CellInput {

/// Acceptable: the cell takes the text. Intermediate: it does not, but further typing can change that. Invalid: no
/// further typing can. An empty text is always acceptable: it empties the cell.
QValidator::State check(const CellType &type, const QString &text);

/// What the cell holds after that acceptable text was typed. Numbers have at least one digit before the point, no
/// leading zeros and no trailing point ("007" gives "7", "1." gives "1", ".5" gives "0.5"); any other text stays as it
/// is.
QString stored(const CellType &type, const QString &text);

/// Whether the text holds a line end of any kind.
bool hasLineEnd(QStringView text);

/// What an editor, which takes no line end, makes of a text that is pasted, dropped or composed: line ends at its end
/// are removed, any other becomes a space.
QString onOneLine(QString text);

/// Whether a check box with that text is shown ticked: any number other than 0.
bool isTicked(QStringView text);

} // namespace CellInput
