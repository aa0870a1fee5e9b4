#include "help/HelpSearch.h"

#include "help/HelpLibrary.h"

#include <QMap>
#include <QSet>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace {

/// Which of the words searched for a sentence has.
struct SentenceFinding
{
    QSet<QString> words;
    TextSpan first;
};

using Findings = QMap<qsizetype, SentenceFinding>; ///< by the sentence's number in the page

void note(Findings &findings, const QString &word, const QList<TextSpan> &spans, const QList<TextSpan> &sentences)
{
    for (const TextSpan &span : spans) {
        const auto next = std::ranges::upper_bound(sentences, span.start, {}, &TextSpan::start);
        SentenceFinding &finding = findings[next - sentences.begin() - 1];
        if (finding.words.isEmpty() || span.start < finding.first.start) {
            finding.first = span;
        }
        finding.words.insert(word);
    }
}

// A heading is one sentence, even if its number has full stops.
QList<TextSpan> sentencesOf(const QTextBlock &block)
{
    const QString text = block.text();
    if (block.blockFormat().headingLevel() > 0) {
        return {{block.position(), static_cast<int>(text.size())}};
    }
    QList<TextSpan> sentences;
    QTextBoundaryFinder ends(QTextBoundaryFinder::Sentence, text);
    for (qsizetype start = 0, end = ends.toNextBoundary(); end > start; end = ends.toNextBoundary()) {
        sentences.append({block.position() + static_cast<int>(start), static_cast<int>(end - start)});
        start = end;
    }
    return sentences;
}

QList<TextSpan> sentencesOf(const QTextDocument &document)
{
    QList<TextSpan> sentences;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        sentences.append(sentencesOf(block));
    }
    return sentences;
}

QString readable(const QString &text, TextSpan sentence)
{
    return text.mid(sentence.start, sentence.length).remove(QChar::ObjectReplacementCharacter).simplified();
}

} // namespace

QList<HelpHit> HelpSearch::find(const QString &text)
{
    readPages();
    const QStringList words = FoldedText::words(text);
    QList<HelpHit> hits;
    for (const Page &page : m_pages) {
        const HelpHit hit = hitOf(page, words);
        if (hit.count > 0) {
            hits.append(hit);
        }
    }
    std::ranges::stable_sort(hits, std::ranges::greater(), &HelpHit::count);
    return hits;
}

// Its count is 0 if one of the words is missing.
HelpHit HelpSearch::hitOf(const Page &page, const QStringList &words)
{
    HelpHit hit{page.title, page.address, 0, {}};
    Findings findings;
    for (const QString &word : words) {
        const QList<TextSpan> spans = page.folded.spansOf(word);
        if (spans.isEmpty()) {
            return {page.title, page.address, 0, {}};
        }
        note(findings, word, spans, page.sentences);
        hit.count += static_cast<int>(spans.size());
    }
    const QSet<QString> wanted(words.begin(), words.end());
    const bool isWhole = std::ranges::any_of(findings, [&](const auto &each) { return each.words == wanted; });
    for (const auto [sentence, finding] : std::as_const(findings).asKeyValueRange()) {
        if (!isWhole || finding.words == wanted) {
            hit.sentences.append({readable(page.text, page.sentences.at(sentence)), finding.first});
        }
    }
    return hit;
}

// Not before the first search: most users of a help page never search.
void HelpSearch::readPages()
{
    if (!m_pages.isEmpty()) {
        return;
    }
    for (const QUrl &address : m_library.pages()) {
        QTextDocument document;
        document.setHtml(QString::fromUtf8(m_library.data(address)));
        const QString title = document.metaInformation(QTextDocument::DocumentTitle);
        const QString text = document.toPlainText();
        m_pages.append({title, address, text, FoldedText(text), sentencesOf(document)});
    }
}
