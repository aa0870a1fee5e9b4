#include "tool/Csv.h"

#include "tool/ToolTexts.h"

#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString csvField(const QString &text)
{
    const bool needsQuotes = text.contains(u',') || text.contains(u'"') || text.contains(u'\n') || text.contains(u'\r')
        || text.startsWith(u' ') || text.endsWith(u' ');
    return needsQuotes ? u'"' + QString(text).replace(u'"', u"\"\""_s) + u'"' : text;
}

/// Takes a text apart, character by character.
class CsvReader
{
public:
    explicit CsvReader(QStringView text) : m_text(text) { }

    CsvInput read();

private:
    void readRecord();
    void addField(CsvRecord &record);
    QString readField();
    QString readQuoted();
    bool atEnd() const { return m_at == m_text.size(); }
    bool atLineEnd() const { return atEnd() || m_text[m_at] == u'\n' || m_text.sliced(m_at).startsWith(u"\r\n"); }
    bool atSeparator() const { return atLineEnd() || m_text[m_at] == u','; }
    CsvPlace place() const { return {m_line, int(m_at - m_lineAt) + 1}; }
    QChar take();
    void fail(ToolText what);

    QStringView m_text;
    qsizetype m_at = 0;
    qsizetype m_lineAt = 0;
    int m_line = 1;
    CsvInput m_input;
};

CsvInput CsvReader::read()
{
    while (!atEnd() && !m_input.failure) {
        readRecord();
    }
    return std::move(m_input);
}

void CsvReader::readRecord()
{
    CsvRecord record;
    addField(record);
    while (!atLineEnd() && !m_input.failure) {
        take();
        addField(record);
    }
    if (!atEnd() && m_text[m_at] == u'\r') {
        take();
    }
    if (!atEnd()) {
        take();
    }
    m_input.records << record;
}

void CsvReader::addField(CsvRecord &record)
{
    record.places << place();
    record.fields << readField();
}

QString CsvReader::readField()
{
    if (!atEnd() && m_text[m_at] == u'"') {
        return readQuoted();
    }
    const qsizetype begin = m_at;
    while (!atSeparator()) {
        if (m_text[m_at] == u'"') {
            fail(ToolText::CsvQuoteInside);
        }
        take();
    }
    return m_text.sliced(begin, m_at - begin).toString();
}

QString CsvReader::readQuoted()
{
    take();
    QString field;
    while (!atEnd()) {
        const QChar character = take();
        if (character != u'"') {
            field += character;
        } else if (!atEnd() && m_text[m_at] == u'"') {
            field += take();
        } else {
            if (!atSeparator()) {
                fail(ToolText::CsvTextAfterQuote);
                take();
            }
            return field;
        }
    }
    fail(ToolText::CsvQuoteOpen);
    return field;
}

QChar CsvReader::take()
{
    const QChar character = m_text[m_at++];
    if (character == u'\n') {
        ++m_line;
        m_lineAt = m_at;
    }
    return character;
}

void CsvReader::fail(ToolText what)
{
    if (!m_input.failure) {
        m_input.failure = toolText(what, {QString::number(place().line), QString::number(place().column)});
    }
}

/// Where bytes stop being UTF-8.
CsvPlace placeOfFirstFault(const QByteArray &bytes)
{
    CsvPlace place;
    for (const QByteArray &line : bytes.split('\n')) {
        if (!QByteArrayView(line).isValidUtf8()) {
            QStringDecoder decoder(QStringDecoder::Utf8);
            QString before;
            for (qsizetype at = 0; at < line.size() && !decoder.hasError(); ++at) {
                place.column = int(before.size()) + 1;
                before += QString(decoder(QByteArrayView(line).sliced(at, 1)));
            }
            break;
        }
        ++place.line;
    }
    return place;
}

} // namespace

QByteArray csvOf(const QList<QStringList> &records)
{
    QByteArray csv;
    for (const QStringList &record : records) {
        QStringList fields;
        std::ranges::transform(record, std::back_inserter(fields), csvField);
        csv += fields.join(u',').toUtf8() + "\r\n";
    }
    return csv;
}

CsvInput readCsv(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    if (decoder.hasError()) {
        const CsvPlace place = placeOfFirstFault(bytes);
        return {{}, toolText(ToolText::CsvNotUtf8, {QString::number(place.line), QString::number(place.column)})};
    }
    return CsvReader(text).read();
}
