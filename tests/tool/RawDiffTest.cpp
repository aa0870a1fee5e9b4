#include "tool/RawDiff.h"

#include "tests/document/PlainRows.h"

#include <gtest/gtest.h>

namespace {

/// Some of what people do to a file
QByteArrayList edited(QByteArrayList rows, PlainRows &random)
{
    for (int i = random.number(4); i > 0; --i) {
        const int at = random.number(int(rows.size()) - 1);
        const QByteArray row = rows[at];
        switch (random.number(4)) {
        case 0:
            rows.insert(random.number(int(rows.size())), row);
            break;
        case 1:
            rows.insert(at, random.rows(1 + random.number(12)).last());
            break;
        case 2:
            rows.swapItemsAt(at, random.number(int(rows.size()) - 1));
            break;
        case 3:
            rows[at] = random.damaged(row);
            break;
        default:
            if (rows.size() > 1) {
                rows.removeAt(at);
            }
        }
    }
    return rows;
}

TEST(RawDiff, findsWhatAComparisonOfTheDecodedFilesFinds)
{
    int compared = 0;
    int different = 0;
    for (quint32 seed = 0; seed < 1000; ++seed) {
        PlainRows random(seed);
        const int page = seed % 2 == 0 ? 932 : 1252;
        const QByteArrayList rows = random.rows(1 + random.number(9));
        const InputFile before{QString(), PlainRows::fileOf(rows), {}};
        const InputFile after{QString(), PlainRows::fileOf(edited(rows, random)), {}};
        const auto rawBefore = rawFile(before, page);
        const auto rawAfter = rawFile(after, page);
        if (!rawBefore || !rawAfter) {
            continue;
        }
        ++compared;
        for (const DiffOptions &options : {DiffOptions{}, DiffOptions{.isExact = true}}) {
            const SheetDiff diff = diffRawFiles(*rawBefore, *rawAfter, options);
            different += diff.isEmpty() ? 0 : 1;
            ASSERT_TRUE(
                diff == diffDocuments(decodeInput(before, page).document, decodeInput(after, page).document, options))
                << "seed " << seed << "\n"
                << before.bytes.constData() << "\n"
                << after.bytes.constData();
        }
    }
    EXPECT_GT(compared, 200); // else nothing was tested
    EXPECT_GT(different, 200);
}

TEST(RawDiff, leavesToDecodingWhatHasNotItsRows)
{
    const QByteArray row = "0,1,0,Jog,Hz,1,-1,-1,0,0,0,1,0,10\r\n";
    const auto isRaw = [](const QByteArray &bytes) { return rawFile({QString(), bytes, {}}, 1252).has_value(); };
    const QByteArray sound = PlainRows::fileOf({row, row});
    EXPECT_TRUE(isRaw(sound));
    EXPECT_FALSE(isRaw({}));
    EXPECT_FALSE(isRaw(sound.chopped(1))) << "without its end";
    EXPECT_FALSE(isRaw(sound + row)) << "more rows than announced";
    EXPECT_FALSE(isRaw(PlainRows::fileOf({row, row}).replace("Paramater=2", "Paramater=3"))) << "fewer";
    EXPECT_FALSE(isRaw(PlainRows::fileOf({row, row}).replace("[Paramater]", "[Other]"))) << "without a list";
    EXPECT_FALSE(isRaw(PlainRows::fileOf({"0,01,0,Jog,Hz,1,-1,-1,0,0,0,1,0,10\r\n"}))) << "a number like another";
}

} // namespace
