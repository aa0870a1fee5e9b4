#pragma once

#include <QString>

/// The program's page for man, in the interface's language.
QString manualPage();
