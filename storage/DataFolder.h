#pragma once

#include <QString>

/// Where the program keeps what belongs to the user but to no file of his: backups and recovery copies. The folder need
/// not exist. A data home that is no absolute path counts as none.
QString dataFolder();
