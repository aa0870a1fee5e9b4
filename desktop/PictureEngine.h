#pragma once

#include <QIconEngine>
#include <QString>

/// Draws an icon from SVG files. A file is read when its picture is first shown: at start-up a tool bar needs only half
/// of its pictures.
class PictureEngine final : public QIconEngine
{
public:
    /// disabledPath is the picture of a disabled control; if it is empty the style draws the normal one in grey.
    PictureEngine(QString normalPath, QString disabledPath);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine *clone() const override { return new PictureEngine(*this); }

private:
    QString m_normalPath;
    QString m_disabledPath;
};
