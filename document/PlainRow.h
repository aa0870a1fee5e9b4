#pragma once

#include "document/RowFields.h"

#include <QByteArrayView>

#include <array>
#include <vector>

class AnsiCodePage;

/// A row of a file that an open and a save give back byte for byte, as nearly all rows are: its fields as bytes of the
/// file, and what is read of its ranges.
struct PlainRow
{
    struct Range : SettingRange
    {
        QByteArrayView lowerText;
        QByteArrayView upperText;
    };
    /// A condition on a parameter's number, "MODE" or "OP". Its values are in text order.
    struct Condition
    {
        QByteArrayView subject;
        QByteArrayView value1;
        QByteArrayView value2; ///< empty unless kind has PrCondition::HasRange
        quint8 kind = 0;
    };

    QByteArrayView bytes; ///< with the row's end
    std::array<QByteArrayView, RowFields::textCount> texts; ///< in the order of the file
    double setting = 0; ///< the value of the factory setting
    int settingDecimals = 0; ///< how many digits it has after the point
    std::vector<Range> ranges;
    std::vector<Condition> conditions;

    /// By position among the texts, from 1 (ColumnInfo::fileField).
    QByteArrayView text(int field) const { return texts[std::size_t(field - 1)]; }
};

/// Takes plain rows off the bytes of a file, without decoding them. It is strict: a row that it refuses may well come
/// back as it is, but only the full road, reading and writing it, can tell.
class PlainRowReader
{
public:
    explicit PlainRowReader(const AnsiCodePage &page) : PlainRowReader(QByteArrayView(), page) { }
    /// rows: what follows the line "[Paramater]"; must outlive the reader's rows.
    PlainRowReader(QByteArrayView rows, const AnsiCodePage &page) : m_at(rows.begin()), m_end(rows.end()), m_page(page)
    {
    }

    bool atEnd() const { return m_at == m_end; }
    /// Takes the next row. False if it is not plain, or there is none: then it is not taken.
    bool next();
    /// The same for the first one of other rows, in the same storage.
    bool takeFirst(QByteArrayView rows);
    /// The row taken last, until the next one is.
    const PlainRow &row() const { return m_row; }

    /// Takes and decodes the next row, plain or not. False if there is none or it cannot be read as a whole.
    bool decodeNext(PrRecord &record);
    /// The bytes of the row taken last, plain or not.
    QByteArrayView bytes() const { return m_row.bytes; }

private:
    bool takeRow();
    bool takeSeparator();
    void takeField(QByteArrayView &field);
    bool takeEntry(QByteArrayView &field);
    bool takeCount(int &count);
    bool takeText(QByteArrayView &text);
    bool takeTexts();
    bool takeRanges(int count);
    bool takeConditions(int count);
    bool takeCondition(PlainRow::Condition &condition);
    bool takeEnd();

    const char *m_at;
    const char *m_end;
    const AnsiCodePage &m_page;
    PlainRow m_row;
};

/// What follows the line "[Paramater]"; null if there is no such line.
QByteArrayView rowsOfFile(QByteArrayView bytes);
