#include "editor/ParameterGrid.h"

#include "app/services/Language.h"
#include "app/services/Settings.h"
#include "document/CollectPrRecords.h"
#include "document/DocumentTables.h"
#include "editor/ParameterCells.h"
#include "grid/SpreadGrid.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

class ParameterGrid : public testing::Test
{
protected:
    void SetUp() override
    {
        resetDocumentTables();
        ListVisualState = {};
        LanguageBase = EnglishBase;
    }
    void TearDown() override { resetDocumentTables(); }

    static PrRecord record()
    {
        return {.helpId = u"1079"_s,
            .number = u"79"_s,
            .name = u"Operation mode"_s,
            .unit = u"Hz"_s,
            .min1 = u"1"_s,
            .min2 = u"-1"_s,
            .min3 = u"0.1"_s,
            .factorySetting = u"50"_s,
            .functionCode = u"10"_s,
            .rangeCheck = u"1"_s,
            .ranges = {},
            .conditions = {}};
    }
    /// The texts of the row that shows the record.
    QStringList shown(const PrRecord &record)
    {
        PrRecords = {record};
        layOutParameterGrid(grid, 1);
        fillParameterGrid(grid);
        QStringList texts;
        for (int column = 1; column <= grid.columnCount(); ++column) {
            texts << grid.text(column, 1);
        }
        return texts;
    }

    SpreadGrid grid;
};

struct ColumnCase
{
    int column;
    QString english;
    QString japanese;
    CellType::Kind kind;
    int minimum;
    int maximum;
    int maxLength;
};

class ParameterColumns : public ParameterGrid, public testing::WithParamInterface<ColumnCase>
{
};

TEST_P(ParameterColumns, haveTheirHeadingsTypesAndLimits)
{
    const ColumnCase &expected = GetParam();
    for (const auto &[base, heading] :
        {std::pair(EnglishBase, expected.english), std::pair(JapaneseBase, expected.japanese)}) {
        LanguageBase = base;
        layOutParameterGrid(grid, 3);
        EXPECT_EQ(grid.text(expected.column, 0), heading);
    }
    EXPECT_EQ(grid.columnCount(), 13);
    EXPECT_EQ(grid.rowCount(), 3);
    const CellType type = grid.cellType(expected.column, 2);
    EXPECT_EQ(type.kind, expected.kind);
    EXPECT_EQ(type.minimum, expected.minimum);
    EXPECT_EQ(type.maximum, expected.maximum);
    EXPECT_EQ(type.maxLength, expected.maxLength);
    EXPECT_EQ(type.caption, QString());
    if (type.kind == CellType::Kind::ComboBox) {
        EXPECT_EQ(type.items, QStringList({u"1"_s, u"0.1"_s, u"0.01"_s, u"0.001"_s}));
        EXPECT_EQ(type.unlisted, QStringList(u"No"_s));
    }
}

INSTANTIATE_TEST_SUITE_P(All, ParameterColumns,
    testing::ValuesIn(std::vector<ColumnCase>{
        {1, u"Pr"_s, u"Pr"_s, CellType::Kind::Integer, 0, 1000, 0},
        {2, u"Name"_s, u"名称"_s, CellType::Kind::Text, 0, 0, 0},
        {3, u"Setting Range"_s, u"設定範囲"_s, CellType::Kind::Text, 0, 0, 100},
        {4, u"Range Check"_s, u"範囲ﾁｪｯｸ"_s, CellType::Kind::CheckBox, 0, 0, 0},
        {5, u"Min1"_s, u"最小1"_s, CellType::Kind::ComboBox, 0, 0, 0},
        {6, u"Min2"_s, u"最小2"_s, CellType::Kind::ComboBox, 0, 0, 0},
        {7, u"Min3"_s, u"最小3"_s, CellType::Kind::ComboBox, 0, 0, 0},
        {8, u"Unit"_s, u"単位"_s, CellType::Kind::Text, 0, 0, 0},
        {9, u"Factory Setting"_s, u"工場出荷"_s, CellType::Kind::Text, 0, 0, 0},
        {10, u"Help ID"_s, u"ﾍﾙﾌﾟID"_s, CellType::Kind::Integer, 0, 32767, 0},
        {11, u"Func. Code"_s, u"機能ﾘｽﾄ"_s, CellType::Kind::Text, 0, 0, 0},
        {12, u"Condition cnt."_s, u"条件数"_s, CellType::Kind::Integer, 0, 9, 0},
        {13, u"Pr Read Condition"_s, u"読出不可条件"_s, CellType::Kind::Text, 0, 0, 100},
    }));

TEST_F(ParameterGrid, showsEveryFieldInItsColumn)
{
    PrRecord filled = record();
    filled.ranges = {{.upper = 400, .lower = 0}, {.upper = 0, .lower = 9999}};
    filled.rangeCount = 2;
    filled.conditions = {
        {u"160"_s, PrCondition::HasRange, u"1"_s, u"3"_s}, {u"MODE"_s, PrCondition::NotEqual, u"1"_s, {}}};
    filled.conditionCount = 2;
    EXPECT_EQ(shown(filled),
        QStringList({u"79"_s, u"Operation mode"_s, u"0-400,9999"_s, u"1"_s, u"1"_s, u"No"_s, u"0.1"_s, u"Hz"_s, u"50"_s,
            u"1079"_s, u"000A"_s, u"2"_s, u"160=1-3,MODE/1"_s}));
    EXPECT_EQ(grid.text(0, 0), u"No"_s);
    EXPECT_EQ(grid.text(0, 1), u"1"_s);
}

TEST_F(ParameterGrid, showsNoConditionsAsZeroAndNothing)
{
    const QStringList texts = shown(record());
    EXPECT_EQ(texts[11], u"0"_s);
    EXPECT_EQ(texts[12], QString());
}

struct CodeCase
{
    QString stored;
    QString shown;
};

class FunctionCodes : public ParameterGrid, public testing::WithParamInterface<CodeCase>
{
};

TEST_P(FunctionCodes, areShownAsFourDigits)
{
    PrRecord coded = record();
    coded.functionCode = GetParam().stored;
    EXPECT_EQ(shown(coded)[10], GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Stored, FunctionCodes,
    testing::ValuesIn(std::vector<CodeCase>{
        {u"0"_s, u"0000"_s},
        {u"10"_s, u"000A"_s},
        {u"-1"_s, u"FFFF"_s},
        {u"65535"_s, u"FFFF"_s},
        {u"-32768"_s, u"8000"_s},
        {u"32767"_s, u"7FFF"_s},
        {u""_s, u"0000"_s},
        {u"65536"_s, u"0000"_s},
        {u"1e300"_s, u"8000"_s},
    }));

TEST_F(ParameterGrid, showsTextsThatCouldNotBeTyped)
{
    PrRecord odd = record();
    odd.number = u"A1"_s;
    odd.factorySetting = u" 1 "_s;
    odd.helpId = u"99999"_s;
    odd.unit = u"a\tb"_s;
    odd.name = u"two\r\nlines"_s;
    const QStringList texts = shown(odd);
    EXPECT_EQ(texts[0], u"A1"_s);
    EXPECT_EQ(texts[1], u"two\r\nlines"_s);
    EXPECT_EQ(texts[7], u"a\tb"_s);
    EXPECT_EQ(texts[8], u" 1 "_s);
    EXPECT_EQ(texts[9], u"99999"_s);
}

TEST_F(ParameterGrid, makesRowsWithSeveralLinesHigher)
{
    PrRecord odd = record();
    odd.name = u"two\nlines"_s;
    PrRecords = {record(), odd};
    layOutParameterGrid(grid, 2);
    fillParameterGrid(grid);
    EXPECT_GT(grid.rowHeight(1), grid.rowHeight(0));
}

TEST_F(ParameterGrid, hasOnlyHeadingsForADocumentWithoutRows)
{
    layOutParameterGrid(grid, 0);
    fillParameterGrid(grid);
    EXPECT_EQ(grid.rowCount(), 0);
    EXPECT_EQ(grid.text(2, 0), u"Name"_s);
}

TEST_F(ParameterGrid, hidesTheColumnsOfTheSharedList)
{
    ListVisualState[2] = true;
    ListVisualState[13] = true;
    layOutParameterGrid(grid, 1);
    for (int column = 1; column <= 13; ++column) {
        EXPECT_EQ(grid.isColumnShown(column), column != 3) << column;
    }
}

TEST_F(ParameterGrid, leavesRowsBeyondTheRecordsBlank)
{
    PrRecords = {record()};
    layOutParameterGrid(grid, 3);
    fillParameterGrid(grid);
    EXPECT_EQ(grid.text(1, 1), u"79"_s);
    EXPECT_EQ(grid.text(1, 3), QString());
}

TEST_F(ParameterGrid, alignsAllButThreeColumnsInTheMiddle)
{
    layOutParameterGrid(grid, 1);
    for (int column = 1; column <= 13; ++column) {
        const bool left = column == 2 || column == 3 || column == 13;
        const auto alignment = grid.model()->index(0, column - 1).data(Qt::TextAlignmentRole).value<Qt::Alignment>();
        EXPECT_EQ(alignment.testFlag(Qt::AlignHCenter), !left) << column;
    }
}

TEST_F(ParameterGrid, givesTheColumnsTheirWidths)
{
    layOutParameterGrid(grid, 1);
    const auto width = [this](int column) { return grid.columnWidth(column - 1); };
    EXPECT_GT(width(2), width(3));
    EXPECT_EQ(width(3), width(13));
    EXPECT_GT(width(5), width(8));
    EXPECT_GT(width(8), width(1));
    for (const int fitted : {4, 9, 10, 11, 12}) {
        EXPECT_GE(width(fitted), grid.fontMetrics().horizontalAdvance(grid.text(fitted, 0))) << fitted;
    }
}

TEST_F(ParameterGrid, isCollectedAsItWasFilled)
{
    PrRecord filled = record();
    filled.ranges = {{.upper = -1, .lower = 5}};
    filled.rangeCount = 1;
    filled.conditions = {{u"OP"_s, 0, u"A1"_s, {}}};
    filled.conditionCount = 1;
    shown(filled);
    EXPECT_TRUE(CollectPrRecords(ParameterCells(grid)));
    EXPECT_EQ(PrRecords, QList<PrRecord>{filled});
}
