#include "tests/check/LiveRows.h"

#include "document/RecordTexts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

LiveRows::Row rowOf(const PrRecord &record)
{
    LiveRows::Row row;
    std::ranges::transform(RecordTexts(record).cells(), row.begin(), &QStringView::toString);
    return row;
}

/// Few numbers, so that rows concern one another
const QStringList numbers = {
    u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"03"_s, u"4.0"_s, u"7"_s, u"A1"_s, u""_s, u"79"_s, u"160"_s};
const QStringList names = {u"Torque boost"_s, u"Name"_s, u""_s, u"A name of more than 25 letters"_s, u"x"_s};
const QStringList ranges = {u"0-7"_s, u"0-10,5-20"_s, u"5-5"_s, u"9999"_s, u"3-"_s, u""_s, u"10-4"_s, u"abc"_s,
    u"1,2,3"_s, u"-5"_s, u"0-400,9999"_s};
const QStringList steps = {u"1"_s, u"0.1"_s, u"No"_s, u"0.01"_s, u"5"_s};
const QStringList settings = {u"0"_s, u"5"_s, u"0.55"_s, u"9999"_s, u"abc"_s, u"007"_s};
const QStringList helpIds = {u"0"_s, u"1001"_s, u"1002"_s, u""_s};
const QStringList codes = {u"0000"_s, u"0001"_s, u"FFFF"_s, u"4000"_s, u"xyz"_s};
const QStringList conditions = {u""_s, u"79=1"_s, u"3=0-7"_s, u"4/9"_s, u"1=5-5"_s, u"MODE=9"_s, u"OP/A1"_s,
    u"160=2,160/2"_s, u"7=1-3,2=9999"_s, u"003=1"_s, u"X=1"_s, u"79=2-1"_s};
const QStringList texts[ParameterColumn::Count] = {numbers, names, ranges, {u"0"_s, u"1"_s, u"x"_s}, steps, steps,
    steps, {u"%"_s, u""_s}, settings, helpIds, codes, {u"0"_s, u"3"_s}, conditions};

/// Texts that a save asks about or fails at
const QStringList names2 = {
    u"a, b"_s, u" edge"_s, u"\"quote"_s, u"line\r\nend"_s, u"\u4e00\u0416\u0e01"_s, u"\uF781"_s};
const QStringList faulty[ParameterColumn::Count] = {{u"1,2"_s}, names2, {u"0.12345678"_s, u"1E40"_s}, {}, {}, {}, {},
    names2, {}, {u"1 "_s}, {u"12345"_s}, {}, {u"OP=\"a"_s}};

} // namespace

LiveRows::LiveRows(quint32 seed, int codePage, bool canBeSaved)
    : random(seed, codePage == 932), m_codePage(codePage), m_canBeSaved(canBeSaved)
{
    std::ranges::transform(random.records(12), std::back_inserter(m_rows), rowOf);
    m_rows.push_back(newRow());
}

const QString &LiveRows::anyText(int column)
{
    const QStringList &odd = faulty[column - 1];
    const bool isOdd = !m_canBeSaved && !odd.isEmpty() && random.number(9) == 0;
    const QStringList &list = isOdd ? odd : texts[column - 1];
    return list[random.number(int(list.size()) - 1)];
}

LiveRows::Row LiveRows::newRow()
{
    Row row;
    for (int column = 1; column <= ParameterColumn::Count; ++column) {
        row.at(std::size_t(column - 1)) = anyText(column);
    }
    return row;
}

void LiveRows::setText(LiveCheck &check, int column, int row, const QString &text)
{
    m_rows.at(std::size_t(row - 1)).at(std::size_t(column - 1)) = text;
    check.replaceRows(row - 1, 1, 1);
    check.settle();
}

void LiveRows::replaceRows(LiveCheck &check, int first, int removed, const std::vector<Row> &added)
{
    m_rows.erase(m_rows.begin() + first, m_rows.begin() + first + removed);
    m_rows.insert(m_rows.begin() + first, added.begin(), added.end());
    check.replaceRows(first, removed, int(added.size()));
}

void LiveRows::edit(LiveCheck &check)
{
    m_earlier.push_back(m_rows);
    const int act = random.number(9);
    if (act < 5) {
        typeSome(check);
    } else if (act == 5 && rowCount() < 40) {
        const int first = random.number(rowCount());
        std::vector<Row> added(std::size_t(1 + random.number(2)));
        std::ranges::generate(added, [this] { return newRow(); });
        replaceRows(check, first, 0, added);
        if (random.number(1) == 0) { // several changes in one act
            replaceRows(check, random.number(rowCount() - 1), 1, {});
        }
    } else if (act == 6 && rowCount() > 3) {
        const int first = random.number(rowCount() - 3);
        replaceRows(check, first, 1 + random.number(2), {});
    } else if (act == 7) {
        const std::vector<Row> copied = {m_rows[std::size_t(anyRow())], m_rows[std::size_t(anyRow())]};
        replaceRows(check, anyRow(), 1, copied);
    } else if (act == 8) {
        moveRows(check);
    } else {
        goBack(check);
    }
    while (!check.settleSome(1 + random.number(2))) { }
}

void LiveRows::typeSome(LiveCheck &check)
{
    const int column = 1 + random.number(ParameterColumn::Count - 1);
    const QString &text = anyText(column);
    const int rows = random.number(4) == 0 ? 1 + random.number(rowCount() - 1) : 1;
    const int first = random.number(rowCount() - rows);
    for (int row = first; row < first + rows; ++row) {
        m_rows.at(std::size_t(row)).at(std::size_t(column - 1)) = text;
    }
    check.replaceRows(first, rows, rows);
}

void LiveRows::moveRows(LiveCheck &check)
{
    const std::vector<Row> former = m_rows;
    if (random.number(1) == 0) {
        std::ranges::stable_sort(m_rows, {}, [](const Row &row) { return row.front().toDouble(); });
    } else {
        std::swap(m_rows[std::size_t(anyRow())], m_rows[std::size_t(anyRow())]);
    }
    tell(check, former);
}

void LiveRows::goBack(LiveCheck &check)
{
    const std::vector<Row> former = m_rows;
    m_rows = m_earlier.at(std::size_t(random.number(int(m_earlier.size()) - 1)));
    tell(check, former);
}

void LiveRows::tell(LiveCheck &check, const std::vector<Row> &former) const
{
    const auto [now, was] = std::ranges::mismatch(m_rows, former);
    const auto same = int(now - m_rows.begin());
    check.replaceRows(same, int(former.end() - was), int(m_rows.end() - now));
}

Document LiveRows::document(const MachineInfo &machine) const
{
    Document document{.machine = machine, .rows = {}, .codePage = m_codePage};
    document.machine.Paramater = qint16(rowCount());
    GridRecords records(*this);
    for (int row = 1; row <= rowCount(); ++row) {
        document.rows.append(records.read(row));
    }
    return document;
}
