#pragma once

#include <QString>
#include <QStringList>

/// What was typed after the program's name, as one text: it may be a file name of any bytes. Where the system keeps
/// the line as it was typed, quotes and runs of spaces are part of it; elsewhere a space separates two arguments.
/// Call it when the application object has taken its own options out of argc and argv.
QString commandLineText(int argc, char **argv);

/// The same of a line as Windows keeps it, program name included. left: the values of the arguments that are not the
/// toolkit's; spaces around the text do not count.
QString commandLineAsTyped(const QString &line, const QStringList &left);

/// The arguments one by one, each as a file name of any bytes. Call it before there is an application object, which may
/// take some out.
QStringList commandLineArguments(int argc, char **argv);
