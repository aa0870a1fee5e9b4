#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// The least that any program must do with the same file: what the ratios are taken against.
namespace baselines {

/// Reads a file, decodes it at once and cuts it into fields.
QStringList splitFile(const QString &fileName);

/// Joins the fields by commas, encodes them at once and writes them.
void joinToFile(const QStringList &fields, const QString &fileName);

/// Lets pending events run, count times.
void passEvents(int count);

} // namespace baselines
