#pragma once

#include "check/Finding.h"

#include <QByteArray>

/// A file with these rows and lines of machine information, of as many rows as given.
struct TestFile
{
    QByteArray rows;
    int count = 1;
    QByteArray machine = {}; ///< further lines of the section, with their line ends
    QByteArray name = "XT";

    QByteArray bytes() const;
};

/// A row of that number, name and rest: factory setting, function code, range check, ranges, with the line end.
QByteArray testRow(const QByteArray &number, const QByteArray &rest, const QByteArray &conditions = {});

/// The ids of the findings, in their order.
QList<CheckId> idsOf(const Findings &findings);

/// The same as names, for messages of tests.
QByteArray namesOf(const Findings &findings);
