#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <iosfwd>

// gtest finds these by argument look-up and prints readable values in its failures.
QT_BEGIN_NAMESPACE
void PrintTo(const QString &text, std::ostream *out);
void PrintTo(const QByteArray &bytes, std::ostream *out);
QT_END_NAMESPACE
