#include "check/SavedForm.h"
#include "document/ParameterColumns.h"
#include "document/PrFileCodec.h"
#include "tests/document/RandomDocument.h"
#include "tests/support/QtPrinters.h"
#include "tool/Csv.h"
#include "tool/DiffJson.h"
#include "tool/DocumentCsv.h"
#include "tool/Files.h"
#include "tool/ListTexts.h"
#include "tool/SheetDiff.h"
#include "tool/SheetFields.h"
#include "tool/SheetJson.h"
#include "tool/SheetMerge.h"
#include "tool/SheetPatch.h"
#include "tool/TextWidth.h"
#include "tool/ToolTexts.h"

#include <gtest/gtest.h>

#include <QSet>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

const DiffOptions exactly{.isExact = true};

/// The seeds take turns with the code pages.
int codePageOf(quint32 seed)
{
    return seed % 2 == 0 ? 932 : 1252;
}

RandomDocument seeded(quint32 seed)
{
    return {seed, codePageOf(seed) == 932};
}

Document randomDocument(RandomDocument &random, quint32 seed)
{
    Document document{random.machineInfo(), random.records(12), codePageOf(seed)};
    document.machine.Paramater = qint16(document.rows.size());
    return document;
}

/// Some of what people do to a file
void edit(Document &document, RandomDocument &random)
{
    QList<PrRecord> &rows = document.rows;
    for (int i = random.number(4); i > 0; --i) {
        const int at = rows.isEmpty() ? 0 : random.number(int(rows.size()) - 1);
        const QList<PrRecord> others = random.records(3);
        switch (random.number(5)) {
        case 0:
            rows.insert(at, others.value(0));
            break;
        case 1:
            rows.remove(at, rows.isEmpty() ? 0 : 1);
            break;
        case 2:
            if (!rows.isEmpty()) {
                rows.move(at, random.number(int(rows.size()) - 1));
            }
            break;
        case 3:
            if (!rows.isEmpty() && !others.isEmpty()) {
                rows[at].name = others[0].name;
                rows[at].ranges = others[0].ranges;
                rows[at].conditions = others[0].conditions;
            }
            break;
        case 4:
            document.machine.Name += u'x';
            break;
        default:
            document.machine.Option.append(u"N%1"_s.arg(random.number(9)));
        }
    }
    for (PrRecord &row : rows) {
        row.rangeCount = qint16(row.ranges.size());
        row.conditionCount = qint16(row.conditions.size());
    }
    document.machine.Paramater = qint16(rows.size());
}

Document edited(const Document &document, RandomDocument &random)
{
    Document copy = document;
    edit(copy, random);
    return copy;
}

TEST(Sheet, givesBackItsDocument)
{
    for (quint32 seed = 0; seed < 500; ++seed) {
        RandomDocument random = seeded(seed);
        const Document document = randomDocument(random, seed);
        EXPECT_EQ(encodePrFile(documentOf(sheetOf(document))).bytes, encodePrFile(document).bytes) << "seed " << seed;
        EXPECT_EQ(documentOf(sheetOf(document)).rows, document.rows) << "seed " << seed;
    }
}

TEST(Sheet, keepsListsThatTheGridCannotShow)
{
    const QList<SettingRange> ranges = {{.upper = 10, .lower = -10}, {.upper = 3, .lower = 0.12345678F}};
    EXPECT_EQ(rangesOfText(rangesAsText(ranges)), ranges);
    EXPECT_EQ(rangesAsText({{.upper = 30, .lower = 0}, {.upper = 0, .lower = 9999}}), u"0-30,9999"_s);
    const QList<PrCondition> conditions = {{u"a,b"_s, 2, u"10"_s, u"9"_s}, {u"79"_s, 0, u"1"_s, {}}};
    EXPECT_EQ(conditionsOfText(conditionsAsText(conditions)), conditions);
    EXPECT_EQ(conditionsAsText({{u"79"_s, 3, u"1"_s, u"3"_s}}), u"79/1-3"_s);
}

TEST(Sheet, isTheSameAsItself)
{
    for (quint32 seed = 0; seed < 300; ++seed) {
        RandomDocument random = seeded(seed);
        const Sheet sheet = sheetOf(randomDocument(random, seed));
        EXPECT_TRUE(diffSheets(sheet, sheet).isEmpty()) << "seed " << seed;
        EXPECT_TRUE(diffSheets(sheet, sheet, exactly).isEmpty()) << "seed " << seed;
    }
}

TEST(Sheet, hasTheSameDifferencesWhicheverTextsAreMade)
{
    for (quint32 seed = 0; seed < 1000; ++seed) {
        RandomDocument random = seeded(seed);
        const Document before = randomDocument(random, seed);
        const Document after = edited(before, random);
        for (const bool isExact : {false, true}) {
            const DiffOptions options{.isExact = isExact};
            EXPECT_TRUE(diffDocuments(before, after, options) == diffSheets(sheetOf(before), sheetOf(after), options))
                << "seed " << seed;
        }
    }
}

TEST(Sheet, becomesTheLaterOneByItsPatch)
{
    for (quint32 seed = 0; seed < 1000; ++seed) {
        RandomDocument random = seeded(seed);
        const Document before = randomDocument(random, seed);
        const Document after = seed % 3 == 0 ? randomDocument(random, seed) : edited(before, random);
        const QByteArray json = diffAsJson(diffSheets(sheetOf(before), sheetOf(after), exactly), {});
        const ReadDiff diff = diffFromJson(json);
        ASSERT_FALSE(diff.failure) << diff.failure->toStdString();
        const PatchedSheet patched = patchSheet(sheetOf(before), diff.diff, true);
        EXPECT_TRUE(patched.rejections.isEmpty()) << "seed " << seed;
        EXPECT_TRUE(patched.sheet == sheetOf(after)) << "seed " << seed << "\n" << json.constData();
    }
}

TEST(Sheet, mergedWithNoChangeIsTheOther)
{
    for (quint32 seed = 0; seed < 1000; ++seed) {
        RandomDocument random = seeded(seed);
        const Document base = randomDocument(random, seed);
        const Sheet other = sheetOf(seed % 3 == 0 ? randomDocument(random, seed) : edited(base, random));
        for (const MergedSheet &merged : {mergeSheets(sheetOf(base), other, sheetOf(base)),
                 mergeSheets(sheetOf(base), sheetOf(base), other), mergeSheets(sheetOf(base), other, other)}) {
            EXPECT_TRUE(merged.conflicts.isEmpty()) << "seed " << seed;
            EXPECT_TRUE(merged.sheet == other) << "seed " << seed;
        }
    }
}

/// A conflict as the other side sees it
MergeConflict mirrored(MergeConflict conflict)
{
    using enum MergeConflict::Kind;
    std::swap(conflict.ours, conflict.theirs);
    conflict.kind = conflict.kind == RemovedByUs ? RemovedByThem
        : conflict.kind == RemovedByThem         ? RemovedByUs
                                                 : conflict.kind;
    return conflict;
}

/// What conflicts say, in an order of its own
QStringList sayings(const QList<MergeConflict> &conflicts, bool areMirrored)
{
    QStringList sayings;
    for (const MergeConflict &given : conflicts) {
        const MergeConflict conflict = areMirrored ? mirrored(given) : given;
        sayings << u"%1 %2 %3 %4 %5"_s.arg(int(conflict.kind))
                       .arg(int(conflict.part))
                       .arg(conflict.key.text)
                       .arg(conflict.key.occurrence)
                       .arg(conflict.field)
                + QStringList{conflict.base, conflict.ours, conflict.theirs}.join(u'|');
    }
    sayings.sort();
    return sayings;
}

bool areOfValues(const QList<MergeConflict> &conflicts)
{
    return std::ranges::all_of(
        conflicts, [](const MergeConflict &one) { return one.kind == MergeConflict::Kind::Value; });
}

/// Their side with our values where both are in conflict
Sheet conceded(Sheet theirs, const QList<MergeConflict> &conflicts)
{
    for (const MergeConflict &conflict : conflicts) {
        auto &entries = theirs.part(conflict.part);
        std::ranges::find(entries, conflict.key, &SheetEntry::key)->values[conflict.field] = conflict.ours;
    }
    return theirs;
}

TEST(Sheet, mergesAlikeWhicheverSideIsOurs)
{
    int without = 0;
    int withValues = 0;
    for (quint32 seed = 0; seed < 2000; ++seed) {
        RandomDocument random = seeded(seed);
        const Document base = randomDocument(random, seed);
        const Sheet one = sheetOf(edited(base, random));
        const Sheet other = sheetOf(edited(base, random));
        const MergedSheet merged = mergeSheets(sheetOf(base), one, other);
        const MergedSheet reversed = mergeSheets(sheetOf(base), other, one);
        EXPECT_EQ(sayings(merged.conflicts, false), sayings(reversed.conflicts, true)) << "seed " << seed;
        if (areOfValues(merged.conflicts)) {
            ++(merged.conflicts.isEmpty() ? without : withValues);
            const MergedSheet agreed = mergeSheets(sheetOf(base), conceded(other, merged.conflicts), one);
            EXPECT_TRUE(agreed.conflicts.isEmpty()) << "seed " << seed;
            EXPECT_TRUE(agreed.sheet == merged.sheet) << "seed " << seed;
        }
    }
    EXPECT_GT(without, 600); // else nothing was tested
    EXPECT_GT(withValues, 50);
}

/// A document as likely as not to have a form that a save changes
Document unusual(RandomDocument &random, int codePage)
{
    Document document{random.machineInfo(), random.records(8), codePage};
    for (PrRecord &record : document.rows) {
        if (random.number(3) == 0) {
            record.factorySetting = u"00"_s + record.factorySetting;
            record.name += u" \"x\""_s;
        }
    }
    document.machine.Paramater = qint16(document.rows.size());
    return document;
}

/// What decoding a file and saving it gives, by way of another format or at once
QByteArray savedBytes(const Document &document)
{
    return encodePrFile(*savedForm(document)).bytes;
}

TEST(Convert, givesTheBytesOfASave)
{
    for (const int codePage : {932, 1252}) {
        for (quint32 seed = 0; seed < 2000; ++seed) {
            const auto place = testing::Message() << "code page " << codePage << ", seed " << seed;
            RandomDocument random(seed, codePage == 932);
            const QByteArray bytes = encodePrFile(unusual(random, codePage)).bytes;
            const InputDocument decoded = decodeInput({u"a.inv"_s, bytes, {}}, codePage);
            ASSERT_FALSE(decoded.failure) << place << ": " << decoded.failure->toStdString();
            const QByteArray saved = savedBytes(decoded.document);
            const ReadDocument fromCsv = documentFromCsv(documentAsCsv(decoded.document));
            ASSERT_FALSE(fromCsv.failure) << place << ": " << fromCsv.failure->toStdString();
            EXPECT_EQ(savedBytes(fromCsv.document), saved) << place;
            const ReadSheet fromJson = sheetFromJson(sheetAsJson(sheetOf(decoded.document)));
            ASSERT_FALSE(fromJson.failure) << place << ": " << fromJson.failure->toStdString();
            EXPECT_EQ(savedBytes(documentOf(fromJson.sheet)), saved) << place;
        }
    }
}

QList<QStringList> fieldsOf(const QByteArray &csv)
{
    QList<QStringList> fields;
    for (const CsvRecord &record : readCsv(csv).records) {
        fields << record.fields;
    }
    return fields;
}

TEST(Convert, hasANameOfItsOwnForEveryColumn)
{
    QSet<QLatin1StringView> names;
    for (const ColumnInfo &column : parameterColumns) {
        const QLatin1StringView name = fieldNameOfColumn(column.column);
        EXPECT_FALSE(name.isEmpty()) << column.column;
        EXPECT_FALSE(names.contains(name)) << name.data();
        names.insert(name);
    }
}

TEST(Convert, readsCsvByItsRules)
{
    EXPECT_EQ(fieldsOf("a,b\r\nc\n"), (QList<QStringList>{{u"a"_s, u"b"_s}, {u"c"_s}}));
    EXPECT_EQ(fieldsOf("\"a,\"\"b\r\nc\",\r\n"), (QList<QStringList>{{u"a,\"b\r\nc"_s, {}}}));
    EXPECT_EQ(fieldsOf("\xEF\xBB\xBF"
                       "a"),
        (QList<QStringList>{{u"a"_s}}));
    EXPECT_TRUE(fieldsOf("").isEmpty());
    EXPECT_EQ(readCsv("a\n\"b\nc\"\nd").records.last().places.last().line, 4);
    const CsvPlace second = readCsv("a\n\"b\nc\",d").records.last().places.last();
    EXPECT_EQ(second.line, 3);
    EXPECT_EQ(second.column, 4);
    EXPECT_EQ(csvOf({{u"a,b"_s, u"\""_s, u" c"_s, u"d"_s}}), "\"a,b\",\"\"\"\",\" c\",d\r\n");
    EXPECT_TRUE(readCsv("a\nb\"c").failure->startsWith(u"Line 2, column 2: "));
    EXPECT_TRUE(readCsv("\"a\"b").failure->startsWith(u"Line 1, column 4: "));
    EXPECT_TRUE(readCsv("\"a\nb").failure->startsWith(u"Line 2, column 2: "));
    EXPECT_TRUE(readCsv("a\n\xC3\xA9,\xC3(").failure->startsWith(u"Line 2, column 3: "));
}

Sheet numbered(const QStringList &numbers)
{
    Document document;
    for (const QString &number : numbers) {
        PrRecord record;
        record.number = number;
        document.rows.append(record);
    }
    return sheetOf(document);
}

QStringList numbersOf(const Sheet &sheet)
{
    QStringList numbers;
    for (const SheetEntry &entry : sheet.part(SheetPart::Parameters)) {
        numbers << entry.key.text;
    }
    return numbers;
}

TEST(Sheet, mergesMovesAndAdditionsOfBothSides)
{
    const Sheet base = numbered({u"1"_s, u"2"_s, u"3"_s, u"4"_s});
    const MergedSheet added = mergeSheets(
        base, numbered({u"1"_s, u"20"_s, u"2"_s, u"3"_s, u"4"_s}), numbered({u"1"_s, u"10"_s, u"2"_s, u"4"_s, u"3"_s}));
    EXPECT_TRUE(added.conflicts.isEmpty());
    EXPECT_EQ(numbersOf(added.sheet), QStringList({u"1"_s, u"10"_s, u"20"_s, u"2"_s, u"4"_s, u"3"_s}));
    const MergedSheet moved =
        mergeSheets(base, numbered({u"4"_s, u"1"_s, u"2"_s, u"3"_s}), numbered({u"1"_s, u"4"_s, u"2"_s, u"3"_s}));
    EXPECT_EQ(moved.conflicts.size(), 1);
    EXPECT_EQ(numbersOf(moved.sheet), QStringList({u"4"_s, u"1"_s, u"2"_s, u"3"_s}));
}

TEST(Sheet, namesTheFewestEntriesOfWhichTheOrderIsInConflict)
{
    const Sheet base = numbered({u"1"_s});
    const std::array<QStringList, 2> orders{
        QStringList{u"1"_s, u"5"_s, u"6"_s, u"7"_s}, QStringList{u"1"_s, u"7"_s, u"5"_s, u"6"_s}};
    for (const std::size_t ours : {0, 1}) {
        const MergedSheet merged = mergeSheets(base, numbered(orders[ours]), numbered(orders[1 - ours]));
        ASSERT_EQ(merged.conflicts.size(), 1);
        EXPECT_EQ(merged.conflicts.front().kind, MergeConflict::Kind::Order);
        EXPECT_EQ(merged.conflicts.front().key.text, u"7"_s);
        EXPECT_EQ(numbersOf(merged.sheet), orders[ours]);
    }
}

TEST(Sheet, removedAndChangedIsAConflict)
{
    Sheet base = numbered({u"1"_s, u"2"_s});
    Sheet changed = base;
    changed.part(SheetPart::Parameters)[0].values[1] = u"Name"_s;
    const Sheet removed = numbered({u"2"_s});
    const MergedSheet kept = mergeSheets(base, changed, removed);
    EXPECT_EQ(kept.conflicts.size(), 1);
    EXPECT_EQ(numbersOf(kept.sheet), QStringList({u"1"_s, u"2"_s}));
    const MergedSheet gone = mergeSheets(base, removed, changed);
    EXPECT_EQ(gone.conflicts.size(), 1);
    EXPECT_EQ(numbersOf(gone.sheet), QStringList({u"2"_s}));
}

TEST(Sheet, comparesNumbersAsNumbers)
{
    EXPECT_TRUE(isSameValue(FieldKind::Number, u"007"_s, u"7"_s));
    EXPECT_FALSE(isSameValue(FieldKind::Number, u"7"_s, u"8"_s));
    EXPECT_FALSE(isSameValue(FieldKind::Number, u"a"_s, u"b"_s));
    EXPECT_FALSE(isSameValue(FieldKind::Text, u"007"_s, u"7"_s));
    EXPECT_TRUE(isSameValue(FieldKind::Code, u"65535"_s, u"-1"_s));
    EXPECT_FALSE(isSameValue(FieldKind::Code, u"1"_s, u"-1"_s));
    EXPECT_TRUE(isSameValue(FieldKind::Conditions, u"79=1.0"_s, u"079=1"_s));
    EXPECT_FALSE(isSameValue(FieldKind::Conditions, u"79=1"_s, u"79/1"_s));
    EXPECT_FALSE(isSameValue(FieldKind::Conditions, u"79=1"_s, QString()));
}

TEST(TextWidth, countsTwoForWideCharacters)
{
    EXPECT_EQ(textWidth(u"abc"), 3);
    EXPECT_EQ(textWidth(u"電圧"), 4);
    EXPECT_EQ(textWidth(u"ｱｲｳ"), 3);
    EXPECT_EQ(textWidth(u"e\u0301"), 1);
    EXPECT_EQ(textWidth(u"\U00020000"), 2);
}

} // namespace
