#pragma once

#include <QLatin1StringView>
#include <QString>

#include <span>

/// The four parts of a parameter file. Each is a list of entries with a key and texts.
enum class SheetPart { Machine, Capacities, Options, Parameters };
inline constexpr int sheetPartCount = 4;

/// How two texts of a field are compared.
enum class FieldKind {
    Text,
    Number, ///< "007" and "7" are the same
    Code, ///< likewise, of 16 bits: 65535 and -1 are the same
    Conditions, ///< condition by condition, values as numbers
};

/// A text of an entry.
struct SheetField
{
    QLatin1StringView name; ///< in JSON and on the command line
    FieldKind kind;
    int column; ///< of the parameter grid, from 1; 0 for the machine information
};

/// How a part is called in JSON, and its key.
struct SheetPartInfo
{
    SheetPart part;
    QLatin1StringView name;
    QLatin1StringView keyName;
    std::span<const SheetField> fields;
};

/// The parts in the order of SheetPart.
std::span<const SheetPartInfo> sheetParts();
const SheetPartInfo &sheetPart(SheetPart part);

/// The name of the field that a column of the grid, from 1, shows.
QLatin1StringView fieldNameOfColumn(int column);

/// Whether the texts mean the same.
bool isSameValue(FieldKind kind, const QString &left, const QString &right);
