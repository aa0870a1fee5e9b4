#pragma once

#include <QIconEngine>
#include <QString>

/// Draws an icon from SVG files, each read when its picture is first shown: a tool bar at start-up needs half of its
/// pictures, and each of them once.
class PictureEngine final : public QIconEngine
{
public:
    /// disabledPath, unless empty, is the picture of a disabled control; without it the style makes one grey.
    PictureEngine(QString normalPath, QString disabledPath);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine *clone() const override { return new PictureEngine(*this); }

private:
    QString m_normalPath;
    QString m_disabledPath;
};
