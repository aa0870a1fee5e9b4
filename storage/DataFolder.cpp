#include "storage/DataFolder.h"

#include <QDir>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

QString dataFolder()
{
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    // Relative, it would be another folder wherever the program is started.
    return (QDir::isAbsolutePath(base) ? base : QDir::homePath() + u"/.local/share"_s) + u"/Tabrix"_s;
}
