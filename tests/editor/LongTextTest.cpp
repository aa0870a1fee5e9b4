// Names of a megabyte: what is not seen is not laid out, and none of it is lost. The work is counted in characters,
// since seconds are the machine's.

#include "app/services/Common.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "grid/cells/TextMeter.h"
#include "tests/support/FrameTest.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPaintEngine>
#include <QStyledItemDelegate>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

constexpr int rows = 8;
constexpr int units = 1'000'000;
constexpr int nameColumn = 2;

/// Counts the characters that it is given, and paints nothing.
class CountingEngine final : public QPaintEngine
{
public:
    CountingEngine() : QPaintEngine(AllFeatures) { }
    bool begin(QPaintDevice * /*paper*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState & /*state*/) override { }
    void drawPixmap(const QRectF & /*to*/, const QPixmap & /*pixmap*/, const QRectF & /*from*/) override { }
    void drawPath(const QPainterPath & /*path*/) override { }
    void drawPolygon(const QPointF * /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override { }
    void drawTextItem(const QPointF & /*at*/, const QTextItem &item) override { text += item.text(); }
    Type type() const override { return User; }

    QString text;
};

class CountingPaper final : public QPaintDevice
{
public:
    QPaintEngine *paintEngine() const override { return &m_engine; }
    QString text() const { return m_engine.text; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        constexpr int dotsPerInch = 96;
        const bool isDensity =
            metric == PdmDpiX || metric == PdmDpiY || metric == PdmPhysicalDpiX || metric == PdmPhysicalDpiY;
        return isDensity                          ? dotsPerInch
            : metric == PdmDevicePixelRatio       ? 1
            : metric == PdmDevicePixelRatioScaled ? 65536
                                                  : 5000;
    }

private:
    mutable CountingEngine m_engine;
};

class LongTexts : public FrameTest
{
protected:
    static QByteArray name(int row) { return "Name " + QByteArray::number(row) + QByteArray(units, 'x') + "needle"; }
    static QByteArray longDocument()
    {
        QByteArray bytes = "[Inverter]\r\nName=XT-200\r\nTypeCode=1\r\nVCapacity=2\r\nCode=35\r\nSoftWareVersion=1\r\n"
                           "Paramater="
            + QByteArray::number(rows) + "\r\n[Paramater]\r\n";
        for (int row = 1; row <= rows; ++row) {
            bytes += "0," + QByteArray::number(row) + ",1," + name(row) + ",%,0.1,-1,-1,0,3,1,1,0,30\r\n";
        }
        return bytes;
    }
    void open()
    {
        start();
        file = writeFile(u"a.inv"_s, longDocument());
        ASSERT_TRUE(frame().documents().OpenPrFile(file));
    }
    QStyleOptionViewItem optionOf(int row)
    {
        QStyleOptionViewItem option;
        option.initFrom(&grid());
        option.font = grid().font();
        option.widget = &grid();
        option.rect = grid().visualRect(grid().model()->index(row - 1, nameColumn - 1));
        return option;
    }
    /// The text that the name's cell hands to the font engine.
    QString painted(int row)
    {
        const CountingPaper paper;
        QPainter painter(const_cast<CountingPaper *>(&paper));
        grid().itemDelegate()->paint(&painter, optionOf(row), grid().model()->index(row - 1, nameColumn - 1));
        painter.end();
        return paper.text();
    }

    /// Whether a name's cell has just this text; the texts are too long for a message.
    bool holds(int row, const QByteArray &text) { return grid().text(nameColumn, row) == QString::fromLatin1(text); }

    QString file;
};

} // namespace

TEST_F(LongTexts, arePaintedAsFarAsTheyAreSeen)
{
    open();
    for (const int width : {150, 300, TextMeter::maxPixels}) {
        grid().setColumnWidth(nameColumn - 1, width);
        const QString text = painted(3);
        EXPECT_TRUE(text.startsWith(u"Name 3xxx")) << text.left(20).toStdString();
        EXPECT_LE(text.size(), 600 + 2 * std::min(width, grid().width())) << width;
        EXPECT_GE(text.size(), std::min(width, grid().width()) / 10) << width;
    }
}

TEST_F(LongTexts, withLineBreaksArePaintedAsFarAsTheyAreSeen)
{
    open();
    QString lines;
    for (int line = 0; line < 100'000; ++line) {
        lines += QString::number(1'000'000 + line) + u'\n';
    }
    grid().setText(nameColumn, 1, lines);
    const QString text = painted(1);
    EXPECT_FALSE(text.isEmpty());
    EXPECT_LE(text.size(), 2 * grid().height());
}

TEST_F(LongTexts, areFittedUpToABound)
{
    open();
    grid().fitColumnWidth(nameColumn);
    EXPECT_GE(grid().columnWidth(nameColumn - 1), TextMeter::maxPixels);
    EXPECT_LE(grid().columnWidth(nameColumn - 1), TextMeter::maxPixels + 20);
}

TEST_F(LongTexts, haveTheirBeginningAsToolTipAndAsSpokenText)
{
    open();
    const QModelIndex index = grid().model()->index(0, nameColumn - 1);
    const QString spoken = index.data(Qt::AccessibleTextRole).toString();
    EXPECT_TRUE(spoken.startsWith(u"Name 1x"));
    EXPECT_LT(spoken.size(), 5000);
    QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), grid().mapToGlobal(QPoint(5, 5)));
    auto *delegate = qobject_cast<QStyledItemDelegate *>(grid().itemDelegate());
    delegate->helpEvent(&event, &grid(), optionOf(1), index);
    EXPECT_TRUE(QToolTip::text().contains(u"1xxxx"));
    EXPECT_LT(QToolTip::text().size(), 10'000);
    QToolTip::hideText();
}

TEST_F(LongTexts, areEditedAndSavedWithoutALoss)
{
    open();
    grid().setActiveCell(nameColumn, 2);
    grid().setFocus();
    pressKey(grid(), Qt::Key_F2);
    pressKey(*QApplication::focusWidget(), Qt::Key_Return); // as it was
    EXPECT_TRUE(holds(2, name(2)));
    grid().setActiveCell(nameColumn, 1);
    pressKey(grid(), Qt::Key_F2);
    pressKey(*QApplication::focusWidget(), Qt::Key_End);
    QTest::keyClicks(QApplication::focusWidget(), u"!"_s);
    pressKey(*QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(holds(1, name(1) + '!'));
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_TRUE(readFile(file) == longDocument().replace(name(1), name(1) + '!'));
    pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(holds(1, name(1)));
}

TEST_F(LongTexts, takeMoreThanTheToolkitsUsualLimit)
{
    constexpr int defaultLimit = 32'767;
    start();
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, document(2))));
    grid().setText(nameColumn, 1, QString(defaultLimit, u'x'));
    grid().setActiveCell(nameColumn, 1);
    grid().setFocus();
    pressKey(grid(), Qt::Key_F2);
    pressKey(*QApplication::focusWidget(), Qt::Key_End);
    QTest::keyClicks(QApplication::focusWidget(), u"!"_s);
    auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    ASSERT_NE(field, nullptr);
    field->insert(QString(defaultLimit, u'y'));
    pressKey(*field, Qt::Key_Return);
    EXPECT_TRUE(holds(1, QByteArray(defaultLimit, 'x') + '!' + QByteArray(defaultLimit, 'y')));
}
