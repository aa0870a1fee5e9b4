#pragma once

#include <QFont>
#include <QHash>
#include <QObject>

#include <array>

class QTableView;
class SpreadDelegate;
class SpreadHeader;
class SpreadModel;

/// The font, widths and heights of a spread grid. All are kept as they are at 100 %, in pixels; the zoom only changes
/// what is shown, so that zooming in and out again changes nothing. Columns and rows count from 1.
class SpreadSizes final : public QObject
{
    Q_OBJECT

public:
    SpreadSizes(QTableView &view, const SpreadModel &model, SpreadHeader &columns, SpreadHeader &rows,
        SpreadDelegate &delegate);

    int zoom() const { return m_zoom; } ///< per cent
    void setZoom(int percent);

    // At 100 %, whatever the zoom
    QFont font() const;
    void setFont(const QFont &font);
    int columnWidth(int column) const;
    int rowHeight(int row) const;
    void setRowHeight(int row, int pixels);
    int rowNumberWidth() const;

    /// Call it when the view's font has changed, whoever changed it.
    void adaptToFont();
    void setWidthInCharacters(int column, double characters);
    void fitColumnWidth(int column);
    /// Makes the column of the row numbers wide enough for the last one.
    void fitRowNumberWidth();
    void fitRowHeight(int row);

private:
    QFont headerFont() const;
    QFont zoomed(QFont font) const;
    int zoomed(int pixels) const;
    void showFonts();
    void showSizes();
    void setColumnWidth(int column, int pixels);
    void setHeaderHeight(int pixels);
    int neededWidth(int column, const QFont &font, const QFont &headerFont, int zoom) const;
    void storeColumnWidth(int at, int shown);
    void storeRowHeight(int at, int shown);

    QTableView &m_view;
    const SpreadModel &m_model;
    SpreadHeader &m_columns;
    SpreadHeader &m_rows;
    SpreadDelegate &m_delegate;
    int m_zoom = 100;
    std::array<QFont, 3> m_fonts; ///< of view, column and row header at 100 %, while another zoom is shown
    QHash<int, int> m_columnWidths; ///< without those of default width
    QHash<int, int> m_rowHeights; ///< without those of default height
    int m_defaultColumnWidth;
    int m_defaultRowHeight;
    int m_headerHeight = 0;
    int m_rowNumberWidth = 0; ///< as requested
    int m_lineRowHeight = 0; ///< of a row whose texts have one line
    bool m_showing = false; ///< this object itself is changing sizes and fonts
};
