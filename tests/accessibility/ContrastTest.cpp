// What is painted can be read, on a light desktop and on a dark one: 4.5 for texts, 3 for pictures and frames.

#include "desktop/RibbonButton.h"
#include "editor/FindField.h"
#include "editor/ParameterCells.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "help/HelpWindow.h"
#include "tests/accessibility/ControlWalk.h"
#include "tests/support/ContrastRatio.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextTable>

using namespace Qt::StringLiterals;

namespace {

constexpr double forTexts = 4.5;
constexpr double forPictures = 3;

class Contrast : public FrameTest, public testing::WithParamInterface<QPalette (*)()>
{
protected:
    Contrast() : m_formerPalette(QApplication::palette()) { QApplication::setPalette(GetParam()()); }
    ~Contrast() override { QApplication::setPalette(m_formerPalette); }

    void SetUp() override
    {
        start(writeFile(u"a.inv"_s, document(30)));
        QTest::keyClick(&grid(), Qt::Key_End, Qt::ControlModifier);
        grid().setTopRow(1);
    }

    QImage pictureOfCell(int column, int row)
    {
        const QModelIndex index = grid().model()->index(row - 1, column - 1);
        grid().scrollTo(index);
        const QRect place = grid().visualRect(index);
        return grid().viewport()->grab(place.adjusted(2, 2, -3, -3)).toImage();
    }
    double ofCell(int column, int row) { return contrastIn(pictureOfCell(column, row)); }
    static QColor backgroundOf(const QImage &picture) { return picture.pixelColor(0, 0); }

private:
    QPalette m_formerPalette;
};

QImage pictureOf(QHeaderView &header, int section)
{
    const bool isRow = header.orientation() == Qt::Vertical;
    const int at = header.sectionViewportPosition(section);
    const int size = header.sectionSize(section);
    const QRect place = isRow ? QRect(0, at, header.width(), size) : QRect(at, 0, size, header.height());
    return header.viewport()->grab(place.adjusted(2, 2, -3, -3) & header.viewport()->rect()).toImage();
}

QColor backgroundOf(const QTextCursor &place, const QPalette &palette)
{
    const QTextTable *table = place.currentTable();
    const QList<QBrush> backgrounds{place.charFormat().background(), place.blockFormat().background(),
        table ? table->cellAt(place).format().background() : QBrush(), palette.brush(QPalette::Base)};
    return std::ranges::find_if(backgrounds, [](const QBrush &background) {
        return background.style() != Qt::NoBrush;
    })->color();
}

QColor textColourOf(const QTextCharFormat &format, const QPalette &palette)
{
    const bool isOwn = format.foreground().style() != Qt::NoBrush;
    return isOwn ? format.foreground().color() : palette.color(QPalette::Text);
}

/// The texts of a page that stand out too little from what is behind them.
QStringList unreadableIn(const QTextBrowser &browser)
{
    QStringList texts;
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            QTextCursor place(browser.document());
            place.setPosition(part.fragment().position() + 1);
            const QColor text = textColourOf(part.fragment().charFormat(), browser.palette());
            if (contrastRatio(text, backgroundOf(place, browser.palette())) < forTexts) {
                texts << part.fragment().text();
            }
        }
    }
    return texts;
}

} // namespace

TEST_P(Contrast, ofCells)
{
    EXPECT_GE(ofCell(ParameterColumn::Name, 2), forTexts);
    EXPECT_GE(ofCell(ParameterColumn::RangeCheck, 2), forPictures);
}

TEST_P(Contrast, ofChangedCells)
{
    grid().setTextColour({ParameterColumn::Name, 2, ParameterColumn::Name, 2}, QColor(changedCellColour));
    EXPECT_GE(ofCell(ParameterColumn::Name, 2), forTexts);
    EXPECT_NE(pictureOfCell(ParameterColumn::Name, 2), pictureOfCell(ParameterColumn::Name, 3));
    EXPECT_EQ(grid().textColour(ParameterColumn::Name, 2), QColor(changedCellColour)) << "only the screen is adapted";
}

TEST_P(Contrast, ofSelectedCells)
{
    grid().setTextColour({ParameterColumn::Name, 3, ParameterColumn::Name, 3}, QColor(changedCellColour));
    grid().selectBlock({ParameterColumn::Number, 1, ParameterColumn::Name, 4});
    EXPECT_NE(
        backgroundOf(pictureOfCell(ParameterColumn::Name, 2)), backgroundOf(pictureOfCell(ParameterColumn::Name, 6)));
    EXPECT_GE(ofCell(ParameterColumn::Name, 2), forTexts);
    EXPECT_GE(ofCell(ParameterColumn::Name, 3), forTexts);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other, patience));
    EXPECT_GE(ofCell(ParameterColumn::Name, 2), forTexts);
    EXPECT_EQ(backgroundOf(pictureOfCell(ParameterColumn::Name, 2)),
        QApplication::palette().color(QPalette::Inactive, QPalette::Highlight));
}

TEST_P(Contrast, ofTheActiveCellsFrame)
{
    grid().setFocus();
    grid().setActiveCell(ParameterColumn::SettingRange, 2);
    const QRect place = grid().visualRect(grid().currentIndex());
    const QImage edge = grid().viewport()->grab({place.left(), place.top(), place.width() - 1, 6}).toImage();
    EXPECT_GE(contrastRatio(edge.pixelColor(20, 0), edge.pixelColor(place.width() / 2, 4)), forPictures);
}

TEST_P(Contrast, ofFoundCells)
{
    grid().setTextColour({ParameterColumn::Name, 3, ParameterColumn::Name, 3}, QColor(changedCellColour));
    QTest::keyClick(&grid(), Qt::Key_F, Qt::ControlModifier);
    auto &field = control<FindField>(editor(), u"txtFind"_s);
    QTest::keyClicks(&field, u"param"_s);
    grid().setActiveCell(ParameterColumn::Unit, 8);
    EXPECT_NE(
        backgroundOf(pictureOfCell(ParameterColumn::Name, 2)), backgroundOf(pictureOfCell(ParameterColumn::Unit, 2)));
    EXPECT_GE(ofCell(ParameterColumn::Name, 2), forTexts);
    EXPECT_GE(ofCell(ParameterColumn::Name, 3), forTexts);
    QTest::keyClicks(&field, u"zzz"_s);
    field.deselect();
    EXPECT_NE(field.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Base));
    EXPECT_GE(contrastIn(field.grab(field.rect().adjusted(3, 3, -3, -3)).toImage()), forTexts);
}

TEST_P(Contrast, ofHeaders)
{
    for (QHeaderView *header : {grid().horizontalHeader(), grid().verticalHeader()}) {
        const int first = std::max(header->logicalIndexAt(0), 0);
        const int last = header->logicalIndexAt(header->orientation() == Qt::Horizontal ? header->width() - 1 : 300);
        ASSERT_GT(last, first);
        for (int section = first; section <= last; ++section) {
            if (header->isSectionHidden(section)) {
                continue;
            }
            EXPECT_GE(contrastIn(pictureOf(*header, section)), forTexts) << section;
        }
    }
}

TEST_P(Contrast, ofToolBarPictures)
{
    const QList<RibbonButton *> buttons = frame().findChildren<RibbonButton *>();
    ASSERT_FALSE(buttons.isEmpty());
    for (RibbonButton *button : buttons) {
        if (button->isEnabled()) {
            EXPECT_GE(contrastIn(button->grab(button->rect().adjusted(3, 3, -3, -3)).toImage()), forPictures)
                << button->objectName().toStdString();
        }
    }
}

TEST_P(Contrast, ofTheStatusBarAndTheToolTip)
{
    for (const char *name : {"lblPrcount", "lblPrcountCaption", "lblPrCaption", "txtPr"}) {
        auto &part = control<QWidget>(frame(), QString::fromLatin1(name));
        EXPECT_GE(contrastIn(part.grab(part.rect().adjusted(2, 2, -2, -2)).toImage()), forTexts) << name;
    }
    auto &tip = control<QLabel>(frame(), u"sspnlToolTip"_s);
    tip.setText(u"Print"_s);
    tip.adjustSize();
    EXPECT_GE(contrastIn(tip.grab(tip.rect().adjusted(2, 2, -2, -2)).toImage()), forTexts);
}

// Links, headings, tables, notes and keys of the help have backgrounds of their own.
TEST_P(Contrast, ofHelpPages)
{
    ASSERT_TRUE(HelpWindow::showTopic(QStringLiteral(TABRIX_HELP_FOLDER "/TABRIXE.HLP"), 1, nullptr));
    QTextBrowser *browser = nullptr;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        browser = window->objectName() == u"helpWindow" ? &control<QTextBrowser>(*window, u"helpBrowser"_s) : browser;
    }
    ASSERT_NE(browser, nullptr);
    for (const char *page : {"index.html", "keyboard.html", "conditions.html"}) {
        browser->setSource(browser->source().resolved(QUrl(QString::fromLatin1(page))));
        QApplication::processEvents();
        EXPECT_EQ(unreadableIn(*browser), QStringList()) << page;
    }
    delete browser->window();
}

INSTANTIATE_TEST_SUITE_P(, Contrast, testing::Values(lightPalette, darkPalette),
    [](const auto &palette) { return palette.param == lightPalette ? "Light" : "Dark"; });
