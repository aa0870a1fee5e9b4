#pragma once

#include "check/Finding.h"
#include "tool/Terminal.h"

#include <QJsonObject>
#include <QString>

/// A finding and what it counts as: by itself, or by the rules for the file.
struct RatedFinding
{
    Finding finding;
    Severity severity;
};

using RatedFindings = QList<RatedFinding>;

/// A line for each finding, as compilers report: "FILE:ROW:COLUMN: SEVERITY: TEXT [ID]".
QByteArray reportAsText(const QString &fileName, const RatedFindings &findings, const Painter &paint);

/// An object with the file's name and its findings.
QByteArray reportAsJson(const QString &fileName, const RatedFindings &findings);
