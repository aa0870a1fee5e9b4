#pragma once

#include <QString>
#include <QStringList>

/// How a cell is edited and which typed texts it takes. A text that the program sets is shown as it is, whatever the
/// type.
struct CellType
{
    enum class Kind : quint8 { Text, Integer, Float, CheckBox, ComboBox };

    Kind kind = Kind::Text;
    double minimum = 0; ///< Integer, Float
    double maximum = 0;
    int maxLength = 0; ///< Text: how many 16-bit units can be typed; 0 for no limit
    QString caption = {}; ///< CheckBox: the text beside the box; without one the box is in the middle of the cell
    QStringList items = {}; ///< ComboBox
    QStringList unlisted = {}; ///< ComboBox: texts that can be typed although they are not in the list
    QString initial = {}; ///< the text of this cell in a row that setRowCount() adds

    static CellType text(int maxLength = 0) { return {.kind = Kind::Text, .maxLength = maxLength}; }
    static CellType integer(int minimum, int maximum)
    {
        return {.kind = Kind::Integer, .minimum = double(minimum), .maximum = double(maximum)};
    }
    static CellType number(double minimum, double maximum)
    {
        return {.kind = Kind::Float, .minimum = minimum, .maximum = maximum};
    }
    static CellType checkBox(const QString &caption = {}) { return {.kind = Kind::CheckBox, .caption = caption}; }
    static CellType comboBox(const QStringList &items, const QString &initial = {}, const QStringList &unlisted = {})
    {
        return {.kind = Kind::ComboBox, .items = items, .unlisted = unlisted, .initial = initial};
    }

    bool operator==(const CellType &) const = default;
};
