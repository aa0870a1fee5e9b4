#include "print/PageText.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

PageText &PageText::addCodes(QStringView codes)
{
    while (!codes.isEmpty()) {
        const qsizetype slash = codes.indexOf(u'/');
        if (slash < 0 || slash + 1 == codes.size()) {
            return addText(codes.toString());
        }
        addText(codes.first(slash).toString());
        addCode(codes.at(slash + 1));
        codes = codes.sliced(slash + 2);
    }
    return *this;
}

PageText &PageText::addText(const QString &text)
{
    if (!text.isEmpty()) {
        QString oneLine = text;
        oneLine.replace(u'\n', u' ').replace(u'\r', u' ');
        m_parts.append({Kind::Text, oneLine});
    }
    return *this;
}

void PageText::addCode(QChar code)
{
    struct Code
    {
        char16_t letter;
        Kind kind;
    };
    static constexpr Code codes[] = {
        {u'l', Kind::Left}, {u'c', Kind::Centre}, {u'r', Kind::Right}, {u'n', Kind::NewLine}, {u'p', Kind::PageNumber}};

    const auto *found = std::ranges::find(codes, code.unicode(), &Code::letter);
    if (found != std::end(codes)) {
        m_parts.append({found->kind, {}});
    } else {
        addText(code == u'/' ? u"/"_s : u'/' + QString(code));
    }
}

QList<PageTextLine> PageText::lines(int pageNumber) const
{
    QList<PageTextLine> lines;
    if (!m_parts.isEmpty()) {
        lines.append(PageTextLine{});
    }
    QString PageTextLine::*position = &PageTextLine::left;
    for (const Part &part : m_parts) {
        switch (part.kind) {
        case Kind::Left:
            position = &PageTextLine::left;
            break;
        case Kind::Centre:
            position = &PageTextLine::centre;
            break;
        case Kind::Right:
            position = &PageTextLine::right;
            break;
        case Kind::NewLine:
            lines.append(PageTextLine{});
            break;
        case Kind::PageNumber:
            lines.last().*position += QString::number(pageNumber);
            break;
        case Kind::Text:
            lines.last().*position += part.text;
            break;
        }
    }
    return lines;
}
