#include "check/HeaderCheck.h"

#include "runtime/AnsiText.h"

#include <QHash>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct HeaderLine
{
    QByteArray text; ///< without spaces at its ends
    int number = 0; ///< in the file, from 1

    bool isSection() const { return text.startsWith('['); }
    bool isInverterSection() const
    {
        return isSection() && text.mid(1, text.lastIndexOf(']') - 1).trimmed().toLower() == "inverter";
    }
    /// Lower case, as keys are looked up; empty for a line that has none.
    QByteArray key() const
    {
        const bool isComment = text.startsWith(';');
        const qsizetype equals = text.indexOf('=');
        return isComment || equals < 0 ? QByteArray() : text.first(equals).trimmed().toLower();
    }
    QByteArray value() const { return text.sliced(text.indexOf('=') + 1).trimmed(); }
};

bool isLineEnd(char byte)
{
    return byte == '\r' || byte == '\n';
}

/// The lines before the rows, without empty ones.
QList<HeaderLine> headerLines(QByteArrayView bytes)
{
    QList<HeaderLine> lines;
    constexpr QByteArrayView utf8Mark = "\xEF\xBB\xBF";
    const char *at = bytes.begin() + (bytes.startsWith(utf8Mark) ? utf8Mark.size() : 0);
    for (int number = 1; at != bytes.end(); ++number) {
        const auto *end = std::find_if(at, bytes.end(), isLineEnd);
        const QByteArray text = QByteArray(at, end - at);
        if (text == "[Paramater]") {
            break;
        }
        if (!text.trimmed().isEmpty()) {
            lines.append({text.trimmed(), number});
        }
        const bool isPair = end != bytes.end() && end + 1 != bytes.end() && *end == '\r' && end[1] == '\n';
        at = end == bytes.end() ? end : end + (isPair ? 2 : 1);
    }
    return lines;
}

/// Goes through the lines of a file in the light of what a save would make of them.
class HeaderCheck
{
public:
    HeaderCheck(const QList<HeaderLine> &written, const AnsiCodePage &page);

    Findings check(const QList<HeaderLine> &lines);

private:
    void checkLine(const HeaderLine &line);
    void checkValue(const HeaderLine &line, const HeaderLine &written);

    const AnsiCodePage &m_page;
    QHash<QByteArray, HeaderLine> m_written; ///< by key
    QSet<QByteArray> m_met;
    Findings m_findings;
};

HeaderCheck::HeaderCheck(const QList<HeaderLine> &written, const AnsiCodePage &page) : m_page(page)
{
    for (const HeaderLine &line : written) {
        if (!line.isSection()) {
            m_written.insert(line.key(), line);
        }
    }
}

/// Only the first section "[Inverter]" is read.
Findings HeaderCheck::check(const QList<HeaderLine> &lines)
{
    enum class Section { Before, Own, After } section = Section::Before;
    for (const HeaderLine &line : lines) {
        if (section == Section::Before && line.isInverterSection()) {
            section = Section::Own;
        } else if (section == Section::Own && line.isSection()) {
            section = Section::After;
        }
        if (section == Section::Own && !line.isSection()) {
            checkLine(line);
        } else if (section != Section::Own) {
            m_findings.append({CheckId::LineDropped, {}, {}, {QString::number(line.number), m_page.decode(line.text)}});
        }
    }
    return std::move(m_findings);
}

void HeaderCheck::checkLine(const HeaderLine &line)
{
    const QByteArray key = line.key();
    if (!m_written.contains(key) || m_met.contains(key)) {
        m_findings.append({CheckId::LineDropped, {}, {}, {QString::number(line.number), m_page.decode(line.text)}});
        return;
    }
    m_met.insert(key);
    checkValue(line, m_written[key]);
}

void HeaderCheck::checkValue(const HeaderLine &line, const HeaderLine &written)
{
    constexpr qsizetype maxBytes = 127;
    constexpr qsizetype quotes = 2;
    const QString key = QString::fromLatin1(written.text.first(written.text.indexOf('=')));
    const bool isQuoted = line.value().startsWith('"') || line.value().startsWith('\'');
    const qsizetype length = line.value().size() - (isQuoted ? quotes : 0);
    if (length > maxBytes) {
        m_findings.append({CheckId::ValueCut, {}, key, {QString::number(length)}});
    } else if (line.text != written.text) {
        m_findings.append(
            {CheckId::SpelledOtherwise, {}, key, {m_page.decode(line.text), m_page.decode(written.text)}});
    }
}

} // namespace

Findings checkHeader(QByteArrayView bytes, QByteArrayView written, const AnsiCodePage &page)
{
    return HeaderCheck(headerLines(written), page).check(headerLines(bytes));
}
