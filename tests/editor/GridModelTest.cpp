// Long random days at the keyboard: whatever an engineer does in whatever order, the grid holds what plain rows of
// texts would hold, and the file says the same.

#include "app/services/Settings.h"
#include "check/FileCheck.h"
#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "document/PrFileCodec.h"
#include "editor/FindingMarks.h"
#include "editor/OpenDocument.h"
#include "editor/ParameterCells.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/AnsiText.h"
#include "tests/editor/RowsFile.h"
#include "tests/editor/RowsModel.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <array>
#include <iterator>
#include <random>

using namespace Qt::StringLiterals;

class GridModelTest : public FrameTest, public testing::WithParamInterface<unsigned>
{
protected:
    static constexpr int stepCount = 400;
    static constexpr int checkBoxColumn = 4;
    static constexpr int maxRows = 70;

    using Step = void (GridModelTest::*)();

    void SetUp() override
    {
        start();
        std::vector<RowsModel::Row> rows;
        const int count = upTo(20, 60);
        for (int row = 1; row <= count; ++row) {
            rows.push_back(randomRow(row));
        }
        m_model = RowsModel(rows);
        ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, RowsFile::bytes(rows))));
        ListVisualState.fill(false);
        applyVisibleColumns(grid());
        grid().selectBlock({1, 1, 1, 1});
        editor().activate(); // an open switches all buttons on
    }

    int upTo(int least, int most) { return std::uniform_int_distribution(least, most)(m_random); }
    const QString &oneOf(const QStringList &texts) { return texts.at(upTo(0, int(texts.size()) - 1)); }
    RowsModel::Row randomRow(int number);
    const QString &randomText(int column);
    int randomColumn() { return upTo(1, RowsModel::columnCount); }
    int randomRowNumber() { return upTo(1, std::max(m_model.rowCount(), 1)); }

    void step();
    void compare();
    void compareFindings();
    QString difference();

    void select(const GridBlock &block);
    void selectCell() { selectFrom(randomColumn(), randomRowNumber(), 0, 0); }
    void selectBlock() { selectFrom(randomColumn(), randomRowNumber(), upTo(0, 4), upTo(0, 6)); }
    void selectRows();
    void selectRowsUpward();
    void selectCellsUpward();
    int goUpward(int row);
    void selectFrom(int column, int row, int width, int height);
    void openEditor();
    void typeText();
    void chooseStep();
    void toggle();
    void pressDelete();
    void forgetClipboard();
    void takeForeignText();
    void copy();
    void cut();
    void paste();
    void addPaste();
    void addLine();
    void deleteLines();
    void fillDown();
    void undo();
    void redo();
    void save();

    RowsModel m_model{{}};
    QString m_done; ///< the last step, for messages
    int m_findingsCompared = 0;

private:
    std::mt19937 m_random{GetParam()};
};

RowsModel::Row GridModelTest::randomRow(int number)
{
    RowsModel::Row row;
    for (int column = 1; column <= RowsModel::columnCount; ++column) {
        row.at(size_t(column - 1)) = randomText(column);
    }
    row[0] = QString::number(number);
    row[3] = oneOf({u"0"_s, u"1"_s});
    for (const size_t minimum : {size_t(4), size_t(5), size_t(6)}) {
        row.at(minimum) = oneOf({u"1"_s, u"0.1"_s, u"0.01"_s, u"0.001"_s});
    }
    row[12].replace(u"9-10"_s, u"10-9"_s); // as a file has it
    // As an open shows the conditions: as many as there are.
    row[11] = QString::number(row[12].isEmpty() ? 0 : row[12].count(u',') + 1);
    return row;
}

/// Texts that stay as they are on their way through a file.
const QString &GridModelTest::randomText(int column)
{
    static const QStringList numbers{u"1"_s, u"79"_s, u"160"_s, u"999"_s, u"1000"_s};
    static const QStringList texts[] = {numbers, {u"Name 7"_s, u"Température"_s, u"Torque boost"_s, u"x"_s},
        {u"0-400"_s, u"0.5-30,9999"_s, u"7"_s, u"10-20,5-"_s}, {}, {}, {}, {}, {u"%"_s, u"Hz"_s, u"°C"_s, u"kW"_s},
        {u"0"_s, u"50"_s, u"1.5"_s, u"0.75"_s}, {u"0"_s, u"1001"_s, u"32767"_s},
        {u"000A"_s, u"FFFF"_s, u"8000"_s, u"0000"_s}, {u"0"_s, u"3"_s, u"9"_s},
        {QString(), u"79=1"_s, u"160=1-3"_s, u"160=9-10"_s, u"MODE/0"_s, u"OP/A1,79=1-3,10/5,MODE=1"_s}};
    static_assert(std::size(texts) == RowsModel::columnCount);
    return oneOf(column >= 5 && column <= 7 ? numbers : column == checkBoxColumn ? numbers : texts[column - 1]);
}

void GridModelTest::select(const GridBlock &block)
{
    grid().selectBlock(block);
    m_model.select(block);
}

void GridModelTest::selectFrom(int column, int row, int width, int height)
{
    if (m_model.rowCount() > 0) {
        select({column, row, std::min(column + width, RowsModel::columnCount),
            std::min(row + height, m_model.rowCount())});
    }
}

void GridModelTest::selectRows()
{
    if (m_model.rowCount() > 0) {
        const int row = randomRowNumber();
        select({-1, row, RowsModel::columnCount, std::min(row + upTo(0, 5), m_model.rowCount())});
    }
}

void GridModelTest::selectRowsUpward()
{
    if (m_model.rowCount() > 0) {
        selectFrom(1, randomRowNumber(), 0, 0);
        const int last = m_model.activeRow();
        pressKey(grid(), Qt::Key_Space, Qt::ShiftModifier);
        const int first = goUpward(last);
        m_model.select({-1, first, RowsModel::columnCount, last});
    }
}

void GridModelTest::selectCellsUpward()
{
    if (m_model.rowCount() > 0) {
        selectFrom(1, randomRowNumber(), 0, 0);
        const int last = m_model.activeRow();
        m_model.selectUpward(goUpward(last), last);
    }
}

/// Some rows up from that one with Shift; the row that is reached.
int GridModelTest::goUpward(int row)
{
    const int rows = std::min(upTo(0, 4), row - 1);
    for (int press = 0; press < rows; ++press) {
        pressKey(grid(), Qt::Key_Up, Qt::ShiftModifier);
    }
    return row - rows;
}

// A former editor is deleted when control returns to the event loop.
void GridModelTest::openEditor()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    grid().setFocus();
    pressKey(grid(), Qt::Key_F2);
}

void GridModelTest::typeText()
{
    static constexpr int typed[] = {1, 2, 3, 8, 9, 10, 11, 12, 13};
    if (m_model.rowCount() > 0) {
        const int column = typed[upTo(0, int(std::size(typed)) - 1)];
        selectFrom(column, randomRowNumber(), 0, 0);
        const QString text = QString(randomText(column)).remove(u'\u00e9').remove(u'\u00b0'); // no keys
        openEditor();
        auto &cellEditor = control<QWidget>(grid(), u"cellEditor"_s);
        QTest::keyClick(&cellEditor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&cellEditor, text);
        QTest::keyClick(&cellEditor, Qt::Key_Return);
        // Nothing typed over a marked text leaves it.
        m_model.type(text.isEmpty() ? m_model.text(column, m_model.activeRow()) : text);
    }
}

void GridModelTest::chooseStep()
{
    if (m_model.rowCount() > 0) {
        selectFrom(upTo(5, 7), randomRowNumber(), 0, 0);
        openEditor();
        auto &list = control<QComboBox>(grid(), u"cellEditor"_s);
        QTest::keyClick(list.view(), Qt::Key_End);
        QTest::keyClick(list.view(), Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !grid().findChild<QComboBox *>(u"cellEditor"_s); }, patience));
        m_model.choose(u"0.001"_s);
    }
}

void GridModelTest::toggle()
{
    if (m_model.rowCount() > 0) {
        selectFrom(checkBoxColumn, randomRowNumber(), 0, 0);
        pressKey(grid(), Qt::Key_Space);
        m_model.toggleCheckBox();
    }
}

void GridModelTest::pressDelete()
{
    pressKey(grid(), Qt::Key_Delete);
    m_model.clearSelection();
}

void GridModelTest::forgetClipboard()
{
    pressKey(grid(), Qt::Key_Escape);
    m_model.forgetClipboard();
}

void GridModelTest::takeForeignText()
{
    const QString text =
        oneOf({u"x\ty\r\nz"_s, u"Name 8"_s, u"x\ny\n"_s, u"40"_s, u"50\r\n"_s, u"Name 9\n"_s, QString()});
    QApplication::clipboard()->setText(text);
    editor().activate();
    m_model.takeForeignText(text);
}

void GridModelTest::copy()
{
    pressKey(grid(), Qt::Key_C, Qt::ControlModifier);
    m_model.copy();
}

void GridModelTest::cut()
{
    clickTool(u"ssrbnEdit(0)"_s);
    m_model.cut();
}

void GridModelTest::paste()
{
    ModalScript script;
    if (m_model.pasteIsRefused()) {
        script.thenMessage(u"Pr Read Condition"_s, u"OK"_s);
    }
    pressKey(grid(), Qt::Key_V, Qt::ControlModifier);
    m_model.paste();
}

void GridModelTest::addPaste()
{
    if (m_model.rowCount() < maxRows) {
        clickTool(u"ssrbnEdit(3)"_s);
        m_model.addPaste();
    }
}

void GridModelTest::addLine()
{
    if (m_model.rowCount() < maxRows) {
        clickTool(u"ssrbnEdit(4)"_s);
        m_model.addLines(1);
    }
}

void GridModelTest::deleteLines()
{
    ModalScript script;
    const bool isYes = upTo(0, 1) == 1;
    if (m_model.deletionIsAsked()) {
        script.then([isYes](QWidget &box) {
            QTest::mouseClick(&control<QWidget>(box, isYes ? u"cmdYes"_s : u"cmdNo"_s), Qt::LeftButton);
        });
    }
    const bool goesOn = isYes || !m_model.deletionIsAsked();
    clickTool(u"ssrbnEdit(5)"_s);
    if (goesOn) {
        m_model.deleteLines();
    }
}

// Texts of any kind fit into these columns, but those with line ends.
void GridModelTest::fillDown()
{
    if (m_model.rowCount() > 0) {
        selectFrom(upTo(8, 9), randomRowNumber(), upTo(0, 1), upTo(0, 6));
        const GridBlock block = m_model.selection();
        select({block.column1, block.row1, std::min(block.column2, 9), block.row2});
        const int source = std::max(block.row1 == block.row2 ? block.row1 - 1 : block.row1, 1);
        const QString texts = m_model.text(8, source) + m_model.text(9, source);
        if (!texts.contains(u'\r') && !texts.contains(u'\n')) {
            pressKey(grid(), Qt::Key_D, Qt::ControlModifier);
            m_model.fillDown();
        }
    }
}

void GridModelTest::undo()
{
    pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
    m_model.undo();
}

void GridModelTest::redo()
{
    pressKey(grid(), Qt::Key_Y, Qt::ControlModifier);
    m_model.redo();
}

/// Whether a text was pasted where a file cannot hold it.
bool isAskedAbout(const RowsModel::Row &row)
{
    return std::ranges::any_of(
        std::array{ParameterColumn::Number, ParameterColumn::Name, ParameterColumn::Unit, ParameterColumn::HelpId},
        [&row](int column) {
            const QString &text = row.at(size_t(column - 1));
            return text.contains(u',') || text.contains(u'\n');
        });
}

void GridModelTest::save()
{
    ModalScript script;
    if (std::ranges::any_of(m_model.rows(), isAskedAbout)) {
        script.then(
            [](QWidget &box) { QTest::mouseClick(&control<QAbstractButton>(box, u"cmdYes"_s), Qt::LeftButton); });
    }
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    m_model.save();
    EXPECT_EQ(readFile(editor().windowTitle()), RowsFile::bytes(m_model.rows()));
}

void GridModelTest::step()
{
    static constexpr struct
    {
        const char *name;
        Step run;
        int weight;
    } steps[] = {{"select a cell", &GridModelTest::selectCell, 4}, {"select a block", &GridModelTest::selectBlock, 4},
        {"select rows", &GridModelTest::selectRows, 4}, {"select rows upward", &GridModelTest::selectRowsUpward, 2},
        {"select cells upward", &GridModelTest::selectCellsUpward, 1}, {"type", &GridModelTest::typeText, 4},
        {"choose a step", &GridModelTest::chooseStep, 1}, {"toggle", &GridModelTest::toggle, 2},
        {"press Delete", &GridModelTest::pressDelete, 1}, {"press Escape", &GridModelTest::forgetClipboard, 1},
        {"take foreign text", &GridModelTest::takeForeignText, 1}, {"copy", &GridModelTest::copy, 6},
        {"cut", &GridModelTest::cut, 2}, {"paste", &GridModelTest::paste, 6},
        {"add-paste", &GridModelTest::addPaste, 4}, {"add a line", &GridModelTest::addLine, 3},
        {"delete lines", &GridModelTest::deleteLines, 3}, {"fill down", &GridModelTest::fillDown, 4},
        {"undo", &GridModelTest::undo, 12}, {"redo", &GridModelTest::redo, 8}, {"save", &GridModelTest::save, 4}};
    static constexpr int weights = [] {
        int sum = 0;
        for (const auto &entry : steps) {
            sum += entry.weight;
        }
        return sum;
    }();
    int drawn = upTo(1, weights);
    const auto *chosen = std::begin(steps);
    while (drawn > chosen->weight) {
        drawn -= chosen++->weight;
    }
    m_done = QString::fromLatin1(chosen->name);
    (this->*chosen->run)();
}

/// Where the grid and the rows differ first; empty when nowhere.
QString GridModelTest::difference()
{
    for (int row = 1; row <= m_model.rowCount(); ++row) {
        for (int column = 1; column <= RowsModel::columnCount; ++column) {
            if (grid().cellText(column, row) != m_model.text(column, row)) {
                return u"column %1, row %2: \"%3\" instead of \"%4\""_s.arg(column).arg(row).arg(
                    grid().text(column, row), m_model.text(column, row));
            }
            const bool isRed = grid().textColour(column, row) == QColor(128, 0, 0);
            if (isRed != m_model.isRed(column, row)) {
                return u"column %1, row %2: red is %3"_s.arg(column).arg(row).arg(isRed);
            }
        }
    }
    return {};
}

void GridModelTest::compare()
{
    ASSERT_EQ(grid().columnCount(), RowsModel::columnCount);
    ASSERT_EQ(grid().rowCount(), m_model.rowCount());
    ASSERT_EQ(difference(), QString());
    ASSERT_EQ(grid().selectedBlock(), m_model.selection());
    ASSERT_EQ(grid().activeColumn(), m_model.activeColumn());
    ASSERT_EQ(grid().activeRow(), m_model.activeRow());
    ASSERT_EQ(QApplication::clipboard()->text(), m_model.clipboard());
    ASSERT_EQ(toolButton(u"ssrbnEdit(2)"_s).isEnabled(), m_model.canPaste());
    ASSERT_EQ(toolButton(u"ssrbnEdit(3)"_s).isEnabled(), m_model.canAddPaste());
    ASSERT_EQ(DocFlags[docNo()].changed, m_model.isChanged());
    ASSERT_EQ(MachineInfos[docNo()].Paramater, m_model.rowCount());
    ASSERT_EQ(control<QLabel>(frame(), u"lblPrcount"_s).text(), QString::number(m_model.rowCount()));
}

/// What is marked is what a check of the saved file finds, wherever a save writes what can be read back.
void GridModelTest::compareFindings()
{
    MachineInfo machine = editor().document().machine();
    machine.Paramater = qint16(grid().rowCount());
    const ParameterCells cells(grid());
    const int codePage = editor().document().codePage();
    const EncodedGrid saved = encodePrFile(GridDocument{machine, cells, codePage});
    if (!saved.outcome || !saved.findings.isEmpty()) {
        return;
    }
    ++m_findingsCompared;
    Findings expected = checkFile(saved.bytes, AnsiCodePage::page(codePage), u"a.inv"_s);
    QSet<std::pair<int, int>> marked;
    for (const Finding &finding : expected) {
        if (checkInfo(finding.id).severity != Severity::Note) {
            marked.insert({finding.place.column, finding.place.row});
        }
    }
    for (int row = 1; row <= grid().rowCount(); ++row) {
        for (int column = 1; column <= grid().columnCount(); ++column) {
            const QModelIndex index = grid().model()->index(row - 1, column - 1);
            const bool isMarked = !index.data(Qt::AccessibleDescriptionRole).toString().isEmpty();
            ASSERT_EQ(isMarked, marked.contains({column, row})) << "column " << column << ", row " << row;
        }
    }
    expected.removeIf([](const Finding &finding) { return finding.place.row == 0; });
    ASSERT_EQ(editor().findings().allFindings(), expected);
}

TEST_P(GridModelTest, agreesWithPlainRowsAfterEveryStepAndOnDisk)
{
    ASSERT_TRUE(QTest::qWaitFor([this] { return editor().findings().isUpToDate(); }, patience));
    compare();
    for (int number = 1; number <= stepCount && !HasFatalFailure(); ++number) {
        step();
        SCOPED_TRACE(testing::Message() << "step " << number << ": " << m_done.toStdString());
        compare();
        compareFindings();
    }
    EXPECT_GT(m_findingsCompared, 20);
    if (!HasFatalFailure()) {
        save();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, GridModelTest, testing::Range(1U, 9U));
