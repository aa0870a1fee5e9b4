#pragma once

#include <QIcon>

/// The pictures of the resource table. They are drawn for each size and scale.
namespace Picture {

/// The picture of that number (1000 to 1004, 1010 to 1025); a null icon for any other.
/// second, unless 0, is the picture that a disabled control shows.
QIcon icon(int first, int second = 0);

/// The picture that the window system shows for the program.
QIcon programIcon();

/// The same with the mark of a document that has unsaved changes: a dot in the colour of changed cells.
QIcon changedIcon();

} // namespace Picture
