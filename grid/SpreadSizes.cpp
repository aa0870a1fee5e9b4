#include "grid/SpreadSizes.h"

#include "grid/SpreadDelegate.h"
#include "grid/SpreadHeader.h"
#include "grid/cells/CellMetrics.h"
#include "grid/cells/SpreadModel.h"
#include "grid/cells/TextMeter.h"

#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTableView>

#include <algorithm>
#include <cmath>

SpreadSizes::SpreadSizes(
    QTableView &view, const SpreadModel &model, SpreadHeader &columns, SpreadHeader &rows, SpreadDelegate &delegate)
    : QObject(&view)
    , m_view(view)
    , m_model(model)
    , m_columns(columns)
    , m_rows(rows)
    , m_delegate(delegate)
    , m_defaultColumnWidth(columns.defaultSectionSize())
    , m_defaultRowHeight(rows.defaultSectionSize())
{
    connect(
        &columns, &QHeaderView::sectionResized, this, [this](int at, int, int shown) { storeColumnWidth(at, shown); });
    connect(&rows, &QHeaderView::sectionResized, this, [this](int at, int, int shown) { storeRowHeight(at, shown); });
    connect(&model, &QAbstractItemModel::rowsRemoved, this,
        [this] { m_rowHeights.removeIf([this](const auto &entry) { return entry.key() > m_model.rowCount(); }); });
}

// Zoom

void SpreadSizes::setZoom(int percent)
{
    if (percent == m_zoom) {
        return;
    }
    if (m_zoom == 100) {
        m_fonts = {m_view.font(), m_columns.font(), m_rows.font()};
    }
    m_zoom = percent;
    m_delegate.setZoom(percent);
    showFonts();
    showSizes();
}

int SpreadSizes::zoomed(int pixels) const
{
    return int(std::lround(pixels * m_zoom / 100.0));
}

QFont SpreadSizes::zoomed(QFont font) const
{
    if (m_zoom == 100) {
        return font;
    }
    if (font.pointSizeF() > 0) {
        font.setPointSizeF(font.pointSizeF() * m_zoom / 100);
    } else {
        font.setPixelSize(std::max(zoomed(font.pixelSize()), 1));
    }
    return font;
}

void SpreadSizes::showFonts()
{
    const QScopedValueRollback showing(m_showing, true);
    m_view.setFont(zoomed(m_fonts[0]));
    m_columns.setFont(zoomed(m_fonts[1]));
    m_rows.setFont(zoomed(m_fonts[2]));
}

// The view is not notified of each row; it lays out all of them afterwards.
void SpreadSizes::showSizes()
{
    const QScopedValueRollback showing(m_showing, true);
    for (int column = 1; column <= m_model.columnCount(); ++column) {
        m_columns.resizeSection(column - 1, zoomed(columnWidth(column)));
    }
    const QSignalBlocker quiet(&m_rows);
    m_rows.setDefaultSectionSize(zoomed(m_defaultRowHeight));
    for (auto row = m_rowHeights.cbegin(); row != m_rowHeights.cend(); ++row) {
        m_rows.resizeSection(row.key() - 1, zoomed(row.value()));
    }
    setHeaderHeight(m_headerHeight);
    fitRowNumberWidth();
}

// A column that is shown again reports the width that it was hidden with; a hidden one reports 0.
void SpreadSizes::storeColumnWidth(int at, int shown)
{
    if (!m_showing && shown > 0 && shown != zoomed(columnWidth(at + 1))) {
        m_columnWidths[at + 1] = int(std::lround(shown * 100.0 / m_zoom));
    }
}

void SpreadSizes::storeRowHeight(int at, int shown)
{
    if (!m_showing && shown > 0 && shown != zoomed(rowHeight(at + 1))) {
        m_rowHeights[at + 1] = int(std::lround(shown * 100.0 / m_zoom));
    }
}

// Fonts

QFont SpreadSizes::font() const
{
    return m_zoom == 100 ? m_view.font() : m_fonts[0];
}

QFont SpreadSizes::headerFont() const
{
    return m_zoom == 100 ? m_columns.font() : m_fonts[1];
}

void SpreadSizes::setFont(const QFont &font)
{
    m_fonts.fill(font);
    showFonts(); // the headers too: in a window that was never shown they may not have got their parent's font
    adaptToFont();
}

void SpreadSizes::adaptToFont()
{
    if (m_showing) {
        return;
    }
    if (m_zoom != 100 && m_view.font() != zoomed(m_fonts[0])) {
        m_fonts.fill(m_view.font());
        showFonts();
    }
    m_lineRowHeight = CellMetrics::rowHeight(QFontMetrics(font()), {});
    if (m_model.rowCount() == 0) {
        m_defaultRowHeight = m_lineRowHeight;
        m_rows.setDefaultSectionSize(zoomed(m_defaultRowHeight));
        fitRowHeight(0);
    }
}

// Widths

int SpreadSizes::columnWidth(int column) const
{
    return m_columnWidths.value(column, m_defaultColumnWidth);
}

void SpreadSizes::setColumnWidth(int column, int pixels)
{
    const QScopedValueRollback showing(m_showing, true);
    m_columnWidths[column] = pixels;
    m_columns.resizeSection(column - 1, zoomed(pixels));
}

void SpreadSizes::setWidthInCharacters(int column, double characters)
{
    const double digit = QFontMetricsF(font()).horizontalAdvance(u'0');
    const int width = int(std::lround(characters * digit)) + CellMetrics::extraWidth;
    if (column == 0) {
        m_rowNumberWidth = width;
        fitRowNumberWidth();
    } else if (column >= 1 && column <= m_model.columnCount()) {
        setColumnWidth(column, width);
    }
}

int SpreadSizes::rowNumberWidth() const
{
    TextMeter meter(font());
    meter.add(QString(QString::number(m_model.rowCount()).size(), u'0'));
    return std::max(m_rowNumberWidth, meter.widest() + CellMetrics::extraWidth);
}

void SpreadSizes::fitRowNumberWidth()
{
    m_rows.setFixedWidth(zoomed(rowNumberWidth()));
}

void SpreadSizes::fitColumnWidth(int column)
{
    if (column == 0) {
        TextMeter meter(font());
        meter.add(m_model.headerText(0));
        m_rowNumberWidth = meter.widest() + CellMetrics::extraWidth;
        fitRowNumberWidth();
    } else if (column >= 1 && column <= m_model.columnCount()) {
        int width = neededWidth(column, font(), headerFont(), 100);
        if (m_zoom != 100) { // letters do not grow evenly, and the texts must fit as they are shown, too
            const int shown = neededWidth(column, m_view.font(), m_columns.font(), m_zoom);
            width = std::max(width, int(std::ceil(shown * 100.0 / m_zoom)));
        }
        setColumnWidth(column, width);
    }
}

int SpreadSizes::neededWidth(int column, const QFont &font, const QFont &headerFont, int zoom) const
{
    TextMeter meter(font);
    int widestBox = 0;
    for (int row = 1; row <= m_model.rowCount(); ++row) {
        if (m_model.cellType(column, row).kind == CellType::Kind::CheckBox) {
            const int box = m_delegate.checkBoxRect(m_model.cellIndex(column, row), {}).width();
            widestBox = std::max(widestBox, box * zoom / m_zoom);
        } else {
            meter.add(m_model.text(column, row));
        }
    }
    const int extra = int(std::ceil(CellMetrics::extraWidth * zoom / 100.0));
    const int header = m_columns.textSize(column - 1, headerFont).width();
    return std::max(std::max(widestBox, meter.widest()) + extra, header);
}

// Heights

int SpreadSizes::rowHeight(int row) const
{
    return row == 0 ? m_headerHeight : m_rowHeights.value(row, m_defaultRowHeight);
}

void SpreadSizes::setRowHeight(int row, int pixels)
{
    if (pixels != rowHeight(row)) {
        const QScopedValueRollback showing(m_showing, true);
        m_rowHeights[row] = pixels;
        m_rows.resizeSection(row - 1, zoomed(pixels));
    }
}

void SpreadSizes::setHeaderHeight(int pixels)
{
    m_headerHeight = pixels;
    m_columns.setFixedHeight(zoomed(pixels));
}

void SpreadSizes::fitRowHeight(int row)
{
    if (row == 0) {
        int height = m_lineRowHeight;
        for (int column = 1; column <= m_model.columnCount(); ++column) {
            height = std::max(height, m_columns.textSize(column - 1, headerFont()).height());
        }
        setHeaderHeight(height);
    } else if (row >= 1 && row <= m_model.rowCount()) {
        const QStringView highest = m_model.highestText(row);
        setRowHeight(row, highest.isEmpty() ? m_lineRowHeight : CellMetrics::rowHeight(QFontMetrics(font()), highest));
    }
}
