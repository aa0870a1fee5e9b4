#include "desktop/Picture.h"

#include "desktop/PictureEngine.h"

#include <QFile>

using namespace Qt::StringLiterals;

// Without this the linker drops the pictures from the library. Qt's macro must not be used in a namespace.
static void initPictures()
{
    Q_INIT_RESOURCE(pictures);
}

namespace {

QString picturePath(const QString &name)
{
    static const bool initialised = (initPictures(), true);
    Q_UNUSED(initialised)
    return u":/pictures/%1.svg"_s.arg(name);
}

/// The path of the picture of that number; empty if there is none.
QString existingPath(int number)
{
    const QString path = picturePath(QString::number(number));
    return QFile::exists(path) ? path : QString();
}

} // namespace

QIcon Picture::icon(int first, int second)
{
    const QString normal = existingPath(first);
    return normal.isEmpty() ? QIcon() : QIcon(new PictureEngine(normal, existingPath(second)));
}

QIcon Picture::programIcon()
{
    return QIcon(picturePath(u"tabrix"_s));
}

QIcon Picture::changedIcon()
{
    return QIcon(picturePath(u"changed"_s));
}
