#include "grid/cells/PasteTarget.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

struct ShapeCase
{
    GridBlock selection;
    ClipboardRecord record;
};

class CopiedShape : public testing::TestWithParam<ShapeCase>
{
};

TEST_P(CopiedShape, remembersKindWidthAndHeight)
{
    EXPECT_EQ(copiedShape(GetParam().selection), GetParam().record);
}

INSTANTIATE_TEST_SUITE_P(Selections, CopiedShape,
    testing::ValuesIn(std::vector<ShapeCase>{
        {{3, 5, 3, 5}, {ClipboardRecord::OneCell, 0, 0}},
        {{3, 5, 4, 5}, {ClipboardRecord::Block, 1, 0}},
        {{3, 5, 3, 9}, {ClipboardRecord::Block, 0, 4}},
        {{1, 1, 13, 2}, {ClipboardRecord::Block, 12, 1}},
        {{-1, 3, 13, 3}, {ClipboardRecord::WholeRows, 0, 0}},
        {{-1, 3, 13, 5}, {ClipboardRecord::WholeRows, 0, 2}},
        {{-1, 1, 13, 32767}, {ClipboardRecord::WholeRows, 0, 32766}},
    }));

struct TargetCase
{
    ClipboardRecord record;
    GridBlock selection;
    std::optional<GridBlock> target;
};

class BlockPasteTarget : public testing::TestWithParam<TargetCase>
{
};

TEST_P(BlockPasteTarget, isCutAtTheEdgeAndRefusesAnotherSize)
{
    constexpr int columns = 13;
    constexpr int rows = 20;
    EXPECT_EQ(blockPasteTarget(GetParam().record, GetParam().selection, columns, rows), GetParam().target);
}

INSTANTIATE_TEST_SUITE_P(Selections, BlockPasteTarget,
    testing::ValuesIn(std::vector<TargetCase>{
        {{ClipboardRecord::Block, 1, 2}, {2, 3, 2, 3}, GridBlock{2, 3, 3, 5}},
        {{ClipboardRecord::Block, 1, 2}, {13, 3, 13, 3}, GridBlock{13, 3, 13, 5}},
        {{ClipboardRecord::Block, 1, 2}, {13, 19, 13, 19}, GridBlock{13, 19, 13, 20}},
        {{ClipboardRecord::Block, 1, 2}, {2, 3, 3, 5}, GridBlock{2, 3, 3, 5}},
        {{ClipboardRecord::Block, 1, 2}, {2, 3, 3, 4}, std::nullopt},
        {{ClipboardRecord::Block, 1, 2}, {2, 3, 4, 5}, std::nullopt},
        {{ClipboardRecord::Block, 1, 2}, {2, 3, 2, 4}, std::nullopt},
        {{ClipboardRecord::Block, 12, 2}, {-1, 3, 13, 5}, std::nullopt},
    }));

TEST(RowsPasteTarget, isCutAtTheLastRow)
{
    const ClipboardRecord threeRows{ClipboardRecord::WholeRows, 0, 2};
    EXPECT_EQ(rowsPasteTarget(threeRows, {4, 5, 4, 5}, 13, 20), (GridBlock{0, 5, 13, 7}));
    EXPECT_EQ(rowsPasteTarget(threeRows, {-1, 19, 13, 20}, 13, 20), (GridBlock{0, 19, 13, 20}));
}
