#pragma once

#include <QString>

#include <functional>

class QWidget;
struct CellType;

/// Tells the user that a cell does not take what was typed: by a sound, a short mark on the editor and a tip.
namespace RefusedInput {

/// The tip's text for a type of cells; empty for none. Without a wording there is no tip.
void setWording(std::function<QString(const CellType &)> wording);

void show(QWidget &editor, const CellType &type);

} // namespace RefusedInput
