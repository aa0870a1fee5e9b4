#include "document/RecoveryCopy.h"

#include "runtime/AnsiText.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>

using namespace Qt::StringLiterals;

namespace {

class KeptGrid : public RecoveryGrid
{
public:
    explicit KeptGrid(QList<RecoveredRow> rows) : m_rows(std::move(rows)) { }

    int rowCount() const override { return int(m_rows.size()); }
    QStringView cellText(int column, int row) const override { return m_rows.at(row - 1).texts.at(column - 1); }
    bool isCellChanged(int column, int row) const override
    {
        return (m_rows.at(row - 1).changedColumns >> column & 1U) != 0;
    }

private:
    QList<RecoveredRow> m_rows;
};

RecoveredRow row(const QString &text, quint32 changed = 0)
{
    RecoveredRow row;
    for (int column = 1; column <= ParameterColumn::Count; ++column) {
        row.texts << text + QString::number(column);
    }
    row.changedColumns = changed;
    return row;
}

MachineInfo someInfo()
{
    return {.Name = u" XT-200 "_s,
        .TypeCode = u"1"_s,
        .VCapacity = u"2"_s,
        .Code = u"35"_s,
        .Capacity = {u"0.4"_s, u"0.75"_s},
        .ICapacity = {u"2.5"_s},
        .Option = {},
        .Paramater = 0,
        .SoftWareVersion = u"1.00"_s};
}

QByteArray packed(const QString &fileName, const QList<RecoveredRow> &rows)
{
    return packRecoveryCopy({.fileName = fileName, .info = someInfo(), .grid = KeptGrid(rows), .codePage = 932});
}

} // namespace

TEST(RecoveryCopy, comesBackAsItWasPacked)
{
    const QList<RecoveredRow> rows{row(u"a"_s), row(u""_s, 1U << 13 | 1U << 1), row(u"日本\n\t,"_s)};
    const auto copy = unpackRecoveryCopy(packed(u"/tmp/a.inv"_s, rows));
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->fileName, u"/tmp/a.inv"_s);
    EXPECT_EQ(copy->rows, rows);
    MachineInfo info = someInfo();
    info.Paramater = 3;
    EXPECT_EQ(copy->info, info);
    EXPECT_EQ(copy->codePage, 932);
}

/// What was left by a program that did not know of code pages.
TEST(RecoveryCopy, hasTheSystemsPageWhenItDoesNotSay)
{
    setAnsiCodePageNumber(1252);
    constexpr qsizetype markLength = 18;
    constexpr qsizetype sumLength = 16;
    QByteArray bytes = packed({}, {row(u"a"_s)}).chopped(sizeof(quint32));
    bytes.replace(
        markLength, sumLength, QCryptographicHash::hash(bytes.mid(markLength + sumLength), QCryptographicHash::Md5));
    const auto copy = unpackRecoveryCopy(bytes);
    setAnsiCodePageNumber(0);
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->codePage, 1252);
}

TEST(RecoveryCopy, holdsTextsThatNoCodePageKnows)
{
    RecoveredRow odd = row(u"x"_s);
    odd.texts[2] = QString(QChar(0xD800)) + QChar(0xF780) + QChar(0);
    const auto copy = unpackRecoveryCopy(packed({}, {odd}));
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->rows.first(), odd);
}

TEST(RecoveryCopy, givesAnUntitledDocumentNoName)
{
    const auto copy = unpackRecoveryCopy(packed({}, {}));
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->fileName.isEmpty());
    EXPECT_TRUE(copy->rows.isEmpty());
}

TEST(RecoveryCopy, isNotReadWhenItIsCutOff)
{
    const QByteArray whole = packed(u"/tmp/a.inv"_s, {row(u"a"_s), row(u"b"_s)});
    for (qsizetype length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(unpackRecoveryCopy(whole.left(length))) << length;
    }
    EXPECT_FALSE(unpackRecoveryCopy(whole + 'x'));
}

TEST(RecoveryCopy, isNotReadWhenAnyByteIsDamaged)
{
    const QByteArray whole = packed(u"/tmp/a.inv"_s, {row(u"a"_s)});
    for (qsizetype at = 0; at < whole.size(); ++at) {
        QByteArray damaged = whole;
        damaged[at] = char(damaged[at] ^ 0x10);
        EXPECT_FALSE(unpackRecoveryCopy(damaged)) << at;
    }
}
