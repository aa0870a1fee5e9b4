#include "platform/Picture.h"

#include <QFile>

using namespace Qt::StringLiterals;

// The linker drops the pictures from the library unless someone asks for them. Not in a namespace: Qt's macro says so.
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

void addPicture(QIcon &icon, int number, QIcon::Mode mode)
{
    const QString path = picturePath(QString::number(number));
    if (QFile::exists(path)) {
        icon.addFile(path, {}, mode);
    }
}

} // namespace

QIcon Picture::icon(int first, int second)
{
    QIcon icon;
    addPicture(icon, first, QIcon::Normal);
    if (second != 0) {
        addPicture(icon, second, QIcon::Disabled);
    }
    return icon;
}

QIcon Picture::programIcon()
{
    return QIcon(picturePath(u"tabrix"_s));
}
