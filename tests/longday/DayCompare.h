#pragma once

#include "tests/longday/DayModel.h"

#include <QJsonObject>

/// Where what a program shows differs first from what the model says of it; empty when nowhere.
QString differenceFrom(const DayProgram &program, const QJsonObject &shown);
/// The rows of a window as it shows them.
std::vector<RowsModel::Row> shownRows(const QJsonObject &window);
/// Whether a window shows that document.
bool shows(const QJsonObject &window, const QString &caption, const RowsModel &rows);
