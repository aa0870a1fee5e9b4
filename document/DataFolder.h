#pragma once

#include <QStandardPaths>
#include <QString>

/// Where the program keeps what belongs to the user but to no file of his: backups and recovery copies. The folder need
/// not exist.
inline QString dataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/Tabrix");
}
