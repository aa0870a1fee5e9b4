#include "document/DocumentTables.h"
#include "document/FieldText.h"
#include "document/ParameterColumns.h"
#include "document/PrCondText.h"
#include "document/PrFile.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"
#include "tests/document/DocumentFixture.h"
#include "tests/document/RandomDocument.h"
#include "tests/document/RecordPrinters.h"
#include "tests/support/QtPrinters.h"
#include "tests/support/ThisSystem.h"

#include <algorithm>
#include <array>
#include <set>

using namespace Qt::StringLiterals;

namespace {

class Properties : public DocumentFixture
{
protected:
    /// Writes records, reads them back and writes them again; bytes and records must stay.
    void roundTrip(const MachineInfo &info, const QList<PrRecord> &records);

    /// Documents with control codes from 80 to 9F that happen to be Japanese characters: of those only the bytes come
    /// back.
    int m_takenForOtherPage = 0;
};

void Properties::roundTrip(const MachineInfo &info, const QList<PrRecord> &records)
{
    MachineInfos[docNo] = info;
    ASSERT_TRUE(save(path(u"first.inv"_s), FakeGrid(records, records.size()))) << host.messages.value(0).toStdString();
    EXPECT_EQ(PrRecords, records);
    const MachineInfo written = MachineInfos[docNo];
    MachineInfos[docNo] = {};
    ASSERT_TRUE(read(path(u"first.inv"_s))) << host.messages.value(0).toStdString();
    if (documentOrigin(docNo).codePageNumber() == ansiCodePageNumber()) {
        EXPECT_EQ(MachineInfos[docNo], written);
        ASSERT_EQ(PrRecords.size(), records.size() + 1);
        EXPECT_EQ(PrRecords.first(records.size()), records);
    } else {
        ++m_takenForOtherPage;
    }
    ASSERT_TRUE(save(path(u"second.inv"_s)));
    EXPECT_TRUE(sameBytes(contentOf(path(u"second.inv"_s)), contentOf(path(u"first.inv"_s))));
}

/// What decides where a row's line ends, and which fields it has.
struct RowShape
{
    int ranges; ///< 2: two or more
    int conditions; ///< 2: two or more
    int kinds; ///< bit k: there is a condition of kind k
    bool last;

    auto operator<=>(const RowShape &) const = default;
};

RowShape shapeOf(const PrRecord &record, bool last)
{
    int kinds = 0;
    for (const PrCondition &condition : record.conditions) {
        kinds |= 1 << condition.kind;
    }
    return {std::min<int>(record.rangeCount, 2), std::min<int>(record.conditionCount, 2), kinds, last};
}

/// 3 numbers of ranges; no condition, one of 4 kinds, or several with any of the 15 sets of kinds; last row or not.
constexpr size_t everyShape = 3 * (1 + 4 + 15) * 2;

TEST_F(Properties, tenThousandWrittenDocumentsComeBackByteForByte)
{
    const auto documents = quint32(ThisSystem::repetitions(10'000));
    std::set<RowShape> shapes;
    for (quint32 seed = 0; seed < documents; ++seed) {
        const bool japanese = seed % 2 != 0;
        useCodePage(japanese ? 932 : 1252);
        RandomDocument document(seed, japanese);
        const MachineInfo info = document.machineInfo();
        const QList<PrRecord> records = document.records(12);
        roundTrip(info, records);
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
        QFile::remove(path(u"first.inv"_s));
        QFile::remove(path(u"second.inv"_s));
        for (qsizetype i = 0; i < records.size(); ++i) {
            shapes.insert(shapeOf(records[i], i == records.size() - 1));
        }
    }
    EXPECT_EQ(shapes.size(), everyShape);
    EXPECT_LT(m_takenForOtherPage, int(documents / 100));
}

/// The setting-range rules once more, part by part instead of character by character.
QList<SettingRange> modelRanges(const QString &text)
{
    QList<SettingRange> ranges;
    for (const QString &part : text.split(u',')) {
        const QStringList pieces = part.split(u'-');
        const qsizetype dashes = pieces.size() - 1;
        // Every second dash hands what precedes it on to what follows.
        QString carried = pieces[0];
        SettingRange range;
        for (qsizetype dash = 1; dash <= dashes; ++dash) {
            if (dash % 2 != 0) {
                range.lower = static_cast<float>(leadingNumber(carried));
                carried = pieces[dash];
            } else {
                carried += pieces[dash];
            }
        }
        if (dashes % 2 != 0) {
            range.upper = carried.isEmpty() ? -1 : static_cast<float>(leadingNumber(carried));
        } else {
            range = {0, static_cast<float>(leadingNumber(carried))};
        }
        ranges << range;
    }
    return ranges;
}

TEST_F(Properties, rangeTextsFollowTheModel)
{
    RandomDocument random(7, false);
    for (int i = 0; i < 20000; ++i) {
        const QString text = random.textOf(u"0123459.,,-- x", 14);
        const auto converted = rangesFromText(text);
        const auto expected = text.isEmpty() ? QList<SettingRange>() : modelRanges(text);
        ASSERT_EQ(*converted, expected) << text.toStdString();
        const QString formatted = rangesToText(expected);
        ASSERT_EQ(rangesToText(*rangesFromText(formatted)), formatted) << text.toStdString();
    }
}

TEST_F(Properties, rangesComeBackFromTheirText)
{
    for (quint32 seed = 0; seed < 500; ++seed) {
        for (const PrRecord &record : RandomDocument(seed, false).records(20)) {
            const auto converted = rangesFromText(rangesToText(record.ranges));
            ASSERT_EQ(*converted, record.ranges);
        }
    }
}

/// The subject of an item: what precedes the first relation after a complete subject, without dashes.
/// Relations before it are dropped from it as well.
struct ModelItem
{
    QString subject;
    QString rest; ///< after the accepted relation, all relations still in it
    quint8 relation = 0;
};

std::optional<ModelItem> modelSubject(const QString &item)
{
    QString collected;
    for (qsizetype i = 0; i < item.size(); ++i) {
        if (item[i] == u'=' || item[i] == u'/') {
            if (collected == u"MODE"_s || collected == u"OP"_s || isNumeric(collected)) {
                return ModelItem{
                    collected, item.sliced(i + 1), quint8(item.lastIndexOf(u'/') > item.lastIndexOf(u'='))};
            }
        } else if (item[i] != u'-') {
            collected += item[i];
        }
    }
    return std::nullopt;
}

QString withoutSpacesAround(QString text)
{
    while (text.startsWith(u' ')) {
        text.remove(0, 1);
    }
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

std::optional<PrCondition> modelCondition(const QString &item)
{
    const auto found = modelSubject(item);
    if (!found) {
        return std::nullopt;
    }
    PrCondition condition{withoutSpacesAround(found->subject), found->relation, {}, {}};
    QString rest = found->rest;
    rest.remove(u'=').remove(u'/');
    if (!isNumeric(found->subject)) {
        rest.remove(u'-');
    }
    const QStringList values = rest.split(u'-');
    const QString last = values.last();
    if (last.isEmpty() || (found->subject != u"OP"_s && !isNumeric(last))) {
        return std::nullopt;
    }
    condition.value1 = withoutSpacesAround(last);
    if (values.size() > 1) {
        // The relation's kind follows the last relation character; the range bit is set at the end in any case.
        condition.kind |= PrCondition::HasRange;
        condition.value2 = condition.value1;
        condition.value1 = withoutSpacesAround(values[values.size() - 2]);
        if (last < condition.value1) {
            condition.value1.swap(condition.value2);
        }
    }
    return condition;
}

TEST_F(Properties, conditionTextsFollowTheModel)
{
    RandomDocument random(11, false);
    int valid = 0;
    for (int i = 0; i < 60000; ++i) {
        QString text = random.textOf(u"0129.,=/=/-- A", 14);
        text.replace(u"A"_s, i % 3 == 0 ? u"A"_s : i % 3 == 1 ? u"MODE"_s : u"OP"_s);
        QList<PrCondition> expected;
        for (const QString &item : text.split(u',')) {
            if (const auto condition = modelCondition(item)) {
                expected << *condition;
            }
        }
        valid += static_cast<int>(expected.size());
        ASSERT_EQ(conditionsFromText(text), expected) << text.toStdString();
    }
    EXPECT_GT(valid, 1000);
}

TEST_F(Properties, conditionsComeBackFromTheirTextInTextOrder)
{
    for (quint32 seed = 0; seed < 500; ++seed) {
        for (const PrRecord &record : RandomDocument(seed, false).records(20)) {
            ASSERT_EQ(conditionsFromText(conditionsToText(record.conditions)), record.conditions);
            // Values in the other order come back exchanged.
            QList<PrCondition> exchanged = record.conditions;
            for (PrCondition &condition : exchanged) {
                if (!condition.value1.isEmpty() && (condition.kind & PrCondition::HasRange) != 0) {
                    condition.value1.swap(condition.value2);
                }
            }
            ASSERT_EQ(conditionsFromText(conditionsToText(exchanged)), record.conditions);
        }
    }
}

TEST_F(Properties, anyBytesEndInARecordTableOrAnError)
{
    RandomDocument random(3, false);
    for (int i = 0; i < ThisSystem::repetitions(5000); ++i) {
        QByteArray rows = random.textOf(u"0123,,,,,,,-\"\r\n a.e\u00B1\u0081", 200).toLatin1();
        MachineInfos[docNo] = {};
        const bool done = readBytes(fileWithRows(rows, random.number(4)));
        ASSERT_EQ(done, host.messages.isEmpty()) << rows.toStdString();
        host.messages.clear();
    }
}

// What it leaves out no test of this file looks at.
TEST(RandomDocument, fillsEveryTextOfARow)
{
    std::array<std::set<QString>, fileTexts.size()> seen;
    RandomDocument document(1, false);
    for (int i = 0; i < 50; ++i) {
        for (const PrRecord &record : document.records(12)) {
            for (std::size_t text = 0; text < fileTexts.size(); ++text) {
                seen[text].insert(record.*fileTexts[text]);
            }
        }
    }
    for (std::size_t text = 0; text < fileTexts.size(); ++text) {
        EXPECT_GT(seen[text].size(), 1U) << "text " << text + 1 << " of a row";
    }
}

} // namespace
