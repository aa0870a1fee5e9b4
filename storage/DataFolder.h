#pragma once

#include <QString>

/// Where the program keeps backups, recovery copies and locks. The folder need
/// not exist. A data home that is not an absolute path counts as none.
QString dataFolder();
