#pragma once

#include <QString>

/// What was typed behind the program's name: its arguments, a blank between two of them, as one text. It may be a file
/// name of any bytes. Call it when the application object has taken its own options out of argc and argv.
QString commandLineText(int argc, char **argv);
