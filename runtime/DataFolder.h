#pragma once

#include <QString>

/// Where the program keeps backups, recovery copies and locks. The folder need not exist. It is in the user's data
/// home: XDG_DATA_HOME on Linux, TABRIX_DATA_HOME on Windows; one that is not an absolute path counts as none.
QString dataFolder();
