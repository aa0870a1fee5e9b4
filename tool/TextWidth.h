#pragma once

#include <QString>

/// The columns that text takes on a terminal: two for a wide character, none for one that is put over the one before
/// it.
int textWidth(QStringView text);

/// text with spaces after it up to that width; a longer one stays as it is.
QString paddedText(const QString &text, int width);
