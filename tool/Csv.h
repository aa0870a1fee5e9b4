#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <optional>

/// Records of fields as CSV after RFC 4180, in UTF-8 with CR LF.
QByteArray csvOf(const QList<QStringList> &records);

/// Where a field begins: line and character, from 1.
struct CsvPlace
{
    int line = 1;
    int column = 1;
};

struct CsvRecord
{
    QStringList fields;
    QList<CsvPlace> places; ///< of the fields
};

/// The records of a CSV text, or why it is none: a sentence that names line and column. A byte-order mark and lone line
/// feeds are accepted.
struct CsvInput
{
    QList<CsvRecord> records;
    std::optional<QString> failure;
};
CsvInput readCsv(const QByteArray &bytes);
