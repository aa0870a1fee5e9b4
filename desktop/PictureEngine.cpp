#include "desktop/PictureEngine.h"

#include <QApplication>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace {

QPixmap drawn(const QString &path, const QSize &size)
{
    const QString key = u"%1 %2x%3"_s.arg(path, QString::number(size.width()), QString::number(size.height()));
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        QSvgRenderer(path).render(&painter);
        painter.end();
        QPixmapCache::insert(key, picture);
    }
    return picture;
}

} // namespace

PictureEngine::PictureEngine(QString normalPath, QString disabledPath)
    : m_normalPath(std::move(normalPath)), m_disabledPath(std::move(disabledPath))
{
}

void PictureEngine::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state)
{
    painter->drawPixmap(rect, pixmap(rect.size() * painter->device()->devicePixelRatioF(), mode, state));
}

QPixmap PictureEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State /*state*/)
{
    if (mode == QIcon::Disabled && !m_disabledPath.isEmpty()) {
        return drawn(m_disabledPath, size);
    }
    QPixmap picture = drawn(m_normalPath, size);
    if (mode == QIcon::Normal) {
        return picture;
    }
    QStyleOption option;
    option.palette = QApplication::palette();
    return QApplication::style()->generatedIconPixmap(mode, picture, &option);
}
