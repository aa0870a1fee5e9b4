#pragma once

#include "document/Document.h"
#include "tool/SheetFields.h"

#include <QList>
#include <QStringList>

#include <array>

/// What an entry is found by: its key's text, and which entry of that key it is.
struct EntryKey
{
    QString text;
    int occurrence = 1; ///< from 1

    bool operator==(const EntryKey &) const = default;
};

size_t qHash(const EntryKey &key, size_t seed = 0);

/// A value of the machine information, a capacity, an option or a parameter.
struct SheetEntry
{
    EntryKey key;
    QStringList values; ///< by SheetPartInfo::fields

    bool operator==(const SheetEntry &) const = default;
};

/// A document as lists of texts, in which entries are compared, changed and merged one like the other. Nothing of a
/// document that came from a file is lost.
struct Sheet
{
    std::array<QList<SheetEntry>, sheetPartCount> parts;
    int codePage = 0;

    const QList<SheetEntry> &part(SheetPart part) const { return parts.at(std::size_t(part)); }
    QList<SheetEntry> &part(SheetPart part) { return parts.at(std::size_t(part)); }
    bool operator==(const Sheet &) const = default;
};

Sheet sheetOf(const Document &document);

/// The same, with values of those parameters only, by row from 0, that are true in needsValues.
Sheet sheetOf(const Document &document, const QList<bool> &needsValues);

/// The values of the entry that a parameter becomes.
QStringList parameterValues(const PrRecord &record);

/// The inverse of sheetOf(). A text of ranges or conditions that is not in their form gives the part of it that is.
Document documentOf(const Sheet &sheet);

/// Renumbers equal keys, from 1 in the order of the list.
void countOccurrences(QList<SheetEntry> &entries);
