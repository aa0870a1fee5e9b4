#pragma once

#include <QString>

#include <functional>

class QWidget;
struct CellType;

/// Tells the user that a cell does not take what was typed: a beep, a short red flash of the editor and a tool tip.
namespace RefusedInput {

/// Sets what words the tip for a cell type; an empty text, or no wording at all, shows no tip.
void setWording(std::function<QString(const CellType &)> wording);

void show(QWidget &editor, const CellType &type);

} // namespace RefusedInput
