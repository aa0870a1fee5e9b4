#include "print/PrintPages.h"

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

static void PrintTo(const PrintSpan &span, std::ostream *out)
{
    *out << span.first << '-' << span.last;
}

namespace {

struct FitCase
{
    QList<double> sizes; // of items 1, 2, ...
    QList<PrintSpan> spans; // of size 10 at most
};

class SpansThatFit : public testing::TestWithParam<FitCase>
{
};

TEST_P(SpansThatFit, holdAllItemsInOrder)
{
    const auto sizeOf = [](int item) { return GetParam().sizes.at(item - 1); };
    EXPECT_EQ(spansThatFit({1, int(GetParam().sizes.size())}, 10, sizeOf), GetParam().spans);
}

INSTANTIATE_TEST_SUITE_P(SizeTen, SpansThatFit,
    testing::ValuesIn(std::vector<FitCase>{
        {{}, {}},
        {{10}, {{1, 1}}},
        {{11}, {{1, 1}}},
        {{5, 5}, {{1, 2}}},
        {{5, 5.1}, {{1, 1}, {2, 2}}},
        {{1, 20, 1}, {{1, 1}, {2, 2}, {3, 3}}},
        {{4, 4, 4, 4, 4}, {{1, 2}, {3, 4}, {5, 5}}},
    }));

struct RangeCase
{
    int from, to;
    PrintSpan printed; // of 8 pages
};

class PagesInRange : public testing::TestWithParam<RangeCase>
{
};

TEST_P(PagesInRange, areThoseThatExist)
{
    const PrintSpan pages = pagesInRange(GetParam().from, GetParam().to, 8);
    if (GetParam().printed.isEmpty()) {
        EXPECT_TRUE(pages.isEmpty());
    } else {
        EXPECT_EQ(pages, GetParam().printed);
    }
}

const PrintSpan none;

INSTANTIATE_TEST_SUITE_P(OfEight, PagesInRange,
    testing::ValuesIn(std::vector<RangeCase>{
        {2, 4, {2, 4}},
        {3, 3, {3, 3}},
        {1, 8, {1, 8}},
        {0, 0, {1, 1}},
        {0, 3, {1, 3}},
        {5, 0, {5, 5}},
        {-4, -2, {1, 1}},
        {6, 32767, {6, 8}},
        {5, 3, none},
        {9, 12, none},
        {9, 0, none},
    }));

TEST(PagesInRange, areNoneWithoutPages)
{
    EXPECT_TRUE(pagesInRange(0, 0, 0).isEmpty());
    EXPECT_TRUE(pagesInRange(1, 9, 0).isEmpty());
}

TEST(PrintPages, goDownFirstAndThenOver)
{
    const PrintPages pages({{1, 40}, {41, 60}}, {{0, 3}, {4, 9}});
    ASSERT_EQ(pages.count(), 4);
    const PrintSpan rows[] = {{1, 40}, {41, 60}, {1, 40}, {41, 60}};
    const PrintSpan columns[] = {{0, 3}, {0, 3}, {4, 9}, {4, 9}};
    for (int page = 1; page <= 4; ++page) {
        EXPECT_EQ(pages.rows(page), rows[page - 1]);
        EXPECT_EQ(pages.columns(page), columns[page - 1]);
    }
}

TEST(PrintPages, showTheHeadingsOfAGridWithoutRows)
{
    const PrintPages pages({}, {{0, 3}});
    ASSERT_EQ(pages.count(), 1);
    EXPECT_TRUE(pages.rows(1).isEmpty());
}

TEST(PrintPages, areNoneWithoutColumns)
{
    EXPECT_EQ(PrintPages({{1, 40}}, {}).count(), 0);
}

} // namespace
