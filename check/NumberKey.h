#pragma once

#include <QString>

/// A text under which equal numbers are found: "079" and "79" have the same key. Any other text is its own key, without
/// spaces at its ends.
QString numberKey(const QString &number);
