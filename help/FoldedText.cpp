#include "help/FoldedText.h"

#include <QTextBoundaryFinder>

FoldedText::FoldedText(const QString &text)
{
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype start = 0, end = letters.toNextBoundary(); end > start; end = letters.toNextBoundary()) {
        const QString letter = text.mid(start, end - start);
        m_folded += letter.normalized(QString::NormalizationForm_KC).toCaseFolded();
        m_origins.resize(m_folded.size(), {static_cast<int>(start), static_cast<int>(end - start)});
        start = end;
    }
}

QStringList FoldedText::words(const QString &typed)
{
    return FoldedText(typed).folded().split(u' ', Qt::SkipEmptyParts);
}

QList<TextSpan> FoldedText::spansOf(const QString &word) const
{
    QList<TextSpan> spans;
    for (qsizetype at = m_folded.indexOf(word); at >= 0; at = m_folded.indexOf(word, at + word.size())) {
        const TextSpan first = m_origins.at(at);
        const TextSpan last = m_origins.at(at + word.size() - 1);
        spans.append({first.start, last.start + last.length - first.start});
    }
    return spans;
}
