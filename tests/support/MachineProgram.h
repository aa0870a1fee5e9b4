#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Runs a program of the machine that the tests run on, and returns its output. Throws what it says if it fails. Under
/// Wine it is a program of the system around Wine, and arguments that name files become that system's names.
QByteArray outputOfMachineProgram(const QString &program, const QStringList &arguments);
