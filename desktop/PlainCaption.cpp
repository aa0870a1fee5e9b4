#include "desktop/PlainCaption.h"

#include "runtime/FileName.h"

#include <QFontMetrics>
#include <QLabel>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace {

constexpr int widestWord = 300; ///< pixels; the system breaks the lines of a message box at 500
constexpr qsizetype longestWord = 1000;
constexpr qsizetype keptBeginning = 300;

QString shortened(const QString &word)
{
    if (word.size() <= longestWord) {
        return word;
    }
    return word.left(keptBeginning) + u'\u2026' + word.right(longestWord - keptBeginning - 1);
}

/// The word with a zero-width space after each character, where a line can break.
QString loosened(const QString &word)
{
    QString loose;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, word);
    qsizetype begin = 0;
    for (qsizetype end = characters.toNextBoundary(); end > 0; end = characters.toNextBoundary()) {
        loose += QStringView(word).sliced(begin, end - begin);
        loose += u'\u200b';
        begin = end;
    }
    return loose;
}

} // namespace

QString plainTitle(const QString &text)
{
    return shownFileName(text).replace("[*]"_L1, "[*][*]"_L1);
}

QString plainMenuText(const QString &text)
{
    QString shown = shownFileName(text);
    shown.replace(u'&', "&&"_L1);
    for (const QChar control : {u'\t', u'\n', u'\r'}) {
        shown.replace(control, u' ');
    }
    return shown;
}

QString breakable(const QString &wholeText, const QFontMetrics &metrics)
{
    const QString text = shownFileName(wholeText);
    QString result;
    QTextBoundaryFinder words(QTextBoundaryFinder::Line, text);
    qsizetype begin = 0;
    for (qsizetype end = words.toNextBoundary(); end > 0; end = words.toNextBoundary()) {
        const QString word = text.sliced(begin, end - begin);
        result += metrics.horizontalAdvance(word) > widestWord ? loosened(shortened(word)) : word;
        begin = end;
    }
    return result;
}

QLabel *newPlainLabel(const QString &name, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}
