#include "tests/guide/GuideParts.h"

#include "grid/SpreadGrid.h"

#include <QAbstractButton>
#include <QAction>
#include <QHeaderView>
#include <QMenuBar>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int markSize = 19;
constexpr int largePart = 70; ///< from that height on a part has room for its number within
constexpr int margin = 15; ///< around the window, for the numbers on its rim
constexpr int widestPicture = 630; ///< with its margins, the help window shows it without scrolling

QRect inWindow(const QWidget &part, const QRect &place, const QWidget &window)
{
    return {part.mapTo(&window, place.topLeft()), place.size()};
}

QRect inWindow(const QWidget *part, const QWidget &window)
{
    return part && part->isVisibleTo(&window) ? inWindow(*part, part->rect(), window) : QRect();
}

/// The button of a command in a tool bar.
const QWidget *buttonOf(const QWidget &window, const QString &command)
{
    auto *action = window.findChild<QAction *>(command);
    const auto *bar = action ? qobject_cast<const QToolBar *>(action->parent()) : nullptr;
    return bar ? bar->widgetForAction(action) : nullptr;
}

QRect cellPlace(const SpreadGrid &grid, int column, int row, const QWidget &window)
{
    const QRect cell = grid.visualRect(grid.model()->index(row - 1, column - 1));
    return inWindow(*grid.viewport(), cell, window);
}

QRect headingPlace(const SpreadGrid &grid, int column, const QWidget &window)
{
    const QHeaderView &header = *grid.horizontalHeader();
    const QRect heading(header.sectionViewportPosition(column - 1), 0, header.sectionSize(column - 1), header.height());
    return inWindow(*header.viewport(), heading, window);
}

QRect rowNumberPlace(const SpreadGrid &grid, int row, const QWidget &window)
{
    const QHeaderView &header = *grid.verticalHeader();
    const QRect number(0, header.sectionViewportPosition(row - 1), header.width(), header.sectionSize(row - 1));
    return inWindow(*header.viewport(), number, window);
}

// Where it hides least: within a large part, on the corner of a small one.
QPoint markPlace(const QRect &part)
{
    return part.height() >= largePart ? part.bottomRight() - QPoint(2 * markSize, 2 * markSize)
                                      : part.topRight() + QPoint(5, -3);
}

QFont markFont()
{
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(12);
    font.setBold(true);
    return font;
}

void paintMark(QPainter &painter, QPoint centre, int number)
{
    QRect circle(0, 0, markSize, markSize);
    circle.moveCenter(centre);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(QColor(0xb3, 0x1d, 0x1d));
    painter.drawEllipse(circle);
    painter.drawText(circle, Qt::AlignCenter, QString::number(number));
}

int coloursOf(const QImage &picture)
{
    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        colours.unite(QSet<QRgb>(line, line + picture.width()));
    }
    return static_cast<int>(colours.size());
}

QImage withShades(QImage picture, int shades)
{
    const auto reduced = [last = shades - 1](int shade) { return (shade * last + 127) / 255 * 255 / last; };
    for (int y = 0; y < picture.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            line[x] = qRgb(reduced(qRed(line[x])), reduced(qGreen(line[x])), reduced(qBlue(line[x])));
        }
    }
    return picture;
}

/// A picture of at most 256 colours takes a quarter of the room, and nobody sees the difference.
QImage withFewColours(const QImage &picture)
{
    int shades = 32;
    QImage few = withShades(picture, shades);
    while (coloursOf(few) > 256) {
        shades -= 4;
        few = withShades(picture, shades);
    }
    return few.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither);
}

} // namespace

QStringList namedParts(const QString &page, const QString &picture)
{
    const qsizetype shown = page.indexOf(u"<img src=\"%1\""_s.arg(picture));
    const qsizetype end = page.indexOf(u"</ol>"_s, shown);
    QStringList names;
    if (shown >= 0 && end > shown) {
        static const QRegularExpression line(u"<li><a name=\"part-([^\"]*)\"></a>"_s);
        for (const auto &match : line.globalMatch(page.sliced(shown, end - shown))) {
            names << match.captured(1);
        }
    }
    return names;
}

QRect partPlace(QWidget &window, const QString &name)
{
    if (name == "menuBar"_L1) {
        return inWindow(window.findChild<QMenuBar *>(), window);
    }
    static const QRegularExpression ofGrid(u"^(cell|heading|rowNumber)\\((\\d+)(?:,(\\d+))?\\)$"_s);
    const auto match = ofGrid.match(name);
    if (!match.hasMatch()) {
        const QWidget *named = window.findChild<QWidget *>(name);
        return inWindow(named ? named : buttonOf(window, name), window);
    }
    const auto *grid = window.findChild<SpreadGrid *>();
    if (!grid) {
        return {};
    }
    const int number = match.captured(2).toInt();
    if (match.captured(1) == "cell"_L1) {
        return cellPlace(*grid, number, match.captured(3).toInt(), window);
    }
    return match.captured(1) == "heading"_L1 ? headingPlace(*grid, number, window)
                                             : rowNumberPlace(*grid, number, window);
}

QString contentsOf(const QWidget &window)
{
    QStringList contents;
    for (const QWidget *control : window.findChildren<QWidget *>()) {
        const QString name = control->objectName();
        if (control->isVisibleTo(&window) && !name.isEmpty() && !name.startsWith("qt_"_L1)) {
            const auto *button = qobject_cast<const QAbstractButton *>(control);
            contents << (button ? name + u'=' + button->text() : name);
        }
    }
    contents.sort();
    return contents.join(u"; "_s);
}

QImage numberedPicture(QWidget &window, const QStringList &parts)
{
    QImage shown = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
    const double scale = qMin(1.0, double(widestPicture) / shown.width());
    shown = shown.scaledToWidth(qRound(shown.width() * scale), Qt::SmoothTransformation);
    QImage picture(shown.size() + QSize(2 * margin, 2 * margin), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(margin, margin);
    painter.drawImage(0, 0, shown);
    painter.setPen(QColor(0x8a, 0x94, 0xa0));
    painter.drawRect(shown.rect().adjusted(-1, -1, 0, 0));
    painter.setFont(markFont());
    for (int i = 0; i < parts.size(); ++i) {
        const QRect part = partPlace(window, parts[i]);
        paintMark(painter, markPlace({part.topLeft() * scale, part.size() * scale}), i + 1);
    }
    painter.end();
    picture = withFewColours(picture);
    picture.setText(u"Parts"_s, parts.join(u' '));
    picture.setText(u"Contents"_s, contentsOf(window));
    return picture;
}
