#include "tests/editor/RowsFile.h"

#include <QRegularExpression>
#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

double leadingNumber(const QString &text)
{
    static const QRegularExpression pattern(u"^\\d*\\.?\\d*"_s);
    return pattern.match(text).captured().toDouble();
}

bool isNumber(const QString &text)
{
    static const QRegularExpression pattern(u"^\\d+(\\.\\d+)?$"_s);
    return pattern.match(text).hasMatch();
}

QString numberText(double number)
{
    return QString::number(number, 'g', 7);
}

QString minimum(const QString &cell, const QString &otherwise)
{
    const QStringList steps{u"1"_s, u"0.1"_s, u"0.01"_s, u"0.001"_s};
    return steps.contains(cell) ? cell : otherwise;
}

QString functionCode(const QString &cell)
{
    static const QRegularExpression pattern(u"^[0-9A-Fa-f]{0,4}"_s);
    return QString::number(qint16(quint16(pattern.match(cell).captured().toUInt(nullptr, 16))));
}

QStringList rangeFields(const QString &cell)
{
    QStringList fields;
    for (const QString &part : cell.isEmpty() ? QStringList() : cell.split(u',')) {
        const qsizetype dash = part.indexOf(u'-');
        const QString upper = dash < 0 ? u"0"_s : part.mid(dash + 1);
        fields << numberText(leadingNumber(dash < 0 ? part : part.left(dash)));
        fields << (upper.isEmpty() ? u"-1"_s : numberText(leadingNumber(upper)));
    }
    return fields;
}

/// Subject, kind, value and second value; nothing for an item that is not a condition.
QStringList conditionFields(const QString &item)
{
    static const QRegularExpression pattern(u"^(\\d+|MODE|OP)([=/])([^=/-]+)(?:-([^=/-]+))?$"_s);
    const QRegularExpressionMatch match = pattern.match(item);
    const bool isOption = match.captured(1) == "OP"_L1;
    QString value = match.captured(3);
    QString upper = match.captured(4);
    if (!match.hasMatch() || (!isOption && !isNumber(upper.isEmpty() ? value : upper))) {
        return {};
    }
    const int kind = (match.captured(2) == "/"_L1 ? 1 : 0) + (upper.isEmpty() ? 0 : 2);
    if (upper.isEmpty()) {
        return {match.captured(1), QString::number(kind), value};
    }
    if (upper < value) { // in the order of their characters
        std::swap(upper, value);
    }
    return {match.captured(1), QString::number(kind), value, upper};
}

QString rowText(const RowsModel::Row &row)
{
    const auto cell = [&row](int column) { return row.at(size_t(column - 1)); };
    const QStringList ranges = rangeFields(cell(3));
    int conditionCount = 0;
    QStringList conditions;
    for (const QString &item : cell(13).split(u',')) {
        const QStringList fields = conditionFields(item);
        conditionCount += fields.isEmpty() ? 0 : 1;
        conditions << fields;
    }
    const QStringList fixed{QString::number(conditionCount), cell(1), cell(10), cell(2), cell(8),
        minimum(cell(5), u"1"_s), minimum(cell(6), u"-1"_s), minimum(cell(7), u"-1"_s),
        numberText(leadingNumber(cell(9))), functionCode(cell(11)), RowsFile::isTicked(cell(4)) ? u"1"_s : u"0"_s,
        QString::number(ranges.size() / 2)};
    // Without a range and a condition the line goes on.
    const bool goesOn = ranges.isEmpty() && conditions.isEmpty();
    return (fixed + ranges + conditions).join(u',') + (goesOn ? u","_s : u"\r\n"_s);
}

/// The fields after "[Paramater]", one by one.
class Fields
{
public:
    explicit Fields(const QString &text) : m_text(text) { }

    bool atEnd() const { return m_place >= m_text.size(); }
    bool failed() const { return m_failed; }
    int number() { return next().toInt(); }
    QString next()
    {
        m_failed = m_failed || atEnd();
        qsizetype end = m_place;
        while (end < m_text.size() && m_text[end] != u',' && m_text[end] != u'\r') {
            ++end;
        }
        const QString field = m_text.mid(m_place, end - m_place);
        m_place = end + (m_text.mid(end, 2) == "\r\n"_L1 ? 2 : 1);
        return field;
    }

private:
    QString m_text;
    qsizetype m_place = 0;
    bool m_failed = false;
};

QString rangeText(Fields &fields)
{
    const QString lower = fields.next();
    const QString upper = fields.next();
    return upper == u"0" ? lower : lower + u'-' + (upper == u"-1" ? QString() : upper);
}

QString conditionText(Fields &fields)
{
    const QString subject = fields.next();
    const int kind = fields.number();
    const QString text = subject + (kind % 2 == 0 ? u'=' : u'/') + fields.next();
    return kind < 2 ? text : text + u'-' + fields.next();
}

RowsModel::Row rowFrom(Fields &fields)
{
    RowsModel::Row row;
    const int conditionCount = fields.number();
    for (const size_t column : {0, 9, 1, 7, 4, 5, 6, 8, 10, 3}) {
        row.at(column) = fields.next();
    }
    for (const size_t minimum : {4, 5, 6}) {
        row.at(minimum).replace(u"-1"_s, u"No"_s);
    }
    row[10] = u"%1"_s.arg(quint16(row[10].toInt()), 4, 16, QLatin1Char('0')).toUpper();
    row[11] = QString::number(conditionCount);
    QStringList ranges;
    for (int count = fields.number(); count > 0 && !fields.failed(); --count) {
        ranges << rangeText(fields);
    }
    row[2] = ranges.join(u',');
    QStringList conditions;
    for (int count = conditionCount; count > 0 && !fields.failed(); --count) {
        conditions << conditionText(fields);
    }
    row[12] = conditions.join(u',');
    return row;
}

QByteArray fileText(const QString &machine, const std::vector<RowsModel::Row> &rows)
{
    QString text = u"[Inverter]\r\n"_s + machine + u"Paramater=%1\r\n[Paramater]\r\n"_s.arg(rows.size());
    for (const RowsModel::Row &row : rows) {
        text += rowText(row);
    }
    return text.toLatin1();
}

} // namespace

bool RowsFile::isTicked(const QString &text)
{
    return isNumber(text) && text.toDouble() != 0;
}

QByteArray RowsFile::bytes(const std::vector<RowsModel::Row> &rows)
{
    return fileText(u"Name=XT-200\r\nTypeCode=1\r\nVCapacity=2\r\nCode=35\r\nCapacity0=0.4\r\nICapacity0=2.5\r\n"
                    "Option0=A\r\nSoftWareVersion=1.00\r\n"_s,
        rows);
}

QByteArray RowsFile::untitledBytes(const std::vector<RowsModel::Row> &rows)
{
    return fileText(u"Name=\r\nTypeCode=\r\nVCapacity=\r\nCode=\r\nSoftWareVersion=\r\n"_s, rows);
}

std::optional<std::vector<RowsModel::Row>> RowsFile::rows(const QByteArray &bytes)
{
    static const QRegularExpression head(u"^\\[Inverter\\]\r\nName=[^\r]+\r\n(?:[^\r\n]*\r\n)*Paramater=(\\d+)\r\n"
                                         "\\[Paramater\\]\r\n"_s);
    const QString text = QString::fromLatin1(bytes);
    const QRegularExpressionMatch match = head.match(text);
    Fields fields(text.mid(match.capturedLength()));
    std::vector<RowsModel::Row> rows;
    while (!fields.atEnd() && !fields.failed()) {
        rows.push_back(rowFrom(fields));
    }
    const bool isWhole = match.hasMatch() && !fields.failed() && rows.size() == match.captured(1).toUInt();
    return isWhole ? std::optional(rows) : std::nullopt;
}
