#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// A capacity in kW and its rated current in A.
struct CapacityTexts
{
    QString capacity;
    QString current;

    bool operator==(const CapacityTexts &) const = default;
};

/// The option names joined with ","; empty for a list that begins with "xx", which means no option.
QString optionText(const QStringList &options);

/// The inverse of optionText(). Empty pieces are dropped; a text without an option gives the one entry "xx".
QStringList optionsOfText(const QString &text);

/// Whether text is a hexadecimal number, as a machine code is.
bool isMachineCode(const QString &text);

/// The two texts of a capacity row as they are stored; `std::nullopt` if one of them is not a number.
std::optional<CapacityTexts> storedCapacity(const CapacityTexts &row);
