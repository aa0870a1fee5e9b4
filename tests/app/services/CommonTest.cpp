#include "app/services/Common.h"

#include "app/services/Language.h"
#include "app/services/Settings.h"
#include "desktop/MessageBox.h"
#include "grid/SpreadGrid.h"
#include "tests/support/Controls.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/ThisSystem.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGlyphRun>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRawFont>
#include <QScreen>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTextLayout>
#include <QTimer>
#include <QVBoxLayout>

#include <cerrno>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

class CommonTest : public testing::Test
{
protected:
    CommonTest() { UserFont = {QApplication::font().family(), 15, true, true}; }
    ~CommonTest() override { UserFont = {}; }
};

/// A dialog with a control of each kind, one of them inside a frame.
class SampleDialog : public QDialog
{
public:
    explicit SampleDialog(QWidget *parent = nullptr) : QDialog(parent)
    {
        auto *frame = new QGroupBox(u"Frame"_s, this);
        frame->setObjectName(u"fraInner"_s);
        auto *inner = new QVBoxLayout(frame);
        add<QLabel>(inner, u"lblType"_s)->setText(u"Type"_s);
        add<QLineEdit>(inner, u"txtType"_s)->setText(u"XT-200"_s);
        auto *outer = new QVBoxLayout(this);
        outer->addWidget(frame);
        add<QPushButton>(outer, u"cmdOK"_s)->setText(u"OK"_s);
        add<QSpinBox>(outer, u"spnCount"_s);
        add<QComboBox>(outer, u"cboUnit"_s)->addItem(u"Hz"_s);
        auto *grid = add<SpreadGrid>(outer, u"vaspdCap"_s);
        grid->setColumnCount(2);
        grid->setRowCount(3);
    }

private:
    template <typename Control>
    Control *add(QLayout *layout, const QString &name)
    {
        auto *added = new Control(this);
        added->setObjectName(name);
        layout->addWidget(added);
        return added;
    }
};

void expectUserFont(const QFont &font, const QString &where)
{
    EXPECT_EQ(font.family(), UserFont.FontName) << where.toStdString();
    EXPECT_FLOAT_EQ(float(font.pointSizeF()), UserFont.FontSize) << where.toStdString();
    EXPECT_EQ(font.italic(), UserFont.FontItalic) << where.toStdString();
    EXPECT_EQ(font.bold(), UserFont.FontBold) << where.toStdString();
}

/// Where the outer corner of a dialog of that inner size belongs.
QPoint expectedPosition(const QSize &inner)
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    return {screen.x() + screen.width() / 2 - inner.width() / 2, screen.y() + screen.height() / 2 - inner.height() / 2};
}

/// Whether every character of text has a picture in font or in its substitutes.
bool hasAllGlyphs(const QString &text, const QFont &font)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    return !runs.isEmpty()
        && std::ranges::none_of(runs, [](const QGlyphRun &run) { return run.glyphIndexes().contains(0U); });
}

} // namespace

TEST_F(CommonTest, everyControlGetsTheUsersFont)
{
    SampleDialog dialog;
    ApplyUserFont(dialog);
    for (const auto &name : {u"fraInner"_s, u"lblType"_s, u"txtType"_s, u"cmdOK"_s, u"spnCount"_s, u"cboUnit"_s}) {
        expectUserFont(control<QWidget>(dialog, name).font(), name);
    }
    auto &grid = control<SpreadGrid>(dialog, u"vaspdCap"_s);
    expectUserFont(grid.gridFont(), u"grid"_s);
    expectUserFont(grid.horizontalHeader()->font(), u"column headers"_s);
    expectUserFont(grid.verticalHeader()->font(), u"row numbers"_s);
}

TEST_F(CommonTest, theWindowItselfAndItsDialogsKeepTheirFont)
{
    SampleDialog dialog;
    QDialog owned(&dialog);
    const QFont before = owned.font();
    ApplyUserFont(dialog);
    EXPECT_EQ(owned.font(), before);
    EXPECT_EQ(dialog.font(), before);
}

TEST_F(CommonTest, aChangedFontReplacesTheEarlierOne)
{
    SampleDialog dialog;
    ApplyUserFont(dialog);
    UserFont.FontSize = 9;
    UserFont.FontBold = false;
    ApplyUserFont(dialog);
    expectUserFont(control<QLabel>(dialog, u"lblType"_s).font(), u"label"_s);
}

TEST_F(CommonTest, aFontThatIsNotInstalledGivesWayToThatOfTheWindows)
{
    const QFont former = QApplication::font();
    QApplication::setFont(QFont(u"DejaVu Serif"_s));
    UserFont.FontName = u"No such font, anywhere"_s;
    EXPECT_EQ(QFontInfo(userFont()).family(), u"DejaVu Serif"_s);
    EXPECT_EQ(userFont().family(), u"No such font, anywhere"_s); // which is stored
    QApplication::setFont(former);
}

TEST_F(CommonTest, sizesThatCannotBeShownBecomeTwelvePoints)
{
    for (const float size : {0.F, -3.F, 0.5F, 513.F, 1e30F, std::numeric_limits<float>::infinity(), std::nanf("")}) {
        UserFont.FontSize = size;
        EXPECT_EQ(userFont().pointSizeF(), 12) << size;
    }
    for (const float size : {1.F, 6.5F, 72.F, 512.F}) {
        UserFont.FontSize = size;
        EXPECT_EQ(float(userFont().pointSizeF()), size);
    }
}

TEST_F(CommonTest, anOddFontNameIsOneName)
{
    UserFont.FontName = u"Sans, Serif"_s;
    EXPECT_EQ(userFont().families().constFirst(), u"Sans, Serif"_s);
}

TEST_F(CommonTest, aDialogCanBePaintedWithDamagedFontSettings)
{
    UserFont = {QString(10000, u'x'), 1e30F, true, true};
    SampleDialog dialog;
    PrepareDialog(dialog);
    EXPECT_FALSE(dialog.grab().isNull());
    EXPECT_LT(dialog.height(), 2000);
}

TEST_F(CommonTest, japaneseTextsAreReadableInTheDefaultFont)
{
    if (QFontDatabase::families(QFontDatabase::Japanese).isEmpty()) {
        GTEST_SKIP() << "this system has no Japanese font";
    }
    UserFont = {};
    LanguageBase = JapaneseBase;
    for (const Text text :
        {Text::Untitled, Text::FrameTitle, Text::TipOpen, Text::AboutTitle, Text::HeadingCondition, Text::PrintAbort}) {
        EXPECT_TRUE(hasAllGlyphs(ResString(text), userFont())) << int(text);
    }
    LanguageBase = EnglishBase;
}

TEST_F(CommonTest, aDialogLiesHalfItsInnerSizeFromTheScreensCentre)
{
    SampleDialog dialog;
    PrepareDialog(dialog);
    const QPoint placed = dialog.pos();
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog, patience));
    EXPECT_EQ(placed, expectedPosition(dialog.size()));
    EXPECT_EQ(dialog.pos(), placed);
    EXPECT_EQ(dialog.frameGeometry().topLeft(), placed);
}

TEST_F(CommonTest, aDialogOfGivenSizeKeepsIt)
{
    QDialog dialog;
    dialog.resize(301, 203);
    PrepareDialog(dialog);
    EXPECT_EQ(dialog.size(), QSize(301, 203));
    EXPECT_EQ(dialog.pos(), expectedPosition({301, 203}));
}

TEST_F(CommonTest, aLargerFontMakesRoomInTheDialog)
{
    SampleDialog small;
    PrepareDialog(small);
    UserFont.FontSize = 30;
    SampleDialog large;
    PrepareDialog(large);
    EXPECT_GT(large.height(), small.height());
    EXPECT_EQ(large.pos(), expectedPosition(large.size()));
}

TEST_F(CommonTest, aDialogMayBePreparedAgain)
{
    SampleDialog dialog;
    PrepareDialog(dialog);
    const QRect first = dialog.geometry();
    PrepareDialog(dialog);
    EXPECT_EQ(dialog.geometry(), first);
}

TEST_F(CommonTest, aBoxWithTextIsSelectedWhole)
{
    QLineEdit box(u"1234"_s);
    box.setCursorPosition(2);
    SelectAllText(box);
    EXPECT_EQ(box.selectedText(), u"1234"_s);
    box.clear();
    SelectAllText(box);
    EXPECT_FALSE(box.hasSelectedText());
}

TEST_F(CommonTest, aHelpFileThatCannotBeShownIsNamedInAMessage)
{
    const QTemporaryDir folder;
    HelpFilePath = folder.filePath(u"TABRIXE.HLP"_s);
    for (const QString &reason : {ThisSystem::words(ENOENT), u"This is not a help file."_s}) {
        QString text;
        QString title;
        QTimer::singleShot(0, qApp, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            text = box->text();
            title = box->windowTitle();
            box->close();
        });
        ShowHelp(nullptr, 50);
        EXPECT_EQ(title, u"Tabrix"_s);
        EXPECT_TRUE(text.contains(QDir::toNativeSeparators(HelpFilePath))) << text.toStdString();
        EXPECT_TRUE(text.contains(reason)) << text.toStdString();
        QFile other(HelpFilePath); // for the second round
        ASSERT_TRUE(other.open(QIODevice::WriteOnly));
        other.write("no help");
    }
}
