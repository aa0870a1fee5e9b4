#include "grid/cells/SpreadModel.h"

#include "grid/SpreadGrid.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <algorithm>
#include <random>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Rows = std::vector<QStringList>;

// A grid in its simplest form, to compare the real one with.
class PlainGrid
{
public:
    PlainGrid(int columns, int rows) : m_columns(columns) { setRowCount(rows); }

    void setRowCount(int rows)
    {
        QStringList fresh(m_columns);
        fresh[1] = u"No"_s;
        m_rows.resize(size_t(rows), fresh);
    }

    QString blockText(const GridBlock &block) const
    {
        QStringList lines;
        for (int row = block.row1; row <= block.row2; ++row) {
            QStringList cells = m_rows[size_t(row - 1)].mid(block.column1 - 1, block.column2 - block.column1 + 1);
            lines << cells.join(u'\t');
        }
        return lines.join(u"\r\n"_s);
    }

    void setBlockText(const GridBlock &block, const QString &text)
    {
        const QStringList lines = text.split(u"\r\n"_s);
        for (int at = 0; at < lines.size() && block.row1 + at <= std::min(block.row2, count()); ++at) {
            const QStringList cells = lines[at].split(u'\t');
            for (int cell = 0; cell < cells.size() && block.column1 + cell <= std::min(block.column2, m_columns);
                 ++cell) {
                m_rows[size_t(block.row1 + at - 1)][block.column1 + cell - 1] = cells[cell];
            }
        }
    }

    void moveRowTexts(int row1, int row2, int target)
    {
        const Rows before = m_rows;
        for (int row = row1; row <= row2; ++row) {
            const int to = target + row - row1;
            if (to >= 1 && to <= count()) {
                m_rows[size_t(to - 1)] = before[size_t(row - 1)];
            }
        }
    }

    void setText(int column, int row, const QString &text) { m_rows[size_t(row - 1)][column - 1] = text; }
    void clear(const GridBlock &block)
    {
        for (int row = block.row1; row <= block.row2; ++row) {
            for (int column = block.column1; column <= block.column2; ++column) {
                setText(column, row, QString());
            }
        }
    }
    int count() const { return int(m_rows.size()); }
    QString all() const { return blockText({1, 1, m_columns, count()}); }

private:
    int m_columns;
    Rows m_rows;
};

constexpr int columnCount = 5;

class RandomChanges
{
public:
    explicit RandomChanges(unsigned seed) : m_random(seed)
    {
        m_grid.setColumnCount(columnCount);
        m_grid.setCellType(2, -1, CellType::comboBox({u"1"_s}, u"No"_s));
        m_grid.setRowCount(8);
    }

    void change()
    {
        const GridBlock block = randomBlock();
        switch (number(0, 5)) {
        case 0:
            resize(number(std::max(1, m_plain.count() - 3), m_plain.count() + 3));
            break;
        case 1:
            m_grid.setText(block.column1, block.row1, m_text = randomText());
            m_plain.setText(block.column1, block.row1, m_text);
            break;
        case 2:
            paste(block, randomBlock());
            break;
        case 3:
            move(block.row1, block.row2, number(-3, m_plain.count() + 3));
            break;
        case 4:
            m_grid.selectBlock(block);
            m_grid.clearSelectedCells();
            m_plain.clear(block);
            break;
        default:
            setRow(block.row1);
        }
    }

    QString gridTexts() const { return m_grid.blockText({1, 1, columnCount, m_grid.rowCount()}); }
    QString plainTexts() const { return m_plain.all(); }

private:
    int number(int least, int most) { return std::uniform_int_distribution(least, most)(m_random); }
    QString randomText() { return QString(number(0, 4), QChar(u'a' + number(0, 25))); }
    GridBlock randomBlock()
    {
        const int column = number(1, columnCount);
        const int row = number(1, m_plain.count());
        return {column, row, number(column, columnCount), number(row, m_plain.count())};
    }
    void resize(int rows)
    {
        m_grid.setRowCount(rows);
        m_plain.setRowCount(rows);
    }
    // The last cell is never empty, so that a column's text does not end with a line end.
    void paste(const GridBlock &from, const GridBlock &to)
    {
        const QString text = m_plain.blockText(from) + u"x"_s;
        m_grid.setBlockText(to, text);
        m_plain.setBlockText(to, text);
    }
    void move(int row1, int row2, int target)
    {
        m_grid.moveRowTexts(row1, row2, target);
        m_plain.moveRowTexts(row1, row2, target);
    }
    void setRow(int row)
    {
        const QString texts[] = {randomText(), randomText(), randomText()};
        const QStringView views[] = {texts[0], texts[1], texts[2]};
        m_grid.setRowTexts(row, views);
        for (int column = 1; column <= 3; ++column) {
            m_plain.setText(column, row, texts[column - 1]);
        }
    }

    std::mt19937 m_random;
    SpreadGrid m_grid;
    PlainGrid m_plain{columnCount, 8};
    QString m_text;
};

} // namespace

class SpreadGridRandomChanges : public testing::TestWithParam<unsigned>
{
};

TEST_P(SpreadGridRandomChanges, giveTheSameTextsAsAListOfRows)
{
    RandomChanges changes(GetParam());
    for (int step = 0; step < 2000; ++step) {
        changes.change();
        ASSERT_EQ(changes.gridTexts(), changes.plainTexts()) << "seed " << GetParam() << ", step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SpreadGridRandomChanges, testing::Range(1U, 6U));

TEST(SpreadModel, keepsTheRulesOfAQtModel)
{
    SpreadModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setColumnCount(3);
    model.setRowCount(4);
    model.setText(2, 3, u"x"_s);
    model.moveRowTexts(3, 4, 1);
    model.setRowCount(1);
    EXPECT_EQ(model.data(model.index(0, 1)).toString(), u"x"_s);
}

TEST(SpreadModel, reportsTheTextsBeforeAndAfter)
{
    SpreadModel model;
    model.setColumnCount(2);
    model.setRowCount(2);
    model.setText(1, 2, u"old"_s);
    QStringList log;
    model.setObserver([&log](const TextChange &change) {
        const auto text = [](std::span<const CellRow> rows) {
            return rows.empty() ? u"-"_s : rows.back().text(0).toString();
        };
        log << u"%1 %2>%3%4"_s.arg(QString::number(change.firstRow), text(change.before), text(change.after),
            change.origin == TextChange::Origin::User ? u"!"_s : QString());
    });
    model.setText(1, 2, u"new"_s);
    model.setData(model.index(1, 0), u"typed"_s);
    model.setRowCount(1);
    model.setRowCount(2);
    EXPECT_EQ(log, QStringList({u"2 old>new"_s, u"2 new>typed!"_s, u"2 typed>-"_s, u"2 ->"_s}));
}

TEST(SpreadModel, notifiesViewsOnceOfABlock)
{
    SpreadModel model;
    model.setColumnCount(13);
    model.setRowCount(1000);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.moveRowTexts(2, 1000, 1);
    EXPECT_EQ(changed.count(), 1);
    model.setTextColour({-1, -1, -1, -1}, Qt::red);
    EXPECT_EQ(changed.count(), 2);
    model.beginBatch();
    model.setText(2, 5, u"a"_s);
    model.setText(4, 3, u"b"_s);
    EXPECT_EQ(changed.count(), 2);
    model.endBatch();
    ASSERT_EQ(changed.count(), 3);
    EXPECT_EQ(changed.last()[0].toModelIndex(), model.index(2, 1));
    EXPECT_EQ(changed.last()[1].toModelIndex(), model.index(4, 3));
}

TEST(SpreadModel, givesAccessibilityTheCaptionAndStateOfACheckBox)
{
    SpreadModel model;
    model.setColumnCount(1);
    model.setRowCount(1);
    model.setCellType(1, 1, CellType::checkBox(u"Unit"_s));
    model.setText(1, 1, u"-1"_s);
    const QModelIndex cell = model.index(0, 0);
    EXPECT_EQ(model.data(cell, Qt::AccessibleTextRole).toString(), u"Unit"_s);
    EXPECT_EQ(model.data(cell, Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_TRUE(model.setData(cell, Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(model.text(1, 1).toString(), u"0"_s);
}

TEST(SpreadModel, givesNewRowsTheInitialTextsOfTheirColumns)
{
    SpreadModel model;
    model.setColumnCount(2);
    model.setCellType(2, -1, CellType::comboBox({u"="_s, u"<>"_s}, u"="_s));
    model.setRowCount(1);
    model.setText(2, 1, u"<>"_s);
    model.setRowCount(2);
    EXPECT_EQ(model.blockText({1, 1, 2, 2}), u"\t<>\r\n\t="_s);
}

struct BlockTextCase
{
    GridBlock block;
    QString text;
};

class SpreadModelBlockText : public testing::TestWithParam<BlockTextCase>
{
};

TEST_P(SpreadModelBlockText, joinsCellsByTabsAndRowsByLineEnds)
{
    SpreadModel model;
    model.setColumnCount(2);
    model.setRowCount(2);
    model.setHeaderText(0, u"No"_s);
    model.setHeaderText(1, u"A"_s);
    model.setHeaderText(2, u"B"_s);
    model.setBlockText({1, 1, 2, 2}, u"a\tb\r\nc\td");
    EXPECT_EQ(model.blockText(GetParam().block), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Blocks, SpreadModelBlockText,
    testing::ValuesIn(std::vector<BlockTextCase>{
        {{1, 1, 2, 2}, u"a\tb\r\nc\td"_s},
        {{2, 1, 2, 1}, u"b"_s},
        {{0, 1, 2, 2}, u"1\ta\tb\r\n2\tc\td"_s},
        {{0, 0, 2, 1}, u"No\tA\tB\r\n1\ta\tb"_s},
        {{0, 1, 0, 2}, u"1\r\n2"_s},
        {{-1, -1, -1, -1}, u"a\tb\r\nc\td"_s},
        {{-1, 2, 2, 2}, u"c\td"_s},
        {{2, 2, 9, 9}, u"d"_s},
        {{3, 1, 4, 1}, u""_s},
        {{1, 3, 2, 4}, u""_s},
    }));

TEST(SpreadModel, dropsWhatOverhangsABlock)
{
    SpreadModel model;
    model.setColumnCount(3);
    model.setRowCount(3);
    model.setBlockText({2, 2, 9, 9}, u"a\tb\tc\r\nd\te\r\nf\tg");
    EXPECT_EQ(model.blockText({1, 1, 3, 3}), u"\t\t\r\n\ta\tb\r\n\td\te"_s);
    model.setBlockText({1, 1, 1, 1}, u"x\ty\r\nz");
    EXPECT_EQ(model.blockText({1, 1, 3, 3}), u"x\t\t\r\n\ta\tb\r\n\td\te"_s);
}

TEST(SpreadModel, dropsTheRowNumbersOfCopiedRows)
{
    SpreadModel model;
    model.setColumnCount(2);
    model.setRowCount(2);
    model.setBlockText({0, 1, 2, 2}, u"7\ta\tb\r\n8\tc\td\r\n");
    EXPECT_EQ(model.blockText({1, 1, 2, 2}), u"a\tb\r\nc\td"_s);
}
