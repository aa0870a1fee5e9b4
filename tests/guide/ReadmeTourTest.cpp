// The three minutes of README.md, walked key by key and click by click.

#include "app/services/Common.h"
#include "app/services/Language.h"
#include "editor/ParameterGrid.h"
#include "tests/guide/TourWalk.h"

#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QWheelEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int nameColumn = 2;
constexpr int tickColumn = 4;

class ReadmeTour : public TourWalk
{
protected:
    ReadmeTour() : TourWalk(TourPage::ofReadme(u"Three minutes"_s)) { }

    void SetUp() override
    {
        QFile sample(QStringLiteral(TABRIX_SOURCES "/examples/XT200.INV"));
        ASSERT_TRUE(sample.open(QIODevice::ReadOnly));
        m_bytes = sample.readAll();
        m_file = writeFile(u"XT200.INV"_s, m_bytes);
        start(m_file);
    }

    void turnWheel(int delta)
    {
        QWidget &view = *grid().viewport();
        const QPointF place = view.rect().center();
        QWheelEvent event(place, view.mapToGlobal(place), {}, {0, delta}, Qt::NoButton, Qt::ControlModifier,
            Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &event);
    }
    /// Clicks a row's number.
    void clickNumber(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QHeaderView &numbers = *grid().verticalHeader();
        const QPoint place(5, numbers.sectionViewportPosition(row - 1) + numbers.sectionSize(row - 1) / 2);
        QTest::mouseClick(numbers.viewport(), Qt::LeftButton, modifiers, place);
    }

    void edit();
    void insertRows();
    void openDialogs();
    void find();
    void saveAndAskTheGuide();

    QByteArray m_bytes;
    QString m_file;
};

} // namespace

void ReadmeTour::edit()
{
    begin(2);
    const QString first = grid().text(nameColumn, 1);
    press(Qt::Key_Right);
    EXPECT_EQ(grid().activeColumn(), nameColumn);
    key(u"F2"_s);
    type(u"x"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(grid().text(nameColumn, 1).contains(u'x'));
    EXPECT_EQ(grid().textColour(nameColumn, 1), QColor::fromRgba(changedCellColour));
    click(nameColumn, 2);
    type(u"typed"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(grid().text(nameColumn, 2), u"typed"_s);

    const QString tick = grid().text(tickColumn, 1);
    grid().setActiveCell(tickColumn, 1);
    key(u"Space"_s);
    EXPECT_NE(grid().text(tickColumn, 1), tick);
    click(tickColumn, 1);
    EXPECT_EQ(grid().text(tickColumn, 1), tick);
    for (int i = 0; i < 4; ++i) {
        key(u"Ctrl+Z"_s);
    }
    EXPECT_EQ(grid().text(nameColumn, 1), first);
    key(u"Ctrl+Y"_s);
    EXPECT_NE(grid().text(nameColumn, 1), first);
    key(u"Ctrl+Z"_s);

    turnWheel(120);
    EXPECT_GT(grid().zoom(), 100);
    turnWheel(-240);
    EXPECT_LT(grid().zoom(), 100);
    key(u"Ctrl+0"_s);
    EXPECT_EQ(grid().zoom(), 100);
    key(u"F8"_s);
    EXPECT_FALSE(control<QLabel>(frame(), u"lblNotice"_s).text().isEmpty());
    EXPECT_GT(grid().activeRow(), 1);
}

void ReadmeTour::insertRows()
{
    begin(3);
    grid().setTopRow(1);
    const QString second = grid().text(nameColumn, 2);
    const QString third = grid().text(nameColumn, 3);
    clickNumber(2);
    clickNumber(3, Qt::ShiftModifier);
    key(u"Ctrl+C"_s);
    click(nameColumn, 1);
    choose(u"mneEdit"_s, u"mneEditAddPaste"_s);
    EXPECT_EQ(grid().rowCount(), 431);
    EXPECT_EQ(grid().text(nameColumn, 1), second);
    EXPECT_EQ(grid().text(nameColumn, 2), third);
    activateFrame();
    grid().setFocus();
    press(Qt::Key_Z, Qt::ControlModifier);
}

void ReadmeTour::openDialogs()
{
    begin(4);
    ModalScript script;
    for (const QString &command : {u"mneEditCond"_s, u"mneEditFunc"_s, u"mneEditInf"_s}) {
        script.thenEscape();
        choose(u"mneEdit"_s, command);
        activateFrame();
    }
    EXPECT_EQ(script.asked(), 3);
}

void ReadmeTour::find()
{
    begin(5);
    const QString wanted = grid().text(1, 200);
    key(u"Ctrl+G"_s);
    type(wanted);
    key(u"Enter"_s);
    EXPECT_EQ(grid().activeRow(), 200);
    const auto holds = [this] {
        return grid().text(grid().activeColumn(), grid().activeRow()).contains(u"time"_s, Qt::CaseInsensitive);
    };
    key(u"Ctrl+F"_s);
    type(u"time"_s);
    const int first = grid().activeRow();
    EXPECT_TRUE(holds());
    key(u"F3"_s);
    EXPECT_NE(grid().activeRow(), first);
    EXPECT_TRUE(holds());
    key(u"Shift+F3"_s);
    EXPECT_EQ(grid().activeRow(), first);
    key(u"Escape"_s);
    EXPECT_TRUE(grid().hasFocus() || grid().isAncestorOf(QApplication::focusWidget()));
}

void ReadmeTour::saveAndAskTheGuide()
{
    begin(6);
    typeInto(nameColumn, 1, u"saved"_s);
    key(u"Ctrl+S"_s);
    EXPECT_TRUE(readFile(m_file).contains(",saved,"));
    setProgramFolder(QStringLiteral(TABRIX_HELP_FOLDER));
    HelpFilePath = helpFileOf(LanguageBase);
    key(u"F1"_s);
    const auto isShown = [] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        return std::ranges::any_of(windows,
            [](const QWidget *window) { return window->objectName() == u"helpWindow"_s && window->isVisible(); });
    };
    EXPECT_TRUE(isShown());
    end();
}

TEST_F(ReadmeTour, takesThreeMinutes)
{
    ASSERT_EQ(page().sections(), 6);
    begin(1);
    EXPECT_EQ(grid().rowCount(), 429);
    expectText(u"429"_s);
    EXPECT_EQ(editor().windowTitle(), m_file);
    edit();
    EXPECT_EQ(grid().rowCount(), 429);
    insertRows();
    openDialogs();
    find();
    saveAndAskTheGuide();
}
