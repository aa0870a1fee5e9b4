#include "document/PrCondRows.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QStringList modes{u"EXT"_s, u"PU"_s, u"EXT JOG"_s, u"PU JOG"_s, u"LNK"_s, u"PU+EXT"_s, u"TIME"_s, u"SP"_s};

PrCondRows parameters(const QList<QStringList> &rows)
{
    PrCondRows all;
    all[ParameterGrid] = rows;
    return all;
}

PrCondRows modeRows(const QList<QStringList> &rows)
{
    PrCondRows all;
    all[ModeGrid] = rows;
    return all;
}

PrCondRows options(const QList<QStringList> &rows)
{
    PrCondRows all;
    all[OptionGrid] = rows;
    return all;
}

struct RowsCase
{
    const char *what;
    PrCondRows rows;
    qint16 count;
    QString text;
};

class RowsToText : public testing::TestWithParam<RowsCase>
{
};

TEST_P(RowsToText, gives)
{
    const PrCondResult result = conditionsOfRows(GetParam().rows, modes);
    EXPECT_EQ(result.text, GetParam().text);
    EXPECT_EQ(result.count, GetParam().count);
}

const PrCondRows mixed{QList<QStringList>{{u"79"_s, u"="_s, u"1"_s, u"3"_s}, {u"10"_s, u"<>"_s, u"5"_s, u""_s}},
    QList<QStringList>{{u"="_s, u"PU"_s}}, QList<QStringList>{{u"<>"_s, u"A1"_s}}};

INSTANTIATE_TEST_SUITE_P(Rows, RowsToText,
    testing::ValuesIn(std::vector<RowsCase>{
        {"nothing", {}, 0, u""_s},
        {"options, parameters, modes", mixed, 4, u"OP/A1,79=1-3,10/5,MODE=1"_s},
        {"no number", parameters({{u""_s, u"="_s, u"1"_s, u""_s}}), 0, u""_s},
        {"a number of spaces only", parameters({{u"  "_s, u"="_s, u"1"_s, u""_s}}), 0, u""_s},
        {"no value", parameters({{u"79"_s, u"="_s, u""_s, u"5"_s}}), 0, u""_s},
        {"a value that is not a number", parameters({{u"79"_s, u"="_s, u"A"_s, u""_s}}), 0, u""_s},
        {"an upper value that is not a number", parameters({{u"79"_s, u"="_s, u"1"_s, u"A"_s}}), 1, u"79=1"_s},
        {"a dropped row among others",
            parameters(
                {{u"1"_s, u"="_s, u"1"_s, u""_s}, {u"2"_s, u"="_s, u""_s, u""_s}, {u"3"_s, u"<>"_s, u"3"_s, u""_s}}),
            2, u"1=1,3/3"_s},
        {"a range in the grid's order", parameters({{u"160"_s, u"<>"_s, u"9"_s, u"3"_s}}), 1, u"160/9-3"_s},
        {"an untouched mode", modeRows({{u"="_s, u"EXT"_s}}), 1, u"MODE=0"_s},
        {"an empty mode", modeRows({{u""_s, u""_s}}), 1, u"MODE=0"_s},
        {"the last mode", modeRows({{u"<>"_s, u"SP"_s}}), 1, u"MODE/7"_s},
        {"a mode number without a name", modeRows({{u"="_s, u"9"_s}}), 1, u"MODE=9"_s},
        {"no option", options({{u"="_s, u""_s}, {u"="_s, u"  "_s}}), 0, u""_s},
        {"an option as typed", options({{u"="_s, u" A-1,B "_s}}), 1, u"OP= A-1,B "_s},
    }),
    [](const auto &parameter) { return "case" + std::to_string(parameter.index); });

TEST(ConditionsToRows, areDealtOutInTheirOrder)
{
    const QList<PrCondition> conditions{{u"MODE"_s, 1, u"7"_s, u""_s}, {u"79"_s, 2, u"1"_s, u"3"_s},
        {u"OP"_s, 0, u"A1"_s, u""_s}, {u"MODE"_s, 0, u"0"_s, u""_s}, {u"10"_s, 1, u"5"_s, u""_s}};
    const PrCondRows rows = rowsOfConditions(conditions, modes);
    EXPECT_EQ(rows[ParameterGrid],
        (QList<QStringList>{{u"79"_s, u"="_s, u"1"_s, u"3"_s}, {u"10"_s, u"<>"_s, u"5"_s, u""_s}}));
    EXPECT_EQ(rows[ModeGrid], (QList<QStringList>{{u"<>"_s, u"SP"_s}, {u"="_s, u"EXT"_s}}));
    EXPECT_EQ(rows[OptionGrid], (QList<QStringList>{{u"="_s, u"A1"_s}}));
}

struct ModeCase
{
    QString number;
    QString cell;
};

class ModeCell : public testing::TestWithParam<ModeCase>
{
};

TEST_P(ModeCell, showsTheNameOfTheNumber)
{
    const QList<PrCondition> conditions{{u"MODE"_s, 0, GetParam().number, u""_s}};
    EXPECT_EQ(rowsOfConditions(conditions, modes)[ModeGrid].value(0).value(1), GetParam().cell);
}

INSTANTIATE_TEST_SUITE_P(Numbers, ModeCell,
    testing::ValuesIn(std::vector<ModeCase>{
        {u"0"_s, u"EXT"_s},
        {u"5"_s, u"PU+EXT"_s},
        {u"07"_s, u"SP"_s},
        {u"2.0"_s, u"EXT JOG"_s},
        {u"8"_s, u"8"_s},
        {u"99999"_s, u"99999"_s},
    }));

} // namespace
