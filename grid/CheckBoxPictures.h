#pragma once

#include <QColor>
#include <QHash>
#include <QPixmap>

#include <utility>

class QStyle;
class QWidget;

/// The pictures of a grid's check boxes. The style draws each of them once: its shades and curves cost as much as five
/// texts.
class CheckBoxPictures
{
public:
    explicit CheckBoxPictures(const QWidget &view) : m_view(view) { }

    /// Pixels of a box at that zoom (per cent).
    QSize size(int zoom) const;
    /// The box at that zoom, in the cell's own text colour if that is valid. The picture stays valid until the next
    /// call.
    const QPixmap &picture(bool ticked, const QColor &own, int zoom);

private:
    /// What all pictures depend on.
    struct Look
    {
        const QStyle *style = nullptr;
        qint64 palette = 0;
        double pixelRatio = 0;
        int zoom = 100;
        bool operator==(const Look &) const = default;
    };

    QPixmap drawn(bool ticked, const QColor &own, int zoom) const;

    const QWidget &m_view;
    Look m_look;
    QHash<std::pair<QRgb, bool>, QPixmap> m_pictures; ///< by the cell's own colour (0 for none) and whether ticked
};
