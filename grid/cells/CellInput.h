#pragma once

#include "grid/cells/CellType.h"

#include <QValidator>

/// What a user may type into a cell of a type.
namespace CellInput {

/// Invalid: no typing can turn it into a text that the cell takes. Intermediate: not yet one. An empty text is always
/// acceptable: it empties the cell.
QValidator::State check(const CellType &type, const QString &text);

/// What the cell holds when that acceptable text was typed: a number with one digit at least before its point, no zero
/// before these and no point without digits behind it ("007" gives "7", "1." gives "1", ".5" gives "0.5"); any other
/// text as it is.
QString stored(const CellType &type, const QString &text);

/// Whether the text holds a line end, of whatever kind.
bool hasLineEnd(QStringView text);

/// What an editor takes of a text that is pasted, dropped or composed, for it takes no line end: those at the end are
/// dropped, any other becomes a blank.
QString onOneLine(QString text);

/// Whether a check box with that text is shown ticked: any number other than 0.
bool isTicked(QStringView text);

} // namespace CellInput
