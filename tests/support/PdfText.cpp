#include "tests/support/PdfText.h"

#include "tests/support/MachineProgram.h"

#include <QXmlStreamReader>

#include <algorithm>
#include <stdexcept>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

double number(const QXmlStreamReader &xml, const QString &attribute)
{
    return xml.attributes().value(attribute).toDouble();
}

} // namespace

QStringList PdfPage::texts() const
{
    QStringList texts;
    for (const PdfWord &word : words) {
        texts << word.text;
    }
    return texts;
}

int PdfPage::count(const QString &text) const
{
    return int(texts().count(text));
}

PdfWord PdfPage::word(const QString &text) const
{
    const auto found = std::ranges::find(words, text, &PdfWord::text);
    if (found == words.end()) {
        throw std::runtime_error("no " + text.toStdString() + " in: " + texts().join(u' ').toStdString());
    }
    return *found;
}

QStringList PdfPage::lines() const
{
    QList<PdfWord> sorted = words;
    std::ranges::sort(
        sorted, {}, [](const PdfWord &word) { return std::pair(qRound(word.box.top()), word.box.left()); });
    QStringList lines;
    double bottom = 0;
    for (const PdfWord &word : std::as_const(sorted)) {
        if (lines.isEmpty() || word.box.center().y() > bottom) {
            lines.append(word.text);
            bottom = word.box.bottom();
        } else {
            lines.last() += u' ' + word.text;
        }
    }
    return lines;
}

QList<PdfPage> readPdf(const QString &fileName)
{
    QXmlStreamReader xml(outputOfMachineProgram(u"pdftotext"_s, {u"-bbox"_s, fileName, u"-"_s}));
    QList<PdfPage> pages;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        if (xml.name() == u"page"_s) {
            pages.append({{number(xml, u"width"_s), number(xml, u"height"_s)}, {}});
        } else if (xml.name() == u"word"_s) {
            const QPointF topLeft(number(xml, u"xMin"_s), number(xml, u"yMin"_s));
            const QPointF bottomRight(number(xml, u"xMax"_s), number(xml, u"yMax"_s));
            pages.last().words.append({xml.readElementText(), {topLeft, bottomRight}});
        }
    }
    return pages;
}

QImage renderPdfPage(const QString &fileName, int page, int dotsPerInch)
{
    const QString number = QString::number(page);
    const QString resolution = QString::number(dotsPerInch);
    const QByteArray picture = outputOfMachineProgram(
        u"pdftoppm"_s, {u"-png"_s, u"-r"_s, resolution, u"-f"_s, number, u"-l"_s, number, fileName});
    return QImage::fromData(picture, "PNG");
}
